#pragma once

#include <gio/gio.h>

#include <functional>
#include <memory>
#include <string>

#include "base/life.h"
#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"
#include "web/DocumentProblem.h"

namespace corvane::desktop {

/// Makes a page of a document in a process of its own, which is confined and bounded
/// (platform/linux/pdf). Letting go of this ends the process.
class DocumentProcess {
 public:
  struct Result {
    DocumentEnd end = DocumentEnd::Broken;
    std::string page = {};
  };

  /// Called once, never before the constructor has returned.
  using Ready = std::function<void(const Result&)>;

  struct Source {
    int file = -1;  ///< open, and stays the caller's
    std::string address = {};
    std::string password = {};  ///< empty: none
  };
  /// `program`: the path of corvane-pdf.
  DocumentProcess(const std::string& program, const Source& source, Ready ready);
  ~DocumentProcess();
  DocumentProcess(const DocumentProcess&) = delete;
  DocumentProcess& operator=(const DocumentProcess&) = delete;

 private:
  void Read();
  void TakePiece(GBytes* piece);
  void WaitForEnd();
  void Finish(const Result& result);
  Result ResultOf() const;

  struct Asked;
  Life life_;  // answers that come later find it gone
  Ready ready_;
  ObjectPtr<GSubprocess> process_;
  std::string page_;
  Delay limit_;
};

}  // namespace corvane::desktop
