#include "base/safe_name.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestName = 120;   // bytes, without the ending
constexpr std::size_t kLongestEnding = 12;  // bytes, its dot included
constexpr std::string_view kForbidden = "/\\:*?\"<>|";

struct Span {
  char32_t first, last;
};

// Unicode's control characters, its blanks and what ends a line.
constexpr std::array<Span, 9> kBlanks = {{{0x00, 0x20},
                                          {0x7F, 0xA0},
                                          {0x1680, 0x1680},
                                          {0x2000, 0x200A},
                                          {0x2028, 0x2029},
                                          {0x202F, 0x202F},
                                          {0x205F, 0x205F},
                                          {0x2800, 0x2800},
                                          {0x3000, 0x3000}}};

// What turns the direction of text, and what is there without being seen:
// Unicode's format characters, fillers, joiners, tags and variation selectors.
constexpr std::array<Span, 14> kHidden = {{{0xAD, 0xAD},
                                           {0x34F, 0x34F},
                                           {0x61C, 0x61C},
                                           {0x115F, 0x1160},
                                           {0x17B4, 0x17B5},
                                           {0x180B, 0x180F},
                                           {0x200B, 0x200F},
                                           {0x202A, 0x202E},
                                           {0x2060, 0x206F},
                                           {0x3164, 0x3164},
                                           {0xFE00, 0xFE0F},
                                           {0xFEFF, 0xFEFF},
                                           {0xFFA0, 0xFFA0},
                                           {0xFFF9, 0xFFFB}}};
constexpr Span kHiddenAboveAll = {0xE0000, 0xE0FFF};

bool Within(const Span& span, char32_t c) { return c >= span.first && c <= span.last; }

template <std::size_t N>
bool Within(const std::array<Span, N>& spans, char32_t c) {
  return std::any_of(spans.begin(), spans.end(), [c](const Span& s) { return Within(s, c); });
}

bool IsHidden(char32_t c) { return Within(kHidden, c) || Within(kHiddenAboveAll, c); }

/// The character that valid text begins with.
char32_t FrontOf(std::string_view character) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
  constexpr unsigned kLeads[] = {0x7F, 0x1F, 0x0F, 0x07};
  char32_t code = byte(0) & kLeads[character.size() - 1];
  for (std::size_t i = 1; i < character.size(); ++i) code = (code << 6) | (byte(i) & 0x3FU);
  return code;
}

/// At most so many bytes, and no character cut in two.
std::string_view Cut(std::string_view words, std::size_t longest) {
  if (words.size() <= longest) return words;
  while (longest > 0 && (static_cast<unsigned char>(words[longest]) & 0xC0U) == 0x80U) --longest;
  return words.substr(0, longest);
}

std::string_view WithoutAround(std::string_view words, std::string_view unwanted) {
  const auto start = words.find_first_not_of(unwanted);
  if (start == std::string_view::npos) return {};
  return words.substr(start, words.find_last_not_of(unwanted) - start + 1);
}

}  // namespace

std::string PlainName(std::string_view words) {
  const std::string valid = text::valid(words);
  std::string plain;
  for (std::size_t at = 0, next = 0; at < valid.size(); at = next) {
    next = text::offset_of(valid, 1, at);
    const std::string_view character = std::string_view(valid).substr(at, next - at);
    const char32_t code = FrontOf(character);
    if (IsHidden(code)) continue;
    if (!Within(kBlanks, code)) {
      plain += character;
    } else if (!plain.empty() && plain.back() != ' ') {
      plain += ' ';
    }
  }
  if (plain.ends_with(' ')) plain.pop_back();
  return plain;
}

std::size_t EndingOf(std::string_view name) {
  const auto dot = name.rfind('.');
  const bool is_ending = dot != std::string_view::npos && dot > 0 &&
                         name.size() - dot <= kLongestEnding &&
                         name.find(' ', dot) == std::string_view::npos;
  return is_ending ? dot : name.size();
}

std::string SafeFileName(std::string_view words, const std::string& fallback) {
  std::string usable(words);
  for (char& c : usable) {
    if (kForbidden.find(c) != std::string_view::npos) c = ' ';
  }
  const std::string plain = PlainName(usable);
  const std::string_view name = WithoutAround(plain, " .");
  const auto ending = EndingOf(name);
  const std::string_view stem = WithoutAround(Cut(name.substr(0, ending), kLongestName), " .");
  return stem.empty() ? fallback : std::string(stem) + std::string(name.substr(ending));
}

}  // namespace corvane
