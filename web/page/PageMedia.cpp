#include "web/page/PageMedia.h"

#include <utility>

namespace corvane {

// What the user does in a page lets it sound.
PageMedia::PageMedia(Engine& engine, PageNotices& notices, Host host)
    : engine_(engine), notices_(notices), host_(std::move(host)) {
  connections_ += engine.LoadWanted.Connect([this](const LoadWish& wish, LoadDecision& decision) {
    if (wish.where != LoadWish::Where::InPlace) return;
    held_ = host_.holds_back && host_.holds_back();
    decision.holds_back_sound = held_;
  });
  connections_ +=
      engine.Message.Connect([this](const std::string& channel, const auto&, const auto&) {
        if (channel == "corvaneMedia") TellHeldBack();
      });
  connections_ += engine.SoundBegins.Connect([this] {
    if (host_.sounds) host_.sounds();
  });
}

void PageMedia::TellHeldBack() {
  if (held_ && !std::exchange(told_, true)) notices_.Tell("Sound held back");
}

void PageMedia::SwitchMuted() {
  const bool muted = !engine_.IsMuted();
  engine_.SetMuted(muted);
  host_.say(muted ? "Page muted" : "Page sounds");
}

}  // namespace corvane
