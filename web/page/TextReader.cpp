#include "web/page/TextReader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/text.h"
#include "web/page/RecordJson.h"
#include "web/page/TextRecord.h"

namespace corvane {
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

TextReader::TextReader(Engine& engine, Schedule schedule, Host host)
    : engine_(engine),
      schedule_(std::move(schedule)),
      host_(std::move(host)),
      change_(schedule_.later),
      messages_(engine.Message.Connect(
          [this](const auto& channel, const auto& kind, const std::string& text) {
            if (channel == "corvaneText") Receive(kind, text);
          })) {}

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

void TextReader::Read(Done done) {
  change_.Cancel();
  asked_at_ = schedule_.now();
  engine_.Evaluate("corvaneText.describe()",
                   [this, wanted = reading_.Renew(), done = std::move(done)](auto text) {
                     if (wanted) Received(std::move(text).value_or(""), wanted, done);
                   });
}

void TextReader::Received(std::string text, const Life::Watch& wanted, const Done& done) {
  took_ = schedule_.now() - asked_at_;
  if (text.size() > kLongestText) text.clear();
  if (text.size() <= kShortText) return done(ParsePageText(text));
  const auto whole = std::make_shared<const std::string>(std::move(text));
  schedule_.aside(Weight::Light, [whole, wanted, done] {
    return [page = ParsePageText(*whole), wanted, done] {
      if (wanted) done(page);
    };
  });
}

void TextReader::Use(const PageElement& element) {
  engine_.Act(Call("use", element), [](const auto&) {});
}

void TextReader::Focus(const PageElement& element, std::function<void()> done) {
  engine_.Act(Call("focus", element), [done = std::move(done)](const auto& there) {
    if (there == "true") done();
  });
}

void TextReader::ShowWords(const PageElement& near, const std::string& words) {
  const std::string sought = ", " + Quoted(text::left(words, kMostSought));
  engine_.Evaluate(Call("showWords", near, sought), [](const auto&) {});
}

void TextReader::Show(const PageElement& element) {
  engine_.Evaluate(Call("show", element), [](const auto&) {});
}

}  // namespace corvane
