#pragma once

#include <gtkmm/paned.h>
#include <gtkmm/window.h>

#include <optional>
#include <vector>

#include "base/event.h"
#include "platform/linux/gtk/layout/clip_box.h"

namespace corvane::desktop {

/// Two areas with a bar between them that the user moves with the pointer or with
/// the keyboard: arrows move it by a hundredth, Return leaves it there, Escape where it
/// was. Tells moves by the user from those by layout.
class Splitter : public Gtk::Paned {
 public:
  /// Leads the focus from wherever it is to the first bar of the window that can be
  /// seen (`back`: to the last), from bar to bar, and back to where it was.
  static void GoRound(Gtk::Window& window, bool back);

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
  /// The user has come to the bar with the keyboard.
  Event<> Focused;
  /// The user has moved it with the keyboard; the first area's share in percent.
  Event<int> Stepped;

 protected:
  bool on_key_press_event(GdkEventKey* event) override;
  bool on_focus(Gtk::DirectionType direction) override;
  void on_size_allocate(Gtk::Allocation& allocation) override;

 private:
  /// The widget that has the focus while no bar has it; it may go meanwhile.
  class Place {
   public:
    ~Place() { Set(nullptr); }
    void Set(GtkWidget* widget);
    GtkWidget* Get() const { return widget_; }

   private:
    GtkWidget* widget_ = nullptr;
  };

  void Apply(int total);
  static std::vector<Splitter*> AllIn(Gtk::Window& window);
  bool CanBeSeen() const;
  void Take(GtkWidget* came_from);
  void Leave();
  void Step(int direction);
  void TellShare();

  struct Wish {
    int area = 0;
    int pixels = 0;
  };
  ClipBox first_;
  ClipBox second_;
  std::optional<Wish> pending_;
  Place came_from_;            // before the first of the bars that were gone round
  int began_at_ = 0;           // the bar's place when the user came to it
  std::optional<int> holder_;  // whose wish gave the bar its place
  bool own_change_ = false;
  int total_ = 0;
};

}  // namespace corvane::desktop
