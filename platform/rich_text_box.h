#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"

namespace corvane {

/// A colour as 0x00BBGGRR.
using Color = std::uint32_t;

/// A font for a whole control.
struct Font {
  std::string name;
  float size = 0;  ///< points
  bool bold = false;
  bool italic = false;
  bool operator==(const Font&) const = default;
};

/// A multi-line text field with formats. Positions and lengths are counted in
/// characters (Unicode code points) from 0, lines from 0 as they are laid out:
/// a wrapped line is a line. Carriage returns in front of line feeds are not
/// kept. Lengths on the page (indents, tabs) are in twips.
class RichTextBox : public Control {
 public:
  enum class FileFormat { Rtf = 0, Text = 1 };
  enum class Alignment { Left = 0, Right = 1, Center = 2 };

  /// The formats of a selection; getters answer for its first character.
  struct Format {
    bool bold = false, italic = false, underline = false, strike_thru = false, is_protected = false;
    bool bullet = false;
    std::string font_name;
    float font_size = 0;  ///< points
    Color color = 0;
    int char_offset = 0;  ///< twips above (positive) or below the base line
    int indent = 0, right_indent = 0, hanging_indent = 0;
    Alignment alignment = Alignment::Left;
    std::vector<int> tabs;  ///< absolute positions
    bool operator==(const Format&) const = default;
  };

  virtual std::string Text() const = 0;
  virtual void SetText(const std::string& text) = 0;
  /// The number of characters in Text, without making a copy of it.
  virtual int TextLength() const = 0;
  virtual std::string TextRTF() const = 0;
  virtual void SetTextRTF(const std::string& rtf) = 0;

  virtual int SelStart() const = 0;
  /// Moves the caret; nothing stays selected. A position past the end is the end.
  virtual void SetSelStart(int position) = 0;
  virtual int SelLength() const = 0;
  virtual void SetSelLength(int length) = 0;
  virtual std::string SelText() const = 0;
  /// Replaces the selection and leaves the caret behind the new text.
  virtual void SetSelText(const std::string& text) = 0;
  /// Adds the text at the end, on a line of its own; caret and selection stay.
  virtual void Append(const std::string& text) = 0;
  virtual std::string SelRTF() const = 0;
  virtual void SetSelRTF(const std::string& rtf) = 0;
  virtual Format SelFormat() const = 0;
  /// Changes the formats of the selection: `change` is called with each that occurs
  /// in it, so that what it leaves alone stays as different as it was. With nothing
  /// selected the text that is inserted next at the caret gets the change.
  virtual void ChangeSelFormat(const std::function<void(Format&)>& change) = 0;

  virtual Color BackColor() const = 0;
  virtual void SetBackColor(Color color) = 0;
  virtual corvane::Font Font() const = 0;
  virtual void SetFont(const corvane::Font& font) = 0;

  /// Writes the whole text; RunTimeError when the file cannot be written.
  virtual void SaveFile(const std::string& path, FileFormat format) = 0;
  /// Prints the selection on the device with that handle.
  virtual void SelPrint(int device) = 0;

  virtual int GetLineFromChar(int position) const = 0;
  /// The first character's position of a line, -1 when there is no such line
  /// (EM_LINEINDEX).
  virtual int LineIndex(int line) const = 0;
  /// The length of the line that holds the position, without its line end
  /// (EM_LINELENGTH).
  virtual int LineLength(int position) const = 0;
  /// At most `capacity` characters of a line, without its line end (EM_GETLINE).
  virtual std::string GetLine(int line, int capacity) const = 0;

  Event<> SelChange;
};

}  // namespace corvane
