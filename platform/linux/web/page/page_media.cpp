#include "platform/linux/web/page/page_media.h"

#include <utility>
#include <vector>

namespace corvane::desktop {

PageMedia::PageMedia(WebKitWebView* view, PageNotices& notices, Host host)
    : view_(view),
      notices_(notices),
      host_(std::move(host)),
      script_(webkit_web_view_get_user_content_manager(view), std::vector{"media.js"},
              "corvaneMedia", [this](const std::string&, const std::string&) { TellHeldBack(); }) {
  g_signal_connect(view_, "notify::is-playing-audio",
                   G_CALLBACK(+[](WebKitWebView* page, GParamSpec*, gpointer self) {
                     const auto& sounds = static_cast<PageMedia*>(self)->host_.sounds;
                     if (sounds && webkit_web_view_is_playing_audio(page)) sounds();
                   }),
                   this);
}

PageMedia::~PageMedia() { g_signal_handlers_disconnect_by_data(view_, this); }

// What the user does in a page lets it sound.
void PageMedia::Use(WebKitPolicyDecision* navigation) {
  held_ = host_.holds_back && host_.holds_back();
  const ObjectPtr<WebKitWebsitePolicies> policies(webkit_website_policies_new_with_policies(
      "autoplay", held_ ? WEBKIT_AUTOPLAY_ALLOW_WITHOUT_SOUND : WEBKIT_AUTOPLAY_ALLOW, nullptr));
  webkit_policy_decision_use_with_policies(navigation, policies.get());
}

void PageMedia::TellHeldBack() {
  if (held_ && !std::exchange(told_, true)) notices_.Tell("Sound held back");
}

void PageMedia::SwitchMuted() {
  const bool muted = webkit_web_view_get_is_muted(view_) == FALSE;
  webkit_web_view_set_is_muted(view_, muted ? TRUE : FALSE);
  host_.say(muted ? "Page muted" : "Page sounds");
}

}  // namespace corvane::desktop
