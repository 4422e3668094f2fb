#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "base/manner.h"
#include "platform/desktop.h"
#include "speech/ISpeechNotify.h"
#include "speech/ISpeechWindow.h"

namespace corvane {

/// The agent speech form: owns the speaking character, decides when new speech
/// cuts off old speech, names keys and highlighted menu items, and is the speaking
/// message box in which page script messages are shown again. Destroying it
/// unloads it: silence, hooks off.
class MSAgent {
 public:
  /// `manner` must outlive the form.
  explicit MSAgent(Desktop& desktop, const Manner& manner = kEstablishedManner);
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
  bool Ready() const { return character_ != nullptr; }
  /// Speaks `Text`; dropped while the character is not ready.
  void Say(const std::string& Text, const bool& blnUrgent);
  /// Speaks `Text` as an ordinary message and tells once whether it was spoken to
  /// its end.
  void SayThrough(const std::string& Text, ISpeechNotify::Spoken spoken);

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
  void Agent1_RequestComplete(const AgentRequest& Request);
  void WinHook1_MessageProc(const MenuSelect& select);
  void WinHook2_CBTProc(WindowHandle activated);
  void WinHook3_KeyDownHook(const PressedKey& key);
  void SetHookMessages(bool on) { WinHook1_->SetEnabled(on); }
  void SetHookCBT(bool on) { WinHook2_->SetEnabled(on); }
  void SetHookKeyboard(bool on) { WinHook3_->SetEnabled(on); }
  void cmdOK_Click();
  void GiveUp(const std::string& description);
  void GiveBackSpeechItem();
  AgentRequest Speak(const std::string& Text, bool urgent);
  void StopSpeak();

  Desktop& desktop_;
  const Manner& manner_;
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
  std::shared_ptr<AgentCharacter> character_;
  std::array<AgentRequest, kRequestCount> requests_{};
  AgentRequest through_;  // what somebody waits for the end of
  ISpeechNotify::Spoken spoken_;
  std::weak_ptr<ISpeechWindow> owner_;
  std::string strInterceptedMessage_;
  int speed_ = 0;
  int pitch_ = 0;
  std::int16_t intProtect_ = 0;
  Connections connections_;
};

}  // namespace corvane
