// Lines of the host's call log (vexhost::CallLog, docs/host.md) as the tests expect them: the SDK
// function's name and its arguments in parentheses, separated by ", ", strings quoted, numbers in
// shortest round-trip form, NULL for a null string. A string is put between the quotes as given:
// the log's escapes are spelled out by the test that expects them (CallLogTest).
#ifndef VEXTEST_CALLLOGLINES_H
#define VEXTEST_CALLLOGLINES_H

#include <cstdint>
#include <initializer_list>
#include <string>

namespace vextest {

// One argument as the log writes it.
class CallArg {
public:
    CallArg(const char* text);  // quoted; NULL for a null pointer
    CallArg(const std::string& text);
    CallArg(int value);
    CallArg(int64_t value);
    CallArg(double value);
    CallArg(bool value);
    // Text written as given, for what the log writes in a form of its own ("[3, 1]").
    static CallArg raw(std::string text);

    const std::string& text() const { return text_; }

private:
    CallArg() = default;
    std::string text_;
};

// VexUtilStyleSetLowLevelX("ThreeDView", "PSIAngle", 30)
std::string callLine(const std::string& function, std::initializer_list<CallArg> args = {});
// How the line of a call with these first arguments begins, for tests that pin the call and not
// all of its arguments: VexUtilStyleSetLowLevelX("ThreeDView", "PSIAngle"
std::string callLineStart(const std::string& function, std::initializer_list<CallArg> args = {});

// The key frame add-on taking and giving back its lock: VexUtilLockStart("Key Frame Animation")
std::string addOnLockStart();
std::string addOnLockFinish();

}  // namespace vextest

#endif
