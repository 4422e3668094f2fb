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

  /// A key pressed and released by the user; true when the control was allowed
  /// to act on it. A control that goes because of it hears no more.
  bool Press(int code, int shift = 0, int character = 0) {
    const std::weak_ptr<int> alive = life_;
    KeyEvent down{code, shift};
    this->KeyDown.Raise(down);
    bool acts = down.KeyCode != 0;
    if (acts && character != 0 && !alive.expired()) {
      this->KeyPress.Raise(character);
      acts = character != 0;
    }
    KeyEvent up{code, shift};
    if (!alive.expired() && down.KeyCode != 0) this->KeyUp.Raise(up);
    return acts;
  }

  const std::string name;
  bool visible = true;
  bool enabled = true;
  float width = 0;
  float height = 0;
  std::string accessible_name;

 protected:
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
  void Realign() override { RealignFrame.Raise(); }

  std::vector<Control*> children;
  Align align = Align::Fill;
  Layout layout = Layout::Stack;
  bool splitter = false;
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
  using FakeControl::FakeControl;
  std::string Text() const override { return text; }
  void SetText(const std::string& value) override {
    text = value;
    caret = 0;
  }
  int SelStart() const override { return caret; }
  void SetSelStart(int position) override { caret = position; }
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
    text = list.at(static_cast<std::size_t>(value));
    Click.Raise();
  }

  std::string text;
  int caret = 0;
  std::vector<std::string> list;
  int index = -1;
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
