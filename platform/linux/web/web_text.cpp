#include "platform/linux/web/web_text.h"

#include <gio/gio.h>

#include <stdexcept>

#include "base/text.h"
#include "platform/linux/glib/owner.h"

extern "C" {
GResource* corvane_page_get_resource(void);
GResource* corvane_pages_get_resource(void);
}

namespace corvane::desktop {
namespace {

bool HasLongLine(const std::string& text, std::size_t longest) {
  std::size_t start = 0;
  while (start < text.size()) {
    const auto end = text.find('\n', start);
    const auto stop = end == std::string::npos ? text.size() : end;
    if (stop - start > longest) return true;  // bytes: at least as many as characters
    start = stop + 1;
  }
  return false;
}

}  // namespace

std::string BreakLongLines(std::string text, int longest) {
  const auto limit = static_cast<std::size_t>(longest);
  if (!HasLongLine(text, limit)) return text;

  std::string broken;
  broken.reserve(text.size() + text.size() / limit + 1);
  std::size_t characters = 0;             // on the present line
  std::size_t blank = std::string::npos;  // where the line's last blank stands in `broken`
  std::size_t after_blank = 0;            // characters since then
  for (const char byte : text) {
    if (byte == '\n') {
      characters = after_blank = 0;
      blank = std::string::npos;
    } else if (!text::continues(byte)) {
      if (characters == limit) {
        if (byte == ' ') {  // the blank itself becomes the break
          broken += '\n';
          characters = after_blank = 0;
          blank = std::string::npos;
          continue;
        }
        if (blank != std::string::npos) {
          broken[blank] = '\n';
          characters = after_blank;
        } else {
          broken += '\n';
          characters = 0;
        }
        blank = std::string::npos;
      }
      ++characters;
      ++after_blank;
      if (byte == ' ') {
        blank = broken.size();
        after_blank = 0;
      }
    }
    broken += byte;
  }
  return broken;
}

std::string WebResource(const std::string& name) {
  const std::string path = "/org/corvane/web/" + name;
  for (GResource* resource : {corvane_page_get_resource(), corvane_pages_get_resource()}) {
    const BytesPtr bytes(
        g_resource_lookup_data(resource, path.c_str(), G_RESOURCE_LOOKUP_FLAGS_NONE, nullptr));
    if (!bytes) continue;
    gsize size = 0;
    const auto* data = static_cast<const char*>(g_bytes_get_data(bytes.get(), &size));
    return {data, size};
  }
  throw std::logic_error("no built-in file " + name);
}

}  // namespace corvane::desktop
