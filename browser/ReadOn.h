#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "browser/CaretEcho.h"
#include "browser/PaneContext.h"
#include "browser/reading/PageInPane.h"

namespace corvane {

/// Reads the text pane aloud from its caret to the end, sentence after sentence, and
/// takes the caret and the page along. Whatever else is said ends it, and so does the key
/// that silences: the caret then stands before the sentence that was being spoken.
class ReadOn {
 public:
  ReadOn(PaneContext& pane, PageInPane& page, CaretEcho& echo);

  void Start();

  bool IsReading() const { return turn_ != nullptr; }

  enum class Unit { Sentence, Paragraph };
  enum class Way { On, Back };
  /// Goes on with the next sentence or paragraph, or the one before; false, and nothing
  /// done, while nothing is being read.
  bool Step(Unit unit, Way way);

 private:
  void TakeText();
  void Go(std::size_t offset);
  void MoveTo(std::size_t offset);
  void Next();
  void Spoken();
  std::size_t Target(Unit unit, Way way) const;

  PaneContext& pane_;
  PageInPane& page_;
  CaretEcho& echo_;
  std::string text_;           // the pane's, as far as it is read
  int length_ = 0;             // of the pane's, in characters
  std::size_t piece_ = 0;      // where what is being spoken begins, in bytes
  int position_ = 0;           // the same in characters
  std::size_t offset_ = 0;     // where what comes next begins
  std::shared_ptr<int> turn_;  // the reading under way
  Connections connections_;
};

/// How many bytes of the text from `offset` on are spoken as one piece: a sentence, or
/// the line's rest; of a long sentence some words. Where it is not clear that a sentence
/// ends (behind "Dr.") the next is part of it. Above 0 unless the text is at its end.
std::size_t PieceLength(const std::string& text, std::size_t offset);

}  // namespace corvane
