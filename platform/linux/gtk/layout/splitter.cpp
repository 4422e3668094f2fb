#include "platform/linux/gtk/layout/splitter.h"

#include <atkmm/object.h>
#include <gdkmm/window.h>
#include <gtkmm/window.h>

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
  });
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

// The toolkit takes the focus away from what is in a hidden area at each layout. But
// who cannot see may well go on in a list that is not on the screen.
ClipBox* Splitter::ShownWhileTheOtherHasFocus() {
  const auto* window = dynamic_cast<Gtk::Window*>(get_toplevel());
  const auto* focus = window == nullptr ? nullptr : window->get_focus();
  if (focus == nullptr || !get_realized()) return nullptr;
  if (!first_.get_visible() && focus->is_ancestor(first_)) return &second_;
  if (!second_.get_visible() && focus->is_ancestor(second_)) return &first_;
  return nullptr;
}

void Splitter::on_size_allocate(Gtk::Allocation& allocation) {
  const bool before = std::exchange(own_change_, true);
  Apply(get_orientation() == Gtk::ORIENTATION_HORIZONTAL ? allocation.get_width()
                                                         : allocation.get_height());
  if (ClipBox* shown = ShownWhileTheOtherHasFocus()) {
    set_allocation(allocation);
    shown->get_parent_window()->move_resize(allocation.get_x(), allocation.get_y(),
                                            allocation.get_width(), allocation.get_height());
    Gtk::Allocation all(0, 0, allocation.get_width(), allocation.get_height());
    shown->size_allocate(all);
  } else {
    Gtk::Paned::on_size_allocate(allocation);
  }
  own_change_ = before;
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
