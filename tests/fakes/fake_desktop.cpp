#include "tests/fakes/fake_desktop.h"

namespace corvane::fakes {
namespace {

// Remembers a control as the newest of its name.
template <class Fake, class... More>
std::unique_ptr<Fake> made(FakeDesktop& desktop, const std::string& name, More... more) {
  auto control = std::make_unique<Fake>(desktop, name, more...);
  desktop.living[{name, typeid(Fake)}].push_back(control.get());
  return control;
}

}  // namespace

FakeForm::FakeForm(FakeDesktop& desktop, std::string form_name)
    : name(std::move(form_name)), desktop_(desktop), handle_(desktop.windows.Add("", "Form")) {}

FakeForm::~FakeForm() {
  desktop_.windows.Remove(handle_);
  desktop_.Gone(this);
}

std::string FakeForm::Caption() const { return desktop_.windows.Text(handle_); }

void FakeForm::SetCaption(const std::string& caption) {
  desktop_.windows.windows[handle_].text = caption;
}

void FakeForm::Show() {
  if (desktop_.failing == name) throw RunTimeError(kErrDeviceIo, name, "Device I/O error");
  visible = true;
}

void FakeForm::ShowModal(Form* form) {
  visible = true;
  modal = true;
  owner = form;
  desktop_.windows.windows[handle_].owner = form ? form->hwnd() : 0;
}

FakeRebarWindow::FakeRebarWindow(FakeDesktop& desktop, WindowHandle parent)
    : desktop_(desktop), handle_(desktop.windows.Add("", "ReBarWindow32", parent)) {
  desktop.rebar = this;
}

FakeRebarWindow::~FakeRebarWindow() {
  desktop_.windows.Remove(handle_);
  if (desktop_.rebar == this) desktop_.rebar = nullptr;
}

void FakeRebarWindow::SetVisible(bool visible) {
  desktop_.windows.windows[handle_].class_name = visible ? "ReBarWindow32" : "ReBarWindow32 hidden";
}

bool FakeRebarWindow::InsertBand(int index, const BandInfo& info) {
  bands.insert(index < 0 ? bands.end() : bands.begin() + index, info);
  if (info.child != 0) desktop_.windows.SetParent(info.child, handle_);
  return true;
}

bool FakeRebarWindow::DeleteBand(int index) {
  if (index < 0 || index >= BandCount()) return false;
  bands.erase(bands.begin() + index);
  return true;
}

bool FakeRebarWindow::GetBandInfo(int index, BandInfo& info) const {
  if (index < 0 || index >= BandCount()) return false;
  const auto mask = read_mask = info.mask;
  info = bands[static_cast<std::size_t>(index)];
  info.mask = mask;
  return true;
}

bool FakeRebarWindow::SetBandInfo(int index, const BandInfo& info) {
  if (index < 0 || index >= BandCount()) return false;
  bands[static_cast<std::size_t>(index)] = info;
  return true;
}

std::unique_ptr<Form> FakeDesktop::CreateForm(const std::string& name) {
  return made<FakeForm>(*this, name);
}
std::unique_ptr<ElasticFrame> FakeDesktop::CreateElasticFrame(const std::string& name) {
  return made<FakeElasticFrame>(*this, name);
}
std::unique_ptr<ComboBox> FakeDesktop::CreateComboBox(const std::string& name,
                                                      ComboBox::Style style) {
  return made<FakeComboBox>(*this, name, style);
}
std::unique_ptr<CommandButton> FakeDesktop::CreateCommandButton(const std::string& name) {
  return made<FakeCommandButton>(*this, name);
}
std::unique_ptr<StatusBar> FakeDesktop::CreateStatusBar(const std::string& name) {
  return made<FakeStatusBar>(*this, name);
}
std::unique_ptr<RichTextBox> FakeDesktop::CreateRichTextBox(const std::string& name) {
  return made<FakeRichTextBox>(*this, name);
}
std::unique_ptr<ListBox> FakeDesktop::CreateListBox(const std::string& name) {
  return made<FakeListBox>(*this, name);
}
std::unique_ptr<Image> FakeDesktop::CreateImage(const std::string& name) {
  return made<FakeImage>(*this, name);
}
std::unique_ptr<Line> FakeDesktop::CreateLine(const std::string& name) {
  return made<FakeLine>(*this, name);
}
std::unique_ptr<TextBox> FakeDesktop::CreateTextBox(const std::string& name) {
  return made<FakeTextBox>(*this, name);
}
std::unique_ptr<TreeView> FakeDesktop::CreateTreeView(const std::string& name) {
  return made<FakeTreeView>(*this, name);
}
std::unique_ptr<ListView> FakeDesktop::CreateListView(const std::string& name) {
  return made<FakeListView>(*this, name);
}
std::unique_ptr<WebBrowser> FakeDesktop::CreateWebBrowser(const std::string& name) {
  return made<FakeWebBrowser>(*this, name);
}

std::unique_ptr<Timer> FakeDesktop::CreateTimer() { return std::make_unique<FakeTimer>(timers); }

std::unique_ptr<RebarWindow> FakeDesktop::CreateRebarWindow(ElasticFrame& parent,
                                                            std::uint32_t style, int, int) {
  auto window = std::make_unique<FakeRebarWindow>(*this, parent.hwnd());
  windows.windows[window->hwnd()].style = style;
  return window;
}

std::unique_ptr<ActivationHook> FakeDesktop::CreateActivationHook() {
  return std::make_unique<FakeActivationHook>(hook);
}

std::unique_ptr<KeyboardHook> FakeDesktop::CreateKeyboardHook() {
  auto made_hook = std::make_unique<FakeKeyboardHook>(keyboard_hook);
  keyboard_hooks.push_back(made_hook.get());
  made_hook->on_gone = [this, gone = made_hook.get()] { std::erase(keyboard_hooks, gone); };
  return made_hook;
}

std::unique_ptr<MessageHook> FakeDesktop::CreateMessageHook() {
  return std::make_unique<FakeMessageHook>(message_hook);
}

}  // namespace corvane::fakes
