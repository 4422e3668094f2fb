#pragma once

#include <array>
#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "platform/desktop.h"
#include "speech/ISpeechNotify.h"
#include "speech/ISpeechWindow.h"
#include "speech/ProcessSpeech.h"

namespace corvane {

/// The agent speech form: owns the speaking character, names keys and highlighted
/// menu items, and is the speaking message box in which page script messages are
/// shown again. Destroying it unloads it: silence, hooks off.
class MSAgent {
 public:
  /// Both must outlive the form.
  MSAgent(Desktop& desktop, ProcessSpeech& speech);
  ~MSAgent();
  MSAgent(const MSAgent&) = delete;
  MSAgent& operator=(const MSAgent&) = delete;

  /// Starts loading the character. While that lasts the owner's "Enable Speech"
  /// item is disabled. Without an owner the character is loaded all the same.
  void Load_Init(const std::shared_ptr<ISpeechWindow>& frmCV);
  /// Rate menu index 0 to 4 gives the speed 50, 100, 150, 200, 250.
  void SetRate(int Rate);
  /// Pitch menu index 0 to 4 gives the pitch 50, 70, 90, 110, 130.
  void SetPitch(int Pitch);
  /// What is in force; 0 until it is set.
  int Speed() const { return speed_; }
  int Pitch() const { return pitch_; }

  /// The character can speak.
  bool Ready() const { return state_ == State::Ready; }
  /// Speaks `Text`; dropped while the character is not ready. Usual: the last one
  /// is kept and spoken behind the greeting.
  void Say(const std::string& Text, const bool& blnUrgent);
  /// Speaks `Text` as an ordinary message and tells once whether it was spoken to
  /// its end.
  void SayThrough(const std::string& Text, ISpeechNotify::Spoken spoken);
  /// Speaks `Text` behind what is being spoken and tells once what became of it;
  /// dropped while the character is not ready.
  void SayBehind(const std::string& Text, ISpeechNotify::Spoken spoken);
  /// Speaks an ordinary message of the program's own or a page's, or by a sound.
  void SayAs(const std::string& Text, Whose whose, Sign sign);

  /// Says what was said last; asked again, what came before it.
  void SayAgain();
  /// Copies to the clipboard what SayAgain() has said, or would say.
  void CopySaid();

  /// Keyboard echo is on.
  bool blnKeyboardEcho = false;

 private:
  enum RequestIndex : std::size_t { kLoad, kShow, kWelcome, kRequestCount };

  void Form_Load();
  void Form_Unload();
  void Form_QueryUnload(bool& Cancel, Form::UnloadMode UnloadMode);
  void Timer1_Timer();
  void LoadLimit_Timer();
  void Timer2_Timer();
  void Agent1_RequestComplete(const AgentRequest& Request, RequestEnd end);
  void WinHook1_MessageProc(const MenuSelect& select);
  void WinHook2_CBTProc(WindowHandle activated);
  void WinHook3_KeyDownHook(const PressedKey& key);
  void SetHookMessages(bool on) { WinHook1_->SetEnabled(on); }
  void SetHookCBT(bool on) { WinHook2_->SetEnabled(on); }
  void SetHookKeyboard(bool on) { WinHook3_->SetEnabled(on); }
  void cmdOK_Click();
  void form_KeyDown(KeyEvent& key);
  void GiveUp(const std::string& description);
  void GiveBackSpeechItem();
  void Welcome();
  void BecomeReady(RequestEnd end);

  /// What somebody wants to be said.
  struct Message {
    std::string text;
    Urgency urgency = Urgency::Ordinary;
    ISpeechNotify::Spoken spoken = nullptr;
    Remembered remembered = Remembered::Yes;
    Whose whose = Whose::Anybody;
    Sign sign = Sign::None;
  };
  void Speak(Message message);
  /// What nobody wants to hear again.
  void SayInPassing(const std::string& text, Urgency urgency = Urgency::Ordinary);
  static void Drop(std::optional<Message> message);
  SpeechStyle Style() const { return {pitch_, speed_}; }

  /// A page's message that waits to be shown again.
  struct PageMessage {
    std::string text;
    WindowHandle window = 0;  ///< that it belongs to
  };
  bool UserWantsSilence() const;
  void CloseBox();
  void ShowNextMessage();
  void HandOverMessages();
  void SayInBox(const std::string& text, bool urgent);
  Form* OwnerOfBox() const;

  /// Where the character is on its way.
  enum class State { Unloaded, Loading, Welcoming, Ready };

  Desktop& desktop_;
  ProcessSpeech& speech_;
  const Manner& manner_;
  State state_ = State::Unloaded;
  std::unique_ptr<ElasticFrame> ELAMain_;
  std::unique_ptr<ElasticFrame> ELAMessage_;  // icon and text
  std::unique_ptr<Image> Image1_;
  std::unique_ptr<TextBox> Text1_;
  std::unique_ptr<CommandButton> cmdOK_;
  std::unique_ptr<Timer> Timer1_;
  std::unique_ptr<Timer> Timer2_;
  std::unique_ptr<Timer> timLoadLimit_;
  std::unique_ptr<MessageHook> WinHook1_;
  std::unique_ptr<ActivationHook> WinHook2_;
  std::unique_ptr<KeyboardHook> WinHook3_;
  std::unique_ptr<Agent> Agent1_;
  std::unique_ptr<Form> form_;
  std::array<AgentRequest, kRequestCount> requests_{};
  std::optional<Message> early_;  // came before the greeting
  bool said_while_greeting_ = false;
  std::weak_ptr<ISpeechWindow> owner_;
  std::deque<PageMessage> messages_;
  PageMessage shown_;
  bool follows_ = false;  // it is taking the place of another one
  int speed_ = 0;
  int pitch_ = 0;
  Connections connections_;
};

}  // namespace corvane
