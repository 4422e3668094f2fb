#include "platform/linux/web/webkit_browser.h"

#include <glibmm/wrap.h>
#include <gtkmm/widget.h>

namespace corvane::desktop {

// A page that opens a window has its view already.
WebKitBrowser::WebKitBrowser(const std::string& name, WebEngine& engine, WindowTable& windows)
    : view_(engine.TakeOffered()) {
  const EngineView::Listener listener{
      [this] { DownloadBegin.Raise(); },
      [this] { DownloadComplete.Raise(); },
      [this](const std::string& text) { StatusTextChange.Raise(text); },
      [this](const std::string& text) { Announcement.Raise(text); },
      [this] { NewWindow.Raise(); },
      [this] { WindowClosing.Raise(); },
      [this](const FileRequest& request) { FilesWanted.Raise(request); },
      [this](const PagePlace& place) { PlaceReached.Raise(place); },
      [this](const PageWords& words) {
        if (IsInFront()) PageSays.Raise(words);
      },
      [this](const PageElement& element) { LeftElement.Raise(element); },
      [this] { Found.Raise(); },
      [this] { ElementGone.Raise(); },
      [this](const PageElement& element) { FocusMoved.Raise(element); },
      [this] { TextChanged.Raise(); }};
  if (view_) {
    // When there is somebody who listens.
    take_over_.Start(0, [this, listener] { view_->TakeOver(listener); });
  } else {
    view_ = std::make_unique<EngineView>(engine, listener);
  }
  widget_ = Glib::wrap(GTK_WIDGET(view_->View()));
  // The class by which the window with the page in it is looked up.
  Bind(*widget_, *widget_, name, "Internet Explorer_Server", windows);
  widget_->show();
}

bool WebKitBrowser::IsInFront() const {
  GtkWidget* window = gtk_widget_get_toplevel(GTK_WIDGET(view_->View()));
  return GTK_IS_WINDOW(window) && gtk_window_is_active(GTK_WINDOW(window));
}

void WebKitBrowser::ExecWB(Command command, CommandOption /*option*/) {
  if (command == OLECMDID_SAVEAS) view_->Save();
  if (command == OLECMDID_PRINT) view_->Print();
}

}  // namespace corvane::desktop
