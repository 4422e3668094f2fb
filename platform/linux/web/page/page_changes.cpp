#include "platform/linux/web/page/page_changes.h"

#include <array>
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
    : notices_(notices),
      host_(std::move(host)),
      script_(webkit_web_view_get_user_content_manager(view), std::vector{"changes.js"},
              "corvaneChanges",
              [this](const std::string& kind, const std::string& text) { Receive(kind, text); }) {}

void PageChanges::Receive(const std::string& kind, const std::string& text) {
  if (kind == "changed") return notices_.Tell("The page has changed. F9 reads it again.");
  if (!allowance_.Take()) return;
  if (kind == "moved") return host_.read();
  std::string words;
  if (kind == "top") words = "Top of the page";
  if (kind == "jumped") words = Shorten(text, kLongestPlace);
  if (kind == "opened") words = "Opened: " + Shorten(text, kLongestPlace);
  if (kind == "state") words = WordsOf(text);
  if (!words.empty()) host_.say(words);
}

}  // namespace corvane::desktop
