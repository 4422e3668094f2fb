#include "platform/linux/gtk/text_pane/soft_breaks.h"

#include <glib.h>

#include <algorithm>

#include "base/text.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

constexpr std::string_view kBreak = "\xE2\x80\xA9";
constexpr int kLongest = 3000;    // characters of a piece
constexpr int kSearchBack = 200;  // how far a blank is looked for

// Characters that belong to the one in front of them.
bool Joins(const char* at) {
  const gunichar character = g_utf8_get_char(at);
  return g_unichar_ismark(character) || g_unichar_iszerowidth(character);
}

// Text with every break replaced, in one pass.
std::string WithBreaksAs(std::string_view text, std::string_view replacement) {
  std::string result;
  result.reserve(text.size());
  std::size_t copied = 0;
  for (auto at = text.find(kBreak); at != std::string_view::npos; at = text.find(kBreak, copied)) {
    result += text.substr(copied, at - copied);
    result += replacement;
    copied = at + kBreak.size();
  }
  result += text.substr(copied);
  return result;
}

// Valid UTF-8 with one line feed for every line end.
std::string Clean(std::string_view text) {
  std::string clean;
  if (g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr)) {
    clean.assign(text);
  } else {
    clean = Taken(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
  }
  if (clean.find('\r') != std::string::npos) {
    std::size_t to = 0;
    for (std::size_t from = 0; from < clean.size(); ++from) {
      if (clean[from] != '\r') {
        clean[to++] = clean[from];
      } else if (from + 1 == clean.size() || clean[from + 1] != '\n') {
        clean[to++] = '\n';
      }
    }
    clean.resize(to);
  }
  return clean.find(kBreak) == std::string::npos ? clean : WithBreaksAs(clean, "\n");
}

}  // namespace

std::string SoftBreaks::Prepare(std::string_view text, int before) {
  auto clean = Clean(text);
  std::string broken;
  std::size_t copied = 0;
  std::size_t blank = 0;  // behind the last blank of the piece, 0 when there is none
  int length = before;    // characters of the present piece
  int at_blank = 0;       // its length there
  for (std::size_t at = 0; at < clean.size(); ++at) {
    if (length == 0) {
      // Most lines are short: they are passed over as a whole.
      const auto end = std::min(clean.find('\n', at), clean.size());
      if (end - at <= static_cast<std::size_t>(kLongest)) {
        at = end;
        continue;
      }
    }
    if (text::continues(clean[at])) continue;
    if (clean[at] == '\n') {
      length = 0;
      blank = 0;
      continue;
    }
    if (length >= kLongest && !Joins(clean.data() + at)) {
      const bool at_word = blank > copied && length - at_blank <= kSearchBack;
      const std::size_t end = at_word ? blank : at;
      broken.append(clean, copied, end - copied);
      broken += kBreak;
      copied = end;
      length = at_word ? length - at_blank : 0;
      blank = 0;
    }
    ++length;
    if (clean[at] == ' ') {
      blank = at + 1;
      at_blank = length;
    }
  }
  if (copied == 0) return clean;
  broken.append(clean, copied, std::string::npos);
  return broken;
}

std::string SoftBreaks::Strip(std::string text) {
  return text.find(kBreak) == std::string::npos ? text : WithBreaksAs(text, "");
}

void SoftBreaks::Inserted(int offset, int length, std::string_view bytes) {
  const auto first = std::lower_bound(offsets_.begin(), offsets_.end(), offset);
  for (auto moved = first; moved != offsets_.end(); ++moved) *moved += length;
  std::vector<int> made;
  std::size_t counted = 0;
  int characters = 0;
  for (auto at = bytes.find(kBreak); at != std::string_view::npos;
       at = bytes.find(kBreak, at + 1)) {
    for (; counted < at; ++counted) characters += text::continues(bytes[counted]) ? 0 : 1;
    made.push_back(offset + characters);
  }
  offsets_.insert(first, made.begin(), made.end());
}

void SoftBreaks::Erased(int start, int end) {
  const auto first = std::lower_bound(offsets_.begin(), offsets_.end(), start);
  const auto last = std::lower_bound(first, offsets_.end(), end);
  const auto rest = offsets_.erase(first, last);
  for (auto moved = rest; moved != offsets_.end(); ++moved) *moved -= end - start;
}

int SoftBreaks::PositionOf(int offset) const {
  return offset - static_cast<int>(std::lower_bound(offsets_.begin(), offsets_.end(), offset) -
                                   offsets_.begin());
}

int SoftBreaks::OffsetOf(int position) const {
  // Break number i stands before the character at position offsets_[i] - i.
  int low = 0;
  int high = Count();
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (offsets_[static_cast<std::size_t>(middle)] - middle <= position) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return position + low;
}

}  // namespace corvane::desktop
