#include "platform/linux/gtk/controls/image_list.h"

#include <gtkmm/icontheme.h>

namespace corvane::desktop {
namespace {

constexpr int kPixels = 16;

// The names under which a theme may have the picture, best first.
std::vector<Glib::ustring> IconNames(StockImage image) {
  switch (image) {
    case StockImage::Document:
      return {"text-html", "text-x-generic", "text-x-generic-symbolic"};
    case StockImage::Links:
      return {"view-list-bullet", "view-list-symbolic", "folder"};
    case StockImage::Link:
      return {"emblem-symbolic-link", "insert-link", "insert-link-symbolic", "go-jump"};
    case StockImage::Frames:
      return {"view-grid", "view-grid-symbolic", "folder"};
    case StockImage::Frame:
      return {"window", "window-new", "window-new-symbolic", "text-html"};
    case StockImage::Anchors:
      return {"user-bookmarks", "user-bookmarks-symbolic", "folder"};
    case StockImage::Anchor:
      return {"bookmark-new", "bookmark-new-symbolic"};
    case StockImage::Forms:
      return {"x-office-document-template", "view-paged-symbolic", "folder"};
    case StockImage::Form:
      return {"x-office-document", "x-office-document-symbolic"};
    case StockImage::FormElement:
      return {"insert-text", "input-keyboard", "input-keyboard-symbolic"};
  }
  return {};
}

}  // namespace

Glib::RefPtr<Gdk::Pixbuf> ThemeIcon(const std::vector<Glib::ustring>& names, int pixels) {
  try {
    const auto theme = Gtk::IconTheme::get_default();
    for (const auto& name : names) {
      if (!theme->has_icon(name)) continue;
      return theme->load_icon(name, pixels, Gtk::ICON_LOOKUP_FORCE_SIZE);
    }
  } catch (const Glib::Error&) {  // a picture that cannot be read is a blank one
  }
  return {};
}

int PixbufList::Add(const std::string& key, std::shared_ptr<Picture> picture) {
  const auto* given = dynamic_cast<const PixbufPicture*>(picture.get());
  images_.push_back({key, "", given ? given->Pixbuf() : Glib::RefPtr<Gdk::Pixbuf>()});
  return Count();
}

int PixbufList::Add(const std::string& key, StockImage image) {
  images_.push_back({key, "", ThemeIcon(IconNames(image), kPixels)});
  return Count();
}

Glib::RefPtr<Gdk::Pixbuf> PixbufList::Pixbuf(int index) const {
  return index < 1 || index > Count() ? Glib::RefPtr<Gdk::Pixbuf>() : At(index).pixbuf;
}

}  // namespace corvane::desktop
