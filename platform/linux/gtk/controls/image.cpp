#include "platform/linux/gtk/controls/image.h"

#include <giomm/file.h>
#include <giomm/themedicon.h>
#include <gtkmm/icontheme.h>

#include <filesystem>

namespace corvane::desktop {
namespace {

constexpr int kPixels = 48;
constexpr int kMargin = 8;  // pixels
constexpr const char* kProgramIcon = "org.corvane.Corvane";

// Where the program is not installed its icon lies beside it.
Glib::RefPtr<const Gio::Icon> ProgramIcon() {
  if (Gtk::IconTheme::get_default()->has_icon(kProgramIcon)) {
    return Gio::ThemedIcon::create(kProgramIcon);
  }
  std::error_code error;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  const auto file = Gio::File::create_for_path(folder / (std::string(kProgramIcon) + ".svg"));
  return Glib::wrap(g_file_icon_new(file->gobj()));
}

Glib::RefPtr<const Gio::Icon> IconFor(Image::Picture picture) {
  if (picture == Image::Picture::Program) return ProgramIcon();
  return Gio::ThemedIcon::create("dialog-information");
}

}  // namespace

ImageControl::ImageControl(const std::string& name, WindowTable& windows) {
  image_.set_pixel_size(kPixels);
  image_.set_margin_top(kMargin);
  image_.set_margin_bottom(kMargin);
  image_.set_margin_start(kMargin);
  image_.set_margin_end(kMargin);
  image_.set_valign(Gtk::ALIGN_START);
  image_.show();
  Bind(image_, image_, name, "Image", windows);
}

void ImageControl::SetPicture(Picture picture) {
  image_.set(IconFor(picture), Gtk::ICON_SIZE_DIALOG);
}

}  // namespace corvane::desktop
