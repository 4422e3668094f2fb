#include "web/library/BookmarkFile.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/html_text.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kMostBookmarks = 100'000;
constexpr std::size_t kDeepest = 20;
constexpr std::size_t kLinesOfTheMark = 5;

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
                                    : html::plain_words(tag.substr(value + 1, end - value - 1));
  }
  const auto end = low.find_first_of(" \t\n>", value);
  return html::plain_words(tag.substr(value, end == std::string::npos ? end : end - value));
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
      if (!address_.empty()) found_.push_back({folders_, html::plain_words(text_), address_});
      address_.clear();
    } else if (name == "/h3") {
      next_folder_ = html::plain_words(text_);
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
