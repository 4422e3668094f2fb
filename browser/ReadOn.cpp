#include "browser/ReadOn.h"

#include <algorithm>
#include <string_view>

#include "base/handling.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestPiece = 400;  // characters
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kMarks = ".!?";              // that end a sentence
constexpr std::string_view kClosers = "\"')]";          // that may stand behind them
constexpr std::size_t kLongestAbbreviation = 1;         // as "p."
constexpr std::size_t kLongestCapitalAbbreviation = 5;  // as "Prof."

bool IsLower(char c) { return c >= 'a' && c <= 'z'; }
bool IsUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// A pause behind a stop that only shortens a word would hurt more than none behind one
// that ends a sentence.
bool MayShorten(std::string_view word) {
  if (word.empty() || word.find('.') != std::string_view::npos) return true;
  return word.size() <= (IsUpper(word[0]) ? kLongestCapitalAbbreviation : kLongestAbbreviation);
}

// Whether a sentence ends at the blank with the given index.
bool EndsSentence(std::string_view text, std::size_t blank) {
  const std::size_t next = text.find_first_not_of(kBlanks, blank);
  if (next != std::string_view::npos && (IsLower(text[next]) || IsDigit(text[next]))) return false;
  const std::size_t mark = text.find_last_not_of(kClosers, blank - 1);
  if (mark == std::string_view::npos || kMarks.find(text[mark]) == std::string_view::npos)
    return false;
  const std::size_t word = text.find_last_of(kBlanks, mark) + 1;
  return text[mark] != '.' || !MayShorten(text.substr(word, mark - word));
}

}  // namespace

std::size_t PieceLength(const std::string& text, std::size_t offset) {
  const std::size_t room = text::offset_of(text, kLongestPiece, offset);
  const std::size_t line_end = std::min(text.find('\n', offset), text.size());
  const std::string_view piece(text.data() + offset, std::min(line_end, room) - offset);
  for (std::size_t i = piece.find(' ', 1); i < piece.size(); i = piece.find(' ', i + 1)) {
    if (EndsSentence(piece, i)) return i;
  }
  if (line_end <= room) return piece.size();
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
