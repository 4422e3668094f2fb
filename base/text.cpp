#include "base/text.h"

#include <algorithm>

namespace corvane::text {
namespace {

bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

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
  std::transform(out.begin(), out.end(), out.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return out;
}

bool same_ignoring_case(std::string_view a, std::string_view b) { return lower(a) == lower(b); }

}  // namespace corvane::text
