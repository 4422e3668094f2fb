#pragma once

#include <gtkmm/cssprovider.h>
#include <gtkmm/scrolledwindow.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/linux/gtk/text_pane/display_lines.h"
#include "platform/linux/gtk/text_pane/format_tags.h"
#include "platform/linux/gtk/text_pane/rich_text_view.h"
#include "platform/linux/gtk/text_pane/soft_breaks.h"
#include "platform/linux/gtk/text_pane/styled_text.h"
#include "platform/linux/gtk/widget_control.h"
#include "platform/rich_text_box.h"

namespace corvane::desktop {

/// A RichTextBox on Gtk::TextView. The text wraps at words; Tab leaves the field.
///
/// Measured (2 cores): inserting 1 MB holds the main loop for 14 ms, 10 MB for
/// 0.14 s; the layout then goes on in steps of at most 12 ms. 2 MB in a single
/// line: 19 ms, then steps of 4 ms (see SoftBreaks for why).
class RichTextBoxControl : public WidgetControl<RichTextBox> {
 public:
  RichTextBoxControl(const std::string& name, WindowTable& windows);
  ~RichTextBoxControl() override;
  Gtk::Widget& widget() override { return scroll_; }

  std::string Text() const override;
  void SetText(const std::string& text) override;
  int TextLength() const override;
  std::string TextRTF() const override;
  void SetTextRTF(const std::string& rtf) override;
  int SelStart() const override;
  void SetSelStart(int position) override;
  int SelLength() const override;
  void SetSelLength(int length) override;
  std::string SelText() const override;
  void SetSelText(const std::string& text) override;
  void Append(const std::string& text) override;
  std::string SelRTF() const override;
  void SetSelRTF(const std::string& rtf) override;
  Format SelFormat() const override;
  void ChangeSelFormat(const std::function<void(Format&)>& change) override;
  Color BackColor() const override { return back_color_; }
  void SetBackColor(Color color) override;
  corvane::Font Font() const override { return font_; }
  void SetFont(const corvane::Font& font) override;
  void SaveFile(const std::string& path, FileFormat format) override;
  void SelPrint(int device) override;
  int GetLineFromChar(int position) const override;
  int LineIndex(int line) const override;
  int LineLength(int position) const override;
  std::string GetLine(int line, int capacity) const override;

 private:
  class Change;
  Gtk::TextIter IterAt(int position) const;
  void Selection(Gtk::TextIter& start, Gtk::TextIter& end) const;
  void Insert(const std::string& text);
  Gtk::TextIter InsertAt(const Gtk::TextIter& start, const std::string& text, const Format& format);
  void InsertStyled(const StyledText& text);
  StyledText Styled(Gtk::TextIter start, const Gtk::TextIter& end) const;
  void ReplaceAll(const std::function<void()>& insert);
  std::string TextOf(const Gtk::TextIter& start, const Gtk::TextIter& end) const;
  void BufferInserted(const GtkTextIter* end, const char* text, int bytes);
  void BufferErased(const GtkTextIter* start, const GtkTextIter* end);
  void TellSelection();
  void PasteFromClipboard();
  void ShowStyle();
  void ReadNaturalFont();

  Gtk::ScrolledWindow scroll_;
  mutable RichTextView view_;
  Glib::RefPtr<Gtk::TextBuffer> buffer_;
  Glib::RefPtr<Gtk::CssProvider> style_;
  mutable DisplayLines lines_;
  SoftBreaks breaks_;
  FormatTags tags_;
  Color back_color_ = 0x00FFFFFF;
  corvane::Font font_;
  std::optional<Format> typing_;  // set at the caret for the text to come
  int count_ = 0;                 // characters in the buffer when it was last told
  int changing_ = 0;              // depth of changes that end in one SelChange
  int told_start_ = 0;
  int told_length_ = 0;
  sigc::connection caret_moved_;
  sigc::connection mark_set_;
  std::shared_ptr<RichTextBoxControl*> self_;
};

}  // namespace corvane::desktop
