// A value going into or coming out of the style store, and the store's rules for a value of one
// type where another is wanted. An integer and a double stand in for each other: an integer reads
// as the exact double, a double reads as the nearest integer, and a double sets an integer only
// when it is a whole number that a double holds exactly (2.5 is refused rather than guessed at).
// A bool is only a bool and a string only a string. Inline: every X-call converts a value.
#ifndef VEXHOST_CORE_STYLEVALUE_H
#define VEXHOST_CORE_STYLEVALUE_H

#include <cmath>
#include <cstdint>
#include <optional>

#include "vexhost/StyleStore.h"

namespace vexhost {

struct StyleValue {
    StyleStore::ValueType type;
    double number = 0;           // a Double
    int64_t whole = 0;           // an Int
    bool flag = false;           // a Bool
    const char* text = nullptr;  // a String being set (the store answers its own strings itself)

    // A double or an integer as a double, for reading and for setting a double; nullopt for a bool
    // or a string.
    std::optional<double> asDouble() const {
        if (type == StyleStore::ValueType::Double)
            return number;
        if (type == StyleStore::ValueType::Int)
            return static_cast<double>(whole);
        return std::nullopt;
    }
    // What a reader asking for an integer gets: nullopt for a bool, a string, or a double too large
    // for an integer (from just below 2^63, where rounding could overflow).
    std::optional<int64_t> asNearestInt() const {
        if (type == StyleStore::ValueType::Int)
            return whole;
        if (type == StyleStore::ValueType::Double && std::fabs(number) < 9.2e18)
            return std::llround(number);
        return std::nullopt;
    }
    // What an integer value is set to: nullopt for anything but an integer or a whole double that
    // converts exactly (below 2^53).
    std::optional<int64_t> asWholeInt() const {
        if (type == StyleStore::ValueType::Int)
            return whole;
        if (type == StyleStore::ValueType::Double && std::isfinite(number) &&
            std::trunc(number) == number && std::fabs(number) < 9007199254740992.0)
            return static_cast<int64_t>(number);
        return std::nullopt;
    }
};

}  // namespace vexhost

#endif
