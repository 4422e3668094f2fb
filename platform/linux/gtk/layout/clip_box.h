#pragma once

#include <gtkmm/container.h>

#include <functional>
#include <vector>

namespace corvane::desktop {

/// A container that can be made as small as one likes: what does not fit is cut
/// off at its edges, never drawn over its neighbours. With nothing to show it
/// takes no room. By itself it gives its whole area to its one child; an owner
/// may lay out several.
class ClipBox : public Gtk::Container {
 public:
  ClipBox();
  ~ClipBox() override;

  const std::vector<Gtk::Widget*>& Children() const { return children_; }
  /// Gives a child its place, from inside `LayOut`. A child that needs more than
  /// that gets more and is cut off.
  static void Allocate(Gtk::Widget& child, int left, int top, int width, int height);

  /// Lays the children out in an area of that width and height.
  std::function<void(int width, int height)> LayOut;
  /// The size that the children would like along one direction.
  std::function<int(Gtk::Orientation)> Natural;
  /// A child has left the box.
  std::function<void(Gtk::Widget&)> Removed;

 protected:
  GType child_type_vfunc() const override;
  void on_add(Gtk::Widget* child) override;
  void on_remove(Gtk::Widget* child) override;
  void forall_vfunc(gboolean include_internals, GtkCallback callback, gpointer data) override;
  Gtk::SizeRequestMode get_request_mode_vfunc() const override;
  void get_preferred_width_vfunc(int& minimum, int& natural) const override;
  void get_preferred_height_vfunc(int& minimum, int& natural) const override;
  void on_realize() override;
  void on_size_allocate(Gtk::Allocation& allocation) override;

 private:
  int NaturalSize(Gtk::Orientation orientation) const;
  bool AnyShown() const;

  std::vector<Gtk::Widget*> children_;
};

}  // namespace corvane::desktop
