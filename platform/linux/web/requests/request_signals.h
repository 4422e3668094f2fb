#pragma once

#include <webkit2/webkit2.h>

#include "web/requests/PageRequests.h"

namespace corvane::desktop {

/// Hands what the pages of a view want to its PageRequests, until this goes.
class RequestSignals {
 public:
  RequestSignals(WebKitWebView* view, PageRequests& requests);
  ~RequestSignals() { g_signal_handlers_disconnect_by_data(view_, &requests_); }
  RequestSignals(const RequestSignals&) = delete;
  RequestSignals& operator=(const RequestSignals&) = delete;

 private:
  WebKitWebView* view_;
  PageRequests& requests_;
};

}  // namespace corvane::desktop
