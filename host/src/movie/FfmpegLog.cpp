#include "movie/FfmpegLog.h"

extern "C" {
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <cstdio>
#include <mutex>

namespace vexhost {
namespace {

thread_local std::string lastErrorText;

void logCallback(void* context, int level, const char* format, va_list arguments) {
    if (level > AV_LOG_ERROR) {
        return;
    }
    char line[1024];
    int prefix = 0;
    av_log_format_line2(context, level, format, arguments, line, sizeof line, &prefix);
    std::string text = line;
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.pop_back();
    }
    if (!text.empty()) {
        lastErrorText = text;
    }
}

}  // namespace

void FfmpegLog::install() {
    static std::once_flag once;
    std::call_once(once, [] { av_log_set_callback(logCallback); });
}

void FfmpegLog::clear() {
    lastErrorText.clear();
}

std::string FfmpegLog::lastError() {
    return lastErrorText;
}

std::string FfmpegLog::describe(int errorCode) {
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(errorCode, text, sizeof text);
    std::string description = text;
    if (!lastErrorText.empty()) {
        description += " (" + lastErrorText + ")";
    }
    return description;
}

}  // namespace vexhost
