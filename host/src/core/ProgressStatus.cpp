#include "vexhost/ProgressStatus.h"

#include "vexhost/HostErrors.h"

namespace vexhost {

void ProgressStatus::start(const char* text, bool showStopButton, bool showProgressBar) {
    if (open_)
        errors_.record("VexUtilStatusStartPercentDone",
                       "a percent-done status (\"" + text_ + "\") is already open");
    open_ = true;
    text_ = text;
    showStopButton_ = showStopButton;
    showProgressBar_ = showProgressBar;
    stopPressed_ = false;  // a new status starts unstopped
    ++starts_;
    texts_.push_back(text_);
    emit(EventKind::Started, -1);
}

void ProgressStatus::setText(const char* text) {
    if (!open_) {
        errors_.record("VexUtilStatusSetPercentDoneText", "no percent-done status is open");
        return;
    }
    text_ = text;
    texts_.push_back(text_);
    emit(EventKind::TextChanged, -1);
}

bool ProgressStatus::check(int32_t percent) {
    const bool answer = checkHere(percent);
    // Without an open status every process of the team finds the same host error: nothing to agree.
    if (!open_ || !stopAgreement_)
        return answer;
    stopPressed_ = stopAgreement_(stopPressed_);
    return !stopPressed_;
}

bool ProgressStatus::checkHere(int32_t percent) {
    if (!open_) {
        errors_.record("VexUtilStatusCheckPercentDone", "no percent-done status is open");
        return true;
    }
    if (percent < 0 || percent > 100)
        errors_.record("VexUtilStatusCheckPercentDone",
                       "the percentage " + std::to_string(percent) + " is not in 0..100");
    percents_.push_back(percent);
    if (stopCountdown_ > 0 && --stopCountdown_ == 0)
        stopPressed_ = true;
    emit(EventKind::Checked, percent);
    return !stopPressed_;
}

void ProgressStatus::finish() {
    if (!open_) {
        errors_.record("VexUtilStatusFinishPercentDone", "no percent-done status is open");
        return;
    }
    ++finishes_;
    emit(EventKind::Finished, -1);
    open_ = false;
    text_.clear();
    stopPressed_ = false;
}

void ProgressStatus::emit(EventKind kind, int32_t percent) {
    if (sink_)
        sink_(Event{kind, text_, percent});
}

void ProgressStatus::reset() {
    open_ = false;
    text_.clear();
    showStopButton_ = showProgressBar_ = false;
    stopPressed_ = false;
    stopCountdown_ = 0;
    texts_.clear();
    percents_.clear();
    starts_ = finishes_ = 0;
    sink_ = nullptr;
    stopAgreement_ = nullptr;
}

}  // namespace vexhost
