// The percent-done status line: start (text, stop button, progress bar), text changes, checks with
// a percentage (false once the user pressed Stop), finish. Misuse (a check, text change or finish
// with no status, a start while one is open, a percentage outside 0..100) is a host error.
//
// Stop is pressed by a control call at the N-th check counted from that call: that check and every
// later check of the same status answer false; a new status starts unstopped. Every text shown and
// every percentage checked is kept for tests, and each event goes to the sink (vexplot prints
// them).
//
// A stop agreement (set by an export team, Exporter::setTeam) makes each check's answer the
// team's: the check hands it whether Stop is pressed here and takes back whether it is pressed
// anywhere, so every process of the team sees the same answers. The host's own checks
// (checkHere) answer for this process alone.
#ifndef VEXHOST_PROGRESSSTATUS_H
#define VEXHOST_PROGRESSSTATUS_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vexhost {

class HostErrors;

class ProgressStatus {
public:
    enum class EventKind { Started, TextChanged, Checked, Finished };
    struct Event {
        EventKind kind;
        const std::string& text;  // the status text at the time of the event
        int32_t percent;          // the checked percentage; -1 for the other kinds
    };
    using Sink = std::function<void(const Event&)>;
    // Takes whether Stop is pressed here; answers whether it is pressed anywhere.
    using StopAgreement = std::function<bool(bool stopPressedHere)>;

    explicit ProgressStatus(HostErrors& errors) : errors_(errors) {}
    ProgressStatus(const ProgressStatus&) = delete;
    ProgressStatus& operator=(const ProgressStatus&) = delete;

    bool isOpen() const { return open_; }
    const std::string& text() const { return text_; }
    bool showsStopButton() const { return showStopButton_; }
    bool showsProgressBar() const { return showProgressBar_; }
    bool stopPressed() const { return stopPressed_; }

    // Presses Stop at the n-th check from now (n >= 1; 0 disarms).
    void pressStopAt(uint64_t n) { stopCountdown_ = n; }
    // Presses Stop on the open status now: its next check and every later one answer false.
    void pressStop() { stopPressed_ = open_; }

    // Every text shown (starts and text changes), in order.
    const std::vector<std::string>& texts() const { return texts_; }
    const std::vector<int32_t>& checkedPercents() const { return percents_; }
    uint64_t startCount() const { return starts_; }
    uint64_t finishCount() const { return finishes_; }

    void setSink(Sink sink) { sink_ = std::move(sink); }
    // Empty: each check answers for this process alone.
    void setStopAgreement(StopAgreement agreement) { stopAgreement_ = std::move(agreement); }

    // A check of the host's own work (a percentage of it, Stop as above), without the stop
    // agreement: for work whose Stop reaches the other processes by other means.
    bool checkHere(int32_t percent);

    // ---- SDK side ----
    void start(const char* text, bool showStopButton, bool showProgressBar);
    void setText(const char* text);
    bool check(int32_t percent);
    void finish();

    // Closed, unarmed, nothing kept, no sink, no stop agreement.
    void reset();

private:
    void emit(EventKind kind, int32_t percent);

    HostErrors& errors_;
    bool open_ = false;
    std::string text_;
    bool showStopButton_ = false;
    bool showProgressBar_ = false;
    bool stopPressed_ = false;
    uint64_t stopCountdown_ = 0;
    std::vector<std::string> texts_;
    std::vector<int32_t> percents_;
    uint64_t starts_ = 0;
    uint64_t finishes_ = 0;
    Sink sink_;
    StopAgreement stopAgreement_;
};

}  // namespace vexhost

#endif
