#include "platform/linux/gtk/text_pane/rich_text_view.h"

#include <gdkmm/general.h>
#include <gdkmm/window.h>
#include <gtkmm/stylecontext.h>

namespace corvane::desktop {

RichTextView::RichTextView() {
  // Each handler takes the place of the toolkit's own.
  g_signal_connect(gobj(), "copy-clipboard", G_CALLBACK(+[](GtkWidget* view, gpointer self) {
                     g_signal_stop_emission_by_name(view, "copy-clipboard");
                     if (const auto& copy = static_cast<RichTextView*>(self)->Copy) copy();
                   }),
                   this);
  g_signal_connect(gobj(), "cut-clipboard", G_CALLBACK(+[](GtkWidget* view, gpointer self) {
                     g_signal_stop_emission_by_name(view, "cut-clipboard");
                     if (const auto& cut = static_cast<RichTextView*>(self)->Cut) cut();
                   }),
                   this);
  g_signal_connect(gobj(), "paste-clipboard", G_CALLBACK(+[](GtkWidget* view, gpointer self) {
                     g_signal_stop_emission_by_name(view, "paste-clipboard");
                     if (const auto& paste = static_cast<RichTextView*>(self)->Paste) paste();
                   }),
                   this);
}

bool RichTextView::on_draw(const Cairo::RefPtr<Cairo::Context>& context) {
  const bool handled = Gtk::TextView::on_draw(context);
  const auto tag = BulletTag ? BulletTag() : Glib::RefPtr<Gtk::TextTag>();
  const auto area = get_window(Gtk::TEXT_WINDOW_TEXT);
  if (!tag || !area || !should_draw_window(context, area)) return handled;
  Gdk::Rectangle seen;
  get_visible_rect(seen);
  Gtk::TextIter line;
  int top = 0;
  for (get_line_at_y(line, seen.get_y(), top); top < seen.get_y() + seen.get_height();) {
    if (line.has_tag(tag)) {
      Gdk::Rectangle place;
      get_iter_location(line, place);
      int x = 0;
      int y = 0;
      buffer_to_window_coords(Gtk::TEXT_WINDOW_WIDGET, place.get_x(), place.get_y(), x, y);
      Gdk::Cairo::set_source_rgba(context, get_style_context()->get_color(get_state_flags()));
      const double radius = place.get_height() / 8.0;
      context->arc(x - 3 * radius, y + place.get_height() / 2.0, radius, 0, 2 * G_PI);
      context->fill();
    }
    if (!line.forward_line()) break;
    int height = 0;
    get_line_yrange(line, top, height);
  }
  return handled;
}

}  // namespace corvane::desktop
