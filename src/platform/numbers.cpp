#include "platform/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace tabulon {

namespace {

std::string_view Trimmed(std::string_view text) {
    const std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

template <class Number>
std::string Formatted(Number value) {
    char buffer[48];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return {buffer, result.ptr};
}

}  // namespace

double RoundHalfEven(double value) {
    return std::nearbyint(value);  // in the rounding mode that every thread begins with
}

std::int32_t ToLong(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        throw Failure(FailureNumber::Overflow);
    return static_cast<std::int32_t>(rounded);
}

Integer ToInteger(double value) { return ToLong(value); }

double ToDouble(std::string_view text) {
    std::string_view digits = Trimmed(text);
    const bool number =
        digits.find_first_not_of("0123456789.eE+-") == std::string_view::npos && !digits.starts_with("+-");
    if (digits.starts_with('+')) digits.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (!number || result.ec == std::errc::invalid_argument || result.ptr != digits.data() + digits.size())
        throw Failure(FailureNumber::TypeMismatch);
    if (result.ec == std::errc::result_out_of_range) throw Failure(FailureNumber::Overflow);
    return value;
}

float ToSingle(std::string_view text) {
    const double value = ToDouble(text);
    if (std::fabs(value) > std::numeric_limits<float>::max()) throw Failure(FailureNumber::Overflow);
    return static_cast<float>(value);
}

std::int32_t ToLong(std::string_view text) { return ToLong(ToDouble(text)); }

Integer ToInteger(std::string_view text) { return ToInteger(ToDouble(text)); }

std::string ToText(std::int32_t value) { return Formatted(value); }

std::string ToText(float value) { return Formatted(value); }

}  // namespace tabulon
