#include "base/text.h"

#include <algorithm>

namespace corvane::text {
namespace {

// The bytes of the valid character at the text's front, or 0 when there is none.
std::size_t valid_front(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  const unsigned first = byte(0);
  const auto trails = [&](std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
      if (i >= text.size() || !continues(text[i])) return false;
    }
    return true;
  };
  if (first < 0x80U) return 1;
  if (first >= 0xC2U && first <= 0xDFU) return trails(1, 2) ? 2 : 0;
  if (first >= 0xE0U && first <= 0xEFU) {
    if (first == 0xE0U && byte(1) < 0xA0U) return 0;  // overlong
    if (first == 0xEDU && byte(1) > 0x9FU) return 0;  // half of a surrogate pair
    return trails(1, 3) ? 3 : 0;
  }
  if (first >= 0xF0U && first <= 0xF4U) {
    if (first == 0xF0U && byte(1) < 0x90U) return 0;  // overlong
    if (first == 0xF4U && byte(1) > 0x8FU) return 0;  // beyond U+10FFFF
    return trails(1, 4) ? 4 : 0;
  }
  return 0;
}

}  // namespace

std::size_t length(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char byte) { return !continues(byte); }));
}

std::size_t offset_of(std::string_view text, std::size_t position, std::size_t from_offset) {
  std::size_t at = from_offset;
  for (; at < text.size(); ++at) {
    if (continues(text[at])) continue;
    if (position == 0) break;
    --position;
  }
  return std::min(at, text.size());
}

std::string mid(std::string_view text, std::size_t start, std::size_t count) {
  const std::size_t begin = offset_of(text, start > 1 ? start - 1 : 0);
  if (count == std::string::npos) return std::string(text.substr(begin));
  return std::string(text.substr(begin, offset_of(text, count, begin) - begin));
}

std::string character(int code_point) {
  const auto code = static_cast<unsigned>(code_point);
  if (code == 0 || code > 0x10FFFFU || (code >= 0xD800U && code <= 0xDFFFU)) return {};
  const auto trail = [code](unsigned shift) {
    return static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
  };
  const auto lead = [code](unsigned mark, unsigned shift) {
    return static_cast<char>(mark | (code >> shift));
  };
  if (code < 0x80U) return {static_cast<char>(code)};
  if (code < 0x800U) return {lead(0xC0U, 6), trail(0)};
  if (code < 0x10000U) return {lead(0xE0U, 12), trail(6), trail(0)};
  return {lead(0xF0U, 18), trail(12), trail(6), trail(0)};
}

std::string left(std::string_view text, std::size_t count) { return mid(text, 1, count); }

char32_t take_character(std::string_view& text) {
  const std::size_t size = valid_front(text);
  if (size == 0) {
    text.remove_prefix(1);
    return 0xFFFD;
  }
  constexpr unsigned kLeads[] = {0x7F, 0x1F, 0x0F, 0x07};
  char32_t code = static_cast<unsigned char>(text.front()) & kLeads[size - 1];
  for (std::size_t i = 1; i < size; ++i) code = code << 6U | (text[i] & 0x3FU);
  text.remove_prefix(size);
  return code;
}

std::string valid(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::size_t good = valid_front(text);
    if (good == 0) {
      out += "\xEF\xBF\xBD";
    } else {
      out += text.substr(0, good);
    }
    text.remove_prefix(std::max<std::size_t>(good, 1));
  }
  return out;
}

std::string replace_all(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

std::string lower(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = lower(c);
  return out;
}

bool same_ignoring_case(std::string_view a, std::string_view b) {
  return a.size() == b.size() && starts_ignoring_case(a, b);
}

bool starts_ignoring_case(std::string_view text, std::string_view start) {
  return text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(),
                    [](char a, char b) { return lower(a) == lower(b); });
}

std::string_view trimmed(std::string_view text, std::string_view blanks) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace corvane::text
