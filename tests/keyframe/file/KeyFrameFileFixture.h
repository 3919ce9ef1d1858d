// Shared set-up of the settings file tests: a temporary directory for the files, a list model and
// settings in a known state, and the check that a failing read leaves that state untouched.
#ifndef VEXTEST_KEYFRAMEFILETESTSUPPORT_H
#define VEXTEST_KEYFRAMEFILETESTSUPPORT_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"
#include "model/ListModelKeyFrame.h"
#include "model/ListModelObserverInterface.h"
#include "support/AddOnTest.h"
#include "support/TemporaryDirectory.h"

namespace vexplot {
namespace vexutiltools {

// Counts what a list model tells it.
class CountingObserver : public ListModelObserverInterface {
public:
    void listModelChanged(const ListModelChange& change) override { changes.push_back(change); }
    std::vector<ListModelChange> changes;
};

// The two key frames and the settings of the file example in the class comment of KeyFrameFile.
std::vector<KeyFrame_s> exampleKeyFrames();
AnimationSettings_s exampleSettings();
// The bytes that writing the example gives.
extern const char* const ExampleFileText;

// What a read failed with: the exception's type and text.
struct ReadFailure {
    std::string type;  // "KeyFrameError", "std::out_of_range" or "other"
    std::string message;
};

class KeyFrameFileTest : public vextest::AddOnTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // Writes the bytes to a file of the temporary directory and returns its UTF-8 name.
    std::string createFile(const std::string& content,
                           const std::string& name = "settings.keyframe") const;
    static std::string contentOf(const std::string& fileName);

    // Reads the file into model_ and settings_, which hold the state before every read: settings
    // unlike any default, two key frames, an observer attached. Expects the read to fail, checks
    // that settings, key frames and observer saw nothing of it, and returns the failure.
    ReadFailure readFailing(const std::string& fileName);
    ReadFailure readTextFailing(const std::string& content) {
        return readFailing(createFile(content));
    }

    // Puts settings_ and model_ back into the state before a read and forgets what the observer
    // was told.
    void resetState();
    // Expects settings_, model_ and the observer as resetState left them.
    void expectStateUntouched() const;

    // The state that every read starts from.
    static AnimationSettings_s stateBeforeSettings();
    static std::vector<KeyFrame_s> stateBeforeKeyFrames();

    vextest::TemporaryDirectory directory_;
    ListModelKeyFrame model_;
    AnimationSettings_s settings_;
    CountingObserver observer_;
};

// A line error as a reader reports it.
std::string lineError(const std::string& text, int lineNumber);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
