// Numbers in texts: one rule for reading them and one for writing them, whatever the locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace text {

// The value of the longest leading part of the text that forms a number, 0 if none does:
// an optional sign, digits with at most one ".", an optional exponent (E, e, D or d); blanks
// anywhere in it are skipped. "12.5mm" is 12.5, "mm" is 0, "- 3" is -3, "1d2" is 100.
// Always finite: what exceeds a double is the largest double.
double Val(std::string_view value);

// A double as a 32-bit float that is never infinite: a larger value becomes the largest float.
float ToSingle(double value);

// The leading number of a text as such a float.
inline float ToSingle(std::string_view value) {
    return ToSingle(Val(value));
}

// To the nearest integer, ties to even; nothing when it does not fit in 16 bits.
std::optional<std::int16_t> ToInteger16(double value);

// The general number form: at most 7 significant digits, no trailing zeros, no zero before the
// point (.5), an exponent where C's "%.7G" has one (1E+07), and a leading blank for values that
// are not negative, the place of the sign.
std::string Str(float value);
std::string Str(std::int32_t value);

// The same without the leading blank.
std::string NumberText(float value);
std::string NumberText(std::int32_t value);

// The display form of a number's text: "0" for a negative one, a zero in front of a fraction
// (.5 becomes 0.5), everything else unchanged.
std::string LeadingZeroText(std::string_view number);

// A number as the windows and a directory's material list show it: "0.5", "12.5", never negative.
std::string ShownNumber(float value);

// The same digits without an exponent and with a zero before the point, for readers that know
// neither: 10000000, 0.5, 0.00001.
std::string PlainText(float value);

}  // namespace text
