#include "platform/linux/web/print_page.h"

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <memory>
#include <utility>

#include "platform/linux/web/gobject.h"

namespace corvane::desktop {
namespace {

/// One print, from the dialog to its end.
struct Job {
  ObjectPtr<WebKitPrintOperation> operation;
  std::function<void(const std::string&)> say;
  bool failed = false;
};

void OnFailed(WebKitPrintOperation*, GError* error, gpointer data) {
  auto* job = static_cast<Job*>(data);
  job->failed = true;
  job->say("The page could not be printed: " + Text(error->message));
}

void OnFinished(WebKitPrintOperation*, gpointer data) {
  const std::unique_ptr<Job> job(static_cast<Job*>(data));
  if (!job->failed) job->say("Printed");
  g_signal_handlers_disconnect_by_data(job->operation.get(), job.get());
}

void OnResponse(GtkDialog* dialog, int response, gpointer data) {
  std::unique_ptr<Job> job(static_cast<Job*>(data));
  auto* choice = GTK_PRINT_UNIX_DIALOG(dialog);
  if (response == GTK_RESPONSE_OK &&
      gtk_print_unix_dialog_get_selected_printer(choice) == nullptr) {
    job->say("No printer was found");
  } else if (response == GTK_RESPONSE_OK) {
    const ObjectPtr<GtkPrintSettings> settings(gtk_print_unix_dialog_get_settings(choice));
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
  job->say = std::move(say);
  GtkWidget* window = gtk_widget_get_toplevel(GTK_WIDGET(view));
  GtkWidget* dialog =
      gtk_print_unix_dialog_new("Print", GTK_IS_WINDOW(window) ? GTK_WINDOW(window) : nullptr);
  g_signal_connect(dialog, "response", G_CALLBACK(&OnResponse), job.release());
  gtk_widget_show(dialog);
}

}  // namespace corvane::desktop
