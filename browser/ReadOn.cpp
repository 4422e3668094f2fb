#include "browser/ReadOn.h"

#include <algorithm>
#include <string>
#include <string_view>

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

ReadOn::ReadOn(PaneContext& pane, PageInPane& page, CaretEcho& echo)
    : pane_(pane), page_(page), echo_(echo) {
  connections_ += pane_.PageShown.Connect([this] { turn_.reset(); });
}

void ReadOn::Start() {
  TakeText();
  Go(piece_);
}

// A page ends where its text does, whatever has been announced behind it.
void ReadOn::TakeText() {
  const ctlText& box = pane_.controls.ctlText1;
  text_ = box.Text();
  length_ = box.TextLength();
  position_ = box.SelStart();
  piece_ = text::offset_of(text_, static_cast<std::size_t>(position_));
  const int end = page_.End();
  if (position_ >= end || end >= length_) return;
  text_.resize(text::offset_of(text_, static_cast<std::size_t>(end - position_), piece_));
}

void ReadOn::Go(std::size_t offset) {
  offset_ = offset;
  turn_ = std::make_shared<int>();
  Next();
}

// Only what lies between is counted: a page may have megabytes.
void ReadOn::MoveTo(std::size_t offset) {
  const std::string_view text = text_;
  const auto characters = [&](std::size_t from, std::size_t until) {
    return static_cast<int>(text::length(text.substr(from, until - from)));
  };
  position_ += offset >= piece_ ? characters(piece_, offset) : -characters(offset, piece_);
  piece_ = offset;
}

void ReadOn::Next() {
  const std::size_t start = std::min(text_.find_first_not_of(kBlanks, offset_), text_.size());
  MoveTo(start);
  const std::string piece = text_.substr(start, PieceLength(text_, start));
  offset_ = start + piece.size();
  page_.ReadAt(position_, piece);
  echo_.Follow();
  if (piece.empty()) {
    turn_.reset();
    return pane_.announcer.Say("End of text");
  }
  pane_.announcer.SayThrough(page_.InItsLanguages(position_, piece),
                             [this, turn = std::weak_ptr(turn_)](bool to_its_end) {
                               if (turn.expired()) return;
                               if (!to_its_end) return turn_.reset();
                               Spoken();
                             });
}

// The page's text may have been taken anew meanwhile, and the caret with it.
void ReadOn::Spoken() {
  const ctlText& box = pane_.controls.ctlText1;
  if (box.TextLength() != length_) {
    if (page_.Map() == nullptr) return turn_.reset();  // another text by now
    const std::size_t spoken = offset_ - piece_;
    TakeText();
    offset_ = std::min(piece_ + spoken, text_.size());
  }
  Next();
}

// --- to and fro -----------------------------------------------------------------------

bool ReadOn::Step(Unit unit, Way way) {
  if (!turn_) return false;
  Go(Target(unit, way));
  return true;
}

std::size_t ReadOn::Target(Unit unit, Way way) const {
  const auto line_of = [&](std::size_t at) {
    const std::size_t end = at == 0 ? std::string::npos : text_.rfind('\n', at - 1);
    return end == std::string::npos ? 0 : end + 1;
  };
  const auto first_in = [&](std::size_t at) {
    return std::min(text_.find_first_not_of(kBlanks, at), text_.size());
  };
  // The line with text in front of the one that begins there.
  const auto line_before = [&](std::size_t line) {
    const std::size_t last =
        line == 0 ? std::string::npos : text_.find_last_not_of(kBlanks, line - 1);
    return last == std::string::npos ? line : line_of(last);
  };
  const std::size_t line = line_of(piece_);
  if (way == Way::On) {
    return unit == Unit::Sentence ? offset_ : std::min(text_.find('\n', piece_), text_.size());
  }
  if (unit == Unit::Paragraph) return line_before(line);
  std::size_t best = first_in(line);
  if (best >= piece_) {
    best = first_in(line_before(line));
    if (best >= piece_) return piece_;  // there is none
  }
  for (;;) {
    const std::size_t next = first_in(best + PieceLength(text_, best));
    if (next >= piece_ || next <= best) return best;
    best = next;
  }
}

}  // namespace corvane
