#include "platform/linux/web/webkit_browser.h"

#include <glibmm/wrap.h>
#include <gtkmm/widget.h>

namespace corvane::desktop {

WebKitBrowser::WebKitBrowser(const std::string& name, WebEngine& engine, WindowTable& windows)
    : view_(engine, {[this] { DownloadBegin.Raise(); }, [this] { DownloadComplete.Raise(); },
                     [this](const std::string& text) { StatusTextChange.Raise(text); }}),
      widget_(Glib::wrap(GTK_WIDGET(view_.View()))),
      tab_guard_(*widget_) {
  // The class by which the window with the page in it is looked up.
  Bind(*widget_, *widget_, name, "Internet Explorer_Server", windows);
  widget_->show();
}

void WebKitBrowser::ExecWB(Command command, CommandOption /*option*/) {
  if (command == OLECMDID_SAVEAS) view_.Save();
  if (command == OLECMDID_PRINT) view_.Print();
}

}  // namespace corvane::desktop
