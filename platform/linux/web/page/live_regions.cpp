#include "platform/linux/web/page/live_regions.h"

#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "base/language.h"
#include "base/text.h"

namespace corvane::desktop {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kLongestText = 4000;  // bytes; the script allows 1,000 characters
constexpr int kMostLeftOut = 1'000'000;

std::string TextIn(const Json& json, const char* name) {
  const auto found = json.find(name);
  if (found == json.end()) return {};
  const auto* text = found->get_ptr<const Json::string_t*>();
  if (text == nullptr || text->size() > kLongestText) return {};
  return text::replace_all(*text, std::string(1, '\0'), "\xEF\xBF\xBD");
}

}  // namespace

std::optional<PageWords> ParsePageWords(std::string_view text) {
  const Json json = Json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (!json.is_object()) return std::nullopt;
  PageWords words;
  if (const auto more = json.find("more"); more != json.end()) {
    if (!more->is_number_integer()) return std::nullopt;
    const auto number = more->get<std::int64_t>();
    if (number <= 0) return std::nullopt;
    words.more = number > kMostLeftOut ? kMostLeftOut : static_cast<int>(number);
    return words;
  }
  words.language = language::Tag(TextIn(json, "language"));
  words.dialog = TextIn(json, "dialog");
  words.name = TextIn(json, "name");
  words.words = TextIn(json, words.dialog.empty() ? "words" : "text");
  const auto urgent = json.find("urgent");
  words.urgent = urgent != json.end() && *urgent == true;
  const bool is_dialog = words.dialog == "dialog" || words.dialog == "alertdialog";
  if (is_dialog || (words.dialog.empty() && !words.words.empty())) return words;
  return std::nullopt;
}

LiveRegions::LiveRegions(WebKitWebView* view, std::function<void(const PageWords&)> say)
    : view_(view),
      say_(std::move(say)),
      self_(std::make_shared<LiveRegions*>(this)),
      script_(webkit_web_view_get_user_content_manager(view), std::vector{"live.js"}, "corvaneLive",
              [this](const std::string& kind, const std::string& text) { Receive(kind, text); }) {}

// Its element has the page's focus before the page gets the window's, so that nothing
// else of the page is told on the way.
bool LiveRegions::EnterDialog(std::function<void()> gone) {
  const int mine = ++entered_;
  if (!std::exchange(dialog_waits_, false)) return false;
  Evaluate(view_, "corvaneLive.enter()", nullptr,
           [weak = std::weak_ptr(self_), mine, gone = std::move(gone)](const auto& entered) {
             const auto self = weak.lock();
             if (!self || (*self)->entered_ != mine) return;  // the user has gone on
             if (!entered) return gone();
             gtk_widget_grab_focus(GTK_WIDGET((*self)->view_));
           });
  return true;
}

void LiveRegions::Receive(const std::string& kind, const std::string& text) {
  if (kind != "live" || !allowance_.Take()) return;
  const auto words = ParsePageWords(text);
  if (!words) return;
  dialog_waits_ = dialog_waits_ || !words->dialog.empty();
  say_(*words);
}

}  // namespace corvane::desktop
