#include "macro/SettingsFileCommands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "addon/KeyFrameError.h"
#include "support/AddOnFixture.h"
#include "support/TemporaryDirectory.h"
#include "ui/DialogMain.h"
#include "vexhost/MacroRecorder.h"

namespace vexplot {
namespace vexutiltools {
namespace {

class SettingsFileCommandsTest : public vextest::AddOnFixture {
protected:
    vextest::TemporaryDirectory directory_;
};

ListModelKeyFrame& twoKeyFrames(ListModelKeyFrame& model) {
    KeyFrame_s a;
    a.name = "a";
    a.frameCount = 2;
    KeyFrame_s b = a;
    b.name = "b";
    model.setItems({a, b});
    return model;
}

TEST_F(SettingsFileCommandsTest, SavingAndOpeningAreRecordedAndSetTheDialogsFileName) {
    const std::string fileName = directory_.file("both.keyframe");
    ListModelKeyFrame saved;
    AnimationSettings_s settings;
    settings.NumCycles = 4;
    host().macro().setRecording(true);

    saveSettingsFile(fileName, twoKeyFrames(saved), settings);
    EXPECT_EQ(DialogMain::instance().getSettingsFileChooser().getFileName(), fileName);

    DialogMain::instance().getSettingsFileChooser().setFileName("elsewhere.keyframe");
    ListModelKeyFrame opened;
    AnimationSettings_s openedSettings;
    openSettingsFile(fileName, opened, openedSettings);
    EXPECT_EQ(opened.getItems(), saved.getItems());
    EXPECT_EQ(openedSettings.NumCycles, 4u);
    EXPECT_EQ(DialogMain::instance().getSettingsFileChooser().getFileName(), fileName);

    EXPECT_EQ(host().macro().lines(),
              (std::vector<std::string>{
                  "$!ADDON \"Key Frame Animation\" SaveSettingsFile FileName=" + fileName,
                  "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=" + fileName}));
}

TEST_F(SettingsFileCommandsTest, OpeningDoesNotChangeTheDialogsListOrSettingsByItself) {
    const std::string fileName = directory_.file("other.keyframe");
    ListModelKeyFrame saved;
    AnimationSettings_s settings;
    settings.FadeIn = true;
    saveSettingsFile(fileName, twoKeyFrames(saved), settings);

    ListModelKeyFrame opened;
    AnimationSettings_s openedSettings;
    openSettingsFile(fileName, opened, openedSettings);
    EXPECT_EQ(DialogMain::instance().getKeyFrameModel().getItemCount(), 0u);
    EXPECT_FALSE(DialogMain::instance().getSettings().FadeIn);
}

TEST_F(SettingsFileCommandsTest, AFailureLeavesTheDialogsFileNameAndRecordsNothing) {
    host().macro().setRecording(true);
    ListModelKeyFrame keyFrames;
    AnimationSettings_s settings;
    EXPECT_THROW(openSettingsFile(directory_.file("absent.keyframe"), keyFrames, settings),
                 KeyFrameError);
    EXPECT_THROW(saveSettingsFile(directory_.file("empty.keyframe"), keyFrames, settings),
                 KeyFrameError);
    EXPECT_EQ(DialogMain::instance().getSettingsFileChooser().getFileName(), "animation.keyframe");
    EXPECT_TRUE(host().macro().lines().empty());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
