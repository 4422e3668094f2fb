#include "app/KeyCommands.h"

#include <array>

#include "base/handling.h"

namespace corvane {
namespace {

using Target = const KeyCommand::Target&;
using Page = WebBrowser::PageCommand;

template <Page command>
void Do(Target t) {
  t.pane.PageCommand(command);
}

// The keys beside the digits, which carry plus and minus, and those of the number
// pad.
constexpr int kKeyPlus = 187;
constexpr int kKeyMinus = 189;
constexpr int kKeyPadPlus = 107;
constexpr int kKeyPadMinus = 109;
constexpr int kKeyPadZero = 96;

// One key a row. Whatever is here must be in the help text and in the README.
constexpr std::array kCommands = {
    KeyCommand{kKeyLeft, kAltMask, "Alt+Left", [](Target t) { t.commands.mnuGo_Click(kGoBack); }},
    KeyCommand{kKeyRight, kAltMask, "Alt+Right",
               [](Target t) { t.commands.mnuGo_Click(kGoForward); }},
    KeyCommand{kKeyF4, 0, "F4", nullptr, [](Target t) { return t.pane.SwitchQuickKeys(); }},
    KeyCommand{kKeyF5, 0, "F5", [](Target t) { t.commands.mnuGo_Click(kGoRefresh); }},
    KeyCommand{kKeyF6, 0, "F6", [](Target t) { t.pane.NextArea(); }},
    KeyCommand{kKeyF6, kShiftMask, "Shift+F6", [](Target t) { t.pane.PreviousArea(); }},
    KeyCommand{kKeyF7, 0, "F7", [](Target t) { t.pane.ReadOn(); }},
    KeyCommand{kKeyF8, 0, "F8", [](Target t) { t.pane.NextSplitter(); }},
    KeyCommand{kKeyF8, kShiftMask, "Shift+F8", [](Target t) { t.pane.PreviousSplitter(); }},
    KeyCommand{kKeyF9, 0, "F9", Do<Page::ReadAgain>},
    KeyCommand{kKeyF12, 0, "F12", [](Target t) { t.pane.StepThroughLiveWords(); }},
    KeyCommand{'F', kCtrlMask, "Ctrl+F", Do<Page::Find>},
    KeyCommand{kKeyF3, 0, "F3", Do<Page::FindNext>},
    KeyCommand{kKeyF3, kShiftMask, "Shift+F3", Do<Page::FindPrevious>},
    KeyCommand{kKeyPlus, kCtrlMask, "Ctrl+Plus", Do<Page::ZoomIn>},
    KeyCommand{kKeyPlus, kCtrlMask | kShiftMask, "Ctrl+Plus", Do<Page::ZoomIn>},
    KeyCommand{kKeyPadPlus, kCtrlMask, "Ctrl+Plus", Do<Page::ZoomIn>},
    KeyCommand{kKeyMinus, kCtrlMask, "Ctrl+Minus", Do<Page::ZoomOut>},
    KeyCommand{kKeyPadMinus, kCtrlMask, "Ctrl+Minus", Do<Page::ZoomOut>},
    KeyCommand{'0', kCtrlMask, "Ctrl+0", Do<Page::ZoomReset>},
    KeyCommand{kKeyPadZero, kCtrlMask, "Ctrl+0", Do<Page::ZoomReset>},
    KeyCommand{'J', kCtrlMask, "Ctrl+J", [](Target t) { t.pane.ShowDownloads(); }},
    KeyCommand{'L', kCtrlMask, "Ctrl+L",
               [](Target t) { t.pane.cmdAction(ctlWebBrowser::kFocusAddress); }},
    KeyCommand{'N', kCtrlMask, "Ctrl+N",
               [](Target t) { t.commands.mnuFileItem_Click(kFileNewWindow); }},
    KeyCommand{'O', kCtrlMask, "Ctrl+O", [](Target t) { t.commands.mnuFileItem_Click(kFileOpen); }},
    KeyCommand{'P', kCtrlMask, "Ctrl+P",
               [](Target t) { t.commands.mnuFileItem_Click(kFilePrint); }},
    KeyCommand{'W', kCtrlMask | kShiftMask, "Ctrl+Shift+W", nullptr,
               [](Target t) { return t.pane.SpellWord(); }},
    KeyCommand{'L', kCtrlMask | kShiftMask, "Ctrl+Shift+L", nullptr,
               [](Target t) { return t.pane.SpellLine(); }},
    KeyCommand{'R', kCtrlMask | kShiftMask, "Ctrl+Shift+R", nullptr,
               [](Target t) { return t.commands.SayAgain(); }},
    KeyCommand{'C', kCtrlMask | kShiftMask, "Ctrl+Shift+C", nullptr,
               [](Target t) { return t.commands.CopySaid(); }},
    KeyCommand{'S', kCtrlMask | kShiftMask, "Ctrl+Shift+S", nullptr,
               [](Target t) { return t.pane.SayGlance(); }},
    KeyCommand{'W', kCtrlMask, "Ctrl+W", [](Target t) { t.commands.mnuFileItem_Click(kFileExit); }},
};

}  // namespace

std::span<const KeyCommand> AllKeyCommands() { return kCommands; }

KeyCommands::KeyCommands(Form& form, MenuCommands& commands, ctlWebBrowser& pane)
    : target_{commands, pane} {
  connections_ += form.KeyDown.Connect([this](KeyEvent& key) { Form_KeyDown(key); });
}

void KeyCommands::Form_KeyDown(KeyEvent& key) {
  for (const KeyCommand& command : kCommands) {
    if (command.KeyCode != key.KeyCode || command.Shift != key.Shift) continue;
    if (command.may_run != nullptr) {
      if (command.may_run(target_)) key.KeyCode = 0;
      return;
    }
    key.KeyCode = 0;
    // The command may close the window and end this object.
    const KeyCommand::Target target = target_;
    ErrorsIgnored([&] { command.run(target); });
    return;
  }
}

}  // namespace corvane
