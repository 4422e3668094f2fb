#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/manner.h"
#include "platform/desktop.h"
#include "platform/file_request.h"

namespace corvane {

class dwFileOpenSave;
class frmAbout;
class MainApp;

/// The dialogs that a browser window opens over itself. They go with the window.
class WindowDialogs {
 public:
  /// All must outlive the dialogs.
  WindowDialogs(Desktop& desktop, const Manner& manner, Form& owner);
  ~WindowDialogs();

  /// Lets the user choose a page's file; `chosen` gets its path, and nothing is
  /// called when the user cancels.
  void OpenFile(std::function<void(const std::string& path)> chosen);
  /// Lets the user choose what a page or a command has asked for. While another
  /// file dialog is shown nothing is chosen.
  void ChooseFiles(const FileRequest& request);
  /// Shows the about box, which speaks with the service. Without effect while it
  /// is shown.
  void ShowAbout(std::shared_ptr<MainApp> service);

 private:
  Desktop& desktop_;
  const Manner& manner_;
  Form& owner_;
  std::unique_ptr<dwFileOpenSave> NewFileDialog() const;

  std::unique_ptr<dwFileOpenSave> files_;  // the one that is shown
  std::unique_ptr<frmAbout> about_;
};

}  // namespace corvane
