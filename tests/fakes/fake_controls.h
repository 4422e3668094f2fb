#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "platform/desktop.h"
#include "platform/image.h"
#include "platform/line.h"

namespace corvane::fakes {

class FakeDesktop;

/// What every fake control can do: it remembers sizes and reports its focus to
/// the desktop's journal.
template <class Port>
class FakeControl : public Port {
 public:
  FakeControl(FakeDesktop& desktop, std::string name);
  ~FakeControl() override;

  WindowHandle hwnd() const override { return handle_; }
  void SetFocus() override;
  bool Visible() const override { return visible; }
  void SetVisible(bool value) override { visible = value; }
  bool Enabled() const override { return enabled; }
  void SetEnabled(bool value) override { enabled = value; }
  float Width() const override { return width; }
  void SetWidth(float twips) override {
    Work();
    width = twips;
  }
  float Height() const override { return height; }
  void SetHeight(float twips) override {
    Work();
    height = twips;
  }
  void SetAccessibleName(const std::string& value) override { accessible_name = value; }

  /// A key pressed by the user and released wherever the focus is then; true when the
  /// control was allowed to act on it, which it then does. As on the screen, a control
  /// hears no release of a modifier, nor of a key that a handler has used or after which
  /// the focus, or the control itself, has gone.
  bool Press(int code, int shift = 0, int character = 0);

  const std::string name;
  bool visible = true;
  bool enabled = true;
  float width = 0;
  float height = 0;
  std::string accessible_name;

 protected:
  /// What the control does with a key that its handlers leave to it.
  virtual void Act(int /*code*/, int /*shift*/, int /*character*/) {}
  /// Raises an error while the desktop says that this control fails.
  void Work() const;
  FakeDesktop& desktop_;
  WindowHandle handle_;

 private:
  const std::shared_ptr<int> life_ = std::make_shared<int>();
};

class FakeElasticFrame : public FakeControl<ElasticFrame> {
 public:
  using FakeControl::FakeControl;
  void Add(Control& child) override { children.push_back(&child); }
  void SetAlign(Align value) override {
    Work();
    align = value;
  }
  void SetLayout(Layout value) override { layout = value; }
  void SetSplitter(bool value) override { splitter = value; }
  void GoToSplitter(Way way) override { ways.push_back(way); }
  void Realign() override { RealignFrame.Raise(); }

  std::vector<Control*> children;
  Align align = Align::Fill;
  Layout layout = Layout::Stack;
  bool splitter = false;
  std::vector<Way> ways;  ///< in which the user went round the splitters
};

class FakeImage : public FakeControl<Image> {
 public:
  using FakeControl::FakeControl;
  void SetPicture(Picture value) override { picture = value; }

  std::optional<Picture> picture;
};

class FakeLine : public FakeControl<Line> {
 public:
  using FakeControl::FakeControl;
};

class FakeCommandButton : public FakeControl<CommandButton> {
 public:
  using FakeControl::FakeControl;
  std::string Caption() const override { return caption; }
  void SetCaption(const std::string& value) override { caption = value; }
  void SetPicture(int image) override {
    Work();
    pictures.push_back(image);
  }

  std::string caption;
  std::vector<int> pictures;  ///< every picture shown, in order
};

class FakeComboBox : public FakeControl<ComboBox> {
 public:
  FakeComboBox(FakeDesktop& desktop, const std::string& control_name, Style style)
      : FakeControl(desktop, control_name), editable(style == Style::DropDown) {}

  /// What was there is selected for typing over it, after the handlers have been told.
  void SetFocus() override {
    FakeControl::SetFocus();
    caret = 0;
    selected = Length();
  }
  std::string Text() const override { return text; }
  void SetText(const std::string& value) override {
    text = value;
    SetSelStart(0);
  }
  int SelStart() const override { return caret; }
  void SetSelStart(int position) override {
    caret = position;
    selected = 0;
  }
  int ListCount() const override { return static_cast<int>(list.size()); }
  std::string List(int at) const override { return list.at(static_cast<std::size_t>(at)); }
  void AddItem(const std::string& value) override { list.push_back(value); }
  void Clear() override {
    list.clear();
    text.clear();
    index = -1;
  }
  int ListIndex() const override { return index; }
  void SetListIndex(int value) override {
    index = value;
    SetText(list.at(static_cast<std::size_t>(value)));
    Click.Raise();
  }
  /// Types ASCII text, key by key.
  void Type(const std::string& characters) {
    for (const char c : characters) {
      Press(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c, 0, static_cast<unsigned char>(c));
    }
  }

  std::string text;
  int caret = 0;
  int selected = 0;  ///< characters from the caret on
  std::vector<std::string> list;
  int index = -1;
  const bool editable;

 private:
  int Length() const { return static_cast<int>(text::length(text)); }
  void Replace(int from, int count, const std::string& with) {
    const auto first = static_cast<std::size_t>(from);
    text = text::left(text, first) + with +
           text::mid(text, first + static_cast<std::size_t>(count) + 1);
    SetSelStart(from + static_cast<int>(text::length(with)));
    index = -1;
  }
  void Walk(int step) {
    const int to = std::clamp(index + step, 0, ListCount() - 1);
    if (to != index && to < ListCount()) SetListIndex(to);
  }
  void FindLetter(int letter) {
    for (int step = 1; step <= ListCount(); ++step) {
      const int at = (index + step) % ListCount();
      if (text::same_ignoring_case(text::left(List(at), 1),
                                   std::string(1, static_cast<char>(letter)))) {
        return SetListIndex(at);
      }
    }
  }
  void Act(int code, int shift, int character) override {
    switch (code) {
      case kKeyUp:
      case kKeyDown:
        return Walk(code == kKeyUp ? -1 : 1);
      case kKeyLeft:
        return SetSelStart(std::max(caret - 1, 0));
      case kKeyRight:
        return SetSelStart(std::min(caret + 1, Length()));
      case kKeyHome:
        return SetSelStart(0);
      case kKeyEnd:
        return SetSelStart(Length());
      case kKeyBackspace:
      case kKeyDelete:
        if (!editable) return;
        if (selected > 0) return Replace(caret, selected, "");
        if (code == kKeyDelete) return Replace(caret, 1, "");
        if (caret > 0) Replace(caret - 1, 1, "");
        return;
      default:
        if (character < ' ' || (shift & (kCtrlMask | kAltMask)) != 0) return;
        if (editable) {
          Replace(caret, selected, text::character(character));
        } else {
          FindLetter(character);
        }
    }
  }
};

class FakeStatusBar : public FakeControl<StatusBar> {
 public:
  using FakeControl::FakeControl;
  std::string PanelText(int panel) const override {
    const auto at = panels.find(panel);
    return at == panels.end() ? "" : at->second;
  }
  void SetPanelText(int panel, const std::string& value) override {
    panels[panel] = value;
    history.push_back(value);
  }

  std::map<int, std::string> panels;
  std::vector<std::string> history;
};

class FakeListBox : public FakeControl<ListBox> {
 public:
  using FakeControl::FakeControl;
  int ListCount() const override { return static_cast<int>(list.size()); }
  std::string List(int index) const override { return list.at(static_cast<std::size_t>(index)); }
  void AddItem(const std::string& value) override {
    if (refuses) throw RunTimeError(kErrDeviceIo, "List1", "The list is full");
    list.push_back(value);
  }
  void Clear() override {
    list.clear();
    selected = -1;
  }
  int ListIndex() const override { return selected; }
  void SetListIndex(int value) override { selected = value; }
  void Move(float new_left, float new_top) override {
    left = new_left;
    top = new_top;
  }

  bool refuses = false;
  std::vector<std::string> list;
  int selected = -1;
  float left = 0;
  float top = 0;
};

class FakeTextBox : public FakeControl<TextBox> {
 public:
  using FakeControl::FakeControl;
  std::string Text() const override { return text; }
  void SetText(const std::string& value) override { text = value; }

  std::string text;
};

}  // namespace corvane::fakes
