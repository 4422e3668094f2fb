#include "platform/linux/gtk/text_pane/display_lines.h"

#include <gdkmm/window.h>
#include <gtkmm/textbuffer.h>

#include <algorithm>

namespace corvane::desktop {
namespace {

constexpr int kExact = 60000;  // characters of a text whose lines are all counted

}  // namespace

bool DisplayLines::LaidOut() const {
  return view_.get_realized() && view_.get_allocated_width() > 1;
}

// Another width wraps every paragraph anew.
void DisplayLines::Refresh() {
  int width = 0;
  if (LaidOut()) {
    const auto area = view_.get_window(Gtk::TEXT_WINDOW_TEXT);
    width = area ? area->get_width() : view_.get_allocated_width();
  }
  if (width == width_) return;
  width_ = width;
  Restyled(formatted_);
}

void DisplayLines::Restyled(bool formatted) {
  formatted_ = formatted;
  corrections_.clear();
  sums_valid_ = false;
  all_counted_ = false;
  starts_paragraph_ = -1;
  measured_ = false;
}

void DisplayLines::Changed(int paragraph, int added) {
  starts_paragraph_ = -1;
  all_counted_ = false;
  sums_valid_ = false;
  if (corrections_.empty()) return;
  const int removed = added < 0 ? -added : 0;
  auto first = corrections_.lower_bound(paragraph);
  if (added == 0) {
    if (first != corrections_.end() && first->first == paragraph) corrections_.erase(first);
    return;
  }
  std::map<int, int> moved;
  for (auto entry = first; entry != corrections_.end(); ++entry) {
    if (entry->first > paragraph + removed) moved[entry->first + added] = entry->second;
  }
  corrections_.erase(first, corrections_.end());
  corrections_.merge(moved);
}

const std::vector<int>& DisplayLines::Starts(int paragraph) {
  if (starts_paragraph_ == paragraph) return starts_;
  starts_paragraph_ = paragraph;
  starts_.clear();
  auto place = view_.get_buffer()->get_iter_at_line(paragraph);
  starts_.push_back(place.get_offset());
  if (!LaidOut()) return starts_;
  while (view_.forward_display_line(place) && place.get_line() == paragraph &&
         place.get_offset() > starts_.back() && view_.starts_display_line(place)) {
    starts_.push_back(place.get_offset());
  }
  return starts_;
}

void DisplayLines::MeasureCharacters() {
  measured_ = true;
  advance_.fill(0);
  const auto layout = view_.create_pango_layout("");
  for (char c = ' '; c < 127; ++c) {
    layout->set_text(Glib::ustring(20, c));  // twenty: rounding must not add up
    int width = 0;
    int height = 0;
    layout->get_size(width, height);
    advance_[static_cast<std::size_t>(c)] = width / 20 + 1;
  }
}

// Whether the paragraph fits in one line with room to spare, without laying it
// out: only for text in the view's own font.
bool DisplayLines::SurelyOneLine(const Gtk::TextIter& start) {
  if (formatted_) return false;
  if (!measured_) MeasureCharacters();
  auto end = start;
  if (!end.ends_line()) end.forward_to_line_end();
  constexpr double kSpare = 1.02;
  const double room = (width_ - view_.get_left_margin() - view_.get_right_margin() - 1) *
                      static_cast<double>(PANGO_SCALE);
  if (end.get_offset() - start.get_offset() > 2000) return false;
  double sum = 0;
  const auto text = start.get_slice(end);
  for (const char byte : text.raw()) {
    const auto c = static_cast<unsigned char>(byte);
    if (c >= 128 || advance_[c] == 0) return false;
    sum += advance_[c];
  }
  return sum * kSpare <= room;
}

void DisplayLines::Count(int paragraph) {
  if (corrections_.contains(paragraph)) return;
  const auto start = view_.get_buffer()->get_iter_at_line(paragraph);
  auto end = start;
  end.forward_line();
  const int most = std::max(1, end.get_offset() - start.get_offset());
  const int lines =
      !LaidOut() || SurelyOneLine(start) ? 1 : static_cast<int>(Starts(paragraph).size());
  corrections_[paragraph] = most - lines;
  sums_valid_ = false;
}

void DisplayLines::CountAllIfShort() {
  const auto buffer = view_.get_buffer();
  if (all_counted_ || (LaidOut() && buffer->get_char_count() > kExact)) return;
  if (!LaidOut()) return;
  const int paragraphs = buffer->get_line_count();
  for (int i = 0; i < paragraphs; ++i) Count(i);
  all_counted_ = true;
}

int DisplayLines::CorrectionBefore(int paragraph) {
  if (!sums_valid_) {
    sums_.clear();
    int sum = 0;
    for (const auto& [counted, correction] : corrections_) {
      sum += correction;
      sums_.emplace_back(counted, sum);
    }
    sums_valid_ = true;
  }
  const auto after = std::lower_bound(
      sums_.begin(), sums_.end(), paragraph,
      [](const std::pair<int, int>& entry, int wanted) { return entry.first < wanted; });
  return after == sums_.begin() ? 0 : std::prev(after)->second;
}

// The number of a paragraph's first line. A paragraph can have as many lines as
// it has characters with its line end, so without any corrections that is its
// first character's offset.
int DisplayLines::Base(int paragraph) {
  if (!LaidOut()) return paragraph;
  return view_.get_buffer()->get_iter_at_line(paragraph).get_offset() - CorrectionBefore(paragraph);
}

int DisplayLines::LineOf(const Gtk::TextIter& place) {
  Refresh();
  CountAllIfShort();
  const int paragraph = place.get_line();
  const auto& starts = Starts(paragraph);
  if (LaidOut()) Count(paragraph);
  const auto after = std::upper_bound(starts.begin(), starts.end(), place.get_offset());
  return Base(paragraph) + static_cast<int>(after - starts.begin()) - 1;
}

DisplayLines::Range DisplayLines::RangeFrom(int paragraph, std::size_t index) {
  const auto& starts = Starts(paragraph);
  const auto buffer = view_.get_buffer();
  Range range;
  range.start = buffer->get_iter_at_offset(starts[index]);
  if (index + 1 < starts.size()) {
    range.end = buffer->get_iter_at_offset(starts[index + 1]);
  } else {
    range.end = buffer->get_iter_at_line(paragraph);
    if (!range.end.ends_line()) range.end.forward_to_line_end();
  }
  return range;
}

DisplayLines::Range DisplayLines::RangeAt(const Gtk::TextIter& place) {
  Refresh();
  const auto& starts = Starts(place.get_line());
  const auto after = std::upper_bound(starts.begin(), starts.end(), place.get_offset());
  return RangeFrom(place.get_line(), static_cast<std::size_t>(after - starts.begin()) - 1);
}

bool DisplayLines::RangeOf(int line, Range& range) {
  Refresh();
  CountAllIfShort();
  const auto buffer = view_.get_buffer();
  if (line < 0) return false;
  for (;;) {
    int low = 0;
    int high = buffer->get_line_count();  // the last paragraph that begins at or above the line
    while (high - low > 1) {
      const int middle = low + (high - low) / 2;
      if (Base(middle) <= line) {
        low = middle;
      } else {
        high = middle;
      }
    }
    const auto index = static_cast<std::size_t>(line - Base(low));
    const bool counted = !LaidOut() || corrections_.contains(low);
    if (!counted) {
      Count(low);  // it may have fewer lines than it could: look again
      continue;
    }
    if (index >= Starts(low).size()) return false;
    range = RangeFrom(low, index);
    return true;
  }
}

}  // namespace corvane::desktop
