#ifndef VEXUTILTOOLS_TEXTFIELDVALIDATOR_H
#define VEXUTILTOOLS_TEXTFIELDVALIDATOR_H

#include <cmath>
#include <cstdint>
#include <sstream>
#include <string>
#include <type_traits>

#include "vexgui.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

// Checks what the user enters in a numeric text field (T is int or double) and keeps the last
// accepted value.
//
// A text is accepted when a T can be read from its start (leading blanks skipped) and the value
// lies within [minimum, maximum]. Both bounds are always compared; the flags only decide which
// bounds the message names. Characters after a well-formed number are not looked at, on purpose:
// "12abc" is accepted as 12. A rejected text shows
//   Invalid input. Input must be a number[ between <min> and <max>| greater than or equal to
//   <min>| less than or equal to <max>].
// in the host's error dialog and leaves the accepted value as it was. A field without a bound of
// its own keeps the type's extreme as that bound.
template <typename T>
class TextFieldValidator {
    static_assert(std::is_same<T, int>::value || std::is_same<T, double>::value,
                  "TextFieldValidator is for int and double fields");

public:
    TextFieldValidator(int32_t controlId, T value, bool hasMinimum, T minimum, bool hasMaximum,
                       T maximum)
        : controlId_(controlId),
          value_(value),
          hasMinimum_(hasMinimum),
          hasMaximum_(hasMaximum),
          minimum_(minimum),
          maximum_(maximum) {}
    virtual ~TextFieldValidator() = default;

    // True, with the value stored, when the text is accepted; otherwise the message above is
    // shown and the answer is false.
    bool validate(const std::string& text) {
        std::istringstream in(text);
        T value{};
        in >> value;
        if (!in.fail() && isWithinBounds(value)) {
            value_ = value;
            return true;
        }
        VexUtilDialogErrMsg(errorMessage().c_str());
        return false;
    }

    // The message shown for a rejected text.
    std::string errorMessage() const {
        std::ostringstream message;
        message << "Invalid input. Input must be a number";
        if (hasMinimum_ && hasMaximum_)
            message << " between " << minimum_ << " and " << maximum_;
        else if (hasMinimum_)
            message << " greater than or equal to " << minimum_;
        else if (hasMaximum_)
            message << " less than or equal to " << maximum_;
        message << ".";
        return message.str();
    }

    T getValue() const { return value_; }
    // Stores the value as it is (callers clamp what they did not get from the user).
    void setValue(T value) { value_ = value; }
    // The value brought within [minimum, maximum].
    T clamp(T value) const {
        if (value < minimum_)
            return minimum_;
        if (value > maximum_)
            return maximum_;
        return value;
    }
    // Shows the accepted value in the bound field, written as the stream writes a T. The caller
    // holds the host lock.
    void showValue() const {
        std::ostringstream text;
        text << value_;
        VexGUITextFieldSetString(controlId_, text.str().c_str());
    }

    int32_t getControlId() const { return controlId_; }
    void setControlId(int32_t controlId) { controlId_ = controlId; }
    T getMinimum() const { return minimum_; }
    T getMaximum() const { return maximum_; }
    bool hasMinimum() const { return hasMinimum_; }
    bool hasMaximum() const { return hasMaximum_; }

private:
    bool isWithinBounds(T value) const {
        if constexpr (std::is_floating_point<T>::value) {
            if (std::isnan(value))
                return false;
        }
        return !(value > maximum_) && !(value < minimum_);
    }

    int32_t controlId_;
    T value_;
    bool hasMinimum_;
    bool hasMaximum_;
    T minimum_;
    T maximum_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
