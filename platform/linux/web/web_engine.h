#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/event.h"
#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/web/page/field_focus.h"
#include "web/Browser.h"
#include "web/BrowserOptions.h"
#include "web/OwnPages.h"
#include "web/Preferences.h"

namespace corvane::desktop {

class Downloads;
class EngineView;

/// How the engine works together with the rest of the program. Whatever is left
/// empty has a sensible default.
struct EngineOptions : BrowserOptions {
  /// Keeps nothing on disk: no cookies, no cache.
  bool ephemeral = false;
  /// Default: "corvane" in the user's data and cache folders.
  std::string data_directory;
  std::string cache_directory;
  /// The folder of the page processes' own part; default: beside the program.
  std::string extension_directory;
  /// The program that makes pages of documents; default: beside the program.
  std::string document_program;
  /// Favourites and pages of the history that fit words searched.
  std::function<std::vector<SearchMatch>(const std::string& words)> find_matches;
  /// Shows alerts of pages; without it they only go to the status text.
  std::shared_ptr<ScriptDialogs> dialogs;
  /// Shows questions; without it none is asked, and what a page wants to be
  /// allowed is refused.
  std::shared_ptr<Questions> questions;
  /// Where files from the network go; default: the user's download folder.
  std::string download_folder;
  /// Where the permissions of sites are kept; default: in the data folder.
  std::string permissions_file;
  /// The user has changed the zoom, in percent; to store it.
  std::function<void(int percent)> zoom_changed;
  /// Sees what a page's scripts cannot tell of the field that has the focus; without it
  /// that stays unknown.
  LookAtFocus look_at_focus;
};

/// The rendering engine: one for all browser controls of the program. Must
/// outlive them.
class WebEngine {
 public:
  explicit WebEngine(EngineOptions options = {});
  ~WebEngine();
  WebEngine(const WebEngine&) = delete;
  WebEngine& operator=(const WebEngine&) = delete;

  const EngineOptions& Options() const { return options_; }
  WebKitWebContext* Context() const { return context_.get(); }
  WebKitSettings* Settings() const { return settings_.get(); }

  /// Takes effect at once; scripts and images with the next page.
  void SetPreferences(const EnginePreferences& preferences) { preferences_.Set(preferences); }

  /// Files that are coming.
  Downloads& GetDownloads() { return *downloads_; }
  /// A sentence for the user of this view. When that has gone (null), the first
  /// listener says it and sets `said`: it is not to be heard from every window.
  Event<WebKitWebView*, const std::string&, bool& /*said*/> Say;

  /// A file begins to come, and whether somebody takes it: it is no download then.
  Event<WebKitDownload*, bool& /*taken*/> FileBegins;
  /// The engine wants the page of a document for one of its views, and whether that has
  /// taken the request.
  Event<WebKitURISchemeRequest*, bool& /*taken*/> DocumentWanted;

  /// What sites are allowed for good.
  PermissionBook& Permissions() { return *permissions_; }
  /// What all browsers share.
  Browser::Shared ForBrowsers() {
    return {options_,
            preferences_,
            LoopSchedule(),
            {options_.questions, options_.dialogs, options_.programs, *permissions_}};
  }

  /// A view that a page has opened waits here until a control takes it.
  void Offer(std::unique_ptr<EngineView> opened);
  /// The view that waits; null when there is none.
  std::unique_ptr<EngineView> TakeOffered();

  /// Forgets cookies and the sites' stored data, or the cache.
  void ClearSiteData();
  void ClearCache();

 private:
  void ApplyPreferences();
  static void OnDownload(WebKitWebContext*, WebKitDownload* download, gpointer self);
  static void OnCorvaneRequest(WebKitURISchemeRequest* request, gpointer self);

  EngineOptions options_;
  Preferences preferences_;
  Connection preferences_changed_;
  std::unique_ptr<PermissionBook> permissions_;
  std::unique_ptr<Downloads> downloads_;
  std::unique_ptr<EngineView> offered_;
  ObjectPtr<WebKitWebContext> context_;
  ObjectPtr<WebKitSettings> settings_;
};

}  // namespace corvane::desktop
