#include "KeyFrameFileTestSupport.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "addon/KeyFrameError.h"
#include "file/FileSystemPath.h"
#include "file/KeyFrameFile.h"

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
    KeyFrame_s front;
    front.view = KeyFrameView_s{1.5, -20, 3.25, 30, 45, 0, 12.345678};
    front.name = "Front view";
    front.frameCount = 20;
    front.solutionTime = 0;
    KeyFrame_s top;
    top.view = KeyFrameView_s{0, 0, 50, 0, 0, 0, 10};
    top.name = "Top";
    top.frameCount = 1;
    top.solutionTime = 0.5;
    return {front, top};
}

AnimationSettings_s exampleSettings() {
    AnimationSettings_s settings;
    settings.AnimateTime = false;
    settings.TimeAnimationOperation = TimeAnimationOperation_e::Forward;
    settings.NumCycles = 1;
    settings.AnimateStreamtraces = false;
    settings.FadeIn = false;
    settings.FadeOut = true;
    return settings;
}

std::string lineError(const std::string& text, int lineNumber) {
    return "Error reading key frame settings file.\n\n" + text +
           "\n\nError occurred on line number " + std::to_string(lineNumber) + ".";
}

void KeyFrameFileTest::SetUp() {
    AddOnTest::SetUp();
    model_.addObserver(&observer_);
    resetState();
}

void KeyFrameFileTest::resetState() {
    settings_ = stateBeforeSettings();
    model_.setItems(stateBeforeKeyFrames());
    observer_.changes.clear();
}

void KeyFrameFileTest::expectStateUntouched() const {
    EXPECT_EQ(settings_, stateBeforeSettings()) << "the settings changed in a failing read";
    EXPECT_EQ(model_.getItems(), stateBeforeKeyFrames()) << "the list changed in a failing read";
    EXPECT_TRUE(observer_.changes.empty()) << "the list told its observers of a failing read";
}

void KeyFrameFileTest::TearDown() {
    model_.removeObserver(&observer_);
    AddOnTest::TearDown();
}

std::string KeyFrameFileTest::createFile(const std::string& content,
                                         const std::string& name) const {
    const std::string fileName = directory_.file(name);
    std::ofstream out(fileSystemPath(fileName), std::ios::binary);
    out << content;
    return fileName;
}

std::string KeyFrameFileTest::contentOf(const std::string& fileName) {
    std::ifstream in(fileSystemPath(fileName), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

AnimationSettings_s KeyFrameFileTest::stateBeforeSettings() {
    AnimationSettings_s settings;
    settings.AnimateTime = true;
    settings.TimeAnimationOperation = TimeAnimationOperation_e::Bounce;
    settings.NumCycles = 7;
    settings.Destination = Destination_e::ToFile;
    settings.AnimateStreamtraces = true;
    settings.FadeIn = true;
    settings.FadeOut = false;
    return settings;
}

std::vector<KeyFrame_s> KeyFrameFileTest::stateBeforeKeyFrames() {
    KeyFrame_s first;
    first.view = KeyFrameView_s{7, 8, 9, 10, 11, 12, 13};
    first.name = "Before 1";
    first.frameCount = 4;
    first.solutionTime = 2.5;
    KeyFrame_s second = first;
    second.name = "Before 2";
    second.view.X = -7;
    return {first, second};
}

ReadFailure KeyFrameFileTest::readFailing(const std::string& fileName) {
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
