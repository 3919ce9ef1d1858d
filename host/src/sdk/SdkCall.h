// The one prologue every SDK entry point starts with: a scope object that counts the call and,
// while the call log is on, appends the call with its arguments (format in docs/host.md). It also
// carries the checks many calls share (lock held, frame present), which record host errors under
// the call's name. With the log off it costs one increment and one test. Calls that the host can
// fail ask the fault plan (FaultPlan) whether this one fails, through strikes().
//
// It is also the one place where the SDK layer reaches the process-wide host (Host::instance()).
// The SDK is a C interface: an add-on's plain C call carries no host, so the call has to find it,
// and it does so here, once per call. Each SDK function then takes the parts it uses from the call
// (call.host().frames(), ...); below the SDK layer, the host's parts are handed what they use and
// never look for the host themselves.
#ifndef VEXHOST_SDK_SDKCALL_H
#define VEXHOST_SDK_SDKCALL_H

#include <cstdint>
#include <string>
#include <type_traits>

#include "core/Text.h"
#include "vexhost/CallLog.h"
#include "vexhost/FaultPlan.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/LockState.h"
#include "vxsdkbase.h"

namespace vexhost {

class Frame;

namespace sdk {

// An add-on handle, logged as its registered name in double quotes.
struct AddOnArg {
    VexAddOn_pa handle;
};

// A string handed back to be freed, logged with its text only while it is a live host string: a
// foreign pointer is not read.
struct FreedString {
    const char* value;
};

// The argument list of a style X-call, logged as its path words and (for a set) the value.
struct StyleArgs {
    const VexArg_s* args;
    int32_t count;
    bool withValue;
};

// A string passed through an integer parameter (the export file name), logged as a string.
struct StringInInteger {
    VexArbParam_t value;
};

inline void appendArg(std::string& out, const char* value) {
    text::appendQuoted(out, value);
}
inline void appendArg(std::string& out, char* value) {
    text::appendQuoted(out, value);
}
inline void appendArg(std::string& out, double value) {
    text::appendNumber(out, value);
}
inline void appendArg(std::string& out, bool value) {
    out += value ? "true" : "false";
}
template <typename T>
std::enable_if_t<std::is_integral_v<T> || std::is_enum_v<T>> appendArg(std::string& out, T value) {
    text::appendNumber(out, static_cast<int64_t>(value));
}
inline void appendArg(std::string& out, StringInInteger value) {
    text::appendQuoted(out, reinterpret_cast<const char*>(value.value));
}
void appendArg(std::string& out, const StyleArgs& value);

class SdkCall {
public:
    template <typename... Args>
    explicit SdkCall(const char* function, const Args&... args)
        : host_(Host::instance()), function_(function) {
        if (__builtin_expect(host_.callLog().enter(), 0))
            log(args...);
    }
    SdkCall(const SdkCall&) = delete;
    SdkCall& operator=(const SdkCall&) = delete;

    Host& host() const { return host_; }
    const char* function() const { return function_; }

    // Records "<function>: <problem>" as a host error.
    void error(const std::string& problem) const { host_.errors().record(function_, problem); }
    // State-changing calls belong inside the caller's lock. Without it the call still does its
    // work, as a real host would, but the mistake is recorded.
    void requireLock() const {
        if (!host_.lock().isHeld())
            error("called while no lock is held");
    }
    // Whether the host's fault plan fails this call in the given way: a fault site, described as
    // the call log writes the call with the arguments given here.
    template <typename... Args>
    bool strikes(FaultPlan::Fault fault, const Args&... args) const {
        FaultPlan& plan = host_.faults();
        if (__builtin_expect(!plan.isActive(), 1))
            return false;
        return plan.strike(fault, describe(args...));
    }

    // The active frame, or nullptr with a host error.
    Frame* requireActiveFrame() const;
    // The current frame (the lightweight-popped one while popping), or nullptr with a host error.
    Frame* requireCurrentFrame() const;

private:
    template <typename... Args>
    void log(const Args&... args) {
        host_.callLog().append(describe(args...));
    }
    // "function(arguments)", the call log's line.
    template <typename... Args>
    std::string describe(const Args&... args) const {
        std::string entry = function_;
        entry += '(';
        [[maybe_unused]] bool first = true;  // unused for calls without arguments
        (appendSeparated(entry, first, args), ...);
        entry += ')';
        return entry;
    }
    template <typename T>
    void appendSeparated(std::string& out, bool& first, const T& value) const {
        if (!first)
            out += ", ";
        first = false;
        if constexpr (std::is_same_v<T, AddOnArg> || std::is_same_v<T, FreedString>)
            appendHostArg(out, value);
        else
            appendArg(out, value);
    }
    // Arguments whose text the host knows.
    void appendHostArg(std::string& out, AddOnArg value) const;
    void appendHostArg(std::string& out, FreedString value) const;

    Host& host_;
    const char* function_;
};

}  // namespace sdk
}  // namespace vexhost

#endif
