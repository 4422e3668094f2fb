// What the engine's view reports, translated for EngineView.
#include <utility>

#include "platform/linux/web/engine_view.h"
#include "platform/linux/web/load_failure.h"
#include "web/address/OwnAddress.h"

namespace corvane::desktop {
namespace {

constexpr double kMomentInPlace = 0.5;  // seconds

EngineView& ViewOf(gpointer self) { return *static_cast<EngineView*>(self); }

}  // namespace

void EngineView::ConnectView() {
  const auto connect = [this](gpointer object, const char* signal, GCallback handler) {
    g_signal_connect(object, signal, handler, this);
  };
  gpointer view = view_.get();
  connect(view, "load-changed",
          G_CALLBACK(+[](WebKitWebView*, WebKitLoadEvent event, gpointer self) {
            ViewOf(self).OnLoadChanged(event);
          }));
  connect(view, "load-failed",
          G_CALLBACK(+[](WebKitWebView*, WebKitLoadEvent event, const char* address, GError* error,
                         gpointer self) -> gboolean {
            ViewOf(self).OnLoadFailed(event, Text(address), *error);
            return TRUE;
          }));
  connect(view, "load-failed-with-tls-errors",
          G_CALLBACK(+[](WebKitWebView*, const char* address, GTlsCertificate*,
                         GTlsCertificateFlags faults, gpointer self) -> gboolean {
            ViewOf(self).ShowProblem(CertificateProblem(Text(address), FaultOf(faults)));
            return TRUE;
          }));
  connect(view, "notify::uri", G_CALLBACK(+[](GObject*, GParamSpec*, gpointer self) {
            ViewOf(self).OnAddressChanged();
          }));
  connect(view, "notify::is-loading",
          G_CALLBACK(+[](GObject*, GParamSpec*, gpointer self) { ViewOf(self).OnIdle(); }));
  connect(
      view, "decide-policy",
      G_CALLBACK(+[](WebKitWebView*, WebKitPolicyDecision* decision, WebKitPolicyDecisionType type,
                     gpointer self) -> gboolean { return ViewOf(self).OnPolicy(decision, type); }));
  connect(
      view, "create",
      G_CALLBACK(+[](WebKitWebView*, WebKitNavigationAction* action,
                     gpointer self) -> WebKitWebView* { return ViewOf(self).OnCreate(action); }));
  connect(view, "close", G_CALLBACK(+[](WebKitWebView*, gpointer self) {
            EngineView& page = ViewOf(self);
            page.closing_.Agreed(page.opened_by_page_);
          }));
  connect(view, "web-process-terminated",
          G_CALLBACK(+[](WebKitWebView*, WebKitWebProcessTerminationReason reason, gpointer self) {
            ViewOf(self).OnProcessGone(reason);
          }));
  connect(view, "mouse-target-changed",
          G_CALLBACK(+[](WebKitWebView*, WebKitHitTestResult* target, guint, gpointer self) {
            ViewOf(self).OnPointer(target);
          }));
  connect(view, "show-option-menu",
          G_CALLBACK(+[](WebKitWebView*, WebKitOptionMenu* menu, GdkEvent*, GdkRectangle* area,
                         gpointer self) -> gboolean {
            ViewOf(self).list_->Open(menu, *area);
            return TRUE;
          }));
  connect(view, "focus-in-event",
          G_CALLBACK(+[](GtkWidget*, GdkEventFocus*, gpointer self) -> gboolean {
            ViewOf(self).reader_->AskFocus(PageReader::Moved::Here);
            return FALSE;
          }));
  connect(view, "button-press-event",
          G_CALLBACK(+[](GtkWidget*, GdkEventButton*, gpointer self) -> gboolean {
            ViewOf(self).OnInput();
            return FALSE;
          }));
}

// Who goes on working after having stayed is asked again; who only reaches for the
// keys that close the window is not.
void EngineView::OnKey(const GdkEventKey& event) {
  const bool types =
      event.is_modifier == 0 && (event.state & (GDK_CONTROL_MASK | GDK_MOD1_MASK)) == 0;
  if (types) closing_.Worked();
  OnInput();
  reader_->AskFocus(PageReader::Moved::ByKey);
}

void EngineView::OnInput() {
  requests_->UserActed();
  closing_.Touched();
  if (!dialog_open_) watchdog_.WatchSoon();
}

void EngineView::OnLoadChanged(WebKitLoadEvent event) {
  switch (event) {
    case WEBKIT_LOAD_STARTED:
      if (!IsDocumentPage(Text(webkit_web_view_get_uri(view_.get())))) StopDocument();
      watchdog_.Reset();
      watchdog_.Watch();
      reader_->Cancel();
      moved_ = again_ = false;
      base_status_ = "Loading " + ShownAddress(Text(webkit_web_view_get_uri(view_.get())));
      // Whoever is told may let events run, so that the page is there already when
      // this returns.
      navigation_.Started();
      if (navigation_.Loading()) ShowStatus(base_status_);
      break;
    case WEBKIT_LOAD_REDIRECTED:
      break;
    case WEBKIT_LOAD_COMMITTED:
      leaving_.Arrived();
      navigation_.Committed();
      // Another page, often in another process: what was asked of the old one
      // may never be answered.
      watchdog_.Reset();
      watchdog_.Watch();
      reader_->Forget();
      requests_->PageChanged();
      find_->PageChanged();
      live_->PageChanged();
      media_->PageChanged();
      closing_.PageChanged();
      document_is_present_ = false;
      problem_ = std::exchange(coming_problem_, std::nullopt);
      address_ = ShownAddress(Text(webkit_web_view_get_uri(view_.get())));
      if (const std::string asked = std::exchange(asked_for_, "");
          !problem_ && address_ == "about:blank" && asked.starts_with("http")) {
        ShowRefusedPort(asked);
      }
      ProblemIsThere();
      break;
    case WEBKIT_LOAD_FINISHED:
      // Where more is loading, this was a load that has been overtaken.
      if (webkit_web_view_is_loading(view_.get())) break;
      if (navigation_.Finished()) Settle();
      break;
  }
}

// The engine says nothing when it refuses a port that other services use: it shows
// an empty page instead of the one that was asked for.
void EngineView::ShowRefusedPort(const std::string& address) {
  const ErrorPtr error(g_error_new_literal(
      WEBKIT_POLICY_ERROR, WEBKIT_POLICY_ERROR_CANNOT_USE_RESTRICTED_PORT, "restricted port"));
  ShowProblem(LoadProblem(address, FailureOf(*error)));
}

void EngineView::OnLoadFailed(WebKitLoadEvent event, const std::string& address,
                              const GError& error) {
  const auto is = [&error](GQuark domain, int code) {
    return g_error_matches(&error, domain, code);
  };
  if (is(WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_CANCELLED)) return;
  if (is(WEBKIT_POLICY_ERROR, WEBKIT_POLICY_ERROR_FRAME_LOAD_INTERRUPTED_BY_POLICY_CHANGE)) return;
  if (is(WEBKIT_PLUGIN_ERROR, WEBKIT_PLUGIN_ERROR_WILL_HANDLE_LOAD)) return;
  if (event != WEBKIT_LOAD_STARTED && event != WEBKIT_LOAD_REDIRECTED) {
    ShowStatus("The page is not complete: " + Text(error.message));
    return;  // what has come is read
  }
  const std::string fallback = std::exchange(fallback_, "");
  if (!fallback.empty() && (IsSearch(fallback) || IsConnectionFailure(FailureOf(error).kind))) {
    navigation_.Replaced();
    return Load(fallback);
  }
  ShowProblem(LoadProblem(ShownAddress(address), FailureOf(error)));
}

void EngineView::OnAddressChanged() {
  // Not the page shown yet, or a jump within it that has not been made yet.
  if (navigation_.Waiting()) return;
  if (!Busy() && webkit_web_view_is_loading(view_.get())) return;
  const std::string address = ShownAddress(Text(webkit_web_view_get_uri(view_.get())));
  if (!address.empty() && !address_.empty()) address_ = address;
}

void EngineView::OnIdle() {
  if (webkit_web_view_is_loading(view_.get()) || opening_document_.Running()) {
    return idle_.Cancel();
  }
  // Looks again once everything that is on its way has arrived: a load that
  // takes the place of another is idle for a moment between the two.
  idle_.Start(0, [this] {
    if (webkit_web_view_is_loading(view_.get())) return;
    if (ProblemIsThere()) return;
    if (ShownAddress(Text(webkit_web_view_get_uri(view_.get()))) != address_ &&
        navigation_.MovedInPlace()) {
      // The page's scripts have only just been told; what they show comes a moment later.
      return idle_.Start(kMomentInPlace, [this] {
        if (navigation_.Idle()) StartReading();
      });
    }
    if (navigation_.Idle()) return Settle();
    OnAddressChanged();
  });
}

bool EngineView::OnPolicy(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type) {
  const bool waits = navigation_.Waiting() || (opened_by_page_ && address_.empty());
  const std::string requested = waits ? requested_ : "";
  const std::string shown = Text(webkit_web_view_get_uri(view_.get()));
  const std::string document =
      IsDocumentPage(shown) && ShownAddress(shown) == address_ ? shown : "";
  const Verdict verdict = Judge(decision, type, {address_, requested, document});
  // A search by one of our own pages goes to the service, unless that failed just now.
  const bool searches = type == WEBKIT_POLICY_DECISION_TYPE_NAVIGATION_ACTION &&
                        verdict.kind == Verdict::Kind::Use && !verdict.from_history &&
                        !IsSearch(requested) && !engine_.SearchAddress(verdict.address).empty();
  const std::string saved = verdict.kind == Verdict::Kind::Use ? SavedFile(verdict.address) : "";
  if (verdict.kind == Verdict::Kind::Use && !searches && saved.empty()) {
    if (type != WEBKIT_POLICY_DECISION_TYPE_NAVIGATION_ACTION) return false;
    media_->Use(decision);
    return true;
  }
  if (verdict.kind == Verdict::Kind::Download) {
    webkit_policy_decision_download(decision);
    return true;
  }
  // Where nothing is waited for any more, the user has stopped it meanwhile.
  if (verdict.kind == Verdict::Kind::Document && navigation_.Waiting()) {
    // The answer's own address has lost the place that it was asked for with.
    const bool has_place = shown.starts_with(verdict.address + "#");
    documents_->Take(decision, verdict.address);
    // The engine has to be done with this answer first.
    opening_document_.Start(0, [this, page = DocumentPage(has_place ? shown : verdict.address)] {
      navigation_.Replaced();
      requests_->LetLeave(true);  // for the document the page has asked already
      Load(page);
    });
    return true;
  }
  webkit_policy_decision_ignore(decision);
  if (searches) {
    LoadSearch(verdict.address);
  } else if (!saved.empty()) {
    navigation_.Requested();
    Load(saved);
  } else if (verdict.kind == Verdict::Kind::Outside) {
    requests_->OpenOutside(verdict.address, verdict.user_gesture);
  }
  return true;
}

WebKitWebView* EngineView::OnCreate(WebKitNavigationAction* action) {
  const Verdict verdict = JudgeNewWindow(WishOf(action), {address_, ""});
  if (verdict.kind == Verdict::Kind::Outside) {
    requests_->OpenOutside(verdict.address, verdict.user_gesture);
    return nullptr;
  }
  if (verdict.kind != Verdict::Kind::Use) return nullptr;
  if (!requests_->MayOpenWindow(verdict.user_gesture)) return nullptr;
  auto opened = std::make_unique<EngineView>(engine_, Listener(), this);
  opened->requested_ = verdict.address;
  WebKitWebView* view = opened->View();
  engine_.Offer(std::move(opened));
  // The engine still waits for the answer. Nobody who wants the view: it goes.
  opening_.Start(0, [this] {
    WebEngine& engine = engine_;
    listener_.new_window();
    engine.TakeOffered().reset();
  });
  return view;
}

void EngineView::OnPointer(WebKitHitTestResult* target) {
  if (webkit_hit_test_result_context_is_link(target)) {
    ShowStatus(ShownAddress(Text(webkit_hit_test_result_get_link_uri(target))));
  } else if (!base_status_.empty()) {
    ShowStatus(base_status_);
  }
}

}  // namespace corvane::desktop
