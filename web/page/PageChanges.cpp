#include "web/page/PageChanges.h"

#include <charconv>
#include <utility>

#include "access/ElementWords.h"
#include "base/safe_name.h"
#include "web/page/RecordJson.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestPlace = 200;

/// What to say of a state that the page script names, such as "pressed true"; empty for
/// one that it never does.
std::string WordsOf(const std::string& state) {
  ElementFacts facts;
  const Tri value = state.ends_with(" true")    ? Tri::Yes
                    : state.ends_with(" false") ? Tri::No
                                                : Tri::None;
  if (state.starts_with("expanded ")) facts.expanded = value;
  if (state.starts_with("pressed ")) facts.pressed = value;
  if (state.starts_with("checked ")) facts.checked = value;
  if (state.starts_with("selected ")) facts.selected = value;
  return EstablishedChangeWords(ElementFacts(), facts);
}

}  // namespace

PageChanges::PageChanges(Engine& engine, PageNotices& notices, Host host)
    : engine_(engine),
      notices_(notices),
      host_(std::move(host)),
      messages_(engine.Message.Connect(
          [this](const auto& channel, const auto& kind, const std::string& text) {
            if (channel == "corvaneChanges") Receive(kind, text);
          })) {}

void PageChanges::Jump(const std::string& address, std::function<void()> refused) {
  engine_.Evaluate("corvaneChanges.jump(" + record::Quoted(address) + ")",
                   [refused = std::move(refused)](const auto& done) {
                     if (!done) refused();
                   });
}

// "COUNT\nWORDS"
void PageChanges::TellPlace(const std::string& text) {
  PagePlace place;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, place.before);
  if (error != std::errc() || rest == end) return;
  place.words = Shorten({rest + 1, end}, kLongestPlace);
  host_.place(place);
}

void PageChanges::Receive(const std::string& kind, const std::string& text) {
  if (kind == "changed") return notices_.Tell("The page has changed. F9 reads it again.");
  if (!allowance_.Take()) return;
  if (kind == "moved") return host_.read();
  if (kind == "top") return host_.place({"Top of the page", 0});
  if (kind == "jumped") return TellPlace(text);
  if (kind == "opened" || kind == "opened in live region") {
    return host_.opened(
        "Opened: " + Shorten(text, kLongestPlace),
        kind == "opened" ? PageWords::Opened::Part : PageWords::Opened::PartOfRegion);
  }
  std::string words;
  if (kind == "lost") words = "What had the focus is gone";
  if (kind == "nowhere") words = "There is no such place in the page";
  if (kind == "state") words = WordsOf(text);
  if (!words.empty()) host_.say(words);
}

}  // namespace corvane
