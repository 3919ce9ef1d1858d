#include "render/TickScale.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace vexhost {
namespace {

// Beyond this many values a scale is useless and its loop too long (a step lost to rounding).
constexpr int kMaxValues = 100;

int decade(double value) {
    return static_cast<int>(std::floor(std::log10(value)));
}

}  // namespace

TickScale::TickScale(double low, double high, int target) {
    if (!std::isfinite(low) || !std::isfinite(high) || high < low) {
        return;
    }
    double step = 0;
    if (high == low) {
        values_.push_back(low == 0 ? 0.0 : low);  // 0.0 for -0.0
        step = low != 0 ? std::pow(10.0, decade(std::fabs(low))) : 1.0;
    } else {
        // The candidates around range / target; the one whose count is nearest the target wins,
        // the larger step on a tie.
        const double power = std::pow(10.0, decade((high - low) / target));
        int bestMiss = kMaxValues;
        for (double factor : {0.1, 1.0, 10.0}) {
            for (double multiple : {1.0, 2.0, 5.0}) {
                const double candidate = multiple * factor * power;
                const double count =
                    std::floor(high / candidate + 1e-9) - std::ceil(low / candidate - 1e-9) + 1;
                const int miss = static_cast<int>(std::fabs(count - target));
                if (count >= 1 && count <= kMaxValues && miss <= bestMiss) {
                    bestMiss = miss;
                    step = candidate;
                }
            }
        }
        if (step == 0) {
            return;
        }
        // Multiples of the step, so that 0.1 + 0.2 rounding cannot give 0.30000000000000004.
        const double first = std::ceil(low / step - 1e-9);
        const double last = std::floor(high / step + 1e-9);
        for (double k = first; k <= last; ++k) {
            values_.push_back(k == 0 ? 0.0 : k * step);
        }
    }
    double largest = 0;
    for (double value : values_) {
        largest = std::max(largest, std::fabs(value));
    }
    // Enough digits to tell neighbours apart; whole numbers below a million written out in full.
    int digits = largest > 0 ? decade(largest) - decade(step) + 1 : 1;
    if (largest >= 1 && largest < 1e6) {
        digits = std::max(digits, decade(largest) + 1);
    }
    precision_ = std::clamp(digits, 1, 15);
}

std::string TickScale::label(double value) const {
    char text[32];
    std::snprintf(text, sizeof text, "%.*g", precision_, value == 0 ? 0.0 : value);
    return text;
}

}  // namespace vexhost
