#pragma once

#include <gtkmm/enums.h>
#include <gtkmm/widget.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/control.h"
#include "platform/linux/gtk/window_table.h"

namespace corvane::desktop {

/// Twips in a pixel: 1440 to the inch, 96 pixels to the inch.
inline constexpr float kTwipsPerPixel = 15.0F;

/// The nearest whole number of pixels.
int PixelsOf(float twips);

class WidgetBinding;

/// Whatever can be put into a frame: the GTK side of every control.
class WidgetHolder {
 public:
  virtual ~WidgetHolder() = default;
  /// The outermost widget, for packing.
  virtual Gtk::Widget& widget() = 0;
  /// What ties the widget to the control: the sizes it was given, its handle.
  virtual WidgetBinding& binding() = 0;
};

/// The widget of a control that this desktop made.
Gtk::Widget& WidgetOf(Control& control);

/// The holder of a control that this desktop made.
WidgetHolder& HolderOf(Control& control);

/// Ties a widget to a control's events and to the window table: focus, key down
/// (before the widget acts), key up and key press, with virtual-key codes. One
/// per control; disconnects when it goes.
///
/// A key goes to the widget only when the handlers of KeyDown and KeyPress leave
/// its code, the focus and the control as they are: a handler that moves the
/// focus has used the key. A code changed to another one becomes that key.
class WidgetBinding {
 public:
  /// `outer` is what is packed and sized, `focus` takes focus and keys (often
  /// the same). Names the outer widget after the control. `text` answers for the
  /// control's text in the window table.
  WidgetBinding(Control& control, Gtk::Widget& outer, Gtk::Widget& focus, const std::string& name,
                const std::string& class_name, WindowTable& windows,
                std::function<std::string()> text = {});
  ~WidgetBinding();
  WidgetBinding(const WidgetBinding&) = delete;
  WidgetBinding& operator=(const WidgetBinding&) = delete;

  /// The binding of a control's outer widget; null for any other widget.
  static WidgetBinding* Of(Gtk::Widget& outer);
  /// The binding of the control that has the focus in the active window; null when
  /// that is another widget or no window of the program is active.
  static WidgetBinding* Focused();
  Control& control() const;

  WindowHandle hwnd() const;
  void SetFocus();
  /// A list of the control's own that may take the focus is open, or is not any more:
  /// what it takes comes back without being told.
  void OwnListOpen(bool open);
  /// A menu or list over the control was left with nothing chosen: it tells its focus again.
  void FocusIsBack();
  bool Visible() const;
  void SetVisible(bool visible);
  bool Enabled() const;
  void SetEnabled(bool enabled);
  /// Twips, as last asked for or allocated; before either the natural size.
  float Width() const;
  void SetWidth(float twips);
  float Height() const;
  void SetHeight(float twips);
  void SetAccessibleName(const std::string& name);

  /// The size that SetWidth or SetHeight asked for, in pixels, if ever.
  std::optional<int> Wish(Gtk::Orientation orientation) const;
  /// The size that the layout is about to give, so that Width and Height answer
  /// it before the widget has it.
  void TakeSize(Gtk::Orientation orientation, int pixels);
  /// SetWidth (horizontal) or SetHeight was called, with so many pixels.
  Event<Gtk::Orientation, int> Wished;

  /// A place in the parent, in pixels. A control that has one floats: its frame
  /// leaves it out of the layout.
  struct Point {
    int left = 0;
    int top = 0;
    bool operator==(const Point&) const = default;
  };
  std::optional<Point> Place() const;
  void SetPlace(Point place);

 private:
  struct State;
  std::shared_ptr<State> state_;
};

/// Implements the Control part of a port over a WidgetBinding. A derived class
/// builds its widgets, then calls Bind once.
template <class Port>
class WidgetControl : public Port, public WidgetHolder {
 public:
  WindowHandle hwnd() const override { return binding_->hwnd(); }
  void SetFocus() override { binding_->SetFocus(); }
  bool Visible() const override { return binding_->Visible(); }
  void SetVisible(bool visible) override { binding_->SetVisible(visible); }
  bool Enabled() const override { return binding_->Enabled(); }
  void SetEnabled(bool enabled) override { binding_->SetEnabled(enabled); }
  float Width() const override { return binding_->Width(); }
  void SetWidth(float twips) override { binding_->SetWidth(twips); }
  float Height() const override { return binding_->Height(); }
  void SetHeight(float twips) override { binding_->SetHeight(twips); }
  void SetAccessibleName(const std::string& name) override { binding_->SetAccessibleName(name); }
  WidgetBinding& binding() override { return *binding_; }
  const WidgetBinding& binding() const { return *binding_; }

 protected:
  void Bind(Gtk::Widget& outer, Gtk::Widget& focus, const std::string& name,
            const std::string& class_name, WindowTable& windows,
            std::function<std::string()> text = {}) {
    binding_ = std::make_unique<WidgetBinding>(*this, outer, focus, name, class_name, windows,
                                               std::move(text));
  }

 private:
  std::unique_ptr<WidgetBinding> binding_;
};

}  // namespace corvane::desktop
