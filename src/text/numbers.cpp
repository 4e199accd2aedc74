#include "text/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace text {
namespace {

// Reads the characters of a number one by one, skipping the blanks between them.
class Scanner {
  public:
    explicit Scanner(std::string_view value) : rest_(value) { SkipBlanks(); }

    char Peek() const { return rest_.empty() ? '\0' : rest_.front(); }
    bool AtDigit() const { return Peek() >= '0' && Peek() <= '9'; }
    char Next() {
        const char c = rest_.front();
        rest_.remove_prefix(1);
        SkipBlanks();
        return c;
    }

  private:
    void SkipBlanks() {
        const auto at = rest_.find_first_not_of(' ');
        rest_.remove_prefix(std::min(at, rest_.size()));
    }
    std::string_view rest_;
};

// Reads an exponent ("E+5") where one follows; more than four digits can only overflow.
int ScanExponent(Scanner& scan) {
    constexpr std::string_view kLetters = "EeDd";
    if (scan.Peek() == '\0' || kLetters.find(scan.Peek()) == kLetters.npos) return 0;
    scan.Next();
    const bool negative = scan.Peek() == '-';
    if (negative || scan.Peek() == '+') scan.Next();
    int exponent = 0;
    while (scan.AtDigit()) exponent = std::min(exponent * 10 + (scan.Next() - '0'), 100000);
    return negative ? -exponent : exponent;
}

template <typename Number>
std::string WithBlank(Number value) {
    std::string result = NumberText(value);
    if (result.front() != '-') result.insert(result.begin(), ' ');
    return result;
}

}  // namespace

double Val(std::string_view value) {
    Scanner scan(value);
    const bool negative = scan.Peek() == '-';
    if (negative || scan.Peek() == '+') scan.Next();

    // The digits without leading zeros, and the power of ten of the last one.
    std::string digits;
    int power = 0;
    bool afterPoint = false;
    for (;; scan.Next()) {
        if (scan.AtDigit()) {
            if (!digits.empty() || scan.Peek() != '0') digits += scan.Peek();
            if (afterPoint) --power;
        } else if (scan.Peek() == '.' && !afterPoint) {
            afterPoint = true;
        } else {
            break;
        }
    }
    if (digits.empty()) return 0;
    power += ScanExponent(scan);

    std::array<char, 12> tail{'e'};
    const auto end = std::to_chars(tail.data() + 1, tail.data() + tail.size(), power).ptr;
    const auto magnitude = power + static_cast<std::ptrdiff_t>(digits.size());
    digits.append(tail.data(), end);
    double result = 0;
    const auto [at, error] = std::from_chars(digits.data(), digits.data() + digits.size(), result);
    if (error == std::errc::result_out_of_range) {
        result = magnitude > 0 ? std::numeric_limits<double>::max() : 0;
    }
    return negative ? -result : result;
}

float ToSingle(double value) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

std::optional<std::int16_t> ToInteger16(double value) {
    // remainder() takes the nearest integer, ties to even, whatever the rounding mode.
    const double rounded = value - std::remainder(value, 1.0);
    if (!(rounded >= -32768 && rounded <= 32767)) return std::nullopt;
    return static_cast<std::int16_t>(rounded);
}

std::string NumberText(float value) {
    std::array<char, 32> buffer;
    if (value == 0) value = 0;  // never "-0"
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::general, 7)
                         .ptr;
    std::string result(buffer.data(), end);
    std::replace(result.begin(), result.end(), 'e', 'E');
    const std::size_t sign = result.front() == '-' ? 1 : 0;
    if (result.compare(sign, 2, "0.") == 0) result.erase(sign, 1);
    return result;
}

std::string NumberText(std::int32_t value) {
    std::array<char, 12> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return {buffer.data(), end};
}

std::string LeadingZeroText(std::string_view number) {
    const double value = Val(number);
    if (value < 0) return "0";
    return (value > 0 && value < 1 ? "0" : "") + std::string(number);
}

std::string ShownNumber(float value) {
    return LeadingZeroText(NumberText(value));
}

std::string PlainText(float value) {
    std::string text = NumberText(value);
    const std::string sign = text.front() == '-' ? "-" : "";
    text.erase(0, sign.size());
    int exponent = 0;
    if (const auto at = text.find('E'); at != text.npos) {
        // from_chars takes no plus sign.
        const auto digits = text.find_first_not_of("E+", at);
        std::from_chars(text.data() + digits, text.data() + text.size(), exponent);
        text.resize(at);
    }
    auto point = std::min(text.find('.'), text.size());
    if (point < text.size()) text.erase(point, 1);
    // Where the point belongs among the digits, zeros added at the end that lacks some.
    const int place = static_cast<int>(point) + exponent;
    if (place <= 0) text.insert(0, static_cast<std::size_t>(1 - place), '0');
    point = static_cast<std::size_t>(std::max(place, 1));
    if (point > text.size()) text.append(point - text.size(), '0');
    if (point < text.size()) text.insert(point, 1, '.');
    return sign + text;
}

std::string Str(float value) {
    return WithBlank(value);
}

std::string Str(std::int32_t value) {
    return WithBlank(value);
}

}  // namespace text
