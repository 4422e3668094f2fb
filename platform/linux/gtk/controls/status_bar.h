#pragma once

#include <gtkmm/box.h>
#include <gtkmm/statusbar.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/linux/gtk/widget_control.h"
#include "platform/status_bar.h"

namespace corvane::desktop {

/// A StatusBar of one Gtk::Statusbar a panel; panels are made as they are
/// written to.
class StatusBarControl : public WidgetControl<StatusBar> {
 public:
  StatusBarControl(const std::string& name, WindowTable& windows);
  Gtk::Widget& widget() override { return box_; }

  std::string PanelText(int panel) const override;
  void SetPanelText(int panel, const std::string& text) override;

 private:
  struct Panel {
    Gtk::Statusbar bar;
    std::string text;
  };
  Gtk::Box box_;
  std::vector<std::unique_ptr<Panel>> panels_;
};

}  // namespace corvane::desktop
