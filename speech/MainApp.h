#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/desktop.h"
#include "speech/ISpeechWindow.h"

namespace corvane {

class MSAgent;
struct ProcessSpeech;

/// The process-wide speech service. Owns the agent speech form while any window
/// wants speech, switches the keyboard echo and opens the first window. It and
/// its own window keep each other alive; the window breaks the cycle when it
/// unloads.
class MainApp : public std::enable_shared_from_this<MainApp> {
  struct Private {};

 public:
  /// Makes a browser window, hidden and without a service.
  using WindowMaker = std::function<std::shared_ptr<ISpeechWindow>()>;

  /// Makes the service, which opens its own window at once. `terminated` is
  /// called when the last reference to the service goes.
  static std::shared_ptr<MainApp> Create(Desktop& desktop, ProcessSpeech& speech,
                                         const WindowMaker& make_window,
                                         std::function<void()> terminated);
  MainApp(Private, Desktop& desktop, ProcessSpeech& speech, std::function<void()> terminated);
  ~MainApp();
  MainApp(const MainApp&) = delete;
  MainApp& operator=(const MainApp&) = delete;

  /// Called by every window while it unloads, with itself: gives up the window's
  /// claim on speech, if it holds one, and forgets the window if it was the
  /// service's own.
  void ReleaseForm(ISpeechWindow& window);
  /// What becomes of a failure: a message box tells the user, or the caller gets
  /// the RunTimeError.
  enum class Failures { Shown, Raised };
  /// Counts one more claim on speech; the first creates the agent speech form.
  void SpeechInit(Failures failures = Failures::Shown);
  /// Counts one claim less; the form goes when the count passes through 0.
  void SpeechTerminate(Failures failures = Failures::Shown);
  /// Switches the keyboard echo and tells every window.
  void KeyBoardEcho(const bool& blnEnable, Failures failures = Failures::Shown);
  /// Speaks while speech is enabled, otherwise drops the text.
  void Say(const std::string& Text, const bool& blnUrgent);
  /// The agent speech form, null while speech is off.
  MSAgent* gMSAgent() const { return agent_form_.get(); }

  Event<bool> KeyboardEchoStatus;

 private:
  void Class_Initialize(const WindowMaker& make_window);
  template <class Body>
  void CarryOut(Failures failures, const char* prefix, Body&& body);

  bool blnSpeechEnabled_ = false;
  std::int16_t intInitCount_ = 0;
  std::unique_ptr<MSAgent> agent_form_;
  std::shared_ptr<ISpeechWindow> own_window_;
  Desktop& desktop_;
  ProcessSpeech& speech_;
  std::function<void()> terminated_;
};

}  // namespace corvane
