#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/linux/gtk/dialogs/spoken_dialogs.h"
#include "web/requests/PermissionBook.h"

namespace corvane::desktop {

/// What sites were allowed or refused for good, as one spoken dialog: a list, and
/// buttons that take one decision back, or all. After each the dialog comes anew
/// and begins with what was done.
class PermissionsDialog {
 public:
  PermissionsDialog(SpokenDialogs& dialogs, std::function<PermissionBook&()> book);

  /// Shows it as things stand now; `closed` is called when the user is done.
  void Show(std::function<void()> closed);

 private:
  void Ask(const std::string& done_so_far);
  DialogQuestion Question(const std::string& done_so_far) const;
  void Answered(const DialogAnswer& answer);
  std::string TakeBack(const std::string& words);
  std::string TakeAllBack();

  SpokenDialogs& dialogs_;
  const std::function<PermissionBook&()> book_;
  std::vector<PermissionBook::Decision> shown_;
  std::function<void()> closed_;
};

}  // namespace corvane::desktop
