#include "browser/CaretEcho.h"

#include <algorithm>
#include <utility>

#include "base/language.h"
#include "base/number.h"
#include "base/text.h"
#include "platform/errors_shown.h"

namespace corvane {
namespace {

// The line numbers by which the one-line fields are told apart.
constexpr int kAddressLine = 0;
constexpr int kLinksLine = 1;

std::string characters(const std::string& line, int from, int count) {
  return text::mid(line, static_cast<std::size_t>(from) + 1, static_cast<std::size_t>(count));
}

// The key that reads on must not have its words cut off by its own release, nor the one
// that takes back what was typed.
bool SpeaksItself(const KeyEvent& key) {
  return key.KeyCode == kKeyF7 || key.KeyCode == kKeyEscape;
}

bool Walks(const KeyEvent& key) {
  return key.KeyCode >= kKeyPageUp && key.KeyCode <= kKeyDown &&
         (key.Shift & (kShiftMask | kAltMask)) == 0;
}
/// Whether a key that walks goes by whole lines, or farther.
bool GoesByLines(const KeyEvent& key) {
  const bool in_line = key.KeyCode == kKeyLeft || key.KeyCode == kKeyRight ||
                       key.KeyCode == kKeyHome || key.KeyCode == kKeyEnd;
  const bool whole = (key.Shift & kCtrlMask) != 0;
  return !in_line || (whole && (key.KeyCode == kKeyHome || key.KeyCode == kKeyEnd));
}

bool IsBlank(const std::string& line) {
  return text::replace_all(line, "\xC2\xA0", " ").find_first_not_of(" \t") == std::string::npos;
}

// A sign that no voice says is named.
std::string Named(const std::string& characters) {
  return characters == "\\" ? "backslash" : characters;
}

std::string NamedDeleted(const std::string& characters) {
  if (characters == " ") return "space";
  return characters == "\n" ? "line break" : Named(characters);
}

}  // namespace

CaretEcho::CaretEcho(PaneContext& pane, PageInPane& page) : pane_(pane), page_(page) {
  connections_ += page_.Moved.Connect([this] { Follow(); });
  ConnectPane();
  for (ComboBox* field : {pane.controls.cboAddress.get(), pane.controls.cmbListLinks.get()}) {
    ConnectField(*field);
  }
}

void CaretEcho::ConnectPane() {
  ctlText& box = pane_.controls.ctlText1;
  connections_ += box.Text1().GotFocus.Connect([this] { deleting_.reset(); });
  connections_ += box.KeyDown.Connect([this, &box](KeyEvent& key) {
    if (std::exchange(pane_moved_, false)) Follow();
    if (!IsModifier(key.KeyCode)) {
      going_ = Walks(key) ? Going{key.KeyCode, box.SelStart(), GoesByLines(key)} : Going{};
    }
    if (Deletes(key) && !deleting_) deleting_ = AroundPaneCaret();
  });
  connections_ += box.KeyUp.Connect([this, &box](KeyEvent& key) {
    if (Deletes(key) && deleting_) {
      SayDeleted(box.SelStart(), box.TextLength());
      Follow();
    } else if (key.KeyCode != kKeyTab && !SpeaksItself(key)) {
      const int said = pane_.announcer.Count();
      TextBoxPress(box.TextWindow());
      const bool went = key.KeyCode != 0 && key.KeyCode == going_.key;
      if (went) going_.key = 0;
      const bool stays = went && box.SelStart() == going_.from;
      if (pane_.manner.today && stays && pane_.announcer.Count() == said) SayWhereItStays();
    }
  });
}

void CaretEcho::ConnectField(ComboBox& field) {
  connections_ += field.GotFocus.Connect([this] {
    awaited_ = false;
    deleting_.reset();
  });
  connections_ += field.Click.Connect([this] {
    chosen_ = true;
    awaited_ = false;  // the open list has taken the release of the key
  });
  connections_ +=
      field.KeyDown.Connect([this, &field](KeyEvent& key) { FieldKeyDown(field, key); });
  connections_ += field.KeyUp.Connect([this, &field](KeyEvent& key) { FieldKeyUp(field, key); });
}

// While one key is still down, the next must not hide what that one has typed.
void CaretEcho::FieldKeyDown(const ComboBox& field, const KeyEvent& key) {
  chosen_ = false;
  if (!awaited_) Follow(field);
  const bool moves = !IsModifier(key.KeyCode) && (key.Shift & kAltMask) == 0;
  if (key.KeyCode != 0 && moves) awaited_ = true;  // 0: a command has used it
  if (!Deletes(key) || deleting_) return;
  const std::string text = field.Text();
  deleting_ = {text, 0, static_cast<int>(text::length(text))};
}

void CaretEcho::FieldKeyUp(const ComboBox& field, const KeyEvent& key) {
  awaited_ = false;
  if (Deletes(key) && deleting_) {
    SayDeleted(field.SelStart(), static_cast<int>(text::length(field.Text())));
    return;
  }
  const bool walks = key.KeyCode == kKeyUp || key.KeyCode == kKeyDown;
  if (!walks && !std::exchange(chosen_, false) && !SpeaksItself(key)) TextBoxPress(field.hwnd());
}

void CaretEcho::TextBoxPress(WindowHandle hWnd) {
  ErrorsShown(pane_.desktop.GetMessageBox(), "TextBoxPress Error: ", [&] {
    const PaneControls& c = pane_.controls;
    int position = 0;
    int line = 0;
    EditLine edit;
    if (hWnd == c.ctlText1.TextWindow()) {
      edit = PaneLine(position, line);
      if (pane_.manner.text_kinds) line_words_ = page_.LineWords(edit.start, edit.text);
    } else if (hWnd == c.cboAddress->hwnd()) {
      position = c.cboAddress->SelStart();
      line = kAddressLine;
      edit.text = c.cboAddress->Text();
    } else if (hWnd == c.cmbListLinks->hwnd()) {
      position = c.cmbListLinks->SelStart();
      line = kLinksLine;
      edit.text = c.cmbListLinks->Text();
    }
    int column = position - edit.start;
    parse_string(edit.text, line, column);
    line_words_.reset();
  });
}

void CaretEcho::Follow() {
  ErrorsIgnored([&] {
    int position = 0;
    const EditLine edit = PaneLine(position, lngLastLine_);
    lngLastColumn_ = position - edit.start;
    strLastLine_ = edit.text;
  });
}

void CaretEcho::Follow(const ComboBox& field) {
  ErrorsIgnored([&] {
    lngLastLine_ = &field == pane_.controls.cboAddress.get() ? kAddressLine : kLinksLine;
    lngLastColumn_ = field.SelStart();
    strLastLine_ = field.Text();
  });
}

CaretEcho::EditLine CaretEcho::PaneLine(int& position, int& line) const {
  const ctlText& pane = pane_.controls.ctlText1;
  position = pane.SelStart();
  line = pane.GetLineFromChar(position);
  return GetEditLine(line);
}

CaretEcho::EditLine CaretEcho::GetEditLine(int line) const {
  const RichTextBox& box = pane_.controls.ctlText1.Text1();
  const int start = box.LineIndex(line);
  const int length = box.LineLength(start);
  return {start, box.GetLine(line, length + 2)};
}

// At the ends of the text, or of a line, a key leads nowhere: what is there is heard once
// more, not silence.
void CaretEcho::SayWhereItStays() {
  ErrorsIgnored([&] {
    int position = 0;
    int line = 0;
    const EditLine edit = PaneLine(position, line);
    if (going_.by_lines) {
      return SayLine(pane_.manner.text_kinds ? page_.LineWords(edit.start, edit.text) : edit.text);
    }
    const std::string here = characters(edit.text, position - edit.start, 1);
    here.empty() ? pane_.announcer.Say("blank") : SayWords(here == " " ? "space" : here);
  });
}

// A deletion takes its characters out of the selection, or of the caret's line and those
// beside it.
CaretEcho::Before CaretEcho::AroundPaneCaret() const {
  const ctlText& pane = pane_.controls.ctlText1;
  Before before;
  ErrorsIgnored([&] {
    before.length = pane.TextLength();
    before.start = pane.SelStart();
    before.text = pane.SelText();
    if (!before.text.empty()) return;
    const RichTextBox& box = pane.Text1();
    const int line = pane.GetLineFromChar(before.start);
    const int first = std::max(line - 1, 0);
    int end = before.start = box.LineIndex(first);
    for (int each = first; each <= line + 1 && box.LineIndex(each) >= 0; ++each) {
      const EditLine edit = GetEditLine(each);
      if (edit.start > end) before.text += '\n';  // where it does not just wrap
      before.text += edit.text;
      end = edit.start + static_cast<int>(text::length(edit.text));
    }
  });
  return before;
}

bool CaretEcho::Deletes(const KeyEvent& key) const {
  return pane_.manner.today && (key.KeyCode == kKeyBackspace || key.KeyCode == kKeyDelete);
}

void CaretEcho::SayDeleted(int caret, int length) {
  const Before before = *std::exchange(deleting_, std::nullopt);
  const int count = before.length - length;
  const int from = caret - before.start;
  if (count <= 0 || from < 0) return;
  const std::string deleted = characters(before.text, from, count);
  if (!deleted.empty()) pane_.announcer.Say(NamedDeleted(deleted));
}

// Silence would only cut off what is being said.
void CaretEcho::SayPassed(const std::string& characters) {
  if (pane_.manner.today && characters.empty()) return;
  SayWords(characters);
}

// A name of ours is in our language.
void CaretEcho::SayWords(const std::string& words) {
  if (!pane_.manner.today) return pane_.announcer.Say(words);
  const std::string named = Named(words);
  const bool is_pages = pane_.state.area == kAreaText && named == words;
  pane_.announcer.Say(is_pages ? page_.InLanguageHere(words) : named);
}

// The line's parts have been marked, where they are the page's.
void CaretEcho::SayLine(const std::string& line) {
  if (!pane_.manner.today) return pane_.announcer.Say(line);
  pane_.announcer.Say(IsBlank(language::Unmarked(line)) ? "blank" : Named(line));
}

void CaretEcho::SpeakWord() {
  const auto blank = [&](int position) { return characters(strLastLine_, position - 1, 1) == " "; };
  const int length = static_cast<int>(text::length(strLastLine_));
  int end = lngLastColumn_ + 1;
  while (end <= length && !blank(end)) ++end;
  int start = std::min(lngLastColumn_, length);
  while (start > 0 && !blank(start)) --start;
  SayWords(characters(strLastLine_, start, end - start));
}

void CaretEcho::parse_string(const std::string& strLine, int lngLine, int& lngColumn) {
  ErrorsShown(pane_.desktop.GetMessageBox(), "parsestring Error: ", [&] {
    Announcer& announcer = pane_.announcer;
    switch (lngColumn) {
      case kSpeakLine:
        announcer.Say(strLastLine_);
        return;
      case kSpeakWord:
        SpeakWord();
        return;
      case kReadDigit:
        number::to_integer(characters(strLastLine_, std::max(lngLastColumn_ - 1, 0), 1));
        return;
      default:
        break;
    }
    lngColumn = std::max(lngColumn, 0);
    if (lngLine != lngLastLine_) {
      SayLine(line_words_.value_or(strLine));
    } else if (lngColumn > lngLastColumn_) {
      SayPassed(characters(strLine, lngLastColumn_, lngColumn - lngLastColumn_));
    } else if (lngColumn < lngLastColumn_) {
      SayPassed(characters(strLine, lngColumn, lngLastColumn_ - lngColumn));
    }
    lngLastColumn_ = lngColumn;
    lngLastLine_ = lngLine;
    strLastLine_ = strLine;
  });
}

}  // namespace corvane
