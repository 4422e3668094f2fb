#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/handling.h"
#include "base/manner.h"
#include "platform/desktop.h"

namespace corvane {

/// The text pane: the plain text of pages and announcements in a rich text box,
/// mirrored in short pieces in an off-screen list whose selected entry is always
/// the newest text. It speaks nothing; keys and selection changes go to its host.
class ctlText {
 public:
  /// `manner` must outlive the control.
  ctlText(Desktop& desktop, const std::string& name, const Manner& manner = kEstablishedManner);

  /// The control itself, for the frame that it stands in.
  ElasticFrame& Frame() { return *frame_; }

  /// Appends `strText` at the end. With `blnMoveCur` the caret goes behind it, unless
  /// the manner keeps the reader's place; otherwise to its first character. Then it is mirrored,
  /// and waiting events run between the pieces: what must come before their work is for `appended`,
  /// which is called as soon as the text stands in the box. An empty text is left out.
  void AddText(const std::string& strText, const bool& blnMoveCur,
               const std::function<void()>& appended = nullptr);
  /// Empties the visible text; the mirror keeps its entries.
  void ClearText();
  /// Saves into the program's folder, as rich text unless `vFlags` says plain.
  void SaveFile(const std::string& bstrFilename,
                std::optional<RichTextBox::FileFormat> vFlags = std::nullopt);
  /// The 0-based line of the character at a position.
  int GetLineFromChar(int IChar) const;

  // What the rich text box offers, delegated; a set that fails changes nothing, a
  // get that fails answers with an empty value.
  std::string SelText() const { return Ask(&RichTextBox::SelText); }
  void SetSelText(const std::string& text) { Tell(&RichTextBox::SetSelText, text); }
  int SelStart() const { return Ask(&RichTextBox::SelStart); }
  void SetSelStart(int position) { Tell(&RichTextBox::SetSelStart, position); }
  int SelLength() const { return Ask(&RichTextBox::SelLength); }
  void SetSelLength(int length) { Tell(&RichTextBox::SetSelLength, length); }
  std::string SelRTF() const { return Ask(&RichTextBox::SelRTF); }
  void SetSelRTF(const std::string& rtf) { Tell(&RichTextBox::SetSelRTF, rtf); }
  std::string Text() const { return Ask(&RichTextBox::Text); }
  void SetText(const std::string& text) { Tell(&RichTextBox::SetText, text); }
  /// The number of characters in the visible text.
  int TextLength() const { return Ask(&RichTextBox::TextLength); }
  std::string TextRTF() const { return Ask(&RichTextBox::TextRTF); }
  void SetTextRTF(const std::string& rtf) { Tell(&RichTextBox::SetTextRTF, rtf); }
  Color BackColor() const { return Ask(&RichTextBox::BackColor); }
  void SetBackColor(Color color) { Tell(&RichTextBox::SetBackColor, color); }
  corvane::Font Font() const { return Ask(&RichTextBox::Font); }
  void SetFont(const corvane::Font& font) { Tell(&RichTextBox::SetFont, font); }
  void SelPrint(int lHDC) { Tell(&RichTextBox::SelPrint, lHDC); }

  bool SelBold() const { return Read(&Format::bold); }
  void SetSelBold(bool on) { Write(&Format::bold, on); }
  bool SelItalic() const { return Read(&Format::italic); }
  void SetSelItalic(bool on) { Write(&Format::italic, on); }
  bool SelUnderline() const { return Read(&Format::underline); }
  void SetSelUnderline(bool on) { Write(&Format::underline, on); }
  bool SelStrikeThru() const { return Read(&Format::strike_thru); }
  /// The one setter that tells the container: it raises PropertyChanged.
  void SetSelStrikeThru(bool on);
  bool SelProtected() const { return Read(&Format::is_protected); }
  void SetSelProtected(bool on) { Write(&Format::is_protected, on); }
  bool SelBullet() const { return Read(&Format::bullet); }
  void SetSelBullet(bool on) { Write(&Format::bullet, on); }
  std::string SelFontName() const { return Read(&Format::font_name); }
  void SetSelFontName(const std::string& name) { Write(&Format::font_name, name); }
  float SelFontSize() const { return Read(&Format::font_size); }
  void SetSelFontSize(float points) { Write(&Format::font_size, points); }
  Color SelColor() const { return Read(&Format::color); }
  void SetSelColor(Color color) { Write(&Format::color, color); }
  int SelCharOffset() const { return Read(&Format::char_offset); }
  void SetSelCharOffset(int twips) { Write(&Format::char_offset, twips); }
  int SelIndent() const { return Read(&Format::indent); }
  void SetSelIndent(int twips) { Write(&Format::indent, twips); }
  int SelRightIndent() const { return Read(&Format::right_indent); }
  void SetSelRightIndent(int twips) { Write(&Format::right_indent, twips); }
  int SelHangingIndent() const { return Read(&Format::hanging_indent); }
  void SetSelHangingIndent(int twips) { Write(&Format::hanging_indent, twips); }
  RichTextBox::Alignment SelAlignment() const { return Read(&Format::alignment); }
  void SetSelAlignment(RichTextBox::Alignment alignment) { Write(&Format::alignment, alignment); }
  int SelTabCount() const { return static_cast<int>(Read(&Format::tabs).size()); }
  void SetSelTabCount(int count);
  /// The absolute position of tab `Index`, 0 when there is none.
  int SelTabs(std::int16_t Index) const;
  void SetSelTabs(std::int16_t Index, int twips);

  /// The colour at the caret.
  Color ForeColor() const { return SelColor(); }
  /// Gives the whole text the colour.
  void SetForeColor(Color color);

  /// The rich text box's window, read once.
  WindowHandle TextWindow() const { return lngTextWindow_; }
  /// Passes the focus on to the rich text box.
  void SetFocus() {
    ErrorsIgnored([&] { Text1_->SetFocus(); });
  }

  /// The two children, for the pane and for whoever reads the mirror.
  RichTextBox& Text1() { return *Text1_; }
  const RichTextBox& Text1() const { return *Text1_; }
  ListBox& List1() { return *List1_; }

  Event<int&> KeyPress;
  Event<KeyEvent&> KeyDown;
  Event<KeyEvent&> KeyUp;
  Event<> SelChange;
  /// The name of a property that the container should treat as changed.
  Event<const std::string&> PropertyChanged;

 private:
  using Format = RichTextBox::Format;

  template <class Value>
  Value Ask(Value (RichTextBox::*getter)() const) const {
    Value value{};
    ErrorsIgnored([&] { value = ((*Text1_).*getter)(); });
    return value;
  }
  template <class Parameter, class Value>
  void Tell(void (RichTextBox::*setter)(Parameter), const Value& value) {
    ErrorsIgnored([&] { ((*Text1_).*setter)(value); });
  }
  template <class Value>
  Value Read(Value Format::*field) const {
    Value value{};
    ErrorsIgnored([&] { value = Text1_->SelFormat().*field; });
    return value;
  }
  template <class Value>
  void Write(Value Format::*field, const Value& value) {
    ErrorsIgnored([&] { Text1_->ChangeSelFormat([&](Format& format) { format.*field = value; }); });
  }
  void Insert(const std::string& strText, bool move_caret);
  void Mirror(const std::string& strText);
  void UserControl_Resize();

  Desktop& desktop_;
  const Manner& manner_;
  std::unique_ptr<ElasticFrame> frame_;
  std::unique_ptr<RichTextBox> Text1_;
  std::unique_ptr<ListBox> List1_;
  WindowHandle lngTextWindow_ = 0;
  Connections connections_;
};

}  // namespace corvane
