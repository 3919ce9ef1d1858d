// The export of a team of processes (Exporter::setTeam), one member at a time: the team's other
// members are scripted (ScriptedTeam), the writer and the renderer record what they are asked.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/ExportLogLines.h"
#include "support/FailingRenderer.h"
#include "support/RecordingRenderer.h"
#include "support/RecordingWriter.h"
#include "support/RegisteredAddOnFixture.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/Drawing.h"
#include "vexhost/ExportTeam.h"
#include "vexhost/Exporter.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MoviePieces.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/SerialExportTeam.h"
#include "vexhost/UserDialogs.h"
#include "vexhost/View3D.h"
#include "vxsdkbase.h"

namespace {

using vexhost::ExportSettings;
using vexhost::ExportTeam;
using vextest::RecordingRenderer;
using vextest::RecordingWriter;
using vextest::ScopedLock;
using vextest::WriterRecord;

// A team whose other members are scripted: they draw nothing that the tallies count, are done at
// once, and fail or stop where the test says. This member's failure reads "member M: <message>".
class ScriptedTeam : public ExportTeam {
public:
    ScriptedTeam(int member, int size) : member_(member), size_(size) {}

    int member() const override { return member_; }
    int size() const override { return size_; }

    bool agreeOnStop(bool stopPressedHere) override {
        ++stopAgreements;
        return stopPressedHere || othersStop;
    }
    Verdict agree(const Outcome& mine) override {
        outcomes.push_back(mine);
        // The member that stopped brings its Stop to the agreement.
        const bool stopped = mine.stopped || stoppedElsewhere_;
        if (!mine.failure.empty())
            return {stopped, "member " + std::to_string(member_) + ": " + mine.failure};
        if (static_cast<int>(outcomes.size()) == failingAgreement)
            return {stopped, othersFailure};
        return {stopped, ""};
    }
    std::optional<Tally> offer(const Report& mine) override { return await(mine); }
    Tally await(const Report& mine) override {
        reports.push_back(mine);
        const int round = static_cast<int>(reports.size());
        stoppedElsewhere_ = stoppedElsewhere_ || round == stoppingTally;
        return {mine.framesDone, mine.stopped || round == stoppingTally,
                mine.failed || round == failingTally, mine.done};
    }

    // Another member brings othersFailure to this agreement (from 1: the start's, the pieces',
    // the join's); 0: never.
    int failingAgreement = 0;
    std::string othersFailure = "member 2: The disk is full.";
    int failingTally = 0;     // another member reports a failure in this tally (from 1)
    int stoppingTally = 0;    // another member reports Stop in this tally (from 1)
    bool othersStop = false;  // another member presses Stop at every progress check

    std::vector<Outcome> outcomes;
    std::vector<Report> reports;
    int stopAgreements = 0;

private:
    int member_;
    int size_;
    bool stoppedElsewhere_ = false;
};

class TeamExportTest : public vextest::RegisteredAddOnFixture {
protected:
    void SetUp() override {
        RegisteredAddOnFixture::SetUp();
        createFrame3D();
        host().exporter().setMovieWriterFactory([this](const ExportSettings&) {
            return std::make_unique<RecordingWriter>(record_, false);
        });
        host().drawing().setRenderer(std::make_unique<RecordingRenderer>(&pictures_));
        ScopedLock lock(addOn_);
        VexUtilExportSetup("ExportFName", nullptr, 0,
                           reinterpret_cast<VexArbParam_t>(fileName_.c_str()));
    }

    std::shared_ptr<ScriptedTeam> useTeam(int member, int size) {
        auto team = std::make_shared<ScriptedTeam>(member, size);
        host().exporter().setTeam(team);
        return team;
    }

    // Starts an export and takes `frames` frames, frame i with the view width i + 1, so the
    // pictures drawn tell which frames they are; false when the start is refused.
    bool record(int frames) {
        ScopedLock lock(addOn_);
        host().frames().active()->view().setWidth(1);
        if (!VexUtilExportStart())
            return false;
        for (int i = 1; i < frames; ++i) {
            host().frames().active()->view().setWidth(i + 1);
            VexUtilExportNextFrame();
        }
        return true;
    }
    bool finish() {
        ScopedLock lock(addOn_);
        return VexUtilExportFinish();
    }

    // The frames drawn so far, by their view widths less one.
    std::vector<int> framesDrawn() const {
        std::vector<int> frames;
        for (const RecordingRenderer::Call& call : pictures_)
            frames.push_back(static_cast<int>(call.scene.camera.viewWidth) - 1);
        return frames;
    }

    std::string piece(int member) const { return vexhost::moviePieceName(fileName_, member); }

    const vextest::TemporaryDirectory scratch_{"vexhost-team"};
    const std::string fileName_ = scratch_.file("film.mp4");
    WriterRecord record_;
    std::vector<RecordingRenderer::Call> pictures_;
};

TEST_F(TeamExportTest, ATeamOfOneDrawsEveryFrameAtTheFinishIntoTheMovie) {
    host().exporter().setTeam(std::make_shared<vexhost::SerialExportTeam>());
    ASSERT_TRUE(record(4));
    EXPECT_EQ(framesDrawn(), std::vector<int>{0}) << "the start takes the first picture";
    EXPECT_EQ(host().exporter().frameCount(), 4u);
    ASSERT_TRUE(finish());
    EXPECT_EQ(framesDrawn(), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(record_.settings.fileName, fileName_);
    EXPECT_EQ(record_.calls,
              (std::vector<std::string>{"open", "frame", "frame", "frame", "frame", "finish"}));
    EXPECT_EQ(host().exporter().log(),
              (std::vector<std::string>{vextest::exportStartedLine(21, 800, 600, fileName_),
                                        "recorded"}));
    EXPECT_EQ(
        host().progress().texts(),
        std::vector<std::string>{"Exporting \"" + fileName_ + "\": drawing 4 frames on 1 process"});
    EXPECT_FALSE(host().progress().isOpen());
    EXPECT_EQ(host().progress().checkedPercents().back(), 100);
    const vexhost::Exporter::Counts& counts = host().exporter().counts();
    EXPECT_EQ(counts.frames, 4u);
    EXPECT_EQ(counts.finishes, 1u);
    EXPECT_EQ(counts.failedFinishes, 0u);
}

TEST_F(TeamExportTest, AMemberDrawsItsRangeIntoItsPieceAndRemovesThePieceAfterTheJoin) {
    const std::shared_ptr<ScriptedTeam> team = useTeam(1, 3);
    std::ofstream(piece(1)) << "written by the writer";
    ASSERT_TRUE(record(7));
    EXPECT_TRUE(pictures_.empty()) << "member 1 takes no picture at the start";
    ASSERT_TRUE(finish());
    // 7 frames among 3 members: 3, 2 and 2.
    EXPECT_EQ(framesDrawn(), (std::vector<int>{3, 4}));
    EXPECT_EQ(record_.settings.fileName, piece(1));
    EXPECT_EQ(record_.calls, (std::vector<std::string>{"open", "frame", "frame", "finish"}));
    EXPECT_EQ(team->outcomes.size(), 3u) << "the start, the pieces, the join";
    EXPECT_EQ(team->reports.back().framesDone, 2u);
    EXPECT_TRUE(team->reports.back().done);
    EXPECT_FALSE(std::filesystem::exists(piece(1)));
}

TEST_F(TeamExportTest, MemberZeroTakesTheFirstPictureAndJoinsThePiecesThatHaveFrames) {
    useTeam(0, 3);
    std::vector<std::string> joined;
    host().exporter().setMovieJoiner([&joined](const ExportSettings& settings,
                                               const std::vector<std::string>& pieces, int width,
                                               int height) {
        joined = pieces;
        return "joined into \"" + settings.fileName + "\" at " + std::to_string(width) + " x " +
               std::to_string(height);
    });
    ASSERT_TRUE(record(2));
    EXPECT_EQ(framesDrawn(), std::vector<int>{0});
    ASSERT_TRUE(finish());
    // 2 frames among 3 members: member 2 has none, and no piece.
    EXPECT_EQ(framesDrawn(), std::vector<int>{0});
    EXPECT_EQ(joined, (std::vector<std::string>{piece(0), piece(1)}));
    EXPECT_EQ(host().exporter().log().back(), "joined into \"" + fileName_ + "\" at 800 x 600");
}

TEST_F(TeamExportTest, WithoutAJoinerNothingIsJoinedAndTheLogSaysSo) {
    useTeam(0, 2);
    ASSERT_TRUE(record(3));
    ASSERT_TRUE(finish());
    EXPECT_EQ(host().exporter().log().back(),
              "No movie written to \"" + fileName_ +
                  "\": this host has no movie encoder (2 pieces not joined).");
}

TEST_F(TeamExportTest, AStartThatFailsOnAnotherMemberIsRefusedHereWithTheTeamsLine) {
    const std::shared_ptr<ScriptedTeam> team = useTeam(0, 3);
    team->failingAgreement = 1;
    EXPECT_FALSE(record(1));
    EXPECT_EQ(record_.calls, (std::vector<std::string>{"open", "frame", "cancel"}));
    EXPECT_EQ(host().userDialogs().errorMessages(),
              std::vector<std::string>{"member 2: The disk is full."});
    EXPECT_EQ(host().exporter().log(),
              std::vector<std::string>{"Export not started: the error shown says why."});
    EXPECT_EQ(host().exporter().counts().starts, 0u);
}

TEST_F(TeamExportTest, ADrawingFailureElsewhereMakesThisMemberGiveUpAndWriteNoMovie) {
    const std::shared_ptr<ScriptedTeam> team = useTeam(1, 2);
    team->failingTally = 1;
    team->failingAgreement = 2;
    std::ofstream(piece(1)) << "an earlier piece";
    ASSERT_TRUE(record(9));
    EXPECT_FALSE(finish());
    EXPECT_EQ(framesDrawn(), std::vector<int>{5}) << "one picture, then the tally told";
    EXPECT_EQ(record_.calls, (std::vector<std::string>{"open", "frame", "cancel"}));
    EXPECT_EQ(team->outcomes.size(), 2u) << "nothing joined";
    EXPECT_TRUE(team->outcomes.back().failure.empty());
    EXPECT_EQ(host().userDialogs().errorMessages(),
              std::vector<std::string>{"member 2: The disk is full."});
    EXPECT_EQ(host().exporter().log().back(),
              "Export failed: the error shown says why; no movie written.");
    EXPECT_EQ(host().exporter().counts().failedFinishes, 1u);
    EXPECT_FALSE(std::filesystem::exists(piece(1)));
}

TEST_F(TeamExportTest, ThisMembersDrawingFailureReachesTheTeam) {
    const std::shared_ptr<ScriptedTeam> team = useTeam(1, 2);
    ASSERT_TRUE(record(4));
    host().drawing().setRenderer(
        std::make_unique<vextest::FailingRenderer>("Cannot start OpenGL rendering: no display"));
    EXPECT_FALSE(finish());
    EXPECT_TRUE(team->reports.back().failed);
    EXPECT_EQ(team->outcomes.back().failure, "Cannot start OpenGL rendering: no display");
    EXPECT_EQ(record_.calls, (std::vector<std::string>{"open", "cancel"}));
    EXPECT_EQ(host().userDialogs().errorMessages(),
              std::vector<std::string>{"member 1: Cannot start OpenGL rendering: no display"});
}

TEST_F(TeamExportTest, StopWhileDrawingStopsTheExportOnEveryMember) {
    const std::shared_ptr<ScriptedTeam> team = useTeam(0, 2);
    ASSERT_TRUE(record(6));
    // The drawing's own status: its first check.
    host().progress().pressStopAt(1);
    EXPECT_FALSE(finish());
    EXPECT_TRUE(team->reports.back().stopped);
    EXPECT_TRUE(team->outcomes.back().stopped);
    EXPECT_EQ(team->stopAgreements, 0) << "the drawing's checks are this member's own";
    EXPECT_TRUE(host().userDialogs().errorMessages().empty());
    EXPECT_EQ(host().exporter().log().back(),
              "Export stopped while drawing the frames; no movie written.");
    EXPECT_EQ(host().exporter().counts().failedFinishes, 1u);
}

TEST_F(TeamExportTest, StopOnAnotherMemberWhileDrawingEndsTheDrawingHere) {
    const std::shared_ptr<ScriptedTeam> team = useTeam(0, 2);
    team->stoppingTally = 2;
    ASSERT_TRUE(record(9));
    EXPECT_FALSE(finish());
    EXPECT_EQ(framesDrawn(), (std::vector<int>{0, 1, 2})) << "the first, two, then the tally";
    EXPECT_EQ(record_.calls.back(), "cancel");
}

TEST_F(TeamExportTest, AStatusAlreadyOpenIsLeftAloneWhileDrawing) {
    useTeam(0, 1);
    ASSERT_TRUE(record(3));
    host().progress().start("Somebody else's work", true, true);
    EXPECT_TRUE(finish());
    EXPECT_EQ(host().progress().texts(), std::vector<std::string>{"Somebody else's work"});
    EXPECT_TRUE(host().progress().checkedPercents().empty());
    host().progress().finish();
}

TEST_F(TeamExportTest, TheAddOnsProgressChecksAreTheTeams) {
    const std::shared_ptr<ScriptedTeam> team = useTeam(0, 2);
    team->othersStop = true;
    ScopedLock lock(addOn_);
    VexUtilStatusStartPercentDone("Animating....", true, true);
    EXPECT_FALSE(VexUtilStatusCheckPercentDone(10)) << "Stop pressed on another member";
    VexUtilStatusFinishPercentDone();
    EXPECT_EQ(team->stopAgreements, 1);
    host().exporter().setTeam(nullptr);
    VexUtilStatusStartPercentDone("Animating....", true, true);
    EXPECT_TRUE(VexUtilStatusCheckPercentDone(10)) << "without a team, this process alone";
    VexUtilStatusFinishPercentDone();
    EXPECT_EQ(team->stopAgreements, 1);
}

TEST_F(TeamExportTest, CancelTellsOfTheMovieNotThePiece) {
    useTeam(0, 3);
    ASSERT_TRUE(record(3));
    ScopedLock lock(addOn_);
    EXPECT_TRUE(VexUtilExportCancel());
    EXPECT_EQ(record_.calls.back(), "cancel");
    EXPECT_EQ(host().exporter().log().back(),
              "Export canceled: no movie was written to \"" + fileName_ + "\".");
    EXPECT_EQ(framesDrawn(), std::vector<int>{0});
}

TEST_F(TeamExportTest, TheTeamCannotChangeWhileRecording) {
    useTeam(0, 2);
    ASSERT_TRUE(record(1));
    EXPECT_THROW(host().exporter().setTeam(nullptr), std::logic_error);
    ScopedLock lock(addOn_);
    VexUtilExportCancel();
}

TEST_F(TeamExportTest, ResetLeavesNoTeam) {
    const std::shared_ptr<ScriptedTeam> team = useTeam(0, 2);
    host().reset();
    EXPECT_EQ(team.use_count(), 1);
}

}  // namespace
