// Measures reading pages: prints one JSON object a line. Not a test.
//   web_bench [REPEATS]
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

double Now() { return static_cast<double>(g_get_monotonic_time()) / 1000.0; }  // milliseconds

/// Notes the longest time for which the main loop did nothing else.
class StallMeter {
 public:
  StallMeter()
      : source_(g_timeout_add_full(G_PRIORITY_HIGH, 1, &StallMeter::Tick, this, nullptr)) {}
  ~StallMeter() { g_source_remove(source_); }
  void Reset() {
    last_ = Now();
    longest_ = 0;
  }
  double Longest() const { return longest_; }

 private:
  static gboolean Tick(gpointer data) {
    auto& self = *static_cast<StallMeter*>(data);
    const double now = Now();
    if (self.last_ > 0) self.longest_ = std::max(self.longest_, now - self.last_);
    self.last_ = now;
    return G_SOURCE_CONTINUE;
  }
  double last_ = 0;
  double longest_ = 0;
  guint source_;
};

std::string PageOfLinks(int count) {
  std::string page = "<!DOCTYPE html><title>Links</title>";
  for (int i = 0; i < count; ++i) {
    page += "<p><a href=\"/target/" + std::to_string(i) + "\">Link number " + std::to_string(i) +
            "</a>";
  }
  return page;
}

void MeasurePage(const char* name, const std::string& page) {
  TestServer server;
  server.Page("/", page);
  TestView view(SharedEngine());
  double finished = 0;
  g_signal_connect(view.View(), "load-changed",
                   G_CALLBACK(+[](WebKitWebView*, WebKitLoadEvent event, gpointer data) {
                     if (event == WEBKIT_LOAD_FINISHED) *static_cast<double*>(data) = Now();
                   }),
                   &finished);
  StallMeter meter;
  meter.Reset();
  const double start = Now();
  view->Navigate(server.Url());
  WaitUntil([&] { return !view->Busy(); });
  const double ready = Now();
  const double stall = meter.Longest();

  const double asked = Now();
  meter.Reset();
  view->Do(WebBrowser::PageCommand::ReadAgain);
  WaitUntil([&] { return !view->Busy(); });
  const double again = Now();
  const double text_asked = Now();
  meter.Reset();
  std::size_t spans = 0;
  bool has_text = false;
  const Connection asking = view->DescribeText([&](const PageTextPtr& described) {
    spans = described ? described->spans.size() : 0;
    has_text = true;
  });
  WaitUntil([&] { return has_text; });
  std::printf("{\"page\": \"%s\", \"links\": %zu, \"text_ms\": %.1f, \"text_stall_ms\": %.1f}\n",
              name, spans, Now() - text_asked, meter.Longest());
  std::printf(
      "{\"page\": \"%s\", \"links\": %zu, \"text_bytes\": %zu, \"load_ms\": %.1f, "
      "\"finished_to_document_ms\": %.1f, \"longest_stall_ms\": %.1f, "
      "\"read_again_ms\": %.1f, \"read_again_stall_ms\": %.1f}\n",
      name, view.Document()->links.size(), view.Document()->body_innerText.size(), ready - start,
      ready - finished, stall, again - asked, meter.Longest());
  std::fflush(stdout);
}

// How long the page's process is busy to tell what one element is to its user.
void MeasureFacts(const char* name, const std::string& page, const char* selector) {
  constexpr const char* kRounds = "200";  // the page's clock counts milliseconds
  TestServer server;
  server.Page("/", "<!doctype html><title>A</title>" + page);
  TestView view(SharedEngine());
  view.Go(server.Url());
  std::string answer;
  const std::string script =
      std::string("(() => { const all = document.querySelectorAll('") + selector +
      "'); const begun = performance.now(); for (let i = 0; i < " + kRounds +
      "; i++) corvaneFacts.factsOf(all[i * 7919 % all.length]); return String((performance.now() "
      "- begun) / " +
      kRounds + "); })()";
  Evaluate(view.View(), script, [&](auto text) { answer = text.value_or("-1"); });
  WaitUntil([&] { return !answer.empty(); });
  std::printf("{\"facts\": \"%s\", \"facts_ms\": %.3f}\n", name, std::atof(answer.c_str()));
  std::fflush(stdout);
}

std::string Repeated(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

void MeasureCrash() {
  TestServer server;
  server.Page("/", "<title>A</title>");
  TestView view(SharedEngine());
  view->Navigate(server.Url());
  WaitUntil([&] { return !view->Busy(); });
  double told = 0;
  g_signal_connect(view.View(), "web-process-terminated",
                   G_CALLBACK(+[](WebKitWebView*, WebKitWebProcessTerminationReason,
                                  gpointer data) { *static_cast<double*>(data) = Now(); }),
                   &told);
  const double killed = Now();
  view.KillPageProcesses();
  WaitUntil([&] { return told > 0 && !view->Busy(); });
  const double shown = Now();
  view->Refresh();
  WaitUntil([&] { return !view->Busy(); });
  std::printf(
      "{\"crash_to_signal_ms\": %.1f, \"crash_to_problem_page_ms\": %.1f, "
      "\"refresh_ms\": %.1f}\n",
      told - killed, shown - killed, Now() - shown);
  std::fflush(stdout);
}

}  // namespace
}  // namespace corvane::desktop

int main(int argc, char** argv) {
  using namespace corvane::desktop;
  const int repeats = argc > 1 ? std::atoi(argv[1]) : 3;
  std::string text;
  while (text.size() < 10'000'000) text += "<p>One line of text after the other, without an end.";
  const std::string long_line = "<p>" + std::string(2'000'000, 'x');
  SharedEngine();
  for (int i = 0; i < repeats; ++i) {
    MeasurePage("links", PageOfLinks(100));
    MeasurePage("links", PageOfLinks(10'000));
    MeasurePage("links", PageOfLinks(50'000));
    MeasurePage("text", text);
    MeasurePage("line", long_line);
    MeasureFacts("a link among 10,000", PageOfLinks(10'000), "a");
    MeasureFacts("a labelled field in a form",
                 "<main><form aria-label=F><fieldset><legend>L</legend>" +
                     Repeated(200, "<label>Name <input required title=T></label>") +
                     "</fieldset></form></main>",
                 "input");
    MeasureFacts("an option among 5,000",
                 "<div role=listbox aria-label=B>" +
                     Repeated(5'000, "<div role=option tabindex=-1>One</div>") + "</div>",
                 "[role=option]");
    MeasureFacts("a cell among 20,000",
                 "<table role=grid aria-label=G>" +
                     Repeated(2'000, "<tr>" + Repeated(10, "<td tabindex=-1>1</td>") + "</tr>") +
                     "</table>",
                 "td");
    MeasureCrash();
  }
  return 0;
}
