#include "speech/MainApp.h"

#include <exception>
#include <utility>

#include "base/handling.h"
#include "base/number.h"
#include "platform/errors_shown.h"
#include "speech/MSAgent.h"

namespace corvane {

std::shared_ptr<MainApp> MainApp::Create(Desktop& desktop, ProcessSpeech& speech,
                                         const WindowMaker& make_window,
                                         std::function<void()> terminated) {
  auto service = std::make_shared<MainApp>(Private{}, desktop, speech, std::move(terminated));
  service->Class_Initialize(make_window);
  return service;
}

MainApp::MainApp(Private, Desktop& desktop, ProcessSpeech& speech, std::function<void()> terminated)
    : desktop_(desktop), speech_(speech), terminated_(std::move(terminated)) {}

MainApp::~MainApp() { terminated_(); }

void MainApp::Class_Initialize(const WindowMaker& make_window) {
  own_window_ = make_window();
  own_window_->SetMainApp(shared_from_this());
  try {
    own_window_->Show();
  } catch (const std::exception&) {
    // Without a window the service, which the window holds, must not live on.
    if (const auto window = std::exchange(own_window_, nullptr)) window->SetMainApp(nullptr);
    throw;
  }
}

// A window whose speech is off has given its claim up already.
void MainApp::ReleaseForm(ISpeechWindow& window) {
  ErrorsIgnored([&] {
    if (window.EnableSpeechItem().Checked()) SpeechTerminate();
  });
  if (own_window_.get() == &window) own_window_.reset();
}

template <class Body>
void MainApp::CarryOut(Failures failures, const char* prefix, Body&& body) {
  if (failures == Failures::Raised) return body();
  ErrorsShown(desktop_.GetMessageBox(), prefix, body);
}

void MainApp::SpeechInit(Failures failures) {
  CarryOut(failures, "SpeechInit Error: ", [&] {
    intInitCount_ = number::checked_add(intInitCount_, 1);
    if (blnSpeechEnabled_) return;
    blnSpeechEnabled_ = true;
    agent_form_ = std::make_unique<MSAgent>(desktop_, speech_);
    agent_form_->Load_Init(own_window_);
  });
}

void MainApp::SpeechTerminate(Failures failures) {
  CarryOut(failures, "SpeechTerminate Error: ", [&] {
    intInitCount_ = number::checked_add(intInitCount_, -1);
    if (intInitCount_ != 0 || !blnSpeechEnabled_) return;
    blnSpeechEnabled_ = false;
    agent_form_.reset();
  });
}

void MainApp::KeyBoardEcho(const bool& blnEnable, Failures failures) {
  CarryOut(failures, "KeyBoardEcho Error: ", [&] {
    Required(agent_form_).blnKeyboardEcho = blnEnable;
    KeyboardEchoStatus.Raise(blnEnable);
  });
}

void MainApp::Say(const std::string& Text, const bool& blnUrgent) {
  if (agent_form_ && blnSpeechEnabled_) agent_form_->Say(Text, blnUrgent);
}

}  // namespace corvane
