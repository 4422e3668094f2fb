#include "app/Application.h"

#include "app/frmCorvane.h"
#include "base/handling.h"
#include "speech/MainApp.h"

namespace corvane {

void Application::StartBrowser(const std::shared_ptr<MainApp>& service,
                               const std::string& address) {
  window_ = process_.CreateWindow();
  window_->StartWith(address);
  window_->SetMainApp(service);
  window_->Show();
}

void Application::KillBrowser() {
  ErrorsIgnored([&] { Required(window_).Unload(); }, [&] { window_.reset(); });
}

void Application::Say(const std::string& Text, const bool& blnInterrupt) {
  Required(Required(window_).MainApp()).Say(Text, blnInterrupt);
}

}  // namespace corvane
