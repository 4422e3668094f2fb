#pragma once

#include <map>
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
  void SpeechInit(const std::string& caller) override;
  void SpeechTerminate(const std::string& caller) override;
  void CallerLeft(const std::string& caller) override;
  void KeyBoardEcho(bool enable) override;
  void Say(const std::string& text, bool urgent) override;

 private:
  std::shared_ptr<MainApp> Service() const;

  Multithread& process_;
  std::weak_ptr<MainApp> service_;
  std::map<std::string, int> claims_;  // on speech, by caller
  Connections connections_;
};

}  // namespace corvane
