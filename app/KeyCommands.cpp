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

template <ReadOn::Unit unit, ReadOn::Way way>
bool Step(Target t) {
  return t.pane.StepInReading(unit, way);
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
    KeyCommand{kKeyLeft, kAltMask, "Alt+Left", "goes to the page before",
               [](Target t) { t.commands.mnuGo_Click(kGoBack); }},
    KeyCommand{kKeyRight, kAltMask, "Alt+Right", "goes to the page after",
               [](Target t) { t.commands.mnuGo_Click(kGoForward); }},
    KeyCommand{kKeyF1, kCtrlMask, "Ctrl+F1", "lets each key say what it does", nullptr,
               [](Target t) { return t.help.Switch(); }},
    KeyCommand{kKeyF4, 0, "F4", "lets letters in the text pane lead through the page, or write",
               nullptr, [](Target t) { return t.pane.SwitchQuickKeys(); }},
    KeyCommand{kKeyF5, 0, "F5", "loads the page again",
               [](Target t) { t.commands.mnuGo_Click(kGoRefresh); }},
    KeyCommand{kKeyF6, 0, "F6", "goes to the next area", [](Target t) { t.pane.NextArea(); }},
    KeyCommand{kKeyF6, kShiftMask, "Shift+F6", "goes to the area before",
               [](Target t) { t.pane.PreviousArea(); }},
    KeyCommand{kKeyF7, 0, "F7", "reads the text pane aloud from its caret on",
               [](Target t) { t.pane.ReadOn(); }},
    KeyCommand{kKeyLeft, 0, "Left", "goes a sentence back in what is being read aloud", nullptr,
               Step<ReadOn::Unit::Sentence, ReadOn::Way::Back>},
    KeyCommand{kKeyRight, 0, "Right", "goes a sentence on in what is being read aloud", nullptr,
               Step<ReadOn::Unit::Sentence, ReadOn::Way::On>},
    KeyCommand{kKeyUp, 0, "Up", "goes a paragraph back in what is being read aloud", nullptr,
               Step<ReadOn::Unit::Paragraph, ReadOn::Way::Back>},
    KeyCommand{kKeyDown, 0, "Down", "goes a paragraph on in what is being read aloud", nullptr,
               Step<ReadOn::Unit::Paragraph, ReadOn::Way::On>},
    KeyCommand{kKeyF8, 0, "F8", "goes to the next bar between two areas",
               [](Target t) { t.pane.NextSplitter(); }},
    KeyCommand{kKeyF8, kShiftMask, "Shift+F8", "goes to the bar before",
               [](Target t) { t.pane.PreviousSplitter(); }},
    KeyCommand{kKeyF9, 0, "F9", "reads the page again as it is now", Do<Page::ReadAgain>},
    KeyCommand{kKeyF12, 0, "F12",
               "lets more or fewer of the words be heard that the page says by itself",
               [](Target t) { t.pane.StepThroughLiveWords(); }},
    KeyCommand{'E', kCtrlMask | kShiftMask, "Ctrl+Shift+E", "lists the elements of the page",
               nullptr, [](Target t) { return t.pane.ShowElements(t.form); }},
    KeyCommand{'F', kCtrlMask, "Ctrl+F", "finds words in the page", Do<Page::Find>},
    KeyCommand{kKeyF3, 0, "F3", "finds the next place", Do<Page::FindNext>},
    KeyCommand{kKeyF3, kShiftMask, "Shift+F3", "finds the place before", Do<Page::FindPrevious>},
    KeyCommand{kKeyPlus, kCtrlMask, "Ctrl+Plus", "shows the page larger", Do<Page::ZoomIn>},
    KeyCommand{kKeyPlus, kCtrlMask | kShiftMask, "Ctrl+Plus", "shows the page larger",
               Do<Page::ZoomIn>},
    KeyCommand{kKeyPadPlus, kCtrlMask, "Ctrl+Plus", "shows the page larger", Do<Page::ZoomIn>},
    KeyCommand{kKeyMinus, kCtrlMask, "Ctrl+Minus", "shows the page smaller", Do<Page::ZoomOut>},
    KeyCommand{kKeyPadMinus, kCtrlMask, "Ctrl+Minus", "shows the page smaller", Do<Page::ZoomOut>},
    KeyCommand{'0', kCtrlMask, "Ctrl+0", "shows the page as it was", Do<Page::ZoomReset>},
    KeyCommand{kKeyPadZero, kCtrlMask, "Ctrl+0", "shows the page as it was", Do<Page::ZoomReset>},
    KeyCommand{'J', kCtrlMask, "Ctrl+J", "shows the downloads",
               [](Target t) { t.pane.ShowDownloads(); }},
    KeyCommand{'L', kCtrlMask, "Ctrl+L", "goes to the address box",
               [](Target t) { t.pane.cmdAction(ctlWebBrowser::kFocusAddress); }},
    KeyCommand{'M', kCtrlMask, "Ctrl+M", "mutes the page, and lets it sound again", Do<Page::Mute>},
    KeyCommand{'N', kCtrlMask, "Ctrl+N", "opens a new window",
               [](Target t) { t.commands.mnuFileItem_Click(kFileNewWindow); }},
    KeyCommand{'O', kCtrlMask, "Ctrl+O", "opens a file",
               [](Target t) { t.commands.mnuFileItem_Click(kFileOpen); }},
    KeyCommand{'P', kCtrlMask, "Ctrl+P", "prints the page",
               [](Target t) { t.commands.mnuFileItem_Click(kFilePrint); }},
    KeyCommand{'W', kCtrlMask | kShiftMask, "Ctrl+Shift+W", "spells the word at the caret", nullptr,
               [](Target t) { return t.pane.SpellWord(); }},
    KeyCommand{'L', kCtrlMask | kShiftMask, "Ctrl+Shift+L", "spells the line at the caret", nullptr,
               [](Target t) { return t.pane.SpellLine(); }},
    KeyCommand{'R', kCtrlMask | kShiftMask, "Ctrl+Shift+R", "says again what was said last",
               nullptr, [](Target t) { return t.commands.SayAgain(); }},
    KeyCommand{'C', kCtrlMask | kShiftMask, "Ctrl+Shift+C", "copies what was said last", nullptr,
               [](Target t) { return t.commands.CopySaid(); }},
    KeyCommand{'S', kCtrlMask | kShiftMask, "Ctrl+Shift+S",
               "says what there is in the page, and where you are", nullptr,
               [](Target t) { return t.pane.SayGlance(); }},
    // All keys of the program are heard where that is done, those in dialogs, too.
    KeyCommand{kKeyPageUp, kCtrlMask | kAltMask, "Ctrl+Alt+Page Up", "makes speech faster", nullptr,
               [](Target) { return true; }},
    KeyCommand{kKeyPageDown, kCtrlMask | kAltMask, "Ctrl+Alt+Page Down", "makes speech slower",
               nullptr, [](Target) { return true; }},
    KeyCommand{'W', kCtrlMask, "Ctrl+W", "closes the window",
               [](Target t) { t.commands.mnuFileItem_Click(kFileExit); }},
};

}  // namespace

std::span<const KeyCommand> AllKeyCommands() { return kCommands; }

KeyCommands::KeyCommands(Form& form, MenuCommands& commands, ctlWebBrowser& pane, KeyHelp& help)
    : target_{commands, pane, help, form} {
  connections_ += form.KeyDown.Connect([this](KeyEvent& key) { Form_KeyDown(key); });
}

// While keys are explained none of them does anything else.
void KeyCommands::Explain(KeyEvent& key) {
  const KeyEvent pressed = key;
  key.KeyCode = 0;
  ErrorsIgnored([&] {
    if (pressed.KeyCode == kKeyEscape) {
      target_.help.Switch();
    } else {
      target_.help.Explain(pressed);
    }
  });
}

void KeyCommands::Form_KeyDown(KeyEvent& key) {
  const bool switches = key.KeyCode == kKeyF1 && key.Shift == kCtrlMask;
  if (target_.help.IsOn() && !switches) return Explain(key);
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
