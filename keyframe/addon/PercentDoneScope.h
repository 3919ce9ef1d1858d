#ifndef VEXUTILTOOLS_PERCENTDONESCOPE_H
#define VEXUTILTOOLS_PERCENTDONESCOPE_H

#include <cstdint>
#include <string>

namespace vexplot {
namespace vexutiltools {

// The host's percent-done status line for one long operation, started at construction and
// finished at destruction (also when an exception leaves the operation).
//
// The status text is the caller's text followed by CancelHint, unless the suffix switch is
// TextOnly. The stop button and the progress bar are shown exactly when the total is greater than
// 0; with a total of 0 the scope never polls the host, since there is no bar to advance and nothing
// for Stop to cancel.
//
// The caller holds the host lock for the scope's lifetime: starting, polling and finishing the
// status change host state.
class PercentDoneScope {
public:
    // The suffix switch: 0 appends CancelHint to every text, 1 shows the text alone.
    static constexpr int32_t WithCancelHint = 0;
    static constexpr int32_t TextOnly = 1;
    static constexpr const char* CancelHint = " Press [Esc] or click [Stop] to cancel.";

    PercentDoneScope(const std::string& text, int32_t suffixSwitch, uint64_t total);
    ~PercentDoneScope();

    PercentDoneScope(const PercentDoneScope&) = delete;
    PercentDoneScope& operator=(const PercentDoneScope&) = delete;

    // Replaces the status text, with the suffix chosen at construction.
    void setText(const std::string& text);

    // One unit of work is done: done + 1, and when the total is greater than 0 the host is told
    // min(done / total * 100, 100) percent, truncated. The scope is canceled exactly when the
    // host's answer to that check was false (the user pressed Stop).
    void step();

    bool isCanceled() const { return canceled_; }
    double getTotal() const { return total_; }
    double getDone() const { return done_; }

private:
    std::string withSuffix(const std::string& text) const;

    double total_;
    double done_ = 0.0;
    bool canceled_ = false;
    int32_t suffixSwitch_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
