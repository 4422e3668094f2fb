#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <typeindex>
#include <utility>
#include <vector>

#include "platform/page_sound.h"
#include "tests/fakes/fake_accessible.h"
#include "tests/fakes/fake_agent.h"
#include "tests/fakes/fake_automation.h"
#include "tests/fakes/fake_controls.h"
#include "tests/fakes/fake_file_dialog.h"
#include "tests/fakes/fake_rich_text_box.h"
#include "tests/fakes/fake_services.h"
#include "tests/fakes/fake_shell.h"
#include "tests/fakes/fake_tree.h"
#include "tests/fakes/fake_web_browser.h"
#include "tests/fakes/fake_windows.h"

namespace corvane::fakes {

class FakeMenuItem : public MenuItem {
 public:
  explicit FakeMenuItem(std::string text) : caption(std::move(text)) {}
  std::string Caption() const override { return caption; }
  bool Checked() const override { return checked; }
  void SetChecked(bool value) override { checked = value; }
  bool Enabled() const override { return enabled; }
  void SetEnabled(bool value) override { enabled = value; }
  MenuItem& Add(const std::string& text) override {
    items.push_back(std::make_unique<FakeMenuItem>(text));
    return *items.back();
  }

  std::string caption;
  bool checked = false;
  bool enabled = true;
  std::vector<std::unique_ptr<FakeMenuItem>> items;
};

class FakeMenu : public Menu {
 public:
  MenuItem& Add(const std::string& text) override {
    items.push_back(std::make_unique<FakeMenuItem>(text));
    return *items.back();
  }

  std::vector<std::unique_ptr<FakeMenuItem>> items;
};

/// A timer that ticks when the test says so; one of `all` while it lives.
class FakeTimer : public Timer {
 public:
  explicit FakeTimer(std::vector<FakeTimer*>& all) : all_(all) { all_.push_back(this); }
  ~FakeTimer() override { all_.erase(std::remove(all_.begin(), all_.end(), this), all_.end()); }

  int Interval() const override { return interval; }
  void SetInterval(int milliseconds) override { interval = milliseconds; }
  bool Enabled() const override { return enabled; }
  void SetEnabled(bool value) override {
    if (refuses) throw RunTimeError(kErrDeviceIo, "Timer", "No more timers");
    enabled = value;
  }
  void TickSoon() override { soon = enabled; }
  /// One tick, if the timer runs.
  void Fire() {
    soon = false;
    if (enabled) Tick.Raise();
  }

  int interval = 0;
  bool enabled = false;
  bool soon = false;  ///< the next tick is to come at once
  bool refuses = false;

 private:
  std::vector<FakeTimer*>& all_;
};

class FakeForm : public Form {
 public:
  FakeForm(FakeDesktop& desktop, std::string name);
  ~FakeForm() override;

  WindowHandle hwnd() const override { return handle_; }
  std::string Caption() const override;
  void SetCaption(const std::string& caption) override;
  float Left() const override { return left; }
  void SetLeft(float twips) override { left = twips; }
  float Top() const override { return top; }
  void SetTop(float twips) override { top = twips; }
  float Width() const override { return width; }
  void SetWidth(float twips) override { width = twips; }
  float Height() const override { return height; }
  void SetHeight(float twips) override { height = twips; }
  WindowState State() const override { return state; }
  void FillScreen() override { fills_screen = true; }
  void SetMenu(Menu&) override {}
  void SetContent(ElasticFrame&) override {}
  void SetStatusBar(StatusBar&) override {}
  bool Visible() const override { return visible; }
  void Show() override;
  void ShowModal(Form* form) override;
  void Hide() override { visible = false; }
  void Close(UnloadMode mode) override {
    bool cancel = false;
    QueryUnload.Raise(cancel, mode);
    if (!cancel) Unload.Raise();
  }

  const std::string name;
  float left = 0, top = 0, width = 0, height = 0;
  WindowState state = WindowState::Normal;
  bool fills_screen = false;
  bool visible = false;
  bool modal = false;
  Form* owner = nullptr;

 private:
  FakeDesktop& desktop_;
  WindowHandle handle_;
};

/// A band window without a screen; forty pixels to the row.
class FakeRebarWindow : public RebarWindow {
 public:
  explicit FakeRebarWindow(FakeDesktop& desktop, WindowHandle parent);
  ~FakeRebarWindow() override;
  WindowHandle hwnd() const override { return handle_; }
  void Move(int left, int top, int width, int height) override {
    place = {left, top, width, height};
  }
  void SetVisible(bool visible) override;
  bool InsertBand(int index, const BandInfo& info) override;
  bool DeleteBand(int index) override;
  int BandCount() const override { return static_cast<int>(bands.size()); }
  bool GetBandInfo(int index, BandInfo& info) const override;
  bool SetBandInfo(int index, const BandInfo& info) override;
  int RowCount() const override { return rows; }
  int RowHeight(int) const override { return 40; }
  void SetNotifyParent(WindowHandle window) override { notify_parent = window; }
  void Repaint() override { ++repaints; }

  std::vector<BandInfo> bands;
  std::vector<int> place;
  int rows = 1;
  int repaints = 0;
  mutable std::uint32_t read_mask = 0;  ///< of the last GetBandInfo
  WindowHandle notify_parent = 0;

 private:
  FakeDesktop& desktop_;
  WindowHandle handle_;
};

/// The sound of pages: what it was told.
class FakePageSound : public PageSound {
 public:
  void HoldBackWhile(std::function<bool()> asked) override { held = std::move(asked); }
  void SetLevel(int percent) override { levels.push_back(percent); }

  std::function<bool()> held;
  std::vector<int> levels;
};

/// A desktop without a screen: instant, scripted, recording. Controls are found
/// by their names while they live.
class FakeDesktop : public Desktop {
 public:
  ~FakeDesktop() override { RunLater(); }

  std::unique_ptr<Form> CreateForm(const std::string& name) override;
  std::unique_ptr<Menu> CreateMenu() override { return std::make_unique<FakeMenu>(); }
  std::unique_ptr<ElasticFrame> CreateElasticFrame(const std::string& name) override;
  std::unique_ptr<ComboBox> CreateComboBox(const std::string& name, ComboBox::Style) override;
  std::unique_ptr<CommandButton> CreateCommandButton(const std::string& name) override;
  std::unique_ptr<StatusBar> CreateStatusBar(const std::string& name) override;
  std::unique_ptr<RichTextBox> CreateRichTextBox(const std::string& name) override;
  std::unique_ptr<ListBox> CreateListBox(const std::string& name) override;
  std::unique_ptr<TextBox> CreateTextBox(const std::string& name) override;
  std::unique_ptr<TreeView> CreateTreeView(const std::string& name) override;
  std::unique_ptr<ListView> CreateListView(const std::string& name) override;
  std::unique_ptr<ImageList> CreateImageList() override {
    return std::make_unique<FakeImageList>();
  }
  std::unique_ptr<WebBrowser> CreateWebBrowser(const std::string& name) override;
  std::unique_ptr<Timer> CreateTimer() override;
  std::unique_ptr<RebarWindow> CreateRebarWindow(ElasticFrame& parent, std::uint32_t style,
                                                 int width, int height) override;
  std::unique_ptr<Agent> CreateAgent() override {
    if (!speech.server_error.empty()) {
      throw RunTimeError(kErrCannotCreateObject, "Agent", speech.server_error);
    }
    return std::make_unique<FakeAgent>(speech);
  }
  FakeVoice& GetVoice() override { return voice; }
  FakePageSound& GetPageSound() override { return page_sound; }
  void SpeakThrough(SpeechMaker asked) override { asked_maker = asked; }
  SpeechMaker SpeaksThrough() const override { return maker; }
  void SpeakDialogsThrough(std::function<void(const DialogWords&)> speak) override {
    speak_dialog = std::move(speak);
  }
  std::unique_ptr<ActivationHook> CreateActivationHook() override;
  std::unique_ptr<KeyboardHook> CreateKeyboardHook() override;
  std::unique_ptr<MessageHook> CreateMessageHook() override;

  std::unique_ptr<FileDialog> CreateFileDialog() override {
    return std::make_unique<FakeFileDialog>(file_dialogs);
  }

  std::unique_ptr<Image> CreateImage(const std::string& name) override;
  std::unique_ptr<Line> CreateLine(const std::string& name) override;

  FakeWindows& GetWindows() override { return windows; }
  FakeMessageBox& GetMessageBox() override { return boxes; }
  FakeSettings& GetSettings() override { return settings; }
  FakeRegistry& GetRegistry() override { return registry; }
  FakeFileSystem& GetFileSystem() override { return files; }
  FakeClipboard& GetClipboard() override { return clipboard; }
  FakeShell& GetShell() override { return shell; }
  FakeAutomation& GetAutomation() override { return automation; }
  FakeAccessibility& GetAccessibility() override { return accessibility; }

  const InstalledVoices& Voices() override { return voices; }
  void OfferOptions(OwnOptions options) override {
    (options.page.empty() ? own_options : option_pages[options.page]) = std::move(options);
  }
  void ShowEngineOptions() override { ++engine_options; }
  void ShowDownloads() override { ++downloads; }
  void DoEvents() override {
    ++yields;
    ++yielding;
    if (on_yield) on_yield();
    --yielding;
  }
  void Later(std::function<void()> action) override {
    if (yielding == 0) return action();
    later.push_back(std::move(action));
  }
  /// The handler that let events run has returned: what waited for that is done.
  void RunLater() {
    for (const auto& action : std::exchange(later, {})) action();
  }
  void Pause(int milliseconds) override {
    pauses.push_back(milliseconds);
    DoEvents();
  }
  float TwipsPerPixel() const override { return 15; }
  std::uint32_t SysColor(SystemColor index) const override { return 0x100U + index; }
  std::string Name() const override { return "Testing"; }
  bool StartedByAutomation() const override { return by_automation; }

  /// A key goes down somewhere in the program: all hooks hear of it.
  void PressKey(int code, char32_t character = 0, int shift = 0) {
    for (FakeKeyboardHook* each : std::vector(keyboard_hooks)) {
      if (each->enabled) each->KeyDown.Raise({code, character, shift});
    }
  }

  /// The living control or form of that name; the newest where there are several.
  template <class Fake>
  Fake& Get(const std::string& name) {
    const auto at = living.find({name, typeid(Fake)});
    if (at == living.end() || at->second.empty()) throw std::runtime_error("no " + name);
    return *static_cast<Fake*>(at->second.back());
  }
  /// How many controls and forms of that name live.
  std::size_t Living(const std::string& name) const {
    std::size_t count = 0;
    for (const auto& [key, all] : living) count += key.first == name ? all.size() : 0;
    return count;
  }
  void Gone(void* object) {
    for (auto& [key, all] : living)
      all.erase(std::remove(all.begin(), all.end(), object), all.end());
  }

  FakeWindows windows;
  FakeMessageBox boxes;
  FakeSettings settings;
  FakeRegistry registry;
  FakeFileSystem files;
  FakeClipboard clipboard;
  FakeShell shell;
  FakeAutomation automation;
  FakeAccessibility accessibility;
  FakeAgent::Journal speech;
  FakeVoice voice{speech};
  std::function<void(const DialogWords&)> speak_dialog;
  FakeFileDialog::Script file_dialogs;
  OwnOptions own_options;
  std::map<std::string, OwnOptions> option_pages;  ///< by their names
  FakePageSound page_sound;
  InstalledVoices voices;
  SpeechMaker asked_maker = SpeechMaker::BuiltIn;  ///< the last one that was asked for
  SpeechMaker maker = SpeechMaker::BuiltIn;        ///< who makes the sound
  int engine_options = 0;                          ///< how often they were shown
  int downloads = 0;                               ///< how often their list was shown
  std::vector<FakeTimer*> timers;                  ///< in the order of their making
  FakeActivationHook* hook = nullptr;
  FakeHook<KeyboardHook>* keyboard_hook = nullptr;  ///< the one made last
  std::vector<FakeKeyboardHook*> keyboard_hooks;    ///< all that live
  FakeMessageHook* message_hook = nullptr;
  FakeRebarWindow* rebar = nullptr;
  std::string focus;    ///< the control that was focused last
  std::string failing;  ///< the control that raises an error when it is worked on
  int yields = 0;
  int yielding = 0;  ///< DoEvents calls under way
  std::vector<std::function<void()>> later;
  std::vector<int> pauses;
  std::function<void()> on_yield;
  bool by_automation = false;
  std::map<std::pair<std::string, std::type_index>, std::vector<void*>> living;
};

template <class Port>
FakeControl<Port>::FakeControl(FakeDesktop& desktop, std::string control_name)
    : name(std::move(control_name)),
      desktop_(desktop),
      handle_(desktop.windows.Add(name, "Control", desktop.windows.first_thread_window)) {}

template <class Port>
FakeControl<Port>::~FakeControl() {
  desktop_.windows.Remove(handle_);
  desktop_.Gone(this);
}

template <class Port>
void FakeControl<Port>::Work() const {
  if (desktop_.failing == name) throw RunTimeError(kErrDeviceIo, name, "Device I/O error");
}

template <class Port>
bool FakeControl<Port>::Press(int code, int shift, int character) {
  const FakeDesktop& desktop = desktop_;
  const std::string focus = desktop.focus;
  const auto is_here = [&, alive = std::weak_ptr(life_)] {
    return !alive.expired() && desktop.focus == focus;
  };
  KeyEvent down{code, shift};
  this->KeyDown.Raise(down);
  bool acts = down.KeyCode != 0 && is_here();
  if (acts && character != 0) {
    this->KeyPress.Raise(character);
    acts = character != 0 && is_here();
  }
  if (acts) Act(code, shift, character);
  const bool modifier = code == kKeyShift || code == kKeyControl || code == kKeyAlt;
  KeyEvent up{code, shift};
  if (!modifier && down.KeyCode != 0 && is_here()) this->KeyUp.Raise(up);
  return acts;
}

template <class Port>
void FakeControl<Port>::SetFocus() {
  desktop_.focus = name;
  this->GotFocus.Raise();
}

}  // namespace corvane::fakes
