#pragma once

#include <optional>
#include <string>

#include "browser/PaneContext.h"
#include "browser/reading/PageInPane.h"

namespace corvane {

/// Speaks what the caret moved over when a key is released in the text pane, the
/// address box or the links list: the line when it is another one, otherwise the
/// characters between the old and the new column. One state for all three
/// fields, kept from page to page. What the program itself puts into a field, and where
/// it puts the caret, is known when the next key goes down.
class CaretEcho {
 public:
  /// Columns that are commands to parse_string instead of places.
  enum Command : int { kSpeakLine = -1, kSpeakWord = -2, kReadDigit = -3 };

  CaretEcho(PaneContext& pane, PageInPane& page);

  /// Reads the caret of the field with that window and echoes it.
  void TextBoxPress(WindowHandle hWnd);
  /// Takes the caret's place in the text pane for known: what moved it there has
  /// said so itself.
  void Follow();
  /// The same, when the user next presses a key in the text pane.
  void CaretWasMoved() { pane_moved_ = true; }
  /// Compares a place with the last one, speaks the difference and keeps it. A
  /// column below 0 that is no command becomes 0.
  void parse_string(const std::string& strLine, int lngLine, int& lngColumn);

 private:
  /// A line of the text pane: where it starts and what it says.
  struct EditLine {
    int start = 0;
    std::string text;
  };
  /// What stood around the caret when a key went down that deletes.
  struct Before {
    std::string text;
    int start = 0;   ///< position of its first character in the field
    int length = 0;  ///< of the whole field
  };
  /// A key that walks, and where the caret was when it went down.
  struct Going {
    int key = 0;  ///< 0: none
    int from = 0;
    bool by_lines = false;
  };
  void ConnectPane();
  void ConnectField(ComboBox& field);
  void FieldKeyDown(const ComboBox& field, const KeyEvent& key);
  void FieldKeyUp(const ComboBox& field, const KeyEvent& key);
  void Follow(const ComboBox& field);
  EditLine GetEditLine(int line) const;
  EditLine PaneLine(int& position, int& line) const;
  Before AroundPaneCaret() const;
  bool Deletes(const KeyEvent& key) const;
  /// Says what a deleting key has taken out of a field that is now so long, with the
  /// caret there.
  void SayDeleted(int caret, int length);
  void SayPassed(const std::string& characters);
  void SayLine(const std::string& line);
  void SayWhereItStays();
  void SayWords(const std::string& words);
  void SpeakWord();

  PaneContext& pane_;
  PageInPane& page_;
  // Wider than a page can be long; a long page must not end in an overflow.
  int lngLastLine_ = 0;
  int lngLastColumn_ = 0;
  std::string strLastLine_;
  std::optional<std::string> line_words_;  // of the line that the caret is compared on
  bool pane_moved_ = false;                // the program has moved the text pane's caret
  Going going_;                            // by the key that is down in the text pane
  bool awaited_ = false;                   // a key is down in a field, its release will be echoed
  bool chosen_ = false;                    // it has chosen an entry, which says itself
  std::optional<Before> deleting_;         // a key is down that deletes
  Connections connections_;
};

}  // namespace corvane
