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

/// At most so many bytes, and no character cut in two.
std::string_view Cut(std::string_view words, std::size_t longest) {
  if (words.size() <= longest) return words;
  while (longest > 0 && text::continues(words[longest])) --longest;
  return words.substr(0, longest);
}

}  // namespace

std::string PlainName(std::string_view words) {
  const std::string valid = text::valid(words);
  std::string plain;
  for (std::string_view rest = valid; !rest.empty();) {
    const std::string_view from = rest;
    const char32_t code = text::take_character(rest);
    if (IsHidden(code)) continue;
    if (!Within(kBlanks, code)) {
      plain += from.substr(0, from.size() - rest.size());
    } else if (!plain.empty() && plain.back() != ' ') {
      plain += ' ';
    }
  }
  if (plain.ends_with(' ')) plain.pop_back();
  return plain;
}

std::string Shorten(std::string_view words, std::size_t longest) {
  const std::size_t end = text::offset_of(words, longest);
  return std::string(words.substr(0, end)) + (end < words.size() ? "..." : "");
}

std::string Numbered(const std::string& name, int number) {
  return number == 1 ? name : name + " " + std::to_string(number);
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
  const std::string_view name = text::trimmed(plain, " .");
  const auto ending = EndingOf(name);
  const std::string_view stem = text::trimmed(Cut(name.substr(0, ending), kLongestName), " .");
  return stem.empty() ? fallback : std::string(stem) + std::string(name.substr(ending));
}

}  // namespace corvane
