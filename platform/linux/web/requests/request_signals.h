#pragma once

#include <webkit2/webkit2.h>

#include <functional>

#include "platform/file_request.h"
#include "web/requests/PageRequests.h"

namespace corvane::desktop {

/// Hands what the pages of a view want to its PageRequests, and the files that they want
/// to whoever gets files, until this goes.
class RequestSignals {
 public:
  using WantFiles = std::function<void(const FileRequest&)>;
  RequestSignals(WebKitWebView* view, PageRequests& requests, WantFiles want_files);
  ~RequestSignals();
  RequestSignals(const RequestSignals&) = delete;
  RequestSignals& operator=(const RequestSignals&) = delete;

 private:
  WebKitWebView* view_;
  PageRequests& requests_;
  WantFiles want_files_;
};

}  // namespace corvane::desktop
