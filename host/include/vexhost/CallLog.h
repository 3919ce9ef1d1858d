// The host's record of SDK calls: every call is counted, and while the log is on each call is
// appended as one line of text (format in docs/host.md), so tests can assert exact call sequences.
//
// Every SDK entry point passes through enter() first; formatting happens only when the log is on,
// so a call with the log off costs one increment and one test.
#ifndef VEXHOST_CALLLOG_H
#define VEXHOST_CALLLOG_H

#include <cstdint>
#include <string>
#include <vector>

namespace vexhost {

class CallLog {
public:
    void setEnabled(bool on) { enabled_ = on; }
    bool isEnabled() const { return enabled_; }

    // The logged calls, oldest first.
    const std::vector<std::string>& entries() const { return entries_; }
    // The logged calls, leaving the log empty (and on or off as it was).
    std::vector<std::string> take();
    void clear() { entries_.clear(); }

    // Every SDK call since the last reset, logged or not.
    uint64_t callCount() const { return calls_; }

    // The SDK prologue: counts the call and answers whether it must be logged.
    bool enter() {
        ++calls_;
        return enabled_;
    }
    void append(std::string entry) { entries_.push_back(std::move(entry)); }

    // Off, empty, count 0.
    void reset();

private:
    bool enabled_ = false;
    uint64_t calls_ = 0;
    std::vector<std::string> entries_;
};

}  // namespace vexhost

#endif
