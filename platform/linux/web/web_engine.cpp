#include "platform/linux/web/web_engine.h"

#include <filesystem>
#include <utility>

#include "platform/linux/store/ini_file.h"
#include "platform/linux/web/engine_view.h"
#include "platform/linux/web/files/downloads.h"
#include "platform/linux/web/requests/desktop_programs.h"
#include "platform/linux/web/web_resource.h"
#include "web/address/OwnAddress.h"

namespace corvane::desktop {
namespace {

std::string ProgramFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return program.parent_path().string();
}

std::string ExtensionFolder() {
  const std::string program = ProgramFolder();
  for (const char* place : {"/web-process", "/../lib/corvane/web-process"}) {
    std::error_code error;
    const auto folder = std::filesystem::weakly_canonical(program + place, error);
    if (std::filesystem::is_directory(folder, error)) return folder.string();
  }
  return program + "/web-process";
}

std::string InFolder(const char* folder, const char* name) {
  const GText path(g_build_filename(folder, "corvane", name, nullptr));
  return Text(path.get());
}

void FillDefaults(EngineOptions& options) {
  if (options.data_directory.empty())
    options.data_directory = InFolder(g_get_user_data_dir(), "web");
  if (options.cache_directory.empty()) {
    options.cache_directory = InFolder(g_get_user_cache_dir(), "web");
  }
  if (options.extension_directory.empty()) options.extension_directory = ExtensionFolder();
  if (options.document_program.empty()) {
    options.document_program = ProgramFolder() + "/corvane-pdf";
  }
  if (options.permissions_file.empty() && !options.ephemeral) {
    options.permissions_file = options.data_directory + "/permissions.ini";
  }
  if (!options.programs) options.programs = std::make_shared<DesktopPrograms>();
  if (options.home_directory.empty()) options.home_directory = Text(g_get_home_dir());
  if (options.problem_page.empty()) options.problem_page = WebResource("problem.html");
  if (!options.find_matches) {
    options.find_matches = [](const std::string&) { return std::vector<SearchMatch>(); };
  }
}

ObjectPtr<WebKitWebsiteDataManager> MakeDataManager(const EngineOptions& options) {
  if (options.ephemeral) {
    return ObjectPtr<WebKitWebsiteDataManager>(webkit_website_data_manager_new_ephemeral());
  }
  return ObjectPtr<WebKitWebsiteDataManager>(webkit_website_data_manager_new(
      "base-data-directory", options.data_directory.c_str(), "base-cache-directory",
      options.cache_directory.c_str(), nullptr));
}

}  // namespace

WebEngine::WebEngine(EngineOptions options)
    : options_(std::move(options)),
      preferences_(options_.zoom_changed),
      preferences_changed_(preferences_.Changed.Connect([this] { ApplyPreferences(); })) {
  FillDefaults(options_);
  permissions_ = std::make_unique<PermissionBook>(options_.permissions_file, &ReplaceFile);
  downloads_ =
      std::make_unique<Downloads>(options_.questions, options_.download_folder,
                                  [this](WebKitWebView* view, const std::string& sentence) {
                                    bool said = false;
                                    Say.Raise(view, sentence, said);
                                  });
  const auto data = MakeDataManager(options_);
  // Passwords are never stored.
  webkit_website_data_manager_set_persistent_credential_storage_enabled(data.get(), FALSE);
  webkit_website_data_manager_set_tls_errors_policy(data.get(), WEBKIT_TLS_ERRORS_POLICY_FAIL);
  if (!options_.ephemeral) {
    WebKitCookieManager* cookies = webkit_website_data_manager_get_cookie_manager(data.get());
    webkit_cookie_manager_set_persistent_storage(
        cookies, (options_.data_directory + "/cookies.sqlite").c_str(),
        WEBKIT_COOKIE_PERSISTENT_STORAGE_SQLITE);
  }

  context_.reset(webkit_web_context_new_with_website_data_manager(data.get()));
  WebKitWebContext* context = context_.get();
  webkit_web_context_set_sandbox_enabled(context, TRUE);  // before the first process
  webkit_web_context_set_web_extensions_directory(context, options_.extension_directory.c_str());
  if (std::filesystem::is_directory(options_.extension_directory)) {
    webkit_web_context_add_path_to_sandbox(context, options_.extension_directory.c_str(), TRUE);
  }
  webkit_web_context_register_uri_scheme(context, kCorvaneScheme, &WebEngine::OnCorvaneRequest,
                                         this, nullptr);
  g_signal_connect(context, "download-started", G_CALLBACK(&WebEngine::OnDownload), this);
  // Only the program's own pages may show, frame or lead to its own pages.
  WebKitSecurityManager* security = webkit_web_context_get_security_manager(context);
  webkit_security_manager_register_uri_scheme_as_display_isolated(security, kCorvaneScheme);

  settings_.reset(webkit_settings_new());
  WebKitSettings* settings = settings_.get();
  // Pages are heard, not seen: drawing by the processor keeps processes small.
  webkit_settings_set_hardware_acceleration_policy(settings,
                                                   WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER);
  webkit_settings_set_enable_tabs_to_links(settings, TRUE);
  webkit_settings_set_enable_page_cache(settings, TRUE);
  // Every window is judged and, where it is refused, told; the engine would say nothing.
  webkit_settings_set_javascript_can_open_windows_automatically(settings, TRUE);
  webkit_settings_set_allow_modal_dialogs(settings, TRUE);
  webkit_settings_set_default_charset(settings, "utf-8");
}

void WebEngine::Offer(std::unique_ptr<EngineView> opened) { offered_ = std::move(opened); }
std::unique_ptr<EngineView> WebEngine::TakeOffered() { return std::move(offered_); }

WebEngine::~WebEngine() {
  offered_.reset();
  g_signal_handlers_disconnect_by_data(context_.get(), this);
}

void WebEngine::ApplyPreferences() {
  const EnginePreferences& preferences = preferences_.Now();
  WebKitSettings* settings = settings_.get();
  webkit_settings_set_minimum_font_size(settings,
                                        static_cast<guint32>(preferences.minimum_font_size));
  webkit_settings_set_auto_load_images(settings, preferences.images);
  // Not enable-javascript: the page script must go on working.
  webkit_settings_set_enable_javascript_markup(settings, preferences.scripts);
}

void WebEngine::ClearSiteData() {
  const auto types = static_cast<WebKitWebsiteDataTypes>(
      WEBKIT_WEBSITE_DATA_COOKIES | WEBKIT_WEBSITE_DATA_SESSION_STORAGE |
      WEBKIT_WEBSITE_DATA_LOCAL_STORAGE | WEBKIT_WEBSITE_DATA_INDEXEDDB_DATABASES |
      WEBKIT_WEBSITE_DATA_SERVICE_WORKER_REGISTRATIONS | WEBKIT_WEBSITE_DATA_HSTS_CACHE |
      WEBKIT_WEBSITE_DATA_ITP);
  webkit_website_data_manager_clear(webkit_web_context_get_website_data_manager(context_.get()),
                                    types, 0, nullptr, nullptr, nullptr);
}

void WebEngine::ClearCache() {
  const auto types = static_cast<WebKitWebsiteDataTypes>(
      WEBKIT_WEBSITE_DATA_MEMORY_CACHE | WEBKIT_WEBSITE_DATA_DISK_CACHE |
      WEBKIT_WEBSITE_DATA_OFFLINE_APPLICATION_CACHE | WEBKIT_WEBSITE_DATA_DOM_CACHE);
  webkit_website_data_manager_clear(webkit_web_context_get_website_data_manager(context_.get()),
                                    types, 0, nullptr, nullptr, nullptr);
}

void WebEngine::OnDownload(WebKitWebContext*, WebKitDownload* download, gpointer self) {
  auto& engine = *static_cast<WebEngine*>(self);
  bool taken = false;
  engine.FileBegins.Raise(download, taken);
  if (!taken) engine.downloads_->Begin(download);
}

void WebEngine::OnCorvaneRequest(WebKitURISchemeRequest* request, gpointer self) {
  const auto& engine = *static_cast<WebEngine*>(self);
  const std::string address = Text(webkit_uri_scheme_request_get_uri(request));
  std::string page;
  bool taken = false;
  if (IsDocumentPage(address)) engine.DocumentWanted.Raise(request, taken);
  if (taken) return;
  if (address == "corvane://home" || address.starts_with("corvane://home/")) {
    page = WebResource("home.html");
  } else if (IsSearch(address)) {
    const std::string words = SearchedWords(address);
    page = RenderSearch(WebResource("search.html"), words, engine.options_.find_matches(words),
                        !engine.options_.SearchAddress(address).empty());
  } else {
    const ErrorPtr error(g_error_new_literal(
        WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_FILE_DOES_NOT_EXIST, "no such page"));
    webkit_uri_scheme_request_finish_error(request, error.get());
    return;
  }
  const auto size = static_cast<gssize>(page.size());
  const ObjectPtr<GInputStream> stream(
      g_memory_input_stream_new_from_data(g_memdup2(page.data(), page.size()), size, g_free));
  webkit_uri_scheme_request_finish(request, stream.get(), size, "text/html; charset=utf-8");
}

}  // namespace corvane::desktop
