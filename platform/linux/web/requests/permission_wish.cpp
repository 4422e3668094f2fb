#include "platform/linux/web/requests/permission_wish.h"

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

struct Wish {
  std::string kind = {};
  std::string words = {};
};

Wish WishForMedia(WebKitUserMediaPermissionRequest* request) {
  if (webkit_user_media_permission_is_for_display_device(request)) {
    return {"screen", "wants to see what is on your screen"};
  }
  const bool sound = webkit_user_media_permission_is_for_audio_device(request);
  const bool picture = webkit_user_media_permission_is_for_video_device(request);
  if (sound && picture) return {"camera and microphone", "wants to use your camera and microphone"};
  if (picture) return {"camera", "wants to use your camera"};
  return {"microphone", "wants to use your microphone"};
}

/// Without a kind for what is never allowed.
Wish WishFor(WebKitPermissionRequest* request) {
  if (WEBKIT_IS_GEOLOCATION_PERMISSION_REQUEST(request)) {
    return {"location", "wants to know where you are"};
  }
  if (WEBKIT_IS_NOTIFICATION_PERMISSION_REQUEST(request)) {
    return {"notifications", "wants to show you notifications"};
  }
  if (WEBKIT_IS_USER_MEDIA_PERMISSION_REQUEST(request)) {
    return WishForMedia(WEBKIT_USER_MEDIA_PERMISSION_REQUEST(request));
  }
  if (WEBKIT_IS_DEVICE_INFO_PERMISSION_REQUEST(request)) {
    return {"devices", "wants to know the names of your cameras and microphones"};
  }
  if (WEBKIT_IS_POINTER_LOCK_PERMISSION_REQUEST(request)) {
    return {"pointer", "wants to keep the mouse pointer to itself"};
  }
  if (WEBKIT_IS_CLIPBOARD_PERMISSION_REQUEST(request)) {
    return {"clipboard", "wants to read your clipboard"};
  }
  if (WEBKIT_IS_MEDIA_KEY_SYSTEM_PERMISSION_REQUEST(request)) {
    return {"protected media", "wants to play protected media"};
  }
  if (WEBKIT_IS_WEBSITE_DATA_ACCESS_PERMISSION_REQUEST(request)) {
    const std::string from =
        Text(webkit_website_data_access_permission_request_get_requesting_domain(
            WEBKIT_WEBSITE_DATA_ACCESS_PERMISSION_REQUEST(request)));
    return {"data of " + from, "wants to let " + from + " use what it has stored here"};
  }
  return {};
}

std::string OriginOf(const std::string& address) {
  const Owned<WebKitSecurityOrigin, webkit_security_origin_unref> origin(
      webkit_security_origin_new_for_uri(address.c_str()));
  return Taken(webkit_security_origin_to_string(origin.get()));
}

}  // namespace

PermissionWish WishOf(WebKitPermissionRequest* request, const std::string& address) {
  const Wish wish = WishFor(request);
  return {OriginOf(address), wish.kind, wish.words};
}

}  // namespace corvane::desktop
