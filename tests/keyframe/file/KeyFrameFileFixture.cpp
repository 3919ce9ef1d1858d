#include "KeyFrameFileFixture.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "addon/KeyFrameError.h"
#include "file/FileSystemPath.h"
#include "file/KeyFrameFile.h"
#include "support/KeyFrameData.h"

namespace vexplot {
namespace vexutiltools {

const char* const ExampleFileText =
    "#!KeyFrame 1\n"
    "\n"
    "%Settings\n"
    " AnimateTime false\n"
    " TimeAnimationOperation Forward\n"
    " NumCycles 1\n"
    " AnimateStreamtraces false\n"
    " FadeIn false\n"
    " FadeOut true\n"
    "%Settings\n"
    "\n"
    "%KeyFrameView\n"
    " Name \"Front view\"\n"
    " Position 1.5 -20 3.25\n"
    " Angle 30 45 0\n"
    " Width 12.3457\n"
    " FrameCount 20\n"
    " SolutionTime 0\n"
    "%KeyFrameView\n"
    "\n"
    "%KeyFrameView\n"
    " Name \"Top\"\n"
    " Position 0 0 50\n"
    " Angle 0 0 0\n"
    " Width 10\n"
    " FrameCount 1\n"
    " SolutionTime 0.5\n"
    "%KeyFrameView";

std::vector<KeyFrame_s> exampleKeyFrames() {
    return {vextest::keyFrame("Front view", {1.5, -20, 3.25, 30, 45, 0, 12.345678}, 20, 0),
            vextest::keyFrame("Top", {0, 0, 50, 0, 0, 0, 10}, 1, 0.5)};
}

AnimationSettings_s exampleSettings() {
    return vextest::animationSettings(vextest::option::FadeOut);
}

std::string lineError(const std::string& text, int lineNumber) {
    return "Error reading key frame settings file.\n\n" + text +
           "\n\nError occurred on line number " + std::to_string(lineNumber) + ".";
}

void KeyFrameFileFixture::SetUp() {
    AddOnFixture::SetUp();
    model_.addObserver(&observer_);
    resetState();
}

void KeyFrameFileFixture::resetState() {
    settings_ = vextest::settingsUnlikeAnyDefault();
    model_.setItems(vextest::keyFramesUnlikeAnyDefault());
    observer_.changes.clear();
}

void KeyFrameFileFixture::expectStateUntouched() const {
    EXPECT_EQ(settings_, vextest::settingsUnlikeAnyDefault())
        << "the settings changed in a failing read";
    EXPECT_EQ(model_.getItems(), vextest::keyFramesUnlikeAnyDefault())
        << "the list changed in a failing read";
    EXPECT_TRUE(observer_.changes.empty()) << "the list told its observers of a failing read";
}

void KeyFrameFileFixture::TearDown() {
    model_.removeObserver(&observer_);
    AddOnFixture::TearDown();
}

std::string KeyFrameFileFixture::createFile(const std::string& content,
                                            const std::string& name) const {
    const std::string fileName = directory_.file(name);
    std::ofstream out(fileSystemPath(fileName), std::ios::binary);
    out << content;
    return fileName;
}

std::string KeyFrameFileFixture::contentOf(const std::string& fileName) {
    std::ifstream in(fileSystemPath(fileName), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

ReadFailure KeyFrameFileFixture::readFailing(const std::string& fileName) {
    ReadFailure failure{"", ""};
    try {
        KeyFrameFile().read(fileName, settings_, model_);
        ADD_FAILURE() << "the read succeeded";
    } catch (const KeyFrameError& error) {
        failure = ReadFailure{"KeyFrameError", error.what()};
    } catch (const std::out_of_range& error) {
        failure = ReadFailure{"std::out_of_range", error.what()};
    } catch (const std::exception& error) {
        failure = ReadFailure{"other", error.what()};
    }
    expectStateUntouched();
    return failure;
}

}  // namespace vexutiltools
}  // namespace vexplot
