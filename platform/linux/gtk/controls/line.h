#pragma once

#include <gtkmm/separator.h>

#include <string>

#include "platform/line.h"
#include "platform/linux/gtk/widget_control.h"

namespace corvane::desktop {

/// A Line on a Gtk::Separator.
class LineControl : public WidgetControl<Line> {
 public:
  LineControl(const std::string& name, WindowTable& windows);
  Gtk::Widget& widget() override { return line_; }

 private:
  Gtk::Separator line_{Gtk::ORIENTATION_HORIZONTAL};
};

}  // namespace corvane::desktop
