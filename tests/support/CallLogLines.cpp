#include "support/CallLogLines.h"

#include <charconv>
#include <utility>

namespace vextest {

namespace {

const char* const AddOnName = "Key Frame Animation";

}  // namespace

CallArg::CallArg(const char* text)
    : text_(text == nullptr ? "NULL" : "\"" + std::string(text) + "\"") {}

CallArg::CallArg(const std::string& text) : CallArg(text.c_str()) {}

CallArg::CallArg(int value) : text_(std::to_string(value)) {}

CallArg::CallArg(int64_t value) : text_(std::to_string(value)) {}

CallArg::CallArg(double value) {
    char buffer[32];
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
    text_.assign(buffer, result.ptr);
}

CallArg::CallArg(bool value) : text_(value ? "true" : "false") {}

CallArg CallArg::raw(std::string text) {
    CallArg arg;
    arg.text_ = std::move(text);
    return arg;
}

std::string callLine(const std::string& function, std::initializer_list<CallArg> args) {
    return callLineStart(function, args) + ")";
}

std::string callLineStart(const std::string& function, std::initializer_list<CallArg> args) {
    std::string line = function + "(";
    bool first = true;
    for (const CallArg& arg : args) {
        line += (first ? "" : ", ") + arg.text();
        first = false;
    }
    return line;
}

std::string addOnLockStart() {
    return callLine("VexUtilLockStart", {AddOnName});
}

std::string addOnLockFinish() {
    return callLine("VexUtilLockFinish", {AddOnName});
}

}  // namespace vextest
