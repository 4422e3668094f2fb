#pragma once

#include <memory>
#include <string>

#include "base/event.h"
#include "platform/automation.h"

namespace corvane {

class MainApp;
class Multithread;

/// What other programs reach: the automation class `Application` and the shared
/// speech service. Keeps neither the service nor a window alive.
class AutomationEntry : public AutomationServer {
 public:
  AutomationEntry(Multithread& process, const std::shared_ptr<MainApp>& service,
                  Automation& automation);

  std::unique_ptr<AutomationObject> CreateObject(const std::string& class_name) override;
  void OpenWindow(const std::string& address) override;
  void SpeechInit() override;
  void SpeechTerminate() override;
  void KeyBoardEcho(bool enable) override;
  void Say(const std::string& text, bool urgent) override;

 private:
  std::shared_ptr<MainApp> Service() const;

  Multithread& process_;
  std::weak_ptr<MainApp> service_;
  Connections connections_;
};

}  // namespace corvane
