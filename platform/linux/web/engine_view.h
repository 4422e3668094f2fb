#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/file_request.h"
#include "platform/html_document.h"
#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/web/documents/documents.h"
#include "platform/linux/web/option_list.h"
#include "platform/linux/web/page/find_in_page.h"
#include "platform/linux/web/page/live_regions.h"
#include "platform/linux/web/page/page_changes.h"
#include "platform/linux/web/page/page_media.h"
#include "platform/linux/web/page/page_reader.h"
#include "platform/linux/web/page/text_reader.h"
#include "platform/linux/web/page_keys.h"
#include "platform/linux/web/page_policy.h"
#include "platform/linux/web/requests/request_signals.h"
#include "platform/linux/web/web_engine.h"
#include "platform/web_browser.h"
#include "web/LoadState.h"
#include "web/PageClosing.h"
#include "web/PageLeaving.h"
#include "web/Problem.h"
#include "web/Watchdog.h"
#include "web/requests/PageRequests.h"

namespace corvane::desktop {

/// One view of the engine and all that happens to the page in it: what a
/// WebBrowser does, without being a control.
class EngineView {
 public:
  struct Listener {
    std::function<void()> begin = [] {};
    std::function<void()> complete = [] {};
    std::function<void(const std::string&)> status = [](const auto&) {};
    /// A sentence of the program's own that the user is to hear.
    std::function<void(const std::string&)> say = [](const auto&) {};
    /// A page has opened a window: its view waits at the engine until this returns.
    std::function<void()> new_window = [] {};
    /// The page, which another one has opened, wants its window closed, or agrees to
    /// be closed.
    std::function<void()> close = [] {};
    /// Files are wanted from the user.
    std::function<void(const FileRequest&)> files = [](const auto&) {};
    /// The user has been led to another place in the page.
    std::function<void(const PagePlace&)> place = [](const auto&) {};
    /// Words of the page's own, which it says by itself.
    std::function<void(const PageWords&)> page_says = [](const auto&) {};
    /// The user wants to leave an element of the page for its place in the text.
    std::function<void(const PageElement&)> left = [](const auto&) {};
    /// As WebBrowser::Found.
    std::function<void()> found = [] {};
    /// As WebBrowser::ElementGone.
    std::function<void()> gone = [] {};
    /// As WebBrowser::FocusMoved.
    std::function<void(const PageElement&)> focus_moved = [](const auto&) {};
    /// As WebBrowser::TextChanged.
    std::function<void()> text_changed = [] {};
  };

  /// `opener`: the view whose page opens this one; null for a view of its own.
  EngineView(WebEngine& engine, Listener listener, EngineView* opener = nullptr);
  ~EngineView();
  EngineView(const EngineView&) = delete;
  EngineView& operator=(const EngineView&) = delete;

  WebKitWebView* View() const { return view_.get(); }
  bool OpenedByPage() const { return opened_by_page_; }
  /// Takes over a view that has been at work already: what it has reported so far
  /// is reported again.
  void TakeOver(Listener listener);

  void Navigate(const std::string& typed);
  /// As WebBrowser::GoToPlace.
  bool GoToPlace(const std::string& address);
  void GoBack();
  void GoForward();
  void GoHome();
  void Stop();
  void Refresh();
  void Save();
  void Print();
  /// As WebBrowser::MayClose.
  bool MayClose();
  void Do(WebBrowser::PageCommand command);

  std::string LocationURL() const { return address_; }
  std::string LocationName() const;
  bool Busy() const { return navigation_.Busy(); }
  bool StayedOnPage() const { return stayed_; }
  HTMLDocumentPtr Document() const { return document_; }
  Connection Describe(std::function<void(const HTMLDocumentPtr&)> described);
  void TellFocus() { reader_->TellFocus(); }
  HTMLElementPtr FocusedElement() const { return reader_->Focused(); }
  /// As WebBrowser's.
  Connection DescribeText(std::function<void(const PageTextPtr&)> described);
  void UseElement(const PageElement& element, WebBrowser::ElementUse use);
  void ShowWords(const PageElement& near, const std::string& words) {
    text_->ShowWords(near, words);
  }
  /// As WebBrowser::EnterDialog.
  bool EnterDialog(std::function<void()> gone) { return live_->EnterDialog(std::move(gone)); }
  /// Whether keys that are typed now go into a field whose text is hidden.
  bool InPassword() const;

 private:
  // What the view reports.
  void ConnectView();
  void OnLoadChanged(WebKitLoadEvent event);
  void ShowRefusedPort(const std::string& address);
  void OnLoadFailed(WebKitLoadEvent event, const std::string& address, const GError& error);
  void OnAddressChanged();
  void OnIdle();
  bool OnPolicy(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type);
  WebKitWebView* OnCreate(WebKitNavigationAction* action);
  void OnProcessGone(WebKitWebProcessTerminationReason reason);
  void OnPointer(WebKitHitTestResult* target);
  void OnInput();
  void OnKey(const GdkEventKey& event);
  PageKeys::Host KeysHost();

  void Load(const std::string& address);
  bool ProblemIsThere();
  void LoadSearch(const std::string& search);
  void ShowProblem(const Problem& problem);
  void ShowProblem(const Problem& problem, const std::string& under);
  void ConnectEngine();
  void StopDocument();
  std::string EngineAddress(const std::string& address) const;
  void ReadAgain();
  void StartReading();
  void Settle();
  void ShowSettled();
  std::function<void()> TakeKeys();
  void FinishReading(HTMLDocumentPtr document);
  void ShowStatus(const std::string& text);
  void MarkVisited(PageText& text) const;
  void ApplyPreferences();
  void StayOnPage();
  void SayZoom(int percent);
  PageRequests::Host RequestsHost();
  Documents::Host DocumentsHost();

  WebEngine& engine_;
  Listener listener_;
  ObjectPtr<WebKitWebView> view_;
  LoadState navigation_;
  std::unique_ptr<PageReader> reader_;
  std::unique_ptr<PageRequests> requests_;
  std::unique_ptr<RequestSignals> request_signals_;
  std::unique_ptr<FindInPage> find_;
  std::unique_ptr<PageChanges> changes_;
  std::unique_ptr<LiveRegions> live_;
  std::unique_ptr<PageMedia> media_;
  std::unique_ptr<TextReader> text_;
  std::unique_ptr<PageKeys> keys_;
  std::unique_ptr<OptionList> list_;
  std::unique_ptr<Documents> documents_;
  PageClosing closing_;
  Watchdog watchdog_;
  PageLeaving leaving_;
  Connections connections_;
  std::shared_ptr<EngineView*> self_;  // answers that come after the view find it gone

  std::string address_;    // of the page shown
  std::string requested_;  // what the program asked for last
  std::string asked_for_;  // by the user, until a page comes
  std::string fallback_;   // tried when there is no connection to it
  HTMLDocumentPtr document_;
  bool document_is_present_ = false;  // it is of the page shown
  bool stayed_ = false;               // since before the last navigation
  bool moved_ = false;                // what is read next has come without being loaded
  bool again_ = false;                // it is read because the user has asked for that
  std::optional<Problem> problem_;    // the page shown is this problem's
  std::optional<Problem> coming_problem_;
  const bool opened_by_page_;
  bool dialog_open_ = false;
  bool stopping_ = false;
  bool stays_ = false;  // whatever the engine names: the user stays, or has stopped the load
  int crashes_ = 0;     // since a page was last read
  std::string base_status_;
  Delay idle_;     // a look at whether anything still loads
  Delay opening_;  // of a window that the page wants
  Delay opening_document_;
};

}  // namespace corvane::desktop
