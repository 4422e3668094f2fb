#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/gtk/text_pane/rtf_text.h"
#include "platform/linux/gtk/text_pane/styled_text.h"

namespace corvane::desktop {

/// One reading of an RTF document: the state behind ReadRtf.
class RtfParser {
 public:
  RtfParser(std::string_view rtf, const RichTextBox::Format& base);
  StyledText Run();

 private:
  // Where the text of a group goes.
  enum class Target { Text, Fonts, Colours, Nowhere };
  struct State {
    RichTextBox::Format format;
    int left = 0;      // \li
    int first = 0;     // \fi
    int fallback = 1;  // \uc
    int code_page = 1252;
    Target target = Target::Text;
  };
  struct FontEntry {
    std::string name;
    int code_page = 0;  // 0: the document's
  };

  void Open();
  void Close();
  void ControlSymbol(char symbol);
  void ControlWord();
  void Hex();
  void Plain(unsigned char byte);
  void Do(std::string_view word, bool has_number, int number);
  bool DoTable(std::string_view word, int number);
  bool DoCharacter(std::string_view word, bool has_number, int number);
  bool DoParagraph(std::string_view word, int number);
  bool DoText(std::string_view word, int number);
  bool DoDestination(std::string_view word);
  void Emit(char32_t character);
  void EndPiece();
  void EndParagraph();
  void FontNamed(int number);
  void EndFont();
  void EndColour();
  bool Skipped();

  std::string_view rtf_;
  std::size_t at_ = 0;
  const RichTextBox::Format base_;
  State state_;
  std::vector<State> stack_;
  int too_deep_ = 0;      // groups beyond the deepest that is read
  int skip_ = 0;          // characters of a \u's fallback still to skip
  bool starred_ = false;  // the next word names an optional destination
  int default_page_ = 1252;

  std::map<int, FontEntry> fonts_;
  int font_number_ = 0;
  FontEntry font_;
  std::vector<Color> colours_;
  Color colour_ = 0;
  bool colour_set_ = false;

  RtfText text_;
  StyledText paragraph_;
  StyledText result_;
  std::size_t size_ = 0;
};

}  // namespace corvane::desktop
