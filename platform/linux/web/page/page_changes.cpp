#include "platform/linux/web/page/page_changes.h"

#include <array>
#include <charconv>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestPlace = 200;

struct State {
  const char* attribute;
  const char* words;
};
constexpr std::array kStates = {
    State{"expanded true", "expanded"}, State{"expanded false", "collapsed"},
    State{"pressed true", "pressed"},   State{"pressed false", "not pressed"},
    State{"checked true", "checked"},   State{"checked false", "not checked"},
    State{"selected true", "selected"}, State{"selected false", "not selected"},
};

/// What to say of a state that the page script names; empty for one it never does.
std::string WordsOf(const std::string& state) {
  for (const State& known : kStates) {
    if (state == known.attribute) return known.words;
  }
  return {};
}

}  // namespace

PageChanges::PageChanges(WebKitWebView* view, PageNotices& notices, Host host)
    : view_(view),
      notices_(notices),
      host_(std::move(host)),
      script_(webkit_web_view_get_user_content_manager(view), std::vector{"changes.js"},
              "corvaneChanges",
              [this](const std::string& kind, const std::string& text) { Receive(kind, text); }) {}

void PageChanges::Jump(const std::string& address, std::function<void()> refused) {
  const std::string call = "corvaneChanges.jump(" + nlohmann::json(address).dump() + ")";
  Evaluate(view_, call, nullptr, [refused = std::move(refused)](const auto& done) {
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
  std::string words;
  if (kind == "opened") words = "Opened: " + Shorten(text, kLongestPlace);
  if (kind == "lost") words = "What had the focus is gone";
  if (kind == "nowhere") words = "There is no such place in the page";
  if (kind == "state") words = WordsOf(text);
  if (!words.empty()) host_.say(words);
}

}  // namespace corvane::desktop
