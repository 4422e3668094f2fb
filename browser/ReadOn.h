#pragma once

#include <memory>
#include <string>

#include "browser/CaretEcho.h"
#include "browser/PaneContext.h"

namespace corvane {

/// Reads the text pane aloud from its caret to the end, sentence after sentence, and
/// takes the caret along. Whatever else is said ends it, and so does the key that
/// silences: the caret then stands before the sentence that was being spoken.
class ReadOn {
 public:
  ReadOn(PaneContext& pane, CaretEcho& echo);

  void Start();

 private:
  void Next();

  PaneContext& pane_;
  CaretEcho& echo_;
  std::string text_;           // the pane's when reading began
  int length_ = 0;             // of it, in characters
  std::size_t offset_ = 0;     // of what comes next, in bytes
  int position_ = 0;           // the same in characters
  std::shared_ptr<int> turn_;  // the reading under way
};

/// How many bytes of the text from `offset` on are spoken as one piece: a sentence, or
/// the line's rest; of a long sentence some words. Where it is not clear that a sentence
/// ends (behind "Dr.") the next is part of it. Above 0 unless the text is at its end.
std::size_t PieceLength(const std::string& text, std::size_t offset);

}  // namespace corvane
