#include "browser/CaretEcho.h"

#include <algorithm>

#include "base/number.h"
#include "base/text.h"

namespace corvane {
namespace {

// The line numbers by which the one-line fields are told apart.
constexpr int kAddressLine = 0;
constexpr int kLinksLine = 1;

std::string characters(const std::string& line, int from, int count) {
  return text::mid(line, static_cast<std::size_t>(from) + 1, static_cast<std::size_t>(count));
}

// The key that reads on must not have its words cut off by its own release.
bool SpeaksItself(const KeyEvent& key) { return key.KeyCode == kKeyF7; }

}  // namespace

CaretEcho::CaretEcho(PaneContext& pane) : pane_(pane) {
  PaneControls& c = pane_.controls;
  connections_ += c.ctlText1.KeyUp.Connect([this, &c](KeyEvent& key) {
    if (key.KeyCode != kKeyTab && !SpeaksItself(key)) TextBoxPress(c.ctlText1.TextWindow());
  });
  for (ComboBox* field : {c.cboAddress.get(), c.cmbListLinks.get()}) {
    connections_ += field->KeyUp.Connect([this, field](KeyEvent& key) {
      const bool walks = key.KeyCode == kKeyUp || key.KeyCode == kKeyDown;
      if (!walks && !SpeaksItself(key)) TextBoxPress(field->hwnd());
    });
  }
}

void CaretEcho::TextBoxPress(WindowHandle hWnd) {
  ErrorsShown(pane_.desktop.GetMessageBox(), "TextBoxPress Error: ", [&] {
    const PaneControls& c = pane_.controls;
    int position = 0;
    int line = 0;
    EditLine edit;
    if (hWnd == c.ctlText1.TextWindow()) {
      edit = PaneLine(position, line);
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

void CaretEcho::SpeakWord() {
  const auto blank = [&](int position) { return characters(strLastLine_, position - 1, 1) == " "; };
  const int length = static_cast<int>(text::length(strLastLine_));
  int end = lngLastColumn_ + 1;
  while (end <= length && !blank(end)) ++end;
  int start = std::min(lngLastColumn_, length);
  while (start > 0 && !blank(start)) --start;
  pane_.announcer.Say(characters(strLastLine_, start, end - start));
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
      announcer.Say(strLine);
    } else if (lngColumn > lngLastColumn_) {
      announcer.Say(characters(strLine, lngLastColumn_, lngColumn - lngLastColumn_));
    } else if (lngColumn < lngLastColumn_) {
      announcer.Say(characters(strLine, lngColumn, lngLastColumn_ - lngColumn));
    }
    lngLastColumn_ = lngColumn;
    lngLastLine_ = lngLine;
    strLastLine_ = strLine;
  });
}

}  // namespace corvane
