#include "platform/linux/web/requests/permission_wish.h"

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

const char* KindOfMedia(WebKitUserMediaPermissionRequest* request) {
  if (webkit_user_media_permission_is_for_display_device(request)) return "screen";
  const bool sound = webkit_user_media_permission_is_for_audio_device(request);
  const bool picture = webkit_user_media_permission_is_for_video_device(request);
  return sound && picture ? "camera and microphone" : picture ? "camera" : "microphone";
}

std::string KindOf(WebKitPermissionRequest* request) {
  if (WEBKIT_IS_USER_MEDIA_PERMISSION_REQUEST(request)) {
    return KindOfMedia(WEBKIT_USER_MEDIA_PERMISSION_REQUEST(request));
  }
  struct Row {
    GType type;
    const char* kind;
  };
  const Row rows[] = {
      {WEBKIT_TYPE_GEOLOCATION_PERMISSION_REQUEST, "location"},
      {WEBKIT_TYPE_NOTIFICATION_PERMISSION_REQUEST, "notifications"},
      {WEBKIT_TYPE_DEVICE_INFO_PERMISSION_REQUEST, "devices"},
      {WEBKIT_TYPE_POINTER_LOCK_PERMISSION_REQUEST, "pointer"},
      {WEBKIT_TYPE_CLIPBOARD_PERMISSION_REQUEST, "clipboard"},
      {WEBKIT_TYPE_MEDIA_KEY_SYSTEM_PERMISSION_REQUEST, "protected media"},
      {WEBKIT_TYPE_WEBSITE_DATA_ACCESS_PERMISSION_REQUEST, "data"},
  };
  for (const Row& row : rows) {
    if (g_type_is_a(G_OBJECT_TYPE(request), row.type)) return row.kind;
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
  PermissionWish wish{OriginOf(address), KindOf(request)};
  if (WEBKIT_IS_WEBSITE_DATA_ACCESS_PERMISSION_REQUEST(request)) {
    wish.of = Text(webkit_website_data_access_permission_request_get_requesting_domain(
        WEBKIT_WEBSITE_DATA_ACCESS_PERMISSION_REQUEST(request)));
  }
  return wish;
}

}  // namespace corvane::desktop
