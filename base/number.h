#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers as the settings store and the speech tags write them: decimal text
/// with a point, whatever the user's locale.
namespace corvane::number {

/// The whole text as a single-precision number. RunTimeError "Type mismatch"
/// for anything else, "Overflow" for a number too large.
float to_single(std::string_view text);

/// The whole text as a 16-bit integer, rounded half to even. Errors as above.
std::int16_t to_integer(std::string_view text);

/// The number at the text's beginning, 0 when there is none.
double leading(std::string_view text);

/// The shortest decimal text that gives the same single again.
std::string from_single(float value);

/// The format "#.##": at most two decimals, no zero in front of the point.
std::string two_decimals(double value);

/// The format "###": the digits of the rounded value, nothing for 0.
std::string digits(long value);

/// Adds with the 16-bit overflow check of a counter; RunTimeError "Overflow".
std::int16_t checked_add(std::int16_t value, int step);

}  // namespace corvane::number
