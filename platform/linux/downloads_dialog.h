#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/linux/gtk/dialogs/spoken_dialogs.h"
#include "platform/linux/web/files/download.h"

namespace corvane::desktop {

/// The files that come and have come from the network as one spoken dialog: how
/// far each is, a button that stops one, a button that opens the folder of one.
class DownloadsDialog {
 public:
  /// What the dialog works on.
  struct Source {
    std::function<std::vector<DownloadState>()> list;
    std::function<void(int number)> stop;
    std::function<void(const std::string& path)> open_folder;  ///< of the file
  };

  DownloadsDialog(SpokenDialogs& dialogs, Source source);

  /// Shows it as things stand now; without effect while it is shown.
  void Show();

 private:
  DialogQuestion Question() const;
  std::string Check(const DialogAnswer& answer) const;
  void Answered(const DialogAnswer& answer);
  const DownloadState* Chosen(const DialogAnswer& answer) const;

  SpokenDialogs& dialogs_;
  const Source source_;
  std::vector<DownloadState> files_;  // as shown
  bool shown_ = false;
};

}  // namespace corvane::desktop
