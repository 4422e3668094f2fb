#pragma once

#include <string>

#include "browser/PaneContext.h"

namespace corvane {

/// Speaks what the caret moved over when a key is released in the text pane, the
/// address box or the links list: the line when it is another one, otherwise the
/// characters between the old and the new column. One state for all three
/// fields, kept from page to page.
class CaretEcho {
 public:
  /// Columns that are commands to parse_string instead of places.
  enum Command : int { kSpeakLine = -1, kSpeakWord = -2, kReadDigit = -3 };

  explicit CaretEcho(PaneContext& pane);

  /// Reads the caret of the field with that window and echoes it.
  void TextBoxPress(WindowHandle hWnd);
  /// Takes the caret's place in the text pane for known: what moved it there has
  /// said so itself.
  void Follow();
  /// Compares a place with the last one, speaks the difference and keeps it. A
  /// column below 0 that is no command becomes 0.
  void parse_string(const std::string& strLine, int lngLine, int& lngColumn);

 private:
  /// A line of the text pane: where it starts and what it says.
  struct EditLine {
    int start = 0;
    std::string text;
  };
  EditLine GetEditLine(int line) const;
  EditLine PaneLine(int& position, int& line) const;
  void SpeakWord();

  PaneContext& pane_;
  // Wider than a page can be long; a long page must not end in an overflow.
  int lngLastLine_ = 0;
  int lngLastColumn_ = 0;
  std::string strLastLine_;
  Connections connections_;
};

}  // namespace corvane
