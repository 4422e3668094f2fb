#pragma once

#include <gdkmm/rectangle.h>
#include <gtkmm/box.h>
#include <gtkmm/window.h>
#include <gtkmm/windowgroup.h>

#include <memory>
#include <string>

#include "base/life.h"
#include "platform/form.h"
#include "platform/linux/gtk/layout/clip_box.h"
#include "platform/linux/gtk/way_back.h"
#include "platform/linux/gtk/widget_control.h"

namespace corvane::desktop {

/// A Form on a top-level GTK window. Left and Top are those of the window with
/// its title bar, Width and Height those of the area inside. What is set is what
/// is answered, shown or hidden, until the user or the window manager moves or
/// resizes the window. When it is shown at a place where its title bar could not
/// be reached, or larger than the screen, it is brought back onto the screen.
class FormWindow : public Form {
 public:
  FormWindow(const std::string& name, WindowTable& windows);
  ~FormWindow() override;

  WindowHandle hwnd() const override;
  std::string Caption() const override;
  void SetCaption(const std::string& caption) override;
  float Left() const override;
  void SetLeft(float twips) override;
  float Top() const override;
  void SetTop(float twips) override;
  float Width() const override;
  void SetWidth(float twips) override;
  float Height() const override;
  void SetHeight(float twips) override;
  WindowState State() const override;
  void FillScreen() override;
  void SetMenu(Menu& menu) override;
  void SetContent(ElasticFrame& frame) override;
  void SetStatusBar(StatusBar& bar) override;
  bool Visible() const override;
  void Show() override;
  void ShowModal(Form* owner) override;
  void Hide() override;
  void Close(UnloadMode mode) override;

  Gtk::Window& window() { return window_; }

 private:
  struct Geometry {
    float left = 0;
    float top = 0;
    float width = 6000;
    float height = 4500;
  };
  void Replace(ClipBox& slot, Gtk::Widget& widget);
  void Present();
  void BringOntoScreen();
  void Configured();
  void LeaveRoomForFrame(int width, int height);
  bool Escape(const GdkEventKey& event);

  WindowTable& windows_;
  WindowHandle handle_ = 0;
  std::string caption_;
  Gtk::Window window_;
  // Modal windows hold up those of their own group only.
  Glib::RefPtr<Gtk::WindowGroup> group_ = Gtk::WindowGroup::create();
  Gtk::Box box_;
  ClipBox menu_slot_;  // each lets the window be smaller than its content
  ClipBox content_slot_;
  ClipBox status_slot_;
  Geometry geometry_;
  Gdk::Rectangle filled_;  // what the window fills until its frame is known
  Geometry asked_;         // what was set last: it holds while the window is there to the pixel
  GdkWindowState state_ = GdkWindowState(0);
  WayBack way_back_;
  bool modal_ = false;
  bool closing_ = false;
  bool closed_ = false;
  Life life_;
};

}  // namespace corvane::desktop
