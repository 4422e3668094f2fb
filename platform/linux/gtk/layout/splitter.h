#pragma once

#include <gtkmm/paned.h>

#include <optional>

#include "base/event.h"
#include "platform/linux/gtk/layout/clip_box.h"

namespace corvane::desktop {

/// Two areas with a bar between them that the user moves with the pointer or,
/// after F8, with the arrow keys. Tells moves by the user from those by layout.
class Splitter : public Gtk::Paned {
 public:
  explicit Splitter(Gtk::Orientation orientation);
  ~Splitter() override;

  ClipBox& First() { return first_; }
  ClipBox& Second() { return second_; }

  /// Wishes a size in pixels for the first (0) or second (1) area. It holds from
  /// the next layout on. A wish for one area that differs from the place the
  /// other's wish has given by no more than the bar's thickness changes nothing:
  /// both sizes together need not know the bar.
  void WishSize(int area, int pixels);
  /// The next layout will have `total` pixels: wishes are about those.
  void Expect(int total) { total_ = total; }
  /// The sizes of the areas as they are or, with the wishes, will be in `total`
  /// pixels.
  int FirstSize() const { return get_position(); }
  int SecondSize() const;
  int BarSize() const;

  /// The user has moved the bar.
  Event<> Moved;

 protected:
  bool on_focus(Gtk::DirectionType direction) override;
  void on_size_allocate(Gtk::Allocation& allocation) override;

 private:
  void Apply(int total);
  /// The area that is laid out alone, when the focus is in the hidden other one.
  ClipBox* ShownWhileTheOtherHasFocus();

  struct Wish {
    int area = 0;
    int pixels = 0;
  };
  ClipBox first_;
  ClipBox second_;
  std::optional<Wish> pending_;
  std::optional<int> holder_;  // whose wish gave the bar its place
  bool own_change_ = false;
  int total_ = 0;
};

}  // namespace corvane::desktop
