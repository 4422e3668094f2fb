#include "platform/linux/web/requests/permissions.h"

#include <optional>
#include <utility>

#include "web/Problem.h"
#include "web/address/Address.h"

namespace corvane::desktop {
namespace {

/// A kind of permission: how it is stored, and what a site does that wants it.
struct Kind {
  std::string id;
  std::string wish;
};

// More requests of a kind that is being asked about than any page needs.
constexpr std::size_t kMostAtOnce = 10;

enum Choice : int { kRefuse, kAllowOnce, kAllowSite, kRefuseSite };

Kind KindOfMedia(WebKitUserMediaPermissionRequest* request) {
  if (webkit_user_media_permission_is_for_display_device(request)) {
    return {"screen", "wants to see what is on your screen"};
  }
  const bool sound = webkit_user_media_permission_is_for_audio_device(request);
  const bool picture = webkit_user_media_permission_is_for_video_device(request);
  if (sound && picture) return {"camera and microphone", "wants to use your camera and microphone"};
  if (picture) return {"camera", "wants to use your camera"};
  return {"microphone", "wants to use your microphone"};
}

/// None for what is never allowed.
std::optional<Kind> KindOf(WebKitPermissionRequest* request) {
  if (WEBKIT_IS_GEOLOCATION_PERMISSION_REQUEST(request)) {
    return Kind{"location", "wants to know where you are"};
  }
  if (WEBKIT_IS_NOTIFICATION_PERMISSION_REQUEST(request)) {
    return Kind{"notifications", "wants to show you notifications"};
  }
  if (WEBKIT_IS_USER_MEDIA_PERMISSION_REQUEST(request)) {
    return KindOfMedia(WEBKIT_USER_MEDIA_PERMISSION_REQUEST(request));
  }
  if (WEBKIT_IS_DEVICE_INFO_PERMISSION_REQUEST(request)) {
    return Kind{"devices", "wants to know the names of your cameras and microphones"};
  }
  if (WEBKIT_IS_POINTER_LOCK_PERMISSION_REQUEST(request)) {
    return Kind{"pointer", "wants to keep the mouse pointer to itself"};
  }
  if (WEBKIT_IS_CLIPBOARD_PERMISSION_REQUEST(request)) {
    return Kind{"clipboard", "wants to read your clipboard"};
  }
  if (WEBKIT_IS_MEDIA_KEY_SYSTEM_PERMISSION_REQUEST(request)) {
    return Kind{"protected media", "wants to play protected media"};
  }
  if (WEBKIT_IS_WEBSITE_DATA_ACCESS_PERMISSION_REQUEST(request)) {
    const std::string from =
        Text(webkit_website_data_access_permission_request_get_requesting_domain(
            WEBKIT_WEBSITE_DATA_ACCESS_PERMISSION_REQUEST(request)));
    return Kind{"data of " + from, "wants to let " + from + " use what it has stored here"};
  }
  return std::nullopt;
}

std::string OriginOf(const std::string& address) {
  const Owned<WebKitSecurityOrigin, webkit_security_origin_unref> origin(
      webkit_security_origin_new_for_uri(address.c_str()));
  return Taken(webkit_security_origin_to_string(origin.get()));
}

}  // namespace

Permissions::Permissions(PermissionBook& book, QuestionDesk& desk, PageNotices& notices)
    : book_(book), desk_(desk), notices_(notices) {}

void Permissions::Decide(WebKitPermissionRequest* request, const std::string& address) {
  const auto answer = [request](bool allowed) {
    allowed ? webkit_permission_request_allow(request) : webkit_permission_request_deny(request);
  };
  const auto kind = KindOf(request);
  const std::string site = OriginOf(address);
  if (!kind || site.empty()) return answer(false);
  if (const auto stored = book_.Find(site, kind->id)) return answer(*stored);

  const Key key{site, kind->id};
  if (const auto known = decided_.find(key); known != decided_.end()) {
    if (!known->second) {
      notices_.Tell("This page asks again for what was refused. It stays refused.");
    }
    return answer(known->second);
  }
  if (const auto open = asked_.find(key); open != asked_.end()) {
    if (open->second.size() >= kMostAtOnce) {
      notices_.Tell("This page asks for the same permission again and again.");
      return answer(false);
    }
    open->second.emplace_back(WEBKIT_PERMISSION_REQUEST(g_object_ref(request)));
    return;
  }
  asked_[key].emplace_back(WEBKIT_PERMISSION_REQUEST(g_object_ref(request)));
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Permission",
             SiteOf(address) + " " + kind->wish + ".",
             {},
             {"&Refuse", "Allow &once", "&Always allow for this site", "&Never for this site"}},
            [this, key](const auto& reply) { Answered(key, reply); });
}

void Permissions::Answered(const Key& key, const std::optional<DialogAnswer>& reply) {
  const auto node = asked_.extract(key);
  const int choice = reply ? reply->button : kRefuse;
  const bool allowed = choice == kAllowOnce || choice == kAllowSite;
  const bool for_good = choice == kAllowSite || choice == kRefuseSite;
  if (for_good && !book_.Decide(key.first, key.second, allowed)) {
    notices_.Tell("The decision could not be stored. It holds until Corvane is closed.");
  }
  // What stands in the book may be taken back there.
  if (reply && !book_.Find(key.first, key.second)) decided_[key] = allowed;
  if (node.empty()) return;
  for (const auto& request : node.mapped()) {
    allowed ? webkit_permission_request_allow(request.get())
            : webkit_permission_request_deny(request.get());
  }
}

// What was allowed once was allowed to that page.
void Permissions::Reset() {
  std::erase_if(decided_, [](const auto& entry) { return entry.second; });
}

}  // namespace corvane::desktop
