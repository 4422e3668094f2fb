#include "platform/linux/gtk/system_color.h"

#include <gtkmm/stylecontext.h>

#include <cmath>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

std::uint32_t ThemeColor(SystemColor index) {
  const char* name = index == kColorButtonFace   ? "theme_bg_color"
                     : index == kColorButtonText ? "theme_fg_color"
                                                 : nullptr;
  if (!name) return 0;
  Gdk::RGBA color(index == kColorButtonFace ? "#f6f5f4" : "#2e3436");
  const auto style = Gtk::StyleContext::create();
  style->set_screen(Gdk::Screen::get_default());
  const Owned<GtkWidgetPath, gtk_widget_path_unref> path(gtk_widget_path_new());
  gtk_widget_path_append_type(path.get(), GTK_TYPE_WINDOW);
  gtk_style_context_set_path(style->gobj(), path.get());
  style->lookup_color(name, color);
  const auto part = [](double value) {
    return static_cast<std::uint32_t>(std::lround(value * 255.0));
  };
  return part(color.get_red()) | (part(color.get_green()) << 8U) | (part(color.get_blue()) << 16U);
}

}  // namespace corvane::desktop
