#include "addon/PercentDoneScope.h"

#include <algorithm>

#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

PercentDoneScope::PercentDoneScope(const std::string& text, int32_t suffixSwitch, uint64_t total)
    : total_(static_cast<double>(total)), suffixSwitch_(suffixSwitch) {
    const bool showProgress = total_ > 0.0;
    VexUtilStatusStartPercentDone(withSuffix(text).c_str(), showProgress, showProgress);
}

PercentDoneScope::~PercentDoneScope() {
    VexUtilStatusFinishPercentDone();
}

void PercentDoneScope::setText(const std::string& text) {
    VexUtilStatusSetPercentDoneText(withSuffix(text).c_str());
}

void PercentDoneScope::step() {
    done_ += 1.0;
    if (total_ > 0.0) {
        const double percent = std::min(done_ / total_ * 100.0, 100.0);
        canceled_ = !VexUtilStatusCheckPercentDone(static_cast<int32_t>(percent));
    }
}

std::string PercentDoneScope::withSuffix(const std::string& text) const {
    return suffixSwitch_ == TextOnly ? text : text + CancelHint;
}

}  // namespace vexutiltools
}  // namespace vexplot
