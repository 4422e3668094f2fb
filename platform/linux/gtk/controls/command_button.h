#pragma once

#include <gtkmm/button.h>
#include <gtkmm/image.h>

#include <string>

#include "platform/command_button.h"
#include "platform/linux/gtk/widget_control.h"

namespace corvane::desktop {

/// A CommandButton on Gtk::Button, its pictures from the desktop's icon theme.
class CommandButtonControl : public WidgetControl<CommandButton> {
 public:
  CommandButtonControl(const std::string& name, WindowTable& windows);
  Gtk::Widget& widget() override { return button_; }

  std::string Caption() const override { return caption_; }
  void SetCaption(const std::string& caption) override;
  void SetPicture(int image) override;

 private:
  /// A button that leaves an access key to the menu bar when a menu has the same
  /// one; the toolkit would take turns between the two.
  class YieldingButton : public Gtk::Button {
   protected:
    bool on_mnemonic_activate(bool group_cycling) override;

   private:
    bool yielding_ = false;
  };

  YieldingButton button_;
  Gtk::Image picture_;
  std::string caption_;
  int image_ = 0;
};

}  // namespace corvane::desktop
