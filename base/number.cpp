#include "base/number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "base/error.h"
#include "base/text.h"

namespace corvane::number {
namespace {

[[noreturn]] void type_mismatch() { throw RunTimeError(kErrTypeMismatch, "", "Type mismatch"); }
[[noreturn]] void overflow() { throw RunTimeError(kErrOverflow, "", "Overflow"); }

template <class Number>
Number whole_text(std::string_view text) {
  text = text::trimmed(text, " \t");
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size() || text.empty()) type_mismatch();
  if (error == std::errc::result_out_of_range) {
    // Only a negative exponent makes a number too small; that is zero, not an error.
    if (text.find('-', 1) != std::string_view::npos) return 0;
    overflow();
  }
  if (error != std::errc() || !std::isfinite(value)) type_mismatch();
  return value;
}

}  // namespace

float to_single(std::string_view text) { return whole_text<float>(text); }

std::int16_t to_integer(std::string_view text) {
  const double rounded = std::nearbyint(whole_text<double>(text));
  using Limits = std::numeric_limits<std::int16_t>;
  if (rounded < Limits::min() || rounded > Limits::max()) overflow();
  return static_cast<std::int16_t>(rounded);
}

double leading(std::string_view text) {
  text = text::trimmed(text, " \t");
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return std::isfinite(value) ? value : 0;
}

std::string from_single(float value) {
  std::array<char, 64> buffer{};
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
  return {buffer.data(), result.ptr};
}

std::string two_decimals(double value) {
  const auto hundredths = static_cast<long long>(std::round(std::fabs(value) * 100));
  std::string text = value < 0 && hundredths != 0 ? "-" : "";
  if (hundredths >= 100) text += std::to_string(hundredths / 100);
  text += '.';
  const auto fraction = hundredths % 100;
  if (fraction != 0) text += static_cast<char>('0' + fraction / 10);
  if (fraction % 10 != 0) text += static_cast<char>('0' + fraction % 10);
  return text;
}

std::string digits(long value) { return value == 0 ? "" : std::to_string(value); }

std::int16_t checked_add(std::int16_t value, int step) {
  const int sum = value + step;
  using Limits = std::numeric_limits<std::int16_t>;
  if (sum < Limits::min() || sum > Limits::max()) overflow();
  return static_cast<std::int16_t>(sum);
}

}  // namespace corvane::number
