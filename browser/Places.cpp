#include "browser/Places.h"

#include <string_view>

#include "base/text.h"

namespace corvane {
namespace {

constexpr std::string_view kNoBreakSpace = "\xC2\xA0";

// The size of the blank at the offset; 0 where there is none.
std::size_t BlankAt(std::string_view text, std::size_t offset) {
  if (std::string_view(" \t\n\v\f\r").find(text[offset]) != std::string_view::npos) return 1;
  return text.substr(offset).starts_with(kNoBreakSpace) ? kNoBreakSpace.size() : 0;
}

// The offset of the character that has so many in front of it from `offset` on, blanks
// left out; past the end when there are fewer.
std::size_t Behind(std::string_view text, std::size_t offset, std::size_t count) {
  while (offset < text.size()) {
    if (const std::size_t blank = BlankAt(text, offset); blank > 0) {
      offset += blank;
      continue;
    }
    if (count == 0) return offset;
    --count;
    offset = text::offset_of(text, 1, offset);
  }
  return text.size();
}

std::size_t Distance(std::size_t a, std::size_t b) { return a < b ? b - a : a - b; }

}  // namespace

std::optional<int> PositionOf(const PagePlace& place, const std::string& text, int start) {
  const std::size_t first = text::offset_of(text, static_cast<std::size_t>(start));
  const std::size_t counted = Behind(text, first, place.before);
  std::size_t found = counted;
  // Nothing in front: that is the page's beginning, whatever it reads now.
  if (place.before > 0 && !place.words.empty()) {
    const std::size_t before = text.rfind(place.words, counted);
    const std::size_t behind = text.find(place.words, counted);
    const bool is_before = before != std::string::npos && before >= first;
    if (behind != std::string::npos) found = behind;
    if (is_before &&
        (behind == std::string::npos || Distance(before, counted) < Distance(behind, counted))) {
      found = before;
    }
  }
  if (found >= text.size()) return std::nullopt;
  return static_cast<int>(text::length(std::string_view(text).substr(0, found)));
}

Places::Places(PaneContext& pane, CaretEcho& echo) : pane_(pane), echo_(echo) {
  connections_ += pane_.controls.brwWebBrowser->PlaceReached.Connect(
      [this](const PagePlace& place) { Reached(place); });
}

void Places::Reached(const PagePlace& place) {
  ctlText& box = pane_.controls.ctlText1;
  const auto position = PositionOf(place, box.Text(), pane_.state.page_text);
  const auto move = [&] {
    if (!position) return;
    box.SetSelStart(*position);
    echo_.CaretWasMoved();
  };
  if (place.words.empty()) return move();
  box.AddText(place.words + kLineBreak, true, [&] {
    pane_.announcer.Say(place.words);
    move();
  });
}

}  // namespace corvane
