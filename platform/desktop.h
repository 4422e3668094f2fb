#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/agent.h"
#include "platform/clipboard.h"
#include "platform/combo_box.h"
#include "platform/command_button.h"
#include "platform/elastic_frame.h"
#include "platform/file_system.h"
#include "platform/form.h"
#include "platform/hooks.h"
#include "platform/list_box.h"
#include "platform/menu.h"
#include "platform/message_box.h"
#include "platform/own_options.h"
#include "platform/rebar_window.h"
#include "platform/registry.h"
#include "platform/rich_text_box.h"
#include "platform/settings_store.h"
#include "platform/status_bar.h"
#include "platform/text_box.h"
#include "platform/timer.h"
#include "platform/tree_view.h"
#include "platform/voice.h"
#include "platform/web_browser.h"
#include "platform/windows.h"

namespace corvane {

class Accessibility;
class Automation;
class FileDialog;
class Image;
class ImageList;
class Line;
class ListView;
class PageSound;
class Shell;

/// Indexes of the desktop's own colours, as its colour query numbers them.
enum SystemColor : int { kColorButtonFace = 15, kColorButtonText = 18 };

/// What a dialog of the desktop's own, a message box too, has to say at once.
struct DialogWords {
  std::string text;
  WindowHandle window = 0;  ///< the window that the dialog is, or belongs to; 0: none
  bool from_page = false;   ///< a page asks or tells, not the program
};

/// All that the product needs of a desktop: it makes windows and controls and
/// holds the services. Everything runs on the user-interface thread.
class Desktop {
 public:
  virtual ~Desktop() = default;

  virtual std::unique_ptr<Form> CreateForm(const std::string& name) = 0;
  virtual std::unique_ptr<Menu> CreateMenu() = 0;
  virtual std::unique_ptr<ElasticFrame> CreateElasticFrame(const std::string& name) = 0;
  virtual std::unique_ptr<ComboBox> CreateComboBox(const std::string& name,
                                                   ComboBox::Style style) = 0;
  virtual std::unique_ptr<CommandButton> CreateCommandButton(const std::string& name) = 0;
  virtual std::unique_ptr<StatusBar> CreateStatusBar(const std::string& name) = 0;
  virtual std::unique_ptr<RichTextBox> CreateRichTextBox(const std::string& name) = 0;
  virtual std::unique_ptr<ListBox> CreateListBox(const std::string& name) = 0;
  virtual std::unique_ptr<TextBox> CreateTextBox(const std::string& name) = 0;
  virtual std::unique_ptr<TreeView> CreateTreeView(const std::string& name) = 0;
  virtual std::unique_ptr<ListView> CreateListView(const std::string& name) = 0;
  virtual std::unique_ptr<ImageList> CreateImageList() = 0;
  virtual std::unique_ptr<WebBrowser> CreateWebBrowser(const std::string& name) = 0;
  virtual std::unique_ptr<Timer> CreateTimer() = 0;
  /// Makes the strip inside `parent`; empty when it cannot be made.
  virtual std::unique_ptr<RebarWindow> CreateRebarWindow(ElasticFrame& parent, std::uint32_t style,
                                                         int width, int height) = 0;
  virtual std::unique_ptr<Agent> CreateAgent() = 0;
  /// The voice that speaks without any character.
  virtual Voice& GetVoice() = 0;
  /// Has another one make the sound, from now on; one that has been lost is tried again
  /// when another one has been asked for meanwhile. Returns at once; until it is there, and
  /// when it is lost, the built in one speaks.
  virtual void SpeakThrough(SpeechMaker maker) = 0;
  /// Who makes the sound at present.
  virtual SpeechMaker SpeaksThrough() const = 0;
  /// The voices that there are of who makes the sound, as far as they are known. Reads
  /// files when it is asked first.
  virtual const InstalledVoices& Voices() = 0;
  /// Who speaks for the desktop's own dialogs, from now on; nobody when empty.
  virtual void SpeakDialogsThrough(std::function<void(const DialogWords&)> speak) = 0;
  virtual std::unique_ptr<ActivationHook> CreateActivationHook() = 0;
  virtual std::unique_ptr<KeyboardHook> CreateKeyboardHook() = 0;
  virtual std::unique_ptr<MessageHook> CreateMessageHook() = 0;
  virtual std::unique_ptr<FileDialog> CreateFileDialog() = 0;
  virtual std::unique_ptr<Image> CreateImage(const std::string& name) = 0;
  virtual std::unique_ptr<Line> CreateLine(const std::string& name) = 0;

  virtual Windows& GetWindows() = 0;
  virtual MessageBox& GetMessageBox() = 0;
  virtual SettingsStore& GetSettings() = 0;
  virtual Registry& GetRegistry() = 0;
  virtual FileSystem& GetFileSystem() = 0;
  virtual Clipboard& GetClipboard() = 0;
  virtual Shell& GetShell() = 0;
  virtual Automation& GetAutomation() = 0;
  virtual Accessibility& GetAccessibility() = 0;
  virtual PageSound& GetPageSound() = 0;

  /// The program's own choices, for the dialog of options; each page of them once.
  /// Before it is shown.
  virtual void OfferOptions(OwnOptions options) = 0;
  /// Shows the options of the program and of its rendering engine; the focus lands
  /// inside the dialog.
  /// What is changed there holds for all pages at once. Returns at once.
  virtual void ShowEngineOptions() = 0;
  /// Shows the files that are coming and have come from the network, and lets the
  /// user stop one. Returns at once.
  virtual void ShowDownloads() = 0;

  /// Lets events that are already waiting run, then returns. Handlers may
  /// re-enter the caller. May pass when it was called a moment ago.
  virtual void DoEvents() = 0;
  /// Returns after so many milliseconds, in which events run. Handlers may
  /// re-enter the caller.
  virtual void Pause(int milliseconds) = 0;
  /// Runs `action` soon, but never inside DoEvents or Pause: for destroying what
  /// the handler that let events run may still be using.
  virtual void Later(std::function<void()> action) = 0;
  /// Twips that one pixel measures.
  virtual float TwipsPerPixel() const = 0;
  virtual std::uint32_t SysColor(SystemColor index) const = 0;
  /// What the desktop is called, as in "For Linux".
  virtual std::string Name() const = 0;
  /// Whether an automation client, not a person, started the process.
  virtual bool StartedByAutomation() const = 0;

  /// Something about the desktop that the user should see once, in a sentence:
  /// that there is no sound device, say. Raised from the event loop.
  Event<const std::string&> Notice;
  /// Whether anything is being said, when that changes. Raised from the event loop.
  Event<bool> Speaking;
  /// Who was to make the sound cannot, and the built in one has taken over. Raised from the
  /// event loop.
  Event<SpeechMaker> SpeechMakerLost;
  /// The user's session ends: every window must close now, without a question.
  Event<> Ending;
};

}  // namespace corvane
