#include "platform/linux/gtk/controls/command_button.h"

#include <giomm/themedicon.h>
#include <gtkmm/cssprovider.h>
#include <gtkmm/label.h>
#include <gtkmm/stylecontext.h>
#include <gtkmm/window.h>

#include <utility>
#include <vector>

#include "platform/button_image.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

// The names under which a theme may have the picture, best first.
std::vector<Glib::ustring> IconNames(int image) {
  switch (image) {
    case kImageBack:
      return {"go-previous", "go-previous-symbolic"};
    case kImageForward:
      return {"go-next", "go-next-symbolic"};
    case kImageStop:
      return {"process-stop", "process-stop-symbolic"};
    case kImageRefresh:
      return {"view-refresh", "view-refresh-symbolic"};
    case kImageHome:
      return {"go-home", "go-home-symbolic"};
    case kImageSearch:
      return {"edit-find", "edit-find-symbolic", "system-search-symbolic"};
    case kImagePrint:
      return {"document-print", "document-print-symbolic", "printer-symbolic"};
    case kImageLoading:
      return {"content-loading-symbolic", "image-loading", "image-loading-symbolic"};
    default:
      return {};
  }
}

}  // namespace

CommandButtonControl::CommandButtonControl(const std::string& name, WindowTable& windows) {
  // Slim, so that a row of seven fits into a small window.
  const auto slim = Gtk::CssProvider::create();
  slim->load_from_data("button { padding: 3px 4px; }");
  button_.get_style_context()->add_provider(slim, GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  button_.set_use_underline(true);
  button_.set_always_show_image(true);
  Bind(button_, button_, name, "CommandButton", windows,
       [this] { return WithoutMnemonic(caption_); });
  button_.signal_clicked().connect([this] { Click.Raise(); });
}

bool CommandButtonControl::YieldingButton::on_mnemonic_activate(bool group_cycling) {
  auto* window = dynamic_cast<Gtk::Window*>(get_toplevel());
  const guint key = Gtk::Label(get_label(), true).get_mnemonic_keyval();
  if (!group_cycling || yielding_ || window == nullptr) {
    return Gtk::Button::on_mnemonic_activate(group_cycling);
  }
  // The window has put this button behind the others; now it is another's turn.
  yielding_ = true;
  const bool taken = window->mnemonic_activate(key, window->get_mnemonic_modifier());
  yielding_ = false;
  return taken;
}

void CommandButtonControl::SetCaption(const std::string& caption) {
  caption_ = caption;
  button_.set_label(WithMnemonic(caption));
}

void CommandButtonControl::SetPicture(int image) {
  if (image == image_) return;
  image_ = image;
  const auto names = IconNames(image);
  if (names.empty()) {
    picture_.clear();
    return;
  }
  const Glib::RefPtr<const Gio::Icon> icon = Gio::ThemedIcon::create(names);
  picture_.set(icon, Gtk::ICON_SIZE_BUTTON);
  if (button_.get_image() == nullptr) button_.set_image(picture_);
}

}  // namespace corvane::desktop
