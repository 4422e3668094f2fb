#include "platform/linux/web/files/print_page.h"

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <filesystem>
#include <memory>
#include <utility>

#include "base/safe_name.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/web/files/download_folder.h"
#include "web/library/FreePath.h"

namespace corvane::desktop {
namespace {

constexpr const char* kNoPrinter = "No printer was found";

/// One print, from the dialog to its end.
struct Job {
  ObjectPtr<WebKitPrintOperation> operation;
  std::function<void(const std::string&)> say;
  std::string file;  // printed into; empty for a printer of paper
  bool failed = false;
};

void OnFailed(WebKitPrintOperation*, GError* error, gpointer data) {
  auto* job = static_cast<Job*>(data);
  job->failed = true;
  job->say("The page could not be printed: " + Text(error->message));
}

void OnFinished(WebKitPrintOperation*, gpointer data) {
  const std::unique_ptr<Job> job(static_cast<Job*>(data));
  if (!job->failed) job->say(job->file.empty() ? "Printed" : "Printed into " + job->file);
  g_signal_handlers_disconnect_by_data(job->operation.get(), job.get());
}

/// The search for a printer that goes on while the dialog is shown.
struct Search {
  GtkWidget* dialog;  // null once it has gone
  std::function<void(const std::string&)> say;
  bool found = false;
};

gboolean OnPrinter(GtkPrinter*, gpointer data) {
  static_cast<Search*>(data)->found = true;
  return TRUE;  // one is enough
}

// A dialog in which nothing can be chosen would only hold the user.
void OnSearched(gpointer data) {
  const std::unique_ptr<Search> search(static_cast<Search*>(data));
  if (search->dialog == nullptr) return;
  g_object_remove_weak_pointer(G_OBJECT(search->dialog),
                               reinterpret_cast<gpointer*>(&search->dialog));
  if (search->found) return;
  search->say(kNoPrinter);
  gtk_dialog_response(GTK_DIALOG(search->dialog), GTK_RESPONSE_CANCEL);
}

void LookForPrinter(GtkWidget* dialog, std::function<void(const std::string&)> say) {
  auto* search = new Search{dialog, std::move(say)};
  g_object_add_weak_pointer(G_OBJECT(dialog), reinterpret_cast<gpointer*>(&search->dialog));
  gtk_enumerate_printers(&OnPrinter, search, &OnSearched, FALSE);
}

void OnResponse(GtkDialog* dialog, int response, gpointer data) {
  std::unique_ptr<Job> job(static_cast<Job*>(data));
  auto* choice = GTK_PRINT_UNIX_DIALOG(dialog);
  if (response == GTK_RESPONSE_OK &&
      gtk_print_unix_dialog_get_selected_printer(choice) == nullptr) {
    job->say(kNoPrinter);
  } else if (response == GTK_RESPONSE_OK) {
    const ObjectPtr<GtkPrintSettings> settings(gtk_print_unix_dialog_get_settings(choice));
    if (gtk_printer_is_virtual(gtk_print_unix_dialog_get_selected_printer(choice))) {
      const GText path(g_filename_from_uri(
          Text(gtk_print_settings_get(settings.get(), GTK_PRINT_SETTINGS_OUTPUT_URI)).c_str(),
          nullptr, nullptr));
      job->file = Text(path.get());
    }
    WebKitPrintOperation* operation = job->operation.get();
    webkit_print_operation_set_print_settings(operation, settings.get());
    webkit_print_operation_set_page_setup(operation, gtk_print_unix_dialog_get_page_setup(choice));
    g_signal_connect(operation, "failed", G_CALLBACK(&OnFailed), job.get());
    g_signal_connect(operation, "finished", G_CALLBACK(&OnFinished), job.get());
    job.release();
    webkit_print_operation_print(operation);
  }
  gtk_widget_destroy(GTK_WIDGET(dialog));
}

}  // namespace

void PrintPage(WebKitWebView* view, std::function<void(const std::string&)> say) {
  auto job = std::make_unique<Job>();
  job->operation.reset(webkit_print_operation_new(view));
  job->say = say;
  GtkWidget* window = gtk_widget_get_toplevel(GTK_WIDGET(view));
  GtkWidget* dialog =
      gtk_print_unix_dialog_new("Print", GTK_IS_WINDOW(window) ? GTK_WINDOW(window) : nullptr);
  // Where the printer is a file: one that is not there yet, named after the page.
  const std::string path =
      FreePath(DownloadFolder(), SafeFileName(Text(webkit_web_view_get_title(view))) + ".pdf");
  std::error_code error;
  std::filesystem::create_directories(DownloadFolder(), error);
  const GText uri(g_filename_to_uri(path.c_str(), nullptr, nullptr));
  const ObjectPtr<GtkPrintSettings> settings(gtk_print_settings_new());
  gtk_print_settings_set(settings.get(), GTK_PRINT_SETTINGS_OUTPUT_URI, uri.get());
  gtk_print_unix_dialog_set_settings(GTK_PRINT_UNIX_DIALOG(dialog), settings.get());
  g_signal_connect(dialog, "response", G_CALLBACK(&OnResponse), job.release());
  gtk_widget_show(dialog);
  LookForPrinter(dialog, std::move(say));
}

}  // namespace corvane::desktop
