#include "speech/MSAgent.h"

#include <utility>

#include "base/handling.h"
#include "base/language.h"
#include "base/text.h"
#include "platform/image.h"
#include "platform/message_box.h"
#include "speech/KeyName.h"
#include "speech/KeyWords.h"
#include "speech/MenuWords.h"

namespace corvane {
namespace {

constexpr const char* kCharacterName = "Genie";
constexpr const char* kCharacterFile = "talker.acf";
constexpr const char* kWelcomeText = "Hello, welcome to Corvane 2000";
constexpr const char* kAlertCaption = "microsoft internet explorer";

constexpr int kLoadDelay = 1;                // milliseconds
constexpr int kMessageDelay = 1000;          // milliseconds
constexpr int kLoadLimit = 60'000 * 1000;    // 60000 seconds, on purpose
constexpr std::size_t kCaptionLength = 255;  // characters read of a caption
constexpr float kBoxWidth = 6000;            // twips
constexpr float kBoxHeight = 3000;

}  // namespace

MSAgent::MSAgent(Desktop& desktop, ProcessSpeech& speech)
    : desktop_(desktop),
      speech_(speech),
      manner_(speech.manner),
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
  connections_ +=
      Agent1_->RequestComplete.Connect([this](const AgentRequest& request, RequestEnd end) {
        Agent1_RequestComplete(request, end);
      });
  connections_ += form_->KeyDown.Connect([this](KeyEvent& key) { form_KeyDown(key); });
  connections_ += form_->QueryUnload.Connect(
      [this](bool& Cancel, Form::UnloadMode mode) { Form_QueryUnload(Cancel, mode); });
  connections_ += cmdOK_->Click.Connect([this] { cmdOK_Click(); });
  connections_ += cmdOK_->GotFocus.Connect([this] {
    if (!manner_.today || !follows_) SayInBox(cmdOK_->Caption() + " button", false);
  });
  connections_ += Text1_->GotFocus.Connect([this] { SayInBox(Text1_->Text(), false); });
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
                [&] { SetHookCBT(false); }, [&] { requests_.fill({}); },
                [&] { state_ = State::Unloaded; }, [&] { Drop(std::exchange(early_, {})); },
                [&] { speech_.order.CharacterGoes(); }, [&] { GiveBackSpeechItem(); },
                [&] { owner_.reset(); }, [&] { Timer1_->SetEnabled(false); },
                [&] { Timer2_->SetEnabled(false); }, [&] { timLoadLimit_->SetEnabled(false); },
                [&] { form_->Hide(); }, [&] { HandOverMessages(); });
}

// Their pages take them for shown.
void MSAgent::HandOverMessages() {
  for (const auto& message : std::exchange(messages_, {})) {
    if (!manner_.today) continue;
    desktop_.GetMessageBox().Show(language::Marked(message.text, language::kOfAPage),
                                  MessageBox::Icon::Exclamation);
  }
}

void MSAgent::Form_QueryUnload(bool& Cancel, Form::UnloadMode UnloadMode) {
  if (UnloadMode != Form::UnloadMode::ControlMenu) return;
  Cancel = true;
  CloseBox();
}

void MSAgent::Load_Init(const std::shared_ptr<ISpeechWindow>& frmCV) {
  owner_ = frmCV;
  state_ = State::Loading;
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

void MSAgent::Agent1_RequestComplete(const AgentRequest& Request, RequestEnd end) {
  const auto is = [&](RequestIndex index) {
    return requests_[index].id != 0 && requests_[index].id == Request.id;
  };
  if (!is(kLoad) && !is(kShow) && !is(kWelcome)) return speech_.order.Ended(Request, end);
  try {
    if (is(kLoad)) {
      requests_[kShow] = Agent1_->Character(kCharacterName)->Show();
    } else if (is(kShow)) {
      Welcome();
    } else if (is(kWelcome)) {
      speech_.order.Ended(Request, end);
      BecomeReady(end);
    }
  } catch (const std::exception& error) {
    GiveUp(error.what());
  }
}

void MSAgent::Welcome() {
  speech_.order.SpeakWith(Agent1_->Character(kCharacterName));
  requests_[kWelcome] = speech_.order.Greet(kWelcomeText);
  state_ = State::Welcoming;
  if (auto early = std::exchange(early_, std::nullopt)) Speak(std::move(*early));
}

// The page's title is only for who has heard nothing of it yet, and wants to.
void MSAgent::BecomeReady(RequestEnd end) {
  state_ = State::Ready;
  timLoadLimit_->SetEnabled(false);
  GiveBackSpeechItem();
  const bool goes_on = manner_.today && (said_while_greeting_ || end == RequestEnd::Cut);
  speech_.windows.SpeechReady(!goes_on);
}

void MSAgent::SetRate(int Rate) { speed_ = SpeedOf(Rate); }

void MSAgent::SetPitch(int Pitch) { pitch_ = PitchOf(Pitch); }

void MSAgent::Say(const std::string& Text, const bool& blnUrgent) {
  Speak({Text, blnUrgent ? Urgency::Urgent : Urgency::Ordinary});
}

void MSAgent::SayThrough(const std::string& Text, ISpeechNotify::Spoken spoken) {
  Speak({Text, Urgency::Ordinary, std::move(spoken)});
}

void MSAgent::SayBehind(const std::string& Text, ISpeechNotify::Spoken spoken) {
  if (state_ != State::Ready) return spoken(false);
  speech_.order.SayBehind(Text, Style(), std::move(spoken));
}

void MSAgent::SayAs(const std::string& Text, Whose whose, Sign sign) {
  Speak({.text = Text, .whose = whose, .sign = sign});
}

void MSAgent::Speak(Message message) {
  const bool welcoming = state_ == State::Welcoming && manner_.today;
  if (state_ == State::Ready || welcoming) {
    said_while_greeting_ = welcoming;
    SpeechStyle style = Style();
    style.whose = message.whose;
    style.sign = message.sign;
    if (!message.spoken) {
      speech_.order.Say(message.text, style, message.urgency, message.remembered);
    } else {
      speech_.order.SayThrough(message.text, style, std::move(message.spoken));
    }
    return;
  }
  std::optional<Message> dropped = std::move(message);
  if (state_ == State::Loading && manner_.today) std::swap(dropped, early_);
  Drop(std::move(dropped));
}

void MSAgent::SayAgain() {
  const std::string* words = speech_.order.Words().Back();
  SayInPassing(words != nullptr ? *words : "Nothing was said before that");
}

void MSAgent::CopySaid() {
  const std::string* words = speech_.order.Words().Present();
  if (words == nullptr) return SayInPassing("Nothing has been said yet");
  desktop_.GetClipboard().SetText(language::Unmarked(*words));
  SayInPassing("Copied");
}

void MSAgent::SayInPassing(const std::string& text, Urgency urgency) {
  Speak({text, urgency, nullptr, Remembered::No});
}

void MSAgent::Drop(std::optional<Message> message) {
  if (message && message->spoken) message->spoken(false);
}

// Runs before every key press: one look-up, one Say, nothing else. Control has
// silenced the program already.
void MSAgent::WinHook3_KeyDownHook(const PressedKey& key) {
  ErrorsIgnored([&] {
    if (!blnKeyboardEcho || UserWantsSilence()) return;
    if (speech_.windows.UsersAnswersKey(key.code) || ChangesSpeed(key)) return;
    if (manner_.hide_passwords && WinHook3_->IntoPassword() &&
        (key.character != 0 || WritesCharacter(key.code))) {
      return SayInPassing("star", Urgency::Urgent);
    }
    const std::string name = manner_.key_words ? KeyWords(key) : KeyName(key.code);
    if (!name.empty()) SayInPassing(name, Urgency::Urgent);
  });
}

// The hooks are the process's, the choice is each window's.
bool MSAgent::UserWantsSilence() const {
  return manner_.today && speech_.windows.UserIsInASilentOne();
}

void MSAgent::WinHook1_MessageProc(const MenuSelect& select) {
  if (UserWantsSilence()) return;
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
    PageMessage message{windows.Text(windows.NextSibling(button)), windows.Owner(activated)};
    windows.PostClose(activated);
    if (!manner_.today) messages_.clear();  // only the last one is shown
    messages_.push_back(std::move(message));
    // While one is shown the next waits until that is closed.
    if (!manner_.today || !form_->Visible()) Timer2_->SetEnabled(true);
  });
}

void MSAgent::Timer2_Timer() {
  Timer2_->SetEnabled(false);
  ShowNextMessage();
}

// The next message takes the place of the one before: between them the window
// behind would have the focus, and say so.
void MSAgent::CloseBox() {
  if (!manner_.today || messages_.empty()) return form_->Hide();
  ShowNextMessage();
  SayInBox(cmdOK_->Caption() + " button", false);
}

void MSAgent::ShowNextMessage() {
  if (messages_.empty()) return;
  follows_ = form_->Visible();
  shown_ = std::move(messages_.front());
  messages_.pop_front();
  ErrorsIgnored([&] { Text1_->SetText(shown_.text); }, [&] { SayInBox(shown_.text, true); },
                [&] { form_->ShowModal(OwnerOfBox()); },
                // The message has just been spoken; its own field would say it again.
                [&] { cmdOK_->SetFocus(); });
  follows_ = false;
}

// Usual: the window whose page has the message.
Form* MSAgent::OwnerOfBox() const {
  auto owner = manner_.today ? speech_.windows.Around(shown_.window) : nullptr;
  if (!owner) owner = owner_.lock();
  return owner ? &owner->Window() : nullptr;
}

void MSAgent::SayInBox(const std::string& text, bool urgent) {
  if (manner_.today && !speech_.windows.Speaks(shown_.window)) return;
  Say(text, urgent);
}

// As in every dialog.
void MSAgent::form_KeyDown(KeyEvent& key) {
  if (key.KeyCode != kKeyF1 || key.Shift != 0) return;
  key.KeyCode = 0;
  SayInBox(Text1_->Text(), true);
  SayInBox(cmdOK_->Caption() + " button", false);
}

void MSAgent::cmdOK_Click() {
  Text1_->SetText("");
  CloseBox();
}

}  // namespace corvane
