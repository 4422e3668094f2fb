#include "web/page/DocumentReader.h"

#include <array>
#include <memory>
#include <optional>
#include <utility>

#include "web/address/OwnAddress.h"

namespace corvane {
namespace {

// When, in seconds, a page that cannot tell where its focus is is asked after a key.
constexpr std::array kAskSeconds = {0.0, 0.05, 0.2};
/// Longer texts are taken apart on a worker thread.
constexpr std::size_t kShortText = 64UL * 1024;
/// Longer ones leave much memory behind.
constexpr std::size_t kLargeText = 1024UL * 1024;
/// Nothing that a page sends may be longer.
constexpr std::size_t kLongestText = 256UL * 1024 * 1024;
/// How long a page waits for frames whose documents have said nothing yet.
constexpr double kFrameSeconds = 0.5;

std::vector<PageRecord> ParseAny(const std::string& text) {
  std::vector<PageRecord> records = ParseRecords(text);
  if (records.empty()) {
    if (auto record = ParseRecord(text)) records.push_back(std::move(*record));
  }
  return records;
}

}  // namespace

DocumentReader::DocumentReader(Engine& engine, Schedule schedule, ElementEvents::Look look)
    : engine_(engine),
      schedule_(std::move(schedule)),
      events_(documents_, schedule_.later, std::move(look)),
      frames_(schedule_.later),
      asking_(schedule_.later),
      messages_(engine.Message.Connect(
          [this](const auto& channel, const auto& kind, const std::string& text) {
            if (channel != "corvane") return;
            if (kind == "event") events_.Receive(text);
            if (kind == "record") FrameCame(text);
          })) {}

void DocumentReader::Forget() {
  Cancel();
  page_life_.Renew();
  parsing_ = 0;
  documents_.Forget();
  events_.Forget();
}

void DocumentReader::Cancel() {
  reading_.Renew();
  done_ = nullptr;
  collected_ = false;
  frames_.Cancel();
}

void DocumentReader::Read(Done done) {
  Cancel();
  done_ = std::move(done);
  documents_.BeginReading();
  waited_ = false;
  Collect();
}

void DocumentReader::Collect() {
  engine_.Evaluate("corvane.collect()", [this, wanted = reading_.Look()](auto text) {
    if (wanted) Collected(std::move(text).value_or(""));
  });
}

// The elements that it finds are not remembered by the page's script: those that
// are new are described with their first event as if it had never been asked.
void DocumentReader::Describe(Done done) {
  if (!documents_.Page()) return done(nullptr);
  engine_.Evaluate("corvane.collect(false)",
                   [this, wanted = reading_.Look(), done = std::move(done)](auto text) {
                     if (!wanted) return;
                     Parse(std::move(text).value_or(""), [this, wanted, done](Records records) {
                       if (!wanted) return;
                       const auto described = documents_.Described(std::move(records));
                       done(described ? described : documents_.Page());
                     });
                   });
}

void DocumentReader::Parse(std::string text, std::function<void(Records)> parsed) {
  if (text.size() > kLongestText) text.clear();
  if (text.size() <= kShortText) return parsed(ParseAny(text));
  const Weight weight = text.size() > kLargeText ? Weight::Heavy : Weight::Light;
  // By pointer: the work is handed on by copies.
  auto whole = std::make_shared<std::string>(std::move(text));
  schedule_.aside(weight, [whole = std::move(whole), parsed = std::move(parsed)]() {
    const auto records = std::make_shared<Records>(ParseAny(*whole));
    std::string().swap(*whole);
    return [records, parsed] { parsed(std::move(*records)); };
  });
}

void DocumentReader::Collected(std::string text) {
  Parse(std::move(text), [this, wanted = reading_.Look()](Records records) {
    if (wanted) PageCame(std::move(records));
  });
}

void DocumentReader::PageCame(Records records) {
  if (records.empty() || !records.front().place.empty()) return End(MinimalDocument());
  if (!waited_ && LooksEmpty(records)) {
    waited_ = true;
    return engine_.Await("corvaneChanges.filled()", [this, wanted = reading_.Look()](const auto&) {
      if (wanted) Collect();
    });
  }
  documents_.AddPage(std::move(records));
  collected_ = true;
  if (parsing_ > 0 || documents_.MissesFrames()) {
    frames_.Start(kFrameSeconds, [this] { Finish(); });
  } else {
    Finish();
  }
}

void DocumentReader::FrameCame(const std::string& text) {
  ++parsing_;
  Parse(text, [this, wanted = page_life_.Look()](Records records) {
    if (!wanted) return;
    --parsing_;
    if (!records.empty()) documents_.AddFrame(std::move(records.front()));
    FinishIfComplete();
  });
}

void DocumentReader::FinishIfComplete() {
  if (collected_ && done_ && parsing_ == 0 && !documents_.MissesFrames()) Finish();
}

void DocumentReader::Finish() {
  events_.PageRead();
  End(documents_.PutTogether());
}

void DocumentReader::End(const HTMLDocumentPtr& document) {
  const Done done = std::move(done_);
  Cancel();
  done(document);
}

HTMLDocumentPtr DocumentReader::MinimalDocument() const {
  auto document = std::make_shared<HTMLDocument>();
  document->Title = engine_.Title();
  document->nameProp = document->Title;
  document->location = ShownAddress(engine_.Address());
  return document;
}

void DocumentReader::TellFocus() {
  events_.ListenedTo();
  engine_.Evaluate("corvaneEvents.tellAgain()", [](const auto&) {});
}

void DocumentReader::FollowFocus(std::function<void()> known) {
  engine_.Evaluate("corvaneEvents.follow()", [known = std::move(known)](const auto& answer) {
    if (answer == "known") known();
  });
}

// The engine gives a page one key at a time: a question may overtake one that waits.
void DocumentReader::AskFocus(Moved moved) {
  if (documents_.IsSilent() && documents_.Page()) AskFocusInTurn(moved == Moved::ByKey, 0);
}

void DocumentReader::AskFocusInTurn(bool again, std::size_t turn) {
  asking_.Start(kAskSeconds[turn], [this, again, turn] {
    const char* call = again ? "corvaneEvents.focus(1)" : "corvaneEvents.focus(0)";
    engine_.Evaluate(call, [this, wanted = page_life_.Look()](const auto& event) {
      if (wanted && event && !event->empty()) events_.Receive(*event);
    });
    if (turn + 1 < kAskSeconds.size()) AskFocusInTurn(true, turn + 1);
  });
}

bool DocumentReader::OnList() const {
  const HTMLElementPtr element = events_.Focused();
  return element && element->type_name == "HTMLSelectElement" && element->facts &&
         element->facts->role == "combobox";
}

// A select has the focus before its list opens.
void DocumentReader::TellList(const OpenList& list) {
  const HTMLElementPtr select = events_.Focused();
  if (!select) return;
  select->list = list;
  select->onlist.Raise();
}

}  // namespace corvane
