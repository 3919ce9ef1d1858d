// The studio's user-interface side without a browser, for the tests of host/studio: the add-on
// loaded, a 3D frame, a studio loop whose roots are a folder of the test's own, and one page. A
// page's messages are either handled at once (send) or queued as the network queues them and
// taken by the loop's next step (deliver, step), which then publishes and draws as it does when
// it serves.
#ifndef VEXTEST_STUDIOLOOPFIXTURE_H
#define VEXTEST_STUDIOLOOPFIXTURE_H

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "studio/StudioLoop.h"
#include "support/AddOnFixture.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/GuiModel.h"
#include "vexhost/GuiUser.h"

namespace vextest {

class StudioLoopFixture : public AddOnFixture {
protected:
    static constexpr uint64_t Page = 1;
    using Json = nlohmann::json;

    void SetUp() override {
        AddOnFixture::SetUp();
        createFrame3D();
        startLoop(options());
    }
    void TearDown() override {
        loop_.reset();
        AddOnFixture::TearDown();
    }

    // The roots and the page's folder: the test's folder.
    vexhost::StudioOptions options() const {
        vexhost::StudioOptions options;
        options.roots = {scratch_.path().string()};
        options.webDirectory = scratch_.path().string();
        return options;
    }
    // A new loop in place of the one there (which ends first), and the page opened on it.
    void startLoop(const vexhost::StudioOptions& options) {
        loop_.reset();
        loop_ = std::make_unique<vexhost::Studio::Loop>(host(), options);
        loop_->deliver({vexhost::studio::NetworkEvent::Kind::Open, Page, {}});
    }

    void send(const std::string& message) { loop_->handleMessage(Page, message); }
    void deliver(const std::string& message) {
        loop_->deliver({vexhost::studio::NetworkEvent::Kind::Message, Page, message});
    }
    // One step at once, which publishes what the messages sent did (it has an event to take).
    void stepNow() {
        loop_->deliver(vexhost::studio::NetworkEvent([] {}));
        loop_->step();
    }
    // Steps the loop until `done` holds (false when it did not within the time).
    bool stepUntil(const std::function<bool()>& done,
                   std::chrono::seconds within = std::chrono::seconds(60)) {
        const auto end = std::chrono::steady_clock::now() + within;
        while (!done()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            loop_->step();
        }
        return true;
    }
    // A state key as last published; null when there is none.
    Json stateOf(const std::string& key) const {
        const auto found = loop_->state().find(key);
        return found == loop_->state().end() ? Json() : found->second;
    }

    // The answer the next question will get: it waits in the queue as if the person had
    // answered at once.
    void answerNext(const std::string& answerFields) {
        deliver("{\"type\":\"answer\",\"id\":" + std::to_string(++questions_) + "," + answerFields +
                "}");
    }
    const vexhost::GuiDialog& mainDialog() {
        return vexhost::GuiUser(host()).findDialog("Key Frame Animation");
    }
    int32_t controlId(const std::string& text) {
        return vexhost::GuiUser(host()).findControl(mainDialog(), text).id;
    }
    // A press of the main dialog's button, or a choice in its File menu, as the page sends it.
    void press(const std::string& label) {
        send(R"({"type":"gui","action":"press","id":)" + std::to_string(controlId(label)) + "}");
    }
    void chooseFileMenu(const std::string& item) {
        const int32_t id = vexhost::GuiUser(host()).findMenuEntry(mainDialog(), {"&File", item}).id;
        send(R"({"type":"gui","action":"menuEntry","id":)" + std::to_string(id) + "}");
    }
    void openMainDialog() {
        const auto& items = host().addOns().menuOptions();
        ASSERT_EQ(1u, items.size());
        send(R"({"type":"menu","id":"addon.0"})");
        ASSERT_TRUE(mainDialog().up);
    }
    std::vector<std::string> keyFrameNames() {
        const vexhost::GuiControl& list = vexhost::GuiUser(host()).findControlOfKind(
            mainDialog(), vexhost::GuiControl::Kind::List, 1);
        return list.items;
    }

    TemporaryDirectory scratch_{"studio-loop"};
    std::unique_ptr<vexhost::Studio::Loop> loop_;
    int questions_ = 0;
};

}  // namespace vextest

#endif
