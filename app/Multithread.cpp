#include "app/Multithread.h"

#include <algorithm>
#include <utility>

#include "app/AutomationEntry.h"
#include "app/frmCorvane.h"
#include "base/error.h"
#include "platform/automation.h"
#include "platform/errors_shown.h"
#include "speech/MainApp.h"

namespace corvane {
namespace {

constexpr const char* kMarkerCaption = "ApartmentProcessWindow";
constexpr int kErrStartingThread = kObjectError + 1536;
constexpr int kErrStartedByAutomation = kObjectError + 1537;

}  // namespace

Multithread::Multithread(Desktop& desktop)
    : desktop_(desktop),
      manner_(desktop.GetSettings()),
      stored_(desktop.GetSettings(), manner_.Current()),
      speech_(desktop, Manner(), [this] {
        return std::vector<std::shared_ptr<ISpeechWindow>>(forms_.begin(), forms_.end());
      }) {
  connections_ += desktop.Ending.Connect([this] { Desktop_Ending(); });
}

Multithread::~Multithread() {
  if (automation_) desktop_.GetAutomation().Withdraw();
}

void Multithread::Main() {
  ErrorsShown(desktop_.GetMessageBox(), "Main Error: ", [&] { StartApartment(); });
}

void Multithread::StartApartment() {
  hThreadWindow_ = desktop_.GetWindows().FirstThreadWindow();
  if (hThreadWindow_ == 0) {
    throw RunTimeError(kErrStartingThread, "Multithread", "Internal error starting thread");
  }
  lngProcessId_ = desktop_.GetWindows().ProcessId(hThreadWindow_);
  const std::string marker = kMarkerCaption + std::to_string(lngProcessId_);
  if (desktop_.GetWindows().FindWindow(marker) != 0) return;
  if (desktop_.StartedByAutomation()) {
    const RunTimeError refused(kErrStartedByAutomation, "Multithread",
                               "Application can't be started with Automation");
    desktop_.GetAutomation().Refuse(refused);
    throw refused;
  }
  process_window_ = std::make_unique<frmProcess>(desktop_);
  process_window_->SetCaption(marker);
  for (const auto& key : manner_.Read()) stored_.Note(key);
  for (const auto& key : speech_.settings.Read()) stored_.Note(key);
  desktop_.OfferOptions(manner_.Options());
  desktop_.OfferOptions(speech_.options.Options());
  // The service and its window hold each other; nobody else needs to.
  const auto service = MainApp::Create(
      desktop_, speech_, [this] { return CreateFirstWindow(); }, [this] { UnloadProcessWindow(); });
  automation_ = std::make_unique<AutomationEntry>(*this, service, desktop_.GetAutomation());
  desktop_.GetAutomation().Publish(*automation_);
}

// A call of another program may be what ends the service, so its entry stays.
void Multithread::UnloadProcessWindow() {
  process_window_.reset();
  desktop_.GetAutomation().Withdraw();
}

std::shared_ptr<frmCorvane> Multithread::CreateWindow() {
  return std::make_shared<frmCorvane>(desktop_, *this);
}

std::shared_ptr<frmCorvane> Multithread::CreateFirstWindow() {
  auto window = CreateWindow();
  window->StartWith(std::exchange(first_address_, {}));
  return window;
}

// The user has left: there is nobody to be asked.
void Multithread::Desktop_Ending() {
  for (const auto& window : std::vector(forms_)) window->Unload();
}

void Multithread::Loaded(std::shared_ptr<frmCorvane> window) {
  forms_.push_back(std::move(window));
}

void Multithread::Unloaded(const frmCorvane& window) {
  forms_.erase(std::remove_if(forms_.begin(), forms_.end(),
                              [&](const auto& form) { return form.get() == &window; }),
               forms_.end());
}

}  // namespace corvane
