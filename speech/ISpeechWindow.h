#pragma once

#include <memory>

#include "platform/form.h"

namespace corvane {

class MainApp;

/// A browser window as the speech service sees it.
class ISpeechWindow {
 public:
  virtual ~ISpeechWindow() = default;
  /// Gives the window the service that it shares with the others. Before Show.
  void SetMainApp(std::shared_ptr<MainApp> service) {
    ISpeechWindow_SetMainApp(std::move(service));
  }
  void Show() { ISpeechWindow_Show(); }
  /// The menu item by which the user switches speech on and off. While it is
  /// checked the window holds a claim on speech.
  MenuItem& EnableSpeechItem() { return ISpeechWindow_EnableSpeechItem(); }
  /// The window on the screen.
  Form& Window() { return ISpeechWindow_Window(); }
  /// Whether what the key does there is heard at once, so that its own name would only
  /// cut that off, or say it twice.
  bool AnswersKey(int key_code) { return ISpeechWindow_AnswersKey(key_code); }
  /// The character can speak from now on. `tell_where`: the user has heard nothing yet
  /// of where he is.
  void SpeechReady(bool tell_where) { ISpeechWindow_SpeechReady(tell_where); }

 private:
  virtual void ISpeechWindow_SetMainApp(std::shared_ptr<MainApp> service) = 0;
  virtual void ISpeechWindow_Show() = 0;
  virtual MenuItem& ISpeechWindow_EnableSpeechItem() = 0;
  virtual Form& ISpeechWindow_Window() = 0;
  virtual bool ISpeechWindow_AnswersKey(int key_code) = 0;
  virtual void ISpeechWindow_SpeechReady(bool tell_where) = 0;
};

}  // namespace corvane
