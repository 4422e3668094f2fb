#pragma once

#include <gtkmm/widget.h>

#include <memory>
#include <string>

#include "platform/control.h"
#include "platform/linux/gtk/window_table.h"

namespace corvane::desktop {

/// Twips in a pixel: 1440 to the inch, 96 pixels to the inch.
inline constexpr float kTwipsPerPixel = 15.0F;

/// Whatever can be put into a frame: the GTK side of every control.
class WidgetHolder {
 public:
  virtual ~WidgetHolder() = default;
  /// The outermost widget, for packing.
  virtual Gtk::Widget& widget() = 0;
};

/// The widget of a control that this desktop made.
Gtk::Widget& WidgetOf(Control& control);

/// Ties a widget to a control's events and to the window table: focus, key down
/// (before the widget acts), key up and key press, with virtual-key codes. One
/// per control; disconnects when it goes.
class WidgetBinding {
 public:
  /// `outer` is what is packed and sized, `focus` takes focus and keys (often
  /// the same). Names the outer widget after the control.
  WidgetBinding(Control& control, Gtk::Widget& outer, Gtk::Widget& focus, const std::string& name,
                const std::string& class_name, WindowTable& windows);
  ~WidgetBinding();
  WidgetBinding(const WidgetBinding&) = delete;
  WidgetBinding& operator=(const WidgetBinding&) = delete;

  WindowHandle hwnd() const;
  void SetFocus();
  bool Visible() const;
  void SetVisible(bool visible);
  bool Enabled() const;
  void SetEnabled(bool enabled);
  float Width() const;  ///< twips, as allocated (as requested before the first layout)
  void SetWidth(float twips);
  float Height() const;
  void SetHeight(float twips);
  void SetAccessibleName(const std::string& name);

 private:
  struct State;
  std::unique_ptr<State> state_;
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

 protected:
  void Bind(Gtk::Widget& outer, Gtk::Widget& focus, const std::string& name,
            const std::string& class_name, WindowTable& windows) {
    binding_ = std::make_unique<WidgetBinding>(*this, outer, focus, name, class_name, windows);
  }

 private:
  std::unique_ptr<WidgetBinding> binding_;
};

}  // namespace corvane::desktop
