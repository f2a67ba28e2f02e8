#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/integer.h"

namespace tabulon {

/// The nearest whole number, a half going to the even neighbour.
double RoundHalfEven(double value);

/// Rounds half to even; fails with Overflow beyond 32 bits (or for what is no number).
std::int32_t ToLong(double value);
/// Rounds half to even; fails with Overflow beyond 16 bits.
Integer ToInteger(double value);

/// The number that a text says: blanks around it, a sign, a decimal point and an exponent are allowed.
/// Fails with TypeMismatch for any other text ("", "INF", "NaN", "12 apples"), with Overflow beyond a double.
double ToDouble(std::string_view text);
/// ToDouble, then the narrower type; fails with Overflow beyond it.
float ToSingle(std::string_view text);
std::int32_t ToLong(std::string_view text);
Integer ToInteger(std::string_view text);

/// A whole number as 0 to 9 digits with a minus sign in front when it is negative.
std::string ToText(std::int32_t value);
inline std::string ToText(Integer value) { return ToText(std::int32_t{value.Value()}); }
/// The shortest decimal text that gives the same single ("1", "1.5").
std::string ToText(float value);

}  // namespace tabulon
