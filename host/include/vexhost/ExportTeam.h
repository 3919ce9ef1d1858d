// The processes that make one movie together (vexplot --parallel-export, docs/parallel-export.md)
// as the host's export sees them: a team of size() members, this process being member(). Every
// member runs the same macro files with the same add-on. With a team set (Exporter::setTeam), an
// export keeps each frame's scene instead of drawing it; at the finish each member draws and
// encodes its own range of the frames (FrameRange) into a piece, and member 0 joins the pieces into
// the movie.
//
// Every call is collective: each member makes the same calls in the same order, which it does
// because it runs the same program over the same input. A call that one member leaves out keeps the
// others waiting, so a member that fails goes on calling and says in what it brings that it failed.
//
// - agreeOnStop(): at each progress check of the add-on, whether any member's user pressed Stop, so
//   that every member's add-on sees the same answers and ends its run the same way.
// - agree(): where the export goes on only if every member is well (the start, the pieces written,
//   the movie joined): whether any member stopped, and the first member that failed with its
//   message.
// - offer() and await(): rounds of tallies while the pieces are drawn, so that a member's Stop or
//   failure reaches the others within a frame or two without making them draw in step. A round
//   sums one Report of every member; offer() brings this member's report to a new round, or looks
//   whether the round it brought one to is complete, and never waits; await() waits for that
//   round. A member brings a report to the next round only after it has seen the last round's
//   tally, so every member sees every tally, the same one, and all stop at the first tally that
//   finds every member done.
#ifndef VEXHOST_EXPORTTEAM_H
#define VEXHOST_EXPORTTEAM_H

#include <cstdint>
#include <optional>
#include <string>

namespace vexhost {

class ExportTeam {
public:
    // Where this member stands while drawing its piece.
    struct Report {
        uint64_t framesDone = 0;  // pictures of its range handed to its writer
        bool stopped = false;     // its user pressed Stop
        bool failed = false;      // it cannot go on
        bool done = false;        // it draws no more: its range is drawn, or it failed or gave up
    };
    // The sum of one round's reports.
    struct Tally {
        uint64_t framesDone = 0;
        bool stopped = false;  // some member stopped
        bool failed = false;   // some member failed
        bool allDone = false;
    };
    // What this member brings to an agreement.
    struct Outcome {
        bool stopped = false;
        std::string failure;  // empty: no failure
    };
    struct Verdict {
        bool stopped = false;  // some member stopped
        // The first failing member's message as the user reads it: which member failed and why,
        // in the team's words. Empty when none failed.
        std::string failure;
        bool ok() const { return !stopped && failure.empty(); }
    };

    virtual ~ExportTeam() = default;

    virtual int member() const = 0;  // 0 .. size() - 1; member 0 joins the pieces and speaks
    virtual int size() const = 0;

    virtual bool agreeOnStop(bool stopPressedHere) = 0;
    virtual Verdict agree(const Outcome& mine) = 0;
    virtual std::optional<Tally> offer(const Report& mine) = 0;
    virtual Tally await(const Report& mine) = 0;
};

}  // namespace vexhost

#endif
