#pragma once

#include <gtkmm/scrolledwindow.h>
#include <gtkmm/textview.h>

#include <string>

#include "platform/linux/gtk/widget_control.h"
#include "platform/text_box.h"

namespace corvane::desktop {

/// A TextBox on a Gtk::TextView that cannot be edited. It has a caret, so its
/// text can be read by character, and Tab leaves it.
class TextBoxControl : public WidgetControl<TextBox> {
 public:
  TextBoxControl(const std::string& name, WindowTable& windows);
  Gtk::Widget& widget() override { return scroll_; }

  std::string Text() const override { return text_; }
  void SetText(const std::string& text) override;

 private:
  Gtk::ScrolledWindow scroll_;
  Gtk::TextView view_;
  std::string text_;
};

}  // namespace corvane::desktop
