#pragma once

#include <gtkmm/image.h>

#include <string>

#include "platform/image.h"
#include "platform/linux/gtk/widget_control.h"

namespace corvane::desktop {

/// An Image on a Gtk::Image with the icon theme's pictures.
class ImageControl : public WidgetControl<Image> {
 public:
  ImageControl(const std::string& name, WindowTable& windows);
  Gtk::Widget& widget() override { return image_; }

  void SetPicture(Picture picture) override;

 private:
  Gtk::Image image_;
};

}  // namespace corvane::desktop
