#include "platform/linux/web/webkit_browser.h"

#include <glibmm/wrap.h>
#include <gtkmm/widget.h>

namespace corvane::desktop {

// A page that opens a window has its view already.
WebKitBrowser::WebKitBrowser(const std::string& name, WebEngine& engine, WindowTable& windows)
    : view_(engine.TakeOffered()) {
  const bool at_work = view_ != nullptr;
  if (!at_work) view_ = std::make_unique<EngineView>(engine);
  page_ = &view_->Page();
  if (at_work) {
    take_over_.Start(0, [this] { page_->TellTo(*this); });  // when there is somebody who listens
  } else {
    page_->TellTo(*this);
  }
  widget_ = Glib::wrap(GTK_WIDGET(view_->View()));
  // The class by which the window with the page in it is looked up.
  Bind(*widget_, *widget_, name, "Internet Explorer_Server", windows);
  widget_->show();
}

}  // namespace corvane::desktop
