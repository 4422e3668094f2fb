#include "platform/linux/web/files/download_folder.h"

#include <glib.h>

namespace corvane::desktop {

std::string DownloadFolder() {
  const char* folder = g_get_user_special_dir(G_USER_DIRECTORY_DOWNLOAD);
  return folder != nullptr ? folder : g_get_home_dir();
}

}  // namespace corvane::desktop
