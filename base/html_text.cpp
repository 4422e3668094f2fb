#include "base/html_text.h"

#include <array>
#include <cstdlib>
#include <utility>

#include "base/text.h"

namespace corvane::html {
namespace {

constexpr const char* kUnknownCharacter = "\xEF\xBF\xBD";

/// The character that an entity's name means; empty when it is none.
std::string Entity(const std::string& name) {
  constexpr std::array<std::pair<const char*, const char*>, 6> kNamed = {
      {{"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", " "}}};
  for (const auto& [known, character] : kNamed) {
    if (name == known) return character;
  }
  if (name.size() < 2 || name[0] != '#') return {};
  const bool hex = name[1] == 'x' || name[1] == 'X';
  char* end = nullptr;
  const unsigned long code = std::strtoul(name.c_str() + (hex ? 2 : 1), &end, hex ? 16 : 10);
  if (*end != '\0') return {};
  const std::string character = code > 0x10FFFF ? "" : text::character(static_cast<int>(code));
  return character.empty() ? kUnknownCharacter : character;
}

}  // namespace

std::string unescaped(std::string_view text) {
  constexpr std::size_t kLongestName = 10;
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto end = text[i] == '&' ? text.find(';', i) : std::string_view::npos;
    if (end != std::string_view::npos && end - i <= kLongestName) {
      const std::string character = Entity(std::string(text.substr(i + 1, end - i - 1)));
      if (!character.empty()) {
        plain += character;
        i = end;
        continue;
      }
    }
    plain += text[i];
  }
  return plain;
}

std::string plain_words(std::string_view text) {
  const std::string plain = unescaped(text);
  return std::string(text::trimmed(plain));
}

std::string escaped(std::string_view text) {
  std::string html;
  html.reserve(text.size());
  for (const char byte : text) {
    switch (byte) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      case '\0':
        html += "\xEF\xBF\xBD";
        break;
      default:
        html += byte;
    }
  }
  return html;
}

std::string title_of(std::string_view page) {
  const std::string low = text::lower(page);
  const auto open = low.find("<title");
  const auto start = open == std::string::npos ? open : low.find('>', open);
  const auto end = start == std::string::npos ? start : low.find("</title", start);
  return end == std::string::npos ? "" : plain_words(page.substr(start + 1, end - start - 1));
}

}  // namespace corvane::html
