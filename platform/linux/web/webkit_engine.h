#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <list>
#include <memory>
#include <string>

#include "base/life.h"
#include "platform/engine.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/web/documents/documents.h"
#include "platform/linux/web/page/page_script.h"

namespace corvane::desktop {

class WebEngine;

/// A view of WebKit's. What its page wants from the user, its keys and its lists go other
/// ways (RequestSignals, PageKeys, OptionList).
class WebKitEngine : public Engine {
 public:
  /// `opener`: the view whose page opens this one, or null.
  WebKitEngine(WebEngine& engine, WebKitWebView* opener);
  ~WebKitEngine() override;

  WebKitWebView* View() const { return view_.get(); }
  /// Who makes pages of documents; without it there are none.
  void ServeDocuments(std::unique_ptr<Documents> documents) { documents_ = std::move(documents); }
  Documents* GetDocuments() { return documents_.get(); }
  /// Makes the view for a window that was granted, whose page comes by itself.
  std::function<WebKitWebView*(const std::string& address)> make_window;

  void Load(const std::string& address) override;
  void LoadInstead(const std::string& html, const std::string& address) override;
  void Reload() override { webkit_web_view_reload(view_.get()); }
  void StopLoading() override { webkit_web_view_stop_loading(view_.get()); }
  bool CanGo(Direction direction) const override;
  void Go(Direction direction) override;
  std::string Address() const override { return Text(webkit_web_view_get_uri(view_.get())); }
  std::string Title() const override { return Text(webkit_web_view_get_title(view_.get())); }
  bool IsLoading() const override { return webkit_web_view_is_loading(view_.get()) != FALSE; }

  void Evaluate(const std::string& expression, Answer answer) override;
  void Act(const std::string& expression, Answer answer) override;
  void Await(const std::string& expression, Answer answer) override;

  void Search(const std::string& words) override;
  void SearchOn(Direction direction) override;

  void SetMuted(bool muted) override { webkit_web_view_set_is_muted(view_.get(), muted); }
  bool IsMuted() const override { return webkit_web_view_get_is_muted(view_.get()) != FALSE; }
  void SetZoom(double zoom) override { webkit_web_view_set_zoom_level(view_.get(), zoom); }
  FileRequest SaveRequest(const std::string& title) override;
  void Save(const std::string& path, std::function<void(const std::string&)> done) override;
  void Print(std::function<void(const std::string&)> done) override;
  void Download(const std::string& address) override;
  void StopDocument() override;

  void TryClose() override { webkit_web_view_try_close(view_.get()); }
  void EndProcess() override { webkit_web_view_terminate_web_process(view_.get()); }

  void TakeFocus() override { gtk_widget_grab_focus(GTK_WIDGET(view_.get())); }
  bool HasFocus() const override { return gtk_widget_has_focus(GTK_WIDGET(view_.get())) != FALSE; }
  bool IsInFront() const override;
  void* Asker() override { return view_.get(); }

 private:
  void AddScripts();
  void ConnectLoads();
  void ConnectSearch();
  void ConnectUser();
  Answer WhileHere(Answer answer);
  void LoadChanged(WebKitLoadEvent event);
  void LoadFailed(WebKitLoadEvent event, const std::string& address, const GError& error);
  bool Decide(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type);
  WebKitWebView* Create(WebKitNavigationAction* action);

  ObjectPtr<WebKitWebView> view_;
  std::list<PageScript> scripts_;
  std::unique_ptr<Documents> documents_;
  Life life_;  // answers that come after it find it gone
};

}  // namespace corvane::desktop
