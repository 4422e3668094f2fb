#include "platform/linux/web/page/text_reader.h"

#include <gio/gio.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "base/text.h"
#include "web/page/RecordJson.h"
#include "web/page/TextRecord.h"

namespace corvane::desktop {
namespace {

/// Nothing that a page sends may be longer.
constexpr std::size_t kLongestText = 256UL * 1024 * 1024;
/// Longer ones are taken apart on a worker thread.
constexpr std::size_t kShortText = 64UL * 1024;
constexpr std::size_t kMostSought = 100;  // characters of words that are to be seen
// From a change of the page until it is told; and in how many times the time that a reading
// takes there is one at most.
constexpr double kChangeSeconds = 0.3;
constexpr double kReadingShare = 10;

using record::Quoted;

std::string Call(const char* function, const PageElement& element, const std::string& more = "") {
  return std::string("corvaneTextUse.") + function + "(" + Quoted(element.document) + ", " +
         std::to_string(element.number) + more + ")";
}

}  // namespace

TextReader::TextReader(WebKitWebView* view, Host host)
    : view_(view),
      host_(std::move(host)),
      script_(webkit_web_view_get_user_content_manager(view),
              std::vector{"text_writer.js", "text_tables.js", "text.js", "text_use.js"},
              "corvaneText",
              [this](const std::string& kind, const std::string& text) { Receive(kind, text); }) {}

void TextReader::Receive(const std::string& kind, const std::string& text) {
  if (kind == "gone") return host_.gone();
  if (kind == "changed") return Changed();
  if (kind != "escape") return;
  if (const auto element = ParsePageElement(text)) host_.left(*element);
}

// A page that changes without end is read again now and again only, the more seldom the
// longer that takes.
void TextReader::Changed() {
  if (took_ < 0 || change_.Running()) return;
  change_.Start(std::max(kChangeSeconds, kReadingShare * took_), [this] { host_.changed(); });
}

void TextReader::Forget() {
  turn_.reset();
  change_.Cancel();
  took_ = -1;
}

void TextReader::Read(Done done) {
  turn_ = std::make_shared<int>();
  change_.Cancel();
  asked_at_ = g_get_monotonic_time();
  Evaluate(
      view_, "corvaneText.describe()", nullptr,
      [this, turn = std::weak_ptr(turn_), done = std::move(done)](std::optional<std::string> text) {
        if (!turn.expired()) Received(std::move(text).value_or(""), turn, done);
      });
}

void TextReader::Received(std::string text, const std::weak_ptr<int>& turn, const Done& done) {
  took_ = static_cast<double>(g_get_monotonic_time() - asked_at_) / G_USEC_PER_SEC;
  if (text.size() > kLongestText) text.clear();
  if (text.size() <= kShortText) return done(ParsePageText(text));
  OnWorker([text = std::move(text), turn, done] {
    PostToLoop(
        [page = ParsePageText(text), turn, done] {
          if (!turn.expired()) done(page);
        },
        Turn::InTurn);
  });
}

void TextReader::Use(const PageElement& element) { ActForUser(view_, Call("use", element)); }

void TextReader::Focus(const PageElement& element, std::function<void()> done) {
  ActForUser(view_, Call("focus", element), [done = std::move(done)](const auto& there) {
    if (there == "true") done();
  });
}

void TextReader::ShowWords(const PageElement& near, const std::string& words) {
  const std::string sought = ", " + Quoted(text::left(words, kMostSought));
  Evaluate(view_, Call("showWords", near, sought), nullptr, [](const auto&) {});
}

void TextReader::Show(const PageElement& element) {
  Evaluate(view_, Call("show", element), nullptr, [](const auto&) {});
}

}  // namespace corvane::desktop
