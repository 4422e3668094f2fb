#include "speech/MSAgent.h"

#include <utility>

#include "base/handling.h"
#include "base/number.h"
#include "base/text.h"
#include "platform/image.h"
#include "speech/KeyName.h"
#include "speech/KeyWords.h"
#include "speech/MenuWords.h"

namespace corvane {
namespace {

constexpr const char* kCharacterName = "Genie";
constexpr const char* kCharacterFile = "talker.acf";
constexpr const char* kWelcomeText = "Hello, welcome to Corvane 2000";
constexpr const char* kAlertCaption = "microsoft internet explorer";

constexpr int kLoadDelay = 1;                   // milliseconds
constexpr int kMessageDelay = 1000;             // milliseconds
constexpr int kLoadLimit = 60'000 * 1000;       // 60000 seconds, on purpose
constexpr std::int16_t kProtectedMessages = 2;  // ordinary messages after an urgent one
constexpr std::size_t kCaptionLength = 255;     // characters read of a caption
constexpr float kBoxWidth = 6000;               // twips
constexpr float kBoxHeight = 3000;

}  // namespace

MSAgent::MSAgent(Desktop& desktop, const Manner& manner)
    : desktop_(desktop),
      manner_(manner),
      ELAMain_(desktop.CreateElasticFrame("ELAMain")),
      ELAMessage_(desktop.CreateElasticFrame("ELAMessage")),
      Image1_(desktop.CreateImage("Image1")),
      Text1_(desktop.CreateTextBox("Text1")),
      cmdOK_(desktop.CreateCommandButton("cmdOK")),
      Timer1_(desktop.CreateTimer()),
      Timer2_(desktop.CreateTimer()),
      timLoadLimit_(desktop.CreateTimer()),
      WinHook1_(desktop.CreateMessageHook()),
      WinHook2_(desktop.CreateActivationHook()),
      WinHook3_(desktop.CreateKeyboardHook()),
      Agent1_(desktop.CreateAgent()),
      form_(desktop.CreateForm("MSAgent")) {
  Timer1_->SetInterval(kLoadDelay);
  Timer2_->SetInterval(kMessageDelay);
  timLoadLimit_->SetInterval(kLoadLimit);
  connections_ += Timer1_->Tick.Connect([this] { Timer1_Timer(); });
  connections_ += Timer2_->Tick.Connect([this] { Timer2_Timer(); });
  connections_ += timLoadLimit_->Tick.Connect([this] { LoadLimit_Timer(); });
  connections_ += WinHook1_->MenuSelected.Connect(
      [this](const MenuSelect& select) { WinHook1_MessageProc(select); });
  connections_ +=
      WinHook3_->KeyDown.Connect([this](const PressedKey& key) { WinHook3_KeyDownHook(key); });
  connections_ +=
      WinHook2_->Activated.Connect([this](WindowHandle window) { WinHook2_CBTProc(window); });
  connections_ += Agent1_->RequestComplete.Connect(
      [this](const AgentRequest& request) { Agent1_RequestComplete(request); });
  connections_ += form_->QueryUnload.Connect(
      [this](bool& Cancel, Form::UnloadMode mode) { Form_QueryUnload(Cancel, mode); });
  connections_ += cmdOK_->Click.Connect([this] { cmdOK_Click(); });
  connections_ += cmdOK_->GotFocus.Connect([this] { Say(cmdOK_->Caption() + " button", false); });
  connections_ += Text1_->GotFocus.Connect([this] { Say(Text1_->Text(), false); });
  Form_Load();
}

MSAgent::~MSAgent() { Form_Unload(); }

void MSAgent::Form_Load() {
  form_->SetCaption("Message Box");
  cmdOK_->SetCaption("OK");
  Text1_->SetAccessibleName("Message");
  ELAMain_->SetLayout(ElasticFrame::Layout::Above);
  ELAMain_->SetAlign(ElasticFrame::Align::Fill);
  ELAMessage_->SetLayout(ElasticFrame::Layout::SideBySide);
  ELAMessage_->SetAlign(ElasticFrame::Align::Fill);
  Image1_->SetPicture(Image::Picture::Message);
  ELAMessage_->Add(*Image1_);
  ELAMessage_->Add(*Text1_);
  ELAMain_->Add(*ELAMessage_);
  ELAMain_->Add(*cmdOK_);
  form_->SetContent(*ELAMain_);
  form_->SetWidth(kBoxWidth);
  form_->SetHeight(kBoxHeight);
  SetHookMessages(true);
  SetHookCBT(true);
  SetHookKeyboard(true);
}

void MSAgent::Form_Unload() {
  ErrorsIgnored([&] { SetHookKeyboard(false); }, [&] { SetHookMessages(false); },
                [&] { SetHookCBT(false); }, [&] { requests_.fill({}); }, [&] { StopSpeak(); },
                [&] { character_.reset(); }, [&] { GiveBackSpeechItem(); }, [&] { owner_.reset(); },
                [&] { Timer1_->SetEnabled(false); }, [&] { Timer2_->SetEnabled(false); },
                [&] { timLoadLimit_->SetEnabled(false); }, [&] { form_->Hide(); });
}

void MSAgent::Form_QueryUnload(bool& Cancel, Form::UnloadMode UnloadMode) {
  if (UnloadMode != Form::UnloadMode::ControlMenu) return;
  Cancel = true;
  form_->Hide();
}

void MSAgent::Load_Init(const std::shared_ptr<ISpeechWindow>& frmCV) {
  owner_ = frmCV;
  if (frmCV) frmCV->EnableSpeechItem().SetEnabled(false);
  Timer1_->SetEnabled(true);
}

void MSAgent::Timer1_Timer() {
  Timer1_->SetEnabled(false);
  try {
    const FileSystem& files = desktop_.GetFileSystem();
    std::string folder = files.ProgramFolder();
    if (folder.empty() || folder.back() != files.Separator()) folder += files.Separator();
    requests_[kLoad] = Agent1_->Load(kCharacterName, folder + kCharacterFile);
    timLoadLimit_->SetEnabled(true);
  } catch (const std::exception& error) {
    GiveUp(error.what());
  }
}

void MSAgent::LoadLimit_Timer() {
  timLoadLimit_->SetEnabled(false);
  GiveUp("");
}

void MSAgent::GiveUp(const std::string& description) {
  desktop_.GetMessageBox().Show(description, MessageBox::Icon::Critical);
  Form_Unload();
}

// However the loading ends, the user must not be left with a dead menu item: it
// comes back so that speech can be switched off and on for another try.
void MSAgent::GiveBackSpeechItem() {
  if (const auto owner = owner_.lock()) owner->EnableSpeechItem().SetEnabled(true);
}

void MSAgent::Agent1_RequestComplete(const AgentRequest& Request) {
  const auto is = [&](RequestIndex index) {
    return requests_[index].id != 0 && requests_[index].id == Request.id;
  };
  if (spoken_ && Request.id == through_.id) return std::exchange(spoken_, nullptr)(true);
  try {
    if (is(kLoad)) {
      requests_[kShow] = Agent1_->Character(kCharacterName)->Show();
    } else if (is(kShow)) {
      requests_[kWelcome] = Agent1_->Character(kCharacterName)->Speak(kWelcomeText, false);
    } else if (is(kWelcome)) {
      character_ = Agent1_->Character(kCharacterName);
      timLoadLimit_->SetEnabled(false);
      GiveBackSpeechItem();
      if (const auto owner = owner_.lock()) owner->SpeechReady();
    }
  } catch (const std::exception& error) {
    GiveUp(error.what());
  }
}

void MSAgent::SetRate(int Rate) { speed_ = Rate * 50 + 50; }

void MSAgent::SetPitch(int Pitch) { pitch_ = Pitch * 20 + 50; }

void MSAgent::StopSpeak() {
  if (character_) character_->StopSpeak();
  if (const auto spoken = std::exchange(spoken_, nullptr)) spoken(false);
}

void MSAgent::Say(const std::string& Text, const bool& blnUrgent) { Speak(Text, blnUrgent); }

void MSAgent::SayThrough(const std::string& Text, ISpeechNotify::Spoken spoken) {
  const AgentRequest request = Speak(Text, false);
  if (request.id == 0) return spoken(false);
  through_ = request;
  // Behind a protected message several may wait; only the last one is followed.
  if (const auto earlier = std::exchange(spoken_, std::move(spoken))) earlier(false);
}

AgentRequest MSAgent::Speak(const std::string& Text, bool urgent) {
  if (!character_) return {};
  if (urgent) {
    StopSpeak();
    intProtect_ = kProtectedMessages;
  } else if (intProtect_ > 0) {
    --intProtect_;
  } else {
    StopSpeak();
  }
  // Without backslashes the text can never contain a tag.
  return character_->Speak("\\Pit=" + number::digits(pitch_) + "\\\\Spd=" + number::digits(speed_) +
                               "\\" + text::replace_all(Text, "\\", "/"),
                           urgent);
}

// Runs before every key press: one look-up, one Say, nothing else.
void MSAgent::WinHook3_KeyDownHook(const PressedKey& key) {
  ErrorsIgnored([&] {
    if (key.code == kKeyControl) StopSpeak();
    if (!blnKeyboardEcho) return;
    if (manner_.hide_passwords && WinHook3_->IntoPassword() &&
        (key.character != 0 || WritesCharacter(key.code))) {
      return Say("star", true);
    }
    const std::string name = manner_.key_words ? KeyWords(key) : KeyName(key.code);
    if (!name.empty()) Say(name, true);
  });
}

void MSAgent::WinHook1_MessageProc(const MenuSelect& select) {
  const int speed = speed_;
  const int pitch = pitch_;
  // The words carry their own rate and pitch: an item is heard as what it offers,
  // whatever holds for everything else.
  ErrorsIgnored(
      [&] {
        if (const auto rate = IndexIn(kRateIds, select.item)) SetRate(*rate);
        if (const auto step = IndexIn(kPitchIds, select.item)) SetPitch(*step);
      },
      [&] { Say(MenuWords(select), false); });
  speed_ = speed;
  pitch_ = pitch;
}

void MSAgent::WinHook2_CBTProc(WindowHandle activated) {
  ErrorsIgnored([&] {
    Windows& windows = desktop_.GetWindows();
    if (text::lower(text::left(windows.Text(activated), kCaptionLength)) != kAlertCaption) return;
    const WindowHandle button = windows.FirstChild(activated);
    if (windows.Text(button) != "OK") return;
    const std::string message = windows.Text(windows.NextSibling(button));
    windows.PostClose(activated);
    strInterceptedMessage_ = message;
    Timer2_->SetEnabled(true);
  });
}

void MSAgent::Timer2_Timer() {
  Timer2_->SetEnabled(false);
  ErrorsIgnored([&] { Text1_->SetText(strInterceptedMessage_); }, [&] { StopSpeak(); },
                [&] { Say(strInterceptedMessage_, true); },
                [&] {
                  const auto owner = owner_.lock();
                  form_->ShowModal(owner ? &owner->Window() : nullptr);
                },
                // The message has just been spoken; its own field would say it again.
                [&] { cmdOK_->SetFocus(); });
}

void MSAgent::cmdOK_Click() {
  Text1_->SetText("");
  form_->Hide();
}

}  // namespace corvane
