#include "platform/linux/web/documents/documents.h"
#include "base/life.h"

#include <libsoup/soup.h>

#include <utility>

#include "platform/linux/web/load_failure.h"
#include "web/DocumentProblem.h"
#include "web/address/OwnAddress.h"

namespace corvane::desktop {
namespace {

// The page comes from a process that has read what nobody trusts: nothing in it runs,
// loads anything or sends anything.
constexpr const char* kNothingRuns =
    "default-src 'none'; form-action 'none'; base-uri 'none'; frame-ancestors 'none'";

void Refuse(WebKitURISchemeRequest* request) {
  const ErrorPtr error(g_error_new_literal(WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_CANCELLED,
                                           "the document is not shown"));
  webkit_uri_scheme_request_finish_error(request, error.get());
}

}  // namespace

struct Documents::Job {
  std::string address;
  std::unique_ptr<DocumentFetch> fetch;
  OpenFile file;
  std::unique_ptr<DocumentProcess> process;
  std::string password;
  std::optional<std::string> page;            // made, but not asked for yet
  ObjectPtr<WebKitURISchemeRequest> request;  // of the engine, which waits
  Life life;
};

Documents::Documents(WebKitWebView* view, QuestionDesk& desk, std::string program, Host host)
    : view_(view), desk_(desk), program_(std::move(program)), host_(std::move(host)) {}

Documents::~Documents() { Stop(); }

void Documents::Stop() {
  if (!taken_.empty()) refused_ = std::exchange(taken_, "");
  const std::unique_ptr<Job> job = std::move(job_);
  if (job && job->request) Refuse(job->request.get());
}

void Documents::Take(WebKitPolicyDecision* decision, const std::string& address) {
  Stop();
  if (address.starts_with("file:")) return webkit_policy_decision_ignore(decision);
  taken_ = address;
  webkit_policy_decision_download(decision);
}

bool Documents::TakesDownload(WebKitDownload* download) {
  if (webkit_download_get_web_view(download) != view_) return false;
  const std::string source =
      Text(webkit_uri_request_get_uri(webkit_download_get_request(download)));
  if (!refused_.empty() && source == refused_) {
    refused_.clear();
    webkit_download_cancel(download);
    return true;
  }
  if (taken_.empty()) return false;
  const std::string address = std::exchange(taken_, "");
  if (!job_ || job_->address != WithoutPlace(address)) {
    Stop();
    job_ = std::make_unique<Job>();
    job_->address = WithoutPlace(address);
  }
  Fetch(download, false);
  return true;
}

DocumentFetch::Host Documents::FetchHost() {
  return {[this](OpenFile file) {
            job_->file = std::move(file);
            job_->fetch.reset();
            Make();
          },
          [this](const GError& error) { Fail(LoadProblem(job_->address, FailureOf(error))); },
          [this] { Fail(DocumentProblem(job_->address, DocumentEnd::TooBig)); },
          [this] {
            const std::string address = job_->address;
            Stop();
            host_.other_kind(address);
          }};
}

void Documents::Fetch(WebKitDownload* download, bool check_kind) {
  job_->fetch = std::make_unique<DocumentFetch>(download, check_kind, FetchHost());
}

void Documents::Answer(WebKitURISchemeRequest* request) {
  const std::string address =
      WithoutPlace(ShownAddress(Text(webkit_uri_scheme_request_get_uri(request))));
  const bool is_coming = job_ && job_->address == address && !job_->request;
  const bool will_come = !taken_.empty() && WithoutPlace(taken_) == address;
  if (!is_coming) {
    if (!will_come) Stop();
    job_ = std::make_unique<Job>();
    job_->address = address;
  }
  job_->request.reset(WEBKIT_URI_SCHEME_REQUEST(g_object_ref(request)));
  if (job_->page) return GiveAnswer(*std::exchange(job_->page, std::nullopt));
  if (is_coming || will_come) return;
  // Back to it, or once more.
  if (address.starts_with("file:")) {
    ErrorPtr failure;
    job_->file = OpenLocal(address, failure);
    return failure ? Fail(LoadProblem(address, FailureOf(*failure))) : Make();
  }
  const ObjectPtr<WebKitDownload> download(webkit_web_view_download_uri(view_, address.c_str()));
  Fetch(download.get(), true);
}

void Documents::Make() {
  job_->process = std::make_unique<DocumentProcess>(
      program_, DocumentProcess::Source{job_->file.Number(), job_->address, job_->password},
      [this](const DocumentProcess::Result& result) { Made(result); });
}

void Documents::Made(const DocumentProcess::Result& result) {
  job_->process.reset();
  if (result.end == DocumentEnd::Locked) return AskPassword();
  if (result.end != DocumentEnd::Done) {
    return Fail(DocumentProblem(job_->address, result.end));
  }
  job_->file = {};
  GiveAnswer(result.page);
}

void Documents::AskPassword() {
  const std::string name = DocumentName(job_->address);
  const std::string wrong = job_->password.empty() ? "" : "The password was not right. ";
  job_->password.clear();
  desk_.Ask(QuestionDesk::Asker::User,
            {"Password",
             wrong + "The document " + name + " asks for a password.",
             {{.kind = DialogField::Kind::kPassword, .label = "Password"}},
             {"&Open", "&Cancel"}},
            [this, wanted = job_->life.Look()](const auto& reply) {
              if (!wanted) return;
              if (!reply || reply->button != 0) {
                return Fail(DocumentProblem(job_->address, DocumentEnd::Locked));
              }
              job_->password = reply->values.at(0);
              Make();
            });
}

void Documents::GiveAnswer(const std::string& page) {
  if (!job_->request) {
    job_->page = page;
    return;
  }
  const std::unique_ptr<Job> job = std::move(job_);
  const auto size = static_cast<gssize>(page.size());
  const ObjectPtr<GInputStream> stream(
      g_memory_input_stream_new_from_data(g_memdup2(page.data(), page.size()), size, g_free));
  const ObjectPtr<WebKitURISchemeResponse> response(
      webkit_uri_scheme_response_new(stream.get(), size));
  webkit_uri_scheme_response_set_content_type(response.get(), "text/html; charset=utf-8");
  SoupMessageHeaders* headers = soup_message_headers_new(SOUP_MESSAGE_HEADERS_RESPONSE);
  soup_message_headers_append(headers, "Content-Security-Policy", kNothingRuns);
  webkit_uri_scheme_response_set_http_headers(response.get(), headers);  // takes them
  webkit_uri_scheme_request_finish_with_response(job->request.get(), response.get());
}

void Documents::Fail(const Problem& problem) {
  Stop();
  host_.failed(problem);
}

}  // namespace corvane::desktop
