#include "platform/linux/web/webkit_engine.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/linux/web/files/print_page.h"
#include "platform/linux/web/files/save_page.h"
#include "platform/linux/web/load_failure.h"
#include "platform/linux/web/page_policy.h"
#include "platform/linux/web/web_engine.h"
#include "platform/web_browser.h"

namespace corvane::desktop {
namespace {

WebKitEngine& EngineOf(gpointer self) { return *static_cast<WebKitEngine*>(self); }

// The engine lets Tab stop at a hidden field to which a page gives any other display: a
// place where nothing is and nothing can be said.
constexpr const char* kOwnStyle = "input[type=hidden i] { display: none !important }";

void AddStyle(WebKitUserContentManager* content) {
  WebKitUserStyleSheet* style =
      webkit_user_style_sheet_new(kOwnStyle, WEBKIT_USER_CONTENT_INJECT_ALL_FRAMES,
                                  WEBKIT_USER_STYLE_LEVEL_USER, nullptr, nullptr);
  webkit_user_content_manager_add_style_sheet(content, style);
  webkit_user_style_sheet_unref(style);
}

/// `opener`: the view whose page opens this one, or null.
WebKitWebView* MakeView(WebEngine& engine, WebKitWebView* opener) {
  const ObjectPtr<WebKitUserContentManager> content(webkit_user_content_manager_new());
  AddStyle(content.get());
  const auto make = [&](const char* property, gpointer value) {
    return WEBKIT_WEB_VIEW(g_object_ref_sink(
        g_object_new(WEBKIT_TYPE_WEB_VIEW, property, value, "settings", engine.Settings(),
                     "user-content-manager", content.get(), nullptr)));
  };
  if (opener != nullptr) return make("related-view", opener);
  return make("web-context", engine.Context());
}

/// The program's scripts, in the order in which they need each other, and where each of
/// these posts.
struct ScriptSet {
  const char* channel;
  std::vector<const char*> parts;
};

std::vector<ScriptSet> Scripts() {
  return {{"corvane",
           {"record.js", "names.js", "like_lists.js", "table_grid.js", "facts.js", "caret.js",
            "events.js", "attention.js", "suggestions.js"}},
          {"corvaneChanges", {"changes.js"}},
          {"corvaneLive", {"live.js"}},
          {"corvaneMedia", {"media.js"}},
          {"corvaneText", {"text_writer.js", "text_tables.js", "text.js", "text_use.js"}}};
}

Engine::End EndOf(WebKitWebProcessTerminationReason reason) {
  switch (reason) {
    case WEBKIT_WEB_PROCESS_EXCEEDED_MEMORY_LIMIT:
      return Engine::End::TooMuchMemory;
    case WEBKIT_WEB_PROCESS_TERMINATED_BY_API:
      return Engine::End::Ended;
    case WEBKIT_WEB_PROCESS_CRASHED:
      break;
  }
  return Engine::End::Crashed;
}

}  // namespace

WebKitEngine::WebKitEngine(WebEngine& engine, WebKitWebView* opener)
    : view_(MakeView(engine, opener)) {
  AddScripts();
  ConnectLoads();
  ConnectSearch();
  ConnectUser();
}

WebKitEngine::~WebKitEngine() {
  life_.End();
  g_signal_handlers_disconnect_by_data(view_.get(), this);
  g_signal_handlers_disconnect_by_data(webkit_web_view_get_find_controller(view_.get()), this);
  documents_.reset();
  scripts_.clear();
  gtk_widget_destroy(GTK_WIDGET(view_.get()));
}

void WebKitEngine::AddScripts() {
  for (const ScriptSet& set : Scripts()) {
    scripts_.emplace_back(webkit_web_view_get_user_content_manager(view_.get()), set.parts,
                          set.channel,
                          [this, channel = std::string(set.channel)](const std::string& kind,
                                                                     const std::string& text) {
                            Message.Raise(channel, kind, text);
                          });
  }
}

void WebKitEngine::ConnectLoads() {
  const auto connect = [this](const char* signal, GCallback handler) {
    g_signal_connect(view_.get(), signal, handler, this);
  };
  connect("load-changed", G_CALLBACK(+[](WebKitWebView*, WebKitLoadEvent event, gpointer self) {
            EngineOf(self).LoadChanged(event);
          }));
  connect("load-failed", G_CALLBACK(+[](WebKitWebView*, WebKitLoadEvent event, const char* address,
                                        GError* error, gpointer self) -> gboolean {
            EngineOf(self).LoadFailed(event, Text(address), *error);
            return TRUE;
          }));
  connect("load-failed-with-tls-errors",
          G_CALLBACK(+[](WebKitWebView*, const char* address, GTlsCertificate*,
                         GTlsCertificateFlags faults, gpointer self) -> gboolean {
            EngineOf(self).Failed.Raise({Text(address), {}, FaultOf(faults)});
            return TRUE;
          }));
  connect("notify::uri", G_CALLBACK(+[](GObject*, GParamSpec*, gpointer self) {
            EngineOf(self).AddressChanged.Raise();
          }));
  connect("notify::is-loading", G_CALLBACK(+[](GObject*, GParamSpec*, gpointer self) {
            EngineOf(self).LoadingChanged.Raise();
          }));
  connect(
      "decide-policy",
      G_CALLBACK(+[](WebKitWebView*, WebKitPolicyDecision* decision, WebKitPolicyDecisionType type,
                     gpointer self) -> gboolean { return EngineOf(self).Decide(decision, type); }));
  connect("create", G_CALLBACK(+[](WebKitWebView*, WebKitNavigationAction* action, gpointer self)
                                   -> WebKitWebView* { return EngineOf(self).Create(action); }));
  connect("close",
          G_CALLBACK(+[](WebKitWebView*, gpointer self) { EngineOf(self).CloseWanted.Raise(); }));
  connect("web-process-terminated",
          G_CALLBACK(+[](WebKitWebView*, WebKitWebProcessTerminationReason reason, gpointer self) {
            EngineOf(self).Gone.Raise(EndOf(reason));
          }));
}

void WebKitEngine::ConnectSearch() {
  WebKitFindController* finder = webkit_web_view_get_find_controller(view_.get());
  g_signal_connect(finder, "found-text",
                   G_CALLBACK(+[](WebKitFindController*, guint count, gpointer self) {
                     EngineOf(self).SearchDone.Raise(std::max(count, 1U));
                   }),
                   this);
  g_signal_connect(
      finder, "failed-to-find-text",
      G_CALLBACK(+[](WebKitFindController*, gpointer self) { EngineOf(self).SearchDone.Raise(0); }),
      this);
}

void WebKitEngine::ConnectUser() {
  g_signal_connect(
      view_.get(), "mouse-target-changed",
      G_CALLBACK(+[](WebKitWebView*, WebKitHitTestResult* target, guint, gpointer self) {
        const bool on_link = webkit_hit_test_result_context_is_link(target) != FALSE;
        EngineOf(self).LinkPointed.Raise(on_link ? Text(webkit_hit_test_result_get_link_uri(target))
                                                 : "");
      }),
      this);
  g_signal_connect(view_.get(), "notify::is-playing-audio",
                   G_CALLBACK(+[](WebKitWebView* view, GParamSpec*, gpointer self) {
                     if (webkit_web_view_is_playing_audio(view)) EngineOf(self).SoundBegins.Raise();
                   }),
                   this);
  g_signal_connect(view_.get(), "focus-in-event",
                   G_CALLBACK(+[](GtkWidget*, GdkEventFocus*, gpointer self) -> gboolean {
                     EngineOf(self).Used.Raise(Input::FocusCame);
                     return FALSE;
                   }),
                   this);
  g_signal_connect(view_.get(), "button-press-event",
                   G_CALLBACK(+[](GtkWidget*, GdkEventButton*, gpointer self) -> gboolean {
                     EngineOf(self).Used.Raise(Input::Button);
                     return FALSE;
                   }),
                   this);
}

// --- loading -------------------------------------------------------------------

void WebKitEngine::Load(const std::string& address) {
  webkit_web_view_load_uri(view_.get(), address.c_str());
}

void WebKitEngine::LoadInstead(const std::string& html, const std::string& address) {
  const bool is_address = g_uri_is_valid(address.c_str(), G_URI_FLAGS_PARSE_RELAXED, nullptr);
  webkit_web_view_load_alternate_html(view_.get(), html.c_str(),
                                      is_address ? address.c_str() : kProblemAddress, nullptr);
}

bool WebKitEngine::CanGo(Direction direction) const {
  return direction == Direction::Back ? webkit_web_view_can_go_back(view_.get()) != FALSE
                                      : webkit_web_view_can_go_forward(view_.get()) != FALSE;
}

void WebKitEngine::Go(Direction direction) {
  direction == Direction::Back ? webkit_web_view_go_back(view_.get())
                               : webkit_web_view_go_forward(view_.get());
}

void WebKitEngine::LoadChanged(WebKitLoadEvent event) {
  switch (event) {
    case WEBKIT_LOAD_STARTED:
      return Stepped.Raise(Step::Started);
    case WEBKIT_LOAD_REDIRECTED:
      return;
    case WEBKIT_LOAD_COMMITTED:
      return Stepped.Raise(Step::Committed);
    case WEBKIT_LOAD_FINISHED:
      return Stepped.Raise(Step::Finished);
  }
}

// What was given up, or became something else, has not failed.
void WebKitEngine::LoadFailed(WebKitLoadEvent event, const std::string& address,
                              const GError& error) {
  const auto is = [&error](GQuark domain, int code) {
    return g_error_matches(&error, domain, code);
  };
  if (is(WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_CANCELLED)) return;
  if (is(WEBKIT_POLICY_ERROR, WEBKIT_POLICY_ERROR_FRAME_LOAD_INTERRUPTED_BY_POLICY_CHANGE)) return;
  if (is(WEBKIT_PLUGIN_ERROR, WEBKIT_PLUGIN_ERROR_WILL_HANDLE_LOAD)) return;
  const bool halfway = event != WEBKIT_LOAD_STARTED && event != WEBKIT_LOAD_REDIRECTED;
  Failed.Raise({address, FailureOf(error), std::nullopt, halfway});
}

namespace {

void UseWithSound(WebKitPolicyDecision* decision, bool at_once) {
  const ObjectPtr<WebKitWebsitePolicies> policies(webkit_website_policies_new_with_policies(
      "autoplay", at_once ? WEBKIT_AUTOPLAY_ALLOW : WEBKIT_AUTOPLAY_ALLOW_WITHOUT_SOUND, nullptr));
  webkit_policy_decision_use_with_policies(decision, policies.get());
}

}  // namespace

bool WebKitEngine::Decide(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type) {
  LoadDecision made;
  LoadAnswer answer;
  if (type == WEBKIT_POLICY_DECISION_TYPE_RESPONSE) {
    answer = AnswerOf(WEBKIT_RESPONSE_POLICY_DECISION(decision));
    AnswerCame.Raise(answer, made);
  } else {
    LoadWish wish = WishOf(webkit_navigation_policy_decision_get_navigation_action(
        WEBKIT_NAVIGATION_POLICY_DECISION(decision)));
    if (type == WEBKIT_POLICY_DECISION_TYPE_NEW_WINDOW_ACTION) {
      wish.where = LoadWish::Where::NewWindow;
    }
    LoadWanted.Raise(wish, made);
  }
  switch (made.kind) {
    case LoadDecision::Kind::Use:
      if (type != WEBKIT_POLICY_DECISION_TYPE_NAVIGATION_ACTION) return false;
      UseWithSound(decision, !made.holds_back_sound);
      break;
    case LoadDecision::Kind::Download:
      webkit_policy_decision_download(decision);
      break;
    case LoadDecision::Kind::Document:
      if (documents_) {
        documents_->Take(decision, answer.address);
        break;
      }
      [[fallthrough]];
    case LoadDecision::Kind::Ignore:
      webkit_policy_decision_ignore(decision);
      break;
  }
  if (made.then) made.then();
  return true;
}

WebKitWebView* WebKitEngine::Create(WebKitNavigationAction* action) {
  LoadWish wish = WishOf(action);
  wish.where = LoadWish::Where::NewWindow;
  bool granted = false;
  WindowWanted.Raise(wish, granted);
  return granted && make_window ? make_window(wish.address) : nullptr;
}

// --- the page ------------------------------------------------------------------

Engine::Answer WebKitEngine::WhileHere(Answer answer) {
  return [here = life_.Look(), answer = std::move(answer)](std::optional<std::string> text) {
    if (here) answer(std::move(text));
  };
}

void WebKitEngine::Evaluate(const std::string& expression, Answer answer) {
  desktop::Evaluate(view_.get(), expression, WhileHere(std::move(answer)));
}

void WebKitEngine::Act(const std::string& expression, Answer answer) {
  ActForUser(view_.get(), expression, WhileHere(std::move(answer)));
}

void WebKitEngine::Await(const std::string& expression, Answer answer) {
  desktop::Await(view_.get(), expression, WhileHere(std::move(answer)));
}

void WebKitEngine::Search(const std::string& words) {
  constexpr guint32 kOptions =
      WEBKIT_FIND_OPTIONS_CASE_INSENSITIVE | WEBKIT_FIND_OPTIONS_WRAP_AROUND;
  webkit_find_controller_search(webkit_web_view_get_find_controller(view_.get()), words.c_str(),
                                kOptions, G_MAXUINT);
}

void WebKitEngine::SearchOn(Direction direction) {
  WebKitFindController* finder = webkit_web_view_get_find_controller(view_.get());
  direction == Direction::Forward ? webkit_find_controller_search_next(finder)
                                  : webkit_find_controller_search_previous(finder);
}

FileRequest WebKitEngine::SaveRequest(const std::string& title) {
  return desktop::SaveRequest(title);
}

void WebKitEngine::Save(const std::string& path, std::function<void(const std::string&)> done) {
  SavePage(view_.get(), path, [here = life_.Look(), done = std::move(done)](const auto& outcome) {
    if (here) done(outcome);
  });
}

void WebKitEngine::Print(std::function<void(const std::string&)> done) {
  PrintPage(view_.get(), [here = life_.Look(), done = std::move(done)](const auto& outcome) {
    if (here) done(outcome);
  });
}

void WebKitEngine::Download(const std::string& address) {
  ObjectPtr<WebKitDownload>(webkit_web_view_download_uri(view_.get(), address.c_str()));
}

void WebKitEngine::StopDocument() {
  if (documents_) documents_->Stop();
}

bool WebKitEngine::IsInFront() const {
  GtkWidget* window = gtk_widget_get_toplevel(GTK_WIDGET(view_.get()));
  return GTK_IS_WINDOW(window) && gtk_window_is_active(GTK_WINDOW(window));
}

}  // namespace corvane::desktop
