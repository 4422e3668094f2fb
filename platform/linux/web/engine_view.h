#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <string>

#include "base/event.h"
#include "platform/linux/glib/later.h"
#include "platform/linux/web/option_list.h"
#include "platform/linux/web/page_keys.h"
#include "platform/linux/web/requests/request_signals.h"
#include "platform/linux/web/web_engine.h"
#include "platform/linux/web/webkit_engine.h"
#include "web/Browser.h"

namespace corvane::desktop {

/// A browser over a view of the engine, with what only this desktop has beside it: keys,
/// lists, what pages ask for.
class EngineView {
 public:
  /// `opener`: the view whose page opens this one; null for a view of its own.
  explicit EngineView(WebEngine& engine, EngineView* opener = nullptr);
  ~EngineView();
  EngineView(const EngineView&) = delete;
  EngineView& operator=(const EngineView&) = delete;

  WebKitWebView* View() const { return engine_.View(); }
  Browser& Page() { return page_; }
  const Browser& Page() const { return page_; }

 private:
  ElementEvents::Look Look() const;
  PageKeys::Host KeysHost();
  Documents::Host DocumentsHost();
  void ConnectShared();
  WebKitWebView* MakeWindow(const std::string& address);

  WebEngine& shared_;
  WebKitEngine engine_;
  Browser page_;
  RequestSignals requests_;
  PageKeys keys_;
  OptionList list_;
  Connections connections_;
  Delay opening_;  // of a window that the page wants
};

}  // namespace corvane::desktop
