#include "app/AutomationEntry.h"

#include <utility>

#include "app/Application.h"
#include "app/Multithread.h"
#include "base/handling.h"
#include "speech/MainApp.h"

namespace corvane {
namespace {

constexpr const char* kClass = "Corvane.Application";

/// An `Application` that another program holds. Letting go of it leaves its
/// window open.
class HeldApplication : public AutomationObject {
 public:
  HeldApplication(Multithread& process, std::weak_ptr<MainApp> service)
      : application_(process), service_(std::move(service)) {}

  void StartBrowser() override {
    const auto service = service_.lock();
    if (!service) RaiseObjectNotSet();
    application_.StartBrowser(service);
  }
  void KillBrowser() override { application_.KillBrowser(); }
  void Say(const std::string& text, bool interrupt) override { application_.Say(text, interrupt); }

 private:
  Application application_;
  std::weak_ptr<MainApp> service_;
};

}  // namespace

AutomationEntry::AutomationEntry(Multithread& process, const std::shared_ptr<MainApp>& service,
                                 Automation& automation)
    : process_(process), service_(service) {
  connections_ += service->KeyboardEchoStatus.Connect(
      [&automation](bool on) { automation.TellKeyboardEcho(on); });
}

std::shared_ptr<MainApp> AutomationEntry::Service() const {
  auto service = service_.lock();
  if (!service) RaiseObjectNotSet();
  return service;
}

// An object of another program lives in an apartment of its own, which begins
// with the process entry like every other.
std::unique_ptr<AutomationObject> AutomationEntry::CreateObject(const std::string& class_name) {
  if (class_name != kClass) {
    throw RunTimeError(kErrCannotCreateObject, "AutomationEntry",
                       "The class \"" + class_name + "\" is not known");
  }
  const auto service = Service();
  process_.Main();
  return std::make_unique<HeldApplication>(process_, service);
}

void AutomationEntry::OpenWindow(const std::string& address) {
  Application(process_).StartBrowser(Service(), address);
}

void AutomationEntry::SpeechInit(const std::string& caller) {
  Service()->SpeechInit(MainApp::Failures::Raised);
  ++claims_[caller];
}

// Who gives back more than it has taken lowers the count all the same, but is not
// owed anything for it.
void AutomationEntry::SpeechTerminate(const std::string& caller) {
  Service()->SpeechTerminate(MainApp::Failures::Raised);
  const auto claims = claims_.find(caller);
  if (claims != claims_.end() && --claims->second == 0) claims_.erase(claims);
}

void AutomationEntry::CallerLeft(const std::string& caller) {
  const auto claims = claims_.extract(caller);
  if (claims.empty()) return;
  for (int left = claims.mapped(); left > 0; --left) {
    ErrorsIgnored([&] { Service()->SpeechTerminate(MainApp::Failures::Raised); });
  }
}

void AutomationEntry::KeyBoardEcho(bool enable) {
  Service()->KeyBoardEcho(enable, MainApp::Failures::Raised);
}

void AutomationEntry::Say(const std::string& text, bool urgent) { Service()->Say(text, urgent); }

}  // namespace corvane
