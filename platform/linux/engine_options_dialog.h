#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/linux/gtk/dialogs/spoken_dialogs.h"
#include "platform/own_options.h"
#include "web/EngineChoices.h"

namespace corvane::desktop {

/// The rendering engine's options as one spoken dialog: start page, search
/// service, zoom, least font size, pictures, scripts; and buttons that clear the
/// history, the cookies and the cache at once, and one that leads to the sites'
/// permissions and back. Behind the options stand the program's own choices; those that
/// have a page of their own are a dialog that a button leads to and back.
class EngineOptionsDialog {
 public:
  /// What the dialog works on.
  struct Engine {
    std::function<EngineChoices()> choices;
    std::function<void(const EngineChoices&)> apply;  ///< stores them, too
    std::function<void()> clear_history;
    std::function<void()> clear_cookies;
    std::function<void()> clear_cache;
    /// Shows what sites are allowed; calls back when the user is done with it.
    std::function<void(std::function<void()> closed)> show_permissions;
  };

  EngineOptionsDialog(SpokenDialogs& dialogs, Engine engine);

  /// The program's own choices, each page of them once; none until then.
  void OfferOptions(OwnOptions options);
  /// Shows it; without effect while it is shown.
  void Show();

 private:
  DialogQuestion Question(const EngineChoices& choices);
  void AddOwnOptions(DialogQuestion& question) const;
  void ApplyOwnOptions(const DialogAnswer& answer) const;
  std::string Check(const DialogAnswer& answer) const;
  void Answered(const DialogAnswer& answer);
  void Apply(const DialogAnswer& answer) const;
  void ShowPermissions(const DialogAnswer& answer);
  void ShowPage(const OwnOptions& page, const DialogAnswer& answer);
  void ComeBack(const std::vector<std::string>& values);
  void Ask(DialogQuestion question);

  SpokenDialogs& dialogs_;
  const Engine engine_;
  OwnOptions own_;
  std::vector<OwnOptions> pages_;
  bool shown_ = false;
};

}  // namespace corvane::desktop
