#include "browser/BookmarkFile.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kMostBookmarks = 100'000;
constexpr std::size_t kDeepest = 20;
constexpr std::size_t kLinesOfTheMark = 5;

std::string Utf8(unsigned long code) {
  const auto tail = [&](unsigned shift) {
    return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
  };
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return "\xEF\xBF\xBD";
  if (code < 0x80) return {static_cast<char>(code)};
  if (code < 0x800) return {static_cast<char>(0xC0 | (code >> 6)), tail(0)};
  if (code < 0x10000) return {static_cast<char>(0xE0 | (code >> 12)), tail(6), tail(0)};
  return {static_cast<char>(0xF0 | (code >> 18)), tail(12), tail(6), tail(0)};
}

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
  return *end == '\0' ? Utf8(code) : std::string();
}

std::string Unescaped(std::string_view text) {
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

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

/// A tag's attribute HREF, unescaped.
std::string AddressIn(std::string_view tag) {
  const std::string low = text::lower(tag);
  const auto name = low.find("href");
  const auto equals = name == std::string::npos ? name : low.find_first_not_of(" \t\n", name + 4);
  if (equals == std::string::npos || low[equals] != '=') return {};
  const auto value = low.find_first_not_of(" \t\n", equals + 1);
  if (value == std::string::npos) return {};
  const char quote = low[value];
  if (quote == '"' || quote == '\'') {
    const auto end = low.find(quote, value + 1);
    return end == std::string::npos ? std::string()
                                    : Trimmed(Unescaped(tag.substr(value + 1, end - value - 1)));
  }
  const auto end = low.find_first_of(" \t\n>", value);
  return Trimmed(Unescaped(tag.substr(value, end == std::string::npos ? end : end - value)));
}

class Reader {
 public:
  std::vector<Bookmark> Read(std::string_view text) {
    std::size_t at = 0;
    while (found_.size() < kMostBookmarks) {
      const auto open = text.find('<', at);
      const auto close = open == std::string_view::npos ? open : text.find('>', open);
      if (close == std::string_view::npos) break;
      text_ += text.substr(at, open - at);
      Tag(text.substr(open + 1, close - open - 1));
      at = close + 1;
    }
    return std::move(found_);
  }

 private:
  void Tag(std::string_view tag) {
    const std::string name = text::lower(tag.substr(0, tag.find_first_of(" \t\r\n")));
    if (name == "a" || name == "h3") {
      text_.clear();
      address_ = name == "a" ? AddressIn(tag) : std::string();
    } else if (name == "/a") {
      if (!address_.empty()) found_.push_back({folders_, Trimmed(Unescaped(text_)), address_});
      address_.clear();
    } else if (name == "/h3") {
      next_folder_ = Trimmed(Unescaped(text_));
    } else if (name == "dl") {
      Enter();
    } else if (name == "/dl") {
      Leave();
    }
  }
  // The outermost list has no heading and is no folder.
  void Enter() {
    const bool is_folder = !next_folder_.empty() && folders_.size() < kDeepest;
    entered_.push_back(is_folder);
    if (is_folder) folders_.push_back(next_folder_);
    next_folder_.clear();
  }
  void Leave() {
    if (entered_.empty()) return;
    if (entered_.back()) folders_.pop_back();
    entered_.pop_back();
  }

  std::vector<Bookmark> found_;
  std::vector<std::string> folders_;
  std::vector<bool> entered_;  // for each open list whether it is a folder
  std::string next_folder_;
  std::string address_;
  std::string text_;
};

}  // namespace

bool IsBookmarkFile(const std::vector<std::string>& lines) {
  return std::any_of(
      lines.begin(),
      lines.begin() + static_cast<std::ptrdiff_t>(std::min(lines.size(), kLinesOfTheMark)),
      [](const std::string& line) {
        return text::lower(line).find("netscape-bookmark-file") != std::string::npos;
      });
}

std::vector<Bookmark> ReadBookmarkFile(const std::vector<std::string>& lines) {
  std::string all;
  for (const auto& line : lines) all += line + '\n';
  return Reader().Read(all);
}

}  // namespace corvane
