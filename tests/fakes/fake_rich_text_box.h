#pragma once

#include <string>
#include <vector>

#include "tests/fakes/fake_controls.h"

namespace corvane::fakes {

/// A rich text box without a screen: one format for each character, lines ended
/// by line feeds only.
class FakeRichTextBox : public FakeControl<RichTextBox> {
 public:
  using FakeControl::FakeControl;

  std::string Text() const override { return text; }
  void SetText(const std::string& value) override {
    text = text::replace_all(value, "\r\n", "\n");
    formats.assign(text::length(text), pending);
    start = 0;
    length = 0;
  }
  int TextLength() const override { return static_cast<int>(text::length(text)); }
  std::string TextRTF() const override { return "{\\rtf1 " + text + "}"; }
  void SetTextRTF(const std::string& rtf) override { SetText(rtf.substr(7, rtf.size() - 8)); }

  int SelStart() const override { return start; }
  void SetSelStart(int position) override {
    start = std::min(position, TextLength());
    length = 0;
  }
  int SelLength() const override { return length; }
  void SetSelLength(int value) override { length = value; }
  std::string SelText() const override {
    return text::mid(text, static_cast<std::size_t>(start) + 1, static_cast<std::size_t>(length));
  }
  void SetSelText(const std::string& value) override {
    if (refuses) throw RunTimeError(kErrDeviceIo, "Text1", "No more text");
    const std::string added = text::replace_all(value, "\r\n", "\n");
    const auto first = static_cast<std::size_t>(start);
    const auto count = static_cast<std::size_t>(length);
    text = text::left(text, first) + added + text::mid(text, first + count + 1);
    formats.erase(formats.begin() + start, formats.begin() + start + length);
    formats.insert(formats.begin() + start, text::length(added), pending);
    start += static_cast<int>(text::length(added));
    length = 0;
  }
  void Append(const std::string& value) override {
    const int caret = start;
    const int selected = length;
    start = TextLength();
    length = 0;
    SetSelText(text.empty() || text.back() == '\n' ? value : "\n" + value);
    start = caret;
    length = selected;
  }
  std::string SelRTF() const override { return "{\\rtf1 " + SelText() + "}"; }
  void SetSelRTF(const std::string& rtf) override { SetSelText(rtf.substr(7, rtf.size() - 8)); }
  Format SelFormat() const override {
    const auto at = static_cast<std::size_t>(start);
    return at < formats.size() ? formats[at] : pending;
  }
  void ChangeSelFormat(const std::function<void(Format&)>& change) override {
    if (length == 0) change(pending = SelFormat());
    for (int i = start; i < start + length; ++i) change(formats[static_cast<std::size_t>(i)]);
  }
  Color BackColor() const override { return back_color; }
  void SetBackColor(Color color) override { back_color = color; }
  corvane::Font Font() const override { return font; }
  void SetFont(const corvane::Font& value) override { font = value; }
  void SaveFile(const std::string& path, FileFormat format) override {
    saved_path = path;
    saved_format = format;
  }
  void SelPrint(int device) override { printed_on = device; }
  int GetLineFromChar(int position) const override {
    const std::string before = text::left(text, static_cast<std::size_t>(position));
    return static_cast<int>(std::count(before.begin(), before.end(), '\n'));
  }
  int LineIndex(int line) const override {
    Work();
    int at = 0;
    for (const auto& each : Lines()) {
      if (line-- == 0) return at;
      at += static_cast<int>(text::length(each)) + 1;
    }
    return -1;
  }
  int LineLength(int position) const override {
    return static_cast<int>(
        text::length(Lines()[static_cast<std::size_t>(GetLineFromChar(position))]));
  }
  std::string GetLine(int line, int capacity) const override {
    const auto lines = Lines();
    if (line < 0 || static_cast<std::size_t>(line) >= lines.size()) return "";
    return text::left(lines[static_cast<std::size_t>(line)], static_cast<std::size_t>(capacity));
  }

  std::string text;
  std::vector<Format> formats;
  Format pending;
  int start = 0;
  int length = 0;
  bool refuses = false;
  Color back_color = 0xFFFFFF;
  corvane::Font font;
  std::string saved_path;
  FileFormat saved_format = FileFormat::Rtf;
  int printed_on = 0;

 private:
  void Act(int code, int shift, int character) override {
    try {
      Move(code, shift, character);
    } catch (const RunTimeError&) {
      // it fails: so does the key
    }
  }
  void Move(int code, int shift, int character) {
    const int line = GetLineFromChar(start);
    const int column = start - LineIndex(line);
    const auto to_line = [&](int wanted) {
      const int at = LineIndex(wanted);
      if (at >= 0) SetSelStart(at + std::min(column, LineLength(at)));
    };
    const auto erase = [&](int from, int count) {
      start = from;
      length = count;
      SetSelText("");
    };
    switch (code) {
      case kKeyLeft:
        return SetSelStart(std::max(start - 1, 0));
      case kKeyRight:
        return SetSelStart(start + 1);
      case kKeyUp:
        return line > 0 ? to_line(line - 1) : void();
      case kKeyDown:
        return to_line(line + 1);
      case kKeyHome:
        return SetSelStart(LineIndex(line));
      case kKeyEnd:
        return SetSelStart(LineIndex(line) + LineLength(start));
      case kKeyBackspace:
        if (length > 0) return SetSelText("");
        return start > 0 ? erase(start - 1, 1) : void();
      case kKeyDelete:
        if (length > 0) return SetSelText("");
        return start < TextLength() ? erase(start, 1) : void();
      default:
        if (character < ' ' || (shift & (kCtrlMask | kAltMask)) != 0) return;
        SetSelText(text::character(character));
    }
  }
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines(1);
    for (const char c : text) {
      if (c == '\n') {
        lines.emplace_back();
      } else {
        lines.back() += c;
      }
    }
    return lines;
  }
};

}  // namespace corvane::fakes
