#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/Application.h"
#include "app/Multithread.h"
#include "app/frmCorvane.h"
#include "base/text.h"
#include "speech/MSAgent.h"
#include "speech/MainApp.h"
#include "tests/fakes/fake_desktop.h"

namespace corvane::tests {

using namespace corvane::fakes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The whole program on a desktop without a screen.
struct Program {
  FakeDesktop desktop;
  Multithread process{desktop};

  /// Windows that are open keep themselves and what they use alive.
  ~Program() {
    for (const auto& window : std::vector(process.Forms())) window->Unload();
  }

  /// Starts stand-alone; the first window is then `Window(0)`.
  void Start() { process.Main(); }
  /// Starts with speech on and the character ready to speak.
  void StartTalking() {
    desktop.settings.Main("Speech") = "True";
    Start();
    MakeReady();
  }
  /// Carries out the character's loading, showing and welcome.
  void MakeReady() {
    for (FakeTimer* timer : std::vector(desktop.timers)) {
      if (timer->interval == 1 && timer->enabled) timer->Fire();
    }
    desktop.speech.agent->BecomeReady();
  }
  std::shared_ptr<frmCorvane> Window(std::size_t index) { return process.Forms().at(index); }
  frmCorvane::Parts& Inside(std::size_t index = 0) { return *Window(index)->Inside(); }
  std::shared_ptr<MainApp> Service() { return Window(0)->MainApp(); }
  FakeTimer& Reading(std::size_t index = 0) {
    return static_cast<FakeTimer&>(*Inside(index).ctlWebBrowser1.Inside().controls.timTimer);
  }
  FakeWebBrowser& Browser() { return desktop.Get<FakeWebBrowser>("brwWebBrowser"); }
  FakeRichTextBox& TextPane() { return desktop.Get<FakeRichTextBox>("Text1"); }
  FakeComboBox& Address() { return desktop.Get<FakeComboBox>("cboAddress"); }
  FakeComboBox& Links() { return desktop.Get<FakeComboBox>("cmbListLinks"); }
  FakeStatusBar& Status() { return desktop.Get<FakeStatusBar>("sbStatusBar"); }
  FakeTreeView& Tree() { return desktop.Get<FakeTreeView>("TreeView1"); }

  /// Loads a page to its end and lets the tick read it.
  void Read(const HTMLDocumentPtr& page) {
    Browser().Begin();
    Browser().Finish(page);
    Reading().Fire();
  }
  /// What was spoken since the last call, without tags.
  std::vector<std::string> Spoken() {
    std::vector<std::string> texts;
    for (const auto& call : desktop.speech.Spoken()) {
      const auto tags = call.find("\\Spd=");
      texts.push_back(call.substr(call.find('\\', tags + 1) + 1));
    }
    desktop.speech.calls.clear();
    return texts;
  }
};

}  // namespace corvane::tests
