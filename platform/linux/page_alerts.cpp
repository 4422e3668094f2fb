#include "platform/linux/page_alerts.h"

#include <glibmm/wrap.h>
#include <gtkmm/window.h>

#include <algorithm>
#include <utility>

#include "platform/linux/gtk/dialogs/alert_window.h"

namespace corvane::desktop {

PageAlerts::PageAlerts(WindowTable& windows, Speaker speak)
    : windows_(windows), speak_(std::move(speak)) {}

PageAlerts::~PageAlerts() = default;

void PageAlerts::ShowAlert(void* page, const std::string& text, std::function<void()> done) {
  // The alert's own address tells which one has been closed.
  auto shown = std::make_shared<AlertWindow*>(nullptr);
  auto alert = std::make_unique<AlertWindow>(
      windows_, AlertWindow::kPageCaption, text, MessageBox::Icon::Exclamation, speak_,
      [this, shown, done = std::move(done)] {
        const auto answered = done;
        open_.erase(std::remove_if(open_.begin(), open_.end(),
                                   [&](const auto& each) { return each.get() == *shown; }),
                    open_.end());
        answered();
      });
  *shown = alert.get();
  open_.push_back(std::move(alert));
  GtkWidget* top = gtk_widget_get_toplevel(static_cast<GtkWidget*>(page));
  (*shown)->Show(GTK_IS_WINDOW(top) ? Glib::wrap(GTK_WINDOW(top)) : nullptr);
}

}  // namespace corvane::desktop
