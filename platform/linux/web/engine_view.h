#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/html_document.h"
#include "platform/linux/web/gobject.h"
#include "platform/linux/web/navigation.h"
#include "platform/linux/web/page_dialogs.h"
#include "platform/linux/web/page_policy.h"
#include "platform/linux/web/page_reader.h"
#include "platform/linux/web/problem.h"
#include "platform/linux/web/watchdog.h"
#include "platform/linux/web/web_engine.h"

namespace corvane::desktop {

/// One view of the engine and all that happens to the page in it: what a
/// WebBrowser does, without being a control.
class EngineView {
 public:
  struct Listener {
    std::function<void()> begin;
    std::function<void()> complete;
    std::function<void(const std::string&)> status;
  };

  EngineView(WebEngine& engine, Listener listener);
  ~EngineView();
  EngineView(const EngineView&) = delete;
  EngineView& operator=(const EngineView&) = delete;

  WebKitWebView* View() const { return view_.get(); }

  void Navigate(const std::string& typed);
  void GoBack();
  void GoForward();
  void GoHome();
  void Stop();
  void Refresh();
  void Save();
  void Print();

  std::string LocationURL() const { return address_; }
  std::string LocationName() const;
  bool Busy() const { return navigation_.Busy(); }
  HTMLDocumentPtr Document() const { return document_; }

 private:
  // What the view reports.
  void ConnectView();
  void OnLoadChanged(WebKitLoadEvent event);
  void ShowRefusedPort(const std::string& address);
  void OnLoadFailed(WebKitLoadEvent event, const std::string& address, const GError& error);
  void OnAddressChanged();
  void OnIdle();
  bool OnPolicy(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type);
  void OnProcessGone(WebKitWebProcessTerminationReason reason);
  void OnPointer(WebKitHitTestResult* target);
  void OnInput();
  bool KeepFromHungPage(GdkEventKey& event);

  void Load(const std::string& address);
  void LoadSearch(const std::string& search);
  void ShowProblem(const Problem& problem);
  void StartReading();
  void FinishReading(HTMLDocumentPtr document);
  void EndHungPage();
  void ShowStatus(const std::string& text);
  void ApplyPreferences();

  WebEngine& engine_;
  Listener listener_;
  ObjectPtr<WebKitWebView> view_;
  Navigation navigation_;
  std::unique_ptr<PageReader> reader_;
  std::unique_ptr<PageDialogs> dialogs_;
  Watchdog watchdog_;
  Connections connections_;
  std::shared_ptr<EngineView*> self_;  // answers that come after the view find it gone

  std::string address_;    // of the page shown
  std::string requested_;  // what the program asked for last
  std::string asked_for_;  // by the user, until a page comes
  std::string fallback_;   // tried when there is no connection to it
  HTMLDocumentPtr document_;
  bool document_is_present_ = false;  // it is of the page shown
  std::optional<Problem> problem_;    // the page shown is this problem's
  std::optional<Problem> coming_problem_;
  bool dialog_open_ = false;
  bool stopping_ = false;
  bool hung_ = false;
  int crashes_ = 0;  // since a page was last read
  std::string base_status_;
  Delay idle_;   // a look at whether anything still loads
  Delay input_;  // the watchdog's look after a key or a click
};

}  // namespace corvane::desktop
