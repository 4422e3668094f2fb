#include "platform/linux/gtk/text_pane/rich_text_box.h"

#include <gtkmm/clipboard.h>

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/gtk/text.h"
#include "platform/linux/gtk/text_pane/rtf_reader.h"
#include "platform/linux/gtk/text_pane/rtf_writer.h"
#include "platform/linux/gtk/text_pane/text_printer.h"

namespace corvane::desktop {
namespace {

constexpr int kMargin = 4;  // pixels beside the text

}  // namespace

// Selection changes during an operation are told once, at its end.
class RichTextBoxControl::Change {
 public:
  explicit Change(RichTextBoxControl& box) : box_(box) { ++box_.changing_; }
  ~Change() {
    if (--box_.changing_ == 0) box_.TellSelection();
  }
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;

 private:
  RichTextBoxControl& box_;
};

RichTextBoxControl::RichTextBoxControl(const std::string& name, WindowTable& windows)
    : buffer_(view_.get_buffer()),
      style_(Gtk::CssProvider::create()),
      lines_(view_),
      tags_(buffer_),
      self_(std::make_shared<RichTextBoxControl*>(this)) {
  view_.set_accepts_tab(false);
  view_.set_wrap_mode(Gtk::WRAP_WORD_CHAR);
  view_.set_left_margin(kMargin);
  view_.set_right_margin(kMargin);
  view_.get_style_context()->add_provider(style_, GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  view_.Copy = [this] { Gtk::Clipboard::get()->set_text(Valid(SelText())); };
  view_.Cut = [this] {
    if (SelLength() == 0) return;
    view_.Copy();
    SetSelText("");
  };
  view_.Paste = [this] { PasteFromClipboard(); };
  view_.BulletTag = [this] { return tags_.BulletTag(); };
  view_.show();
  scroll_.add(view_);
  scroll_.set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
  scroll_.set_shadow_type(Gtk::SHADOW_IN);
  scroll_.set_vexpand(true);
  Bind(scroll_, view_, name, "RichTextBox", windows, [this] { return Text(); });
  ReadNaturalFont();

  // The toolkit's own signals: gtkmm's would copy the text of every insertion.
  g_signal_connect_after(
      buffer_->gobj(), "insert-text",
      G_CALLBACK(+[](GtkTextBuffer*, GtkTextIter* end, const char* text, int bytes, gpointer self) {
        static_cast<RichTextBoxControl*>(self)->BufferInserted(end, text, bytes);
      }),
      this);
  g_signal_connect(
      buffer_->gobj(), "delete-range",
      G_CALLBACK(+[](GtkTextBuffer*, GtkTextIter* start, GtkTextIter* end, gpointer self) {
        static_cast<RichTextBoxControl*>(self)->BufferErased(start, end);
      }),
      this);
  caret_moved_ =
      buffer_->property_cursor_position().signal_changed().connect([this] { TellSelection(); });
  mark_set_ = buffer_->signal_mark_set().connect(
      [this](const Gtk::TextIter&, const Glib::RefPtr<Gtk::TextMark>& mark) {
        if (mark == buffer_->get_selection_bound()) TellSelection();
      });
}

RichTextBoxControl::~RichTextBoxControl() {
  *self_ = nullptr;
  // The view clears its selection when it goes.
  caret_moved_.disconnect();
  mark_set_.disconnect();
  g_signal_handlers_disconnect_by_data(buffer_->gobj(), this);
}

void RichTextBoxControl::BufferInserted(const GtkTextIter* end, const char* text, int bytes) {
  const int added = gtk_text_buffer_get_char_count(buffer_->gobj()) - count_;
  count_ += added;
  const int end_offset = gtk_text_iter_get_offset(end);
  breaks_.Inserted(end_offset - added, added,
                   std::string_view(text, static_cast<std::size_t>(bytes)));
  const auto start = buffer_->get_iter_at_offset(end_offset - added);
  lines_.Changed(start.get_line(), gtk_text_iter_get_line(end) - start.get_line());
  if (changing_ > 0 || (!typing_ && !tags_.Used())) return;
  // What the user types goes on in the format in front of it.
  auto before = start;
  if (!before.starts_line()) before.backward_char();
  tags_.ApplyToCharacters(typing_ ? *typing_ : tags_.At(before), start,
                          buffer_->get_iter_at_offset(end_offset));
}

void RichTextBoxControl::BufferErased(const GtkTextIter* start, const GtkTextIter* end) {
  const int from = gtk_text_iter_get_offset(start);
  const int to = gtk_text_iter_get_offset(end);
  count_ -= to - from;
  breaks_.Erased(from, to);
  lines_.Changed(gtk_text_iter_get_line(start),
                 gtk_text_iter_get_line(start) - gtk_text_iter_get_line(end));
}

void RichTextBoxControl::TellSelection() {
  if (changing_ > 0) return;
  const int start = SelStart();
  const int length = SelLength();
  if (start == told_start_ && length == told_length_) return;
  told_start_ = start;
  told_length_ = length;
  typing_.reset();
  SelChange.Raise();
}

Gtk::TextIter RichTextBoxControl::IterAt(int position) const {
  const int offset = breaks_.OffsetOf(std::clamp(position, 0, TextLength()));
  return buffer_->get_iter_at_offset(offset);
}

void RichTextBoxControl::Selection(Gtk::TextIter& start, Gtk::TextIter& end) const {
  buffer_->get_selection_bounds(start, end);
}

std::string RichTextBoxControl::TextOf(const Gtk::TextIter& start, const Gtk::TextIter& end) const {
  return SoftBreaks::Strip(start.get_slice(end));
}

std::string RichTextBoxControl::Text() const { return TextOf(buffer_->begin(), buffer_->end()); }

int RichTextBoxControl::TextLength() const { return buffer_->get_char_count() - breaks_.Count(); }

void RichTextBoxControl::ReplaceAll(const std::function<void()>& insert) {
  const Change change(*this);
  const Format format = typing_ ? *typing_ : SelFormat();
  buffer_->erase(buffer_->begin(), buffer_->end());
  typing_ = format;  // the new text looks like the old one's caret did
  insert();
  buffer_->place_cursor(buffer_->begin());
}

void RichTextBoxControl::SetText(const std::string& text) {
  ReplaceAll([&] { Insert(text); });
}

std::string RichTextBoxControl::TextRTF() const {
  return WriteRtf(Styled(buffer_->begin(), buffer_->end()), tags_.Base());
}

void RichTextBoxControl::SetTextRTF(const std::string& rtf) {
  ReplaceAll([&] {
    if (IsRtf(rtf)) {
      InsertStyled(ReadRtf(rtf, tags_.Base()));
    } else {
      Insert(rtf);
    }
  });
}

int RichTextBoxControl::SelStart() const {
  Gtk::TextIter start;
  Gtk::TextIter end;
  Selection(start, end);
  return breaks_.PositionOf(start.get_offset());
}

void RichTextBoxControl::SetSelStart(int position) {
  const Change change(*this);
  buffer_->place_cursor(IterAt(position));
  view_.scroll_to(buffer_->get_insert());
}

int RichTextBoxControl::SelLength() const {
  Gtk::TextIter start;
  Gtk::TextIter end;
  Selection(start, end);
  return breaks_.PositionOf(end.get_offset()) - breaks_.PositionOf(start.get_offset());
}

void RichTextBoxControl::SetSelLength(int length) {
  const Change change(*this);
  const int start = SelStart();
  const int end = std::min(TextLength() - start, std::max(0, length)) + start;
  // The caret goes to the selection's end, as with the keyboard.
  buffer_->select_range(IterAt(end), IterAt(start));
}

std::string RichTextBoxControl::SelText() const {
  Gtk::TextIter start;
  Gtk::TextIter end;
  Selection(start, end);
  return TextOf(start, end);
}

void RichTextBoxControl::SetSelText(const std::string& text) {
  const Change change(*this);
  Insert(text);
  view_.scroll_to(buffer_->get_insert());
}

std::string RichTextBoxControl::SelRTF() const {
  Gtk::TextIter start;
  Gtk::TextIter end;
  Selection(start, end);
  return WriteRtf(Styled(start, end), tags_.Base());
}

void RichTextBoxControl::SetSelRTF(const std::string& rtf) {
  if (!IsRtf(rtf)) {
    SetSelText(rtf);
    return;
  }
  const Change change(*this);
  InsertStyled(ReadRtf(rtf, tags_.Base()));
  view_.scroll_to(buffer_->get_insert());
}

// Replaces the selection by text in the format of the caret.
void RichTextBoxControl::Insert(const std::string& text) {
  const Format format = SelFormat();
  Gtk::TextIter start;
  Gtk::TextIter end;
  Selection(start, end);
  if (start != end) start = buffer_->erase(start, end);
  const auto behind = InsertAt(start, text, format);
  if (!text.empty()) buffer_->place_cursor(behind);
}

// Answers with the place behind the text.
Gtk::TextIter RichTextBoxControl::InsertAt(const Gtk::TextIter& start, const std::string& text,
                                           const Format& format) {
  const bool plain = !typing_ && !tags_.Used();
  const int from = start.get_offset();
  const auto prepared = SoftBreaks::Prepare(text, start.get_line_offset());
  auto place = *start.gobj();
  if (!prepared.empty()) {
    gtk_text_buffer_insert(buffer_->gobj(), &place, prepared.data(),
                           static_cast<int>(prepared.size()));
    if (!plain) {
      tags_.Apply(format, buffer_->get_iter_at_offset(from),
                  buffer_->get_iter_at_offset(gtk_text_iter_get_offset(&place)));
    }
  }
  if (tags_.Used()) lines_.Restyled(true);
  return buffer_->get_iter_at_offset(gtk_text_iter_get_offset(&place));
}

// Marks that stand at the very end go along with what is inserted there.
void RichTextBoxControl::Append(const std::string& text) {
  const Change change(*this);
  const int caret = buffer_->get_insert()->get_iter().get_offset();
  const int bound = buffer_->get_selection_bound()->get_iter().get_offset();
  const auto end = buffer_->end();
  const int length = end.get_offset();
  const auto format = tags_.At(end);
  InsertAt(end, end.starts_line() ? text : "\n" + text, format);
  if (caret == length || bound == length) {
    buffer_->select_range(buffer_->get_iter_at_offset(caret), buffer_->get_iter_at_offset(bound));
  }
}

void RichTextBoxControl::InsertStyled(const StyledText& text) {
  Gtk::TextIter start;
  Gtk::TextIter end;
  Selection(start, end);
  if (start != end) buffer_->erase(start, end);
  for (const auto& run : text) {
    typing_ = run.format;
    Insert(run.text);
  }
  typing_.reset();
}

StyledText RichTextBoxControl::Styled(Gtk::TextIter start, const Gtk::TextIter& end) const {
  StyledText text;
  while (start < end) {
    auto next = start;
    if (!next.forward_to_tag_toggle(Glib::RefPtr<Gtk::TextTag>()) || next > end) next = end;
    const auto format = tags_.At(start);
    auto part = TextOf(start, next);
    if (!text.empty() && text.back().format == format) {
      text.back().text += part;
    } else if (!part.empty()) {
      text.push_back({std::move(part), format});
    }
    start = next;
  }
  return text;
}

RichTextBox::Format RichTextBoxControl::SelFormat() const {
  if (typing_) return *typing_;
  Gtk::TextIter start;
  Gtk::TextIter end;
  Selection(start, end);
  // At the caret, text goes on as the character in front of it.
  if (start == end && !start.starts_line()) start.backward_char();
  return tags_.At(start);
}

void RichTextBoxControl::ChangeSelFormat(const std::function<void(Format&)>& change) {
  const Change telling(*this);
  Gtk::TextIter start;
  Gtk::TextIter end;
  Selection(start, end);
  if (start == end) {
    Format format = SelFormat();
    change(format);
    tags_.ApplyToParagraphs(format, start, end);
    typing_ = format;
  }
  // A run that is changed may join the next one: each is looked up anew.
  const int last = end.get_offset();
  for (int at = start.get_offset(); at < last;) {
    const auto from = buffer_->get_iter_at_offset(at);
    auto to = from;
    if (!to.forward_to_tag_toggle(Glib::RefPtr<Gtk::TextTag>()) || to.get_offset() > last) {
      to = buffer_->get_iter_at_offset(last);
    }
    at = to.get_offset();
    Format format = tags_.At(from);
    change(format);
    tags_.Apply(format, from, to);
  }
  lines_.Restyled(tags_.Used());
}

void RichTextBoxControl::PasteFromClipboard() {
  Gtk::Clipboard::get()->request_text([self = self_](const Glib::ustring& text) {
    if (*self && !text.empty()) (*self)->SetSelText(text);
  });
}

int RichTextBoxControl::GetLineFromChar(int position) const {
  return lines_.LineOf(IterAt(position));
}

int RichTextBoxControl::LineIndex(int line) const {
  DisplayLines::Range range;
  if (!lines_.RangeOf(line, range)) return -1;
  return breaks_.PositionOf(range.start.get_offset());
}

int RichTextBoxControl::LineLength(int position) const {
  const auto range = lines_.RangeAt(IterAt(position));
  return breaks_.PositionOf(range.end.get_offset()) - breaks_.PositionOf(range.start.get_offset());
}

std::string RichTextBoxControl::GetLine(int line, int capacity) const {
  DisplayLines::Range range;
  if (capacity <= 0 || !lines_.RangeOf(line, range)) return {};
  auto end = range.start;
  end.forward_chars(std::min(capacity, range.end.get_offset() - range.start.get_offset()));
  return TextOf(range.start, end);
}

void RichTextBoxControl::SaveFile(const std::string& path, FileFormat format) {
  const std::string content = format == FileFormat::Rtf ? TextRTF() : Text();
  GError* raw = nullptr;
  if (g_file_set_contents(path.c_str(), content.data(), static_cast<gssize>(content.size()),
                          &raw)) {
    return;
  }
  const ErrorPtr error(raw);
  const std::string why = error ? error->message : "The file could not be written";
  const bool denied =
      error && (error->code == G_FILE_ERROR_ACCES || error->code == G_FILE_ERROR_PERM ||
                error->code == G_FILE_ERROR_ROFS);
  throw RunTimeError(denied ? kErrPermissionDenied : kErrDeviceIo, "", why);
}

// There is one device: the user's default printer.
void RichTextBoxControl::SelPrint(int /*device*/) { PrintText(SelText()); }

}  // namespace corvane::desktop
