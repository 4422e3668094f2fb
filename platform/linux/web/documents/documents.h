#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/linux/glib/owner.h"
#include "platform/linux/web/documents/document_fetch.h"
#include "platform/linux/web/documents/document_process.h"
#include "web/Problem.h"
#include "web/requests/QuestionDesk.h"

namespace corvane::desktop {

/// The documents (PDF) that one view comes to: fetches them, has a page made of each in
/// a process of its own and gives it to the engine under an address that the engine
/// keeps in its history like any other. One document at a time: what the user wants next
/// ends the one before.
class Documents {
 public:
  struct Host {
    /// There is no page of the document, for that reason.
    std::function<void(const Problem&)> failed;
    /// What is at the address has become something else, which the engine can show.
    std::function<void(const std::string& address)> other_kind;
  };

  /// `program`: the path of corvane-pdf.
  Documents(WebKitWebView* view, QuestionDesk& desk, std::string program, Host host);
  ~Documents();
  Documents(const Documents&) = delete;
  Documents& operator=(const Documents&) = delete;

  /// The engine's answer is the document at that address. The page of it
  /// (DocumentPage) is to be loaded next.
  void Take(WebKitPolicyDecision* decision, const std::string& address);
  /// Whether the download that begins is of a document that has been taken.
  bool TakesDownload(WebKitDownload* download);
  /// The engine wants the page of a document.
  void Answer(WebKitURISchemeRequest* request);
  /// Gives up what is not ready yet.
  void Stop();

 private:
  struct Job;

  void Fetch(WebKitDownload* download, bool check_kind);
  void Make();
  void Made(const DocumentProcess::Result& result);
  void AskPassword();
  void GiveAnswer(const std::string& page);
  void Fail(const Problem& problem);
  DocumentFetch::Host FetchHost();

  WebKitWebView* view_;
  QuestionDesk& desk_;
  const std::string program_;
  Host host_;
  std::string taken_;    // address of the document whose download is to begin
  std::string refused_;  // the same of one that is no longer wanted
  std::unique_ptr<Job> job_;
};

}  // namespace corvane::desktop
