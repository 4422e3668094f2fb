#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <string>
#include <utility>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

/// A file that is open for reading; closes it.
class OpenFile {
 public:
  OpenFile() = default;
  explicit OpenFile(int number) : number_(number) {}
  ~OpenFile();
  OpenFile(OpenFile&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  OpenFile& operator=(OpenFile&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

  explicit operator bool() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_ = -1;
};

/// The file of a "file:" address; not open, and `failure` set, when there is none or it
/// is not one that holds bytes.
OpenFile OpenLocal(const std::string& address, ErrorPtr& failure);

/// A document that the engine fetches into a private file, which loses its name as soon
/// as it is there. Letting go of this gives it up.
class DocumentFetch {
 public:
  struct Host {
    std::function<void(OpenFile)> done;
    std::function<void(const GError&)> failed;
    /// It is longer than anything that would be read.
    std::function<void()> too_big;
    /// What comes is something else after all.
    std::function<void()> other_kind;
  };

  /// One of `host` is called once, later. `check_kind`: what comes need not be a
  /// document, because nobody has looked yet.
  DocumentFetch(WebKitDownload* download, bool check_kind, Host host);
  ~DocumentFetch();
  DocumentFetch(const DocumentFetch&) = delete;
  DocumentFetch& operator=(const DocumentFetch&) = delete;

 private:
  void Begin();
  void Progress();
  void Finished();
  void GiveUp();
  void RemoveFolder();

  ObjectPtr<WebKitDownload> download_;
  const bool check_kind_;
  Host host_;
  std::string folder_;  // private; empty until the file begins to come
  ErrorPtr failure_;
  bool over_ = false;  // the engine lets nothing be cancelled twice
};

}  // namespace corvane::desktop
