#include "browser/ReadOn.h"

#include <algorithm>
#include <string_view>

#include "base/handling.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestPiece = 400;  // characters
constexpr std::string_view kBlanks = " \t\r\n";

}  // namespace

std::size_t PieceLength(const std::string& text, std::size_t offset) {
  const std::size_t room = text::offset_of(text, kLongestPiece, offset);
  const std::size_t line_end = std::min(text.find('\n', offset), text.size());
  if (line_end <= room) return line_end - offset;
  const std::string_view piece(text.data() + offset, room - offset);
  for (std::size_t i = piece.size() - 1; i > 0; --i) {
    const bool ends = piece[i - 1] == '.' || piece[i - 1] == '!' || piece[i - 1] == '?';
    if (ends && piece[i] == ' ') return i;
  }
  const std::size_t blank = piece.rfind(' ');
  return blank == std::string_view::npos || blank == 0 ? piece.size() : blank;
}

ReadOn::ReadOn(PaneContext& pane, CaretEcho& echo) : pane_(pane), echo_(echo) {}

void ReadOn::Start() {
  const ctlText& box = pane_.controls.ctlText1;
  text_ = box.Text();
  length_ = box.TextLength();
  position_ = box.SelStart();
  offset_ = text::offset_of(text_, static_cast<std::size_t>(position_));
  turn_ = std::make_shared<int>();
  Next();
}

void ReadOn::Next() {
  ctlText& box = pane_.controls.ctlText1;
  const std::size_t start = std::min(text_.find_first_not_of(kBlanks, offset_), text_.size());
  position_ += static_cast<int>(start - offset_);         // blanks are a byte each
  if (box.TextLength() != length_) return turn_.reset();  // of another page by now
  box.SetSelStart(position_);
  echo_.Follow();
  if (start == text_.size()) {
    turn_.reset();
    return pane_.announcer.Say("End of text");
  }
  const std::string piece = text_.substr(start, PieceLength(text_, start));
  offset_ = start + piece.size();
  const int next = position_ + static_cast<int>(text::length(piece));
  pane_.announcer.SayThrough(piece, [this, next, turn = std::weak_ptr(turn_)](bool to_its_end) {
    if (turn.expired()) return;
    if (!to_its_end) return turn_.reset();
    position_ = next;
    Next();
  });
}

}  // namespace corvane
