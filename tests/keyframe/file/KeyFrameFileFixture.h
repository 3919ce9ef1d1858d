// Shared set-up of the settings file tests: a temporary directory for the files, a list model and
// settings in a known state, and the check that a failing read leaves that state untouched.
#ifndef VEXTEST_KEYFRAMEFILEFIXTURE_H
#define VEXTEST_KEYFRAMEFILEFIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"
#include "model/ListModelKeyFrame.h"
#include "support/AddOnFixture.h"
#include "support/RecordingListObserver.h"
#include "support/TemporaryDirectory.h"

namespace vexplot {
namespace vexutiltools {

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

class KeyFrameFileFixture : public vextest::AddOnFixture {
protected:
    void SetUp() override;
    void TearDown() override;

    // Writes the bytes to a file of the temporary directory and returns its UTF-8 name.
    std::string createFile(const std::string& content,
                           const std::string& name = "settings.keyframe") const;
    static std::string contentOf(const std::string& fileName);

    // Reads the file into model_ and settings_, which hold the state before every read (settings
    // and two key frames unlike any default, support/KeyFrameData.h) and an observer attached.
    // Expects the read to fail, checks that settings, key frames and observer saw nothing of it,
    // and returns the failure.
    ReadFailure readFailing(const std::string& fileName);
    ReadFailure readTextFailing(const std::string& content) {
        return readFailing(createFile(content));
    }

    // Puts settings_ and model_ back into the state before a read and forgets what the observer
    // was told.
    void resetState();
    // Expects settings_, model_ and the observer as resetState left them.
    void expectStateUntouched() const;

    vextest::TemporaryDirectory directory_;
    ListModelKeyFrame model_;
    AnimationSettings_s settings_;
    vextest::RecordingListObserver observer_;
};

// A line error as a reader reports it.
std::string lineError(const std::string& text, int lineNumber);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
