#include "platform/linux/gtk/layout/splitter.h"

#include <atkmm/object.h>
#include <gdk/gdkkeysyms.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace corvane::desktop {

Splitter::Splitter(Gtk::Orientation orientation) : Gtk::Paned(orientation) {
  set_wide_handle(true);
  get_accessible()->set_name(orientation == Gtk::ORIENTATION_HORIZONTAL
                                 ? "Splitter between left and right"
                                 : "Splitter between top and bottom");
  pack1(first_, false, true);
  pack2(second_, true, true);
  first_.show();
  second_.show();
  property_position().signal_changed().connect([this] {
    if (own_change_) return;
    pending_.reset();
    holder_.reset();
    Moved.Raise();
    if (is_focus()) TellShare();
  });
}

void Splitter::Place::Set(GtkWidget* widget) {
  const auto pointer = reinterpret_cast<gpointer*>(&widget_);
  if (widget_ != nullptr) g_object_remove_weak_pointer(G_OBJECT(widget_), pointer);
  widget_ = widget;
  if (widget_ != nullptr) g_object_add_weak_pointer(G_OBJECT(widget_), pointer);
}

Splitter::~Splitter() {
  own_change_ = true;
  remove(first_);
  remove(second_);
}

int Splitter::BarSize() const {
  if (!first_.get_visible() || !second_.get_visible()) return 0;
  // Both areas may shrink to nothing, so the bar is all that is always there.
  int minimum = 0;
  int natural = 0;
  if (get_orientation() == Gtk::ORIENTATION_HORIZONTAL) {
    get_preferred_width(minimum, natural);
  } else {
    get_preferred_height(minimum, natural);
  }
  return minimum;
}

int Splitter::SecondSize() const { return std::max(0, total_ - BarSize() - FirstSize()); }

void Splitter::WishSize(int area, int pixels) {
  if (holder_ && *holder_ != area && total_ > 0) {
    // Where the bar is, or is about to be.
    int first = FirstSize();
    if (pending_)
      first = pending_->area == 0 ? pending_->pixels : total_ - BarSize() - pending_->pixels;
    const int wished = area == 0 ? pixels : total_ - BarSize() - pixels;
    if (std::abs(wished - first) <= BarSize()) return;
  }
  pending_ = Wish{area, pixels};
  holder_ = area;
  queue_resize();
}

void Splitter::Apply(int total) {
  total_ = total;
  const auto wish = std::exchange(pending_, std::nullopt);
  if (!wish) return;
  const int place = wish->area == 0 ? wish->pixels : total - BarSize() - wish->pixels;
  set_position(std::clamp(place, 0, std::max(0, total - BarSize())));
}

void Splitter::on_size_allocate(Gtk::Allocation& allocation) {
  const bool before = std::exchange(own_change_, true);
  Apply(get_orientation() == Gtk::ORIENTATION_HORIZONTAL ? allocation.get_width()
                                                         : allocation.get_height());
  Gtk::Paned::on_size_allocate(allocation);
  own_change_ = before;
}

bool Splitter::CanBeSeen() const {
  return get_mapped() && first_.get_visible() && second_.get_visible();
}

std::vector<Splitter*> Splitter::AllIn(Gtk::Window& window) {
  std::vector<Splitter*> all;
  const GtkCallback collect = [](GtkWidget* widget, gpointer list) {
    auto& found = *static_cast<std::pair<std::vector<Splitter*>*, GtkCallback>*>(list);
    if (GTK_IS_PANED(widget)) {
      auto* splitter = dynamic_cast<Splitter*>(Glib::wrap(widget));
      if (splitter != nullptr && splitter->CanBeSeen()) found.first->push_back(splitter);
    }
    if (GTK_IS_CONTAINER(widget)) {
      gtk_container_forall(GTK_CONTAINER(widget), found.second, list);
    }
  };
  std::pair search{&all, collect};
  collect(GTK_WIDGET(window.gobj()), &search);
  return all;
}

void Splitter::Take(GtkWidget* came_from) {
  came_from_.Set(came_from);
  began_at_ = get_position();
  grab_focus();
  if (is_focus()) Focused.Raise();
}

void Splitter::Leave() {
  GtkWidget* const back = came_from_.Get();
  came_from_.Set(nullptr);
  if (back != nullptr) gtk_widget_grab_focus(back);
}

void Splitter::GoRound(Gtk::Window& window, bool back) {
  std::vector<Splitter*> all = AllIn(window);
  if (back) std::reverse(all.begin(), all.end());
  if (all.empty()) return;
  auto* const focus = window.get_focus();
  const auto here = std::find(all.begin(), all.end(), focus);
  if (here == all.end()) return all.front()->Take(focus == nullptr ? nullptr : focus->gobj());
  if (here + 1 == all.end()) return (*here)->Leave();
  GtkWidget* const came_from = (*here)->came_from_.Get();
  (*here)->came_from_.Set(nullptr);
  (*(here + 1))->Take(came_from);
}

// From one whole percent to the next. Who is at the end hears that the bar stays.
void Splitter::Step(int direction) {
  const int room = std::max(1, total_ - BarSize());
  const int before = get_position();
  const int share = std::clamp((100 * before + room / 2) / room + direction, 0, 100);
  set_position((share * room + 50) / 100);
  if (get_position() == before) TellShare();
}

void Splitter::TellShare() {
  const int room = std::max(1, total_ - BarSize());
  Stepped.Raise((100 * get_position() + room / 2) / room);
}

bool Splitter::on_key_press_event(GdkEventKey* event) {
  const guint modifiers = event->state & gtk_accelerator_get_default_mod_mask();
  if (!is_focus() || modifiers != 0) return Gtk::Paned::on_key_press_event(event);
  const bool across = get_orientation() == Gtk::ORIENTATION_HORIZONTAL;
  switch (event->keyval) {
    case GDK_KEY_Left:
    case GDK_KEY_Right:
      if (across) Step(event->keyval == GDK_KEY_Left ? -1 : 1);
      return true;
    case GDK_KEY_Up:
    case GDK_KEY_Down:
      if (!across) Step(event->keyval == GDK_KEY_Up ? -1 : 1);
      return true;
    case GDK_KEY_Escape:
      set_position(began_at_);
      Leave();
      return true;
    case GDK_KEY_Return:
    case GDK_KEY_KP_Enter:
      Leave();
      return true;
    default:
      return Gtk::Paned::on_key_press_event(event);
  }
}

// The two areas stand in windows of their own, so their places say nothing about
// which comes first; the toolkit would go to the smaller one.
bool Splitter::on_focus(Gtk::DirectionType direction) {
  if (direction != Gtk::DIR_TAB_FORWARD && direction != Gtk::DIR_TAB_BACKWARD) {
    return Gtk::Paned::on_focus(direction);
  }
  Gtk::Widget* areas[] = {&first_, &second_};
  if (direction == Gtk::DIR_TAB_BACKWARD) std::swap(areas[0], areas[1]);
  if (get_focus_child() == areas[1]) return areas[1]->child_focus(direction);
  return areas[0]->child_focus(direction) || areas[1]->child_focus(direction);
}

}  // namespace corvane::desktop
