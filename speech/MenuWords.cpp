#include "speech/MenuWords.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestCaption = 127;  // characters
constexpr std::array<std::string_view, 7> kTitles = {"file", "edit",   "go",  "settings",
                                                     "view", "speech", "help"};

bool IsTitle(const std::string& words) {
  return std::find(kTitles.begin(), kTitles.end(), text::lower(words)) != kTitles.end();
}

}  // namespace

std::optional<int> IndexIn(MenuIds ids, int item) {
  if (item < ids.first || item > ids.last) return std::nullopt;
  return item - ids.first;
}

std::string MenuWords(const MenuSelect& select) {
  const auto is = [&select](MenuFlags flag) { return (select.flags & flag) != 0; };
  std::string words = text::replace_all(text::left(select.text, kLongestCaption), "&", "");
  if (is(kMenuDisabled)) {
    if (!words.empty()) words += " diabled";
  } else if (is(kMenuSystem) && select.item == 0) {
    words = "sysmenu";
  } else if (is(kMenuPopup)) {
    if (!IsTitle(words)) words += " popup";
  } else if (is(kMenuChecked)) {
    words += " checked";
  } else if (is(kMenuHilite) && IndexIn(kMarkedIds, select.item)) {
    words += " unchecked";
  }
  return words;
}

}  // namespace corvane
