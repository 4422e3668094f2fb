#include "platform/linux/gtk/layout/form.h"

#include <gdk/gdkkeysyms.h>
#include <gdkmm/display.h>
#include <gdkmm/monitor.h>

#include <algorithm>

#include "base/error.h"
#include "platform/linux/gtk/menu/menu.h"
#include "platform/linux/gtk/text.h"
#include "platform/linux/gtk/virtual_key.h"

namespace corvane::desktop {
namespace {

constexpr int kReachable = 100;   // pixels of a title bar that suffice to grasp it
constexpr int kLeastWidth = 120;  // what a window keeps when it is made small
constexpr int kLeastHeight = 80;

// Pixels as twips; exactly those that were asked for when they mean these pixels.
float Twips(int pixels, float asked) {
  return PixelsOf(asked) == pixels ? asked : static_cast<float>(pixels) * kTwipsPerPixel;
}

}  // namespace

FormWindow::FormWindow(const std::string& name, WindowTable& windows)
    : windows_(windows), caption_(name), box_(Gtk::ORIENTATION_VERTICAL) {
  WindowTable::Entry entry;
  entry.class_name = "Form";
  entry.text = [this] { return caption_; };
  entry.close = [this] { Close(UnloadMode::ControlMenu); };
  entry.widget = &window_;
  handle_ = windows_.Add(std::move(entry));

  group_->add_window(window_);
  window_.set_name(name);
  window_.set_title(Valid(caption_));
  box_.pack_start(menu_slot_, false, true);
  box_.pack_start(content_slot_, true, true);
  box_.pack_start(status_slot_, false, true);
  window_.add(box_);
  box_.show_all();
  window_.set_size_request(kLeastWidth, kLeastHeight);

  window_.signal_delete_event().connect([this](GdkEventAny*) {
    Close(UnloadMode::ControlMenu);
    return true;  // Close has done what there is to do; the form may be gone
  });
  window_.signal_window_state_event().connect([this](GdkEventWindowState* event) {
    state_ = event->new_window_state;
    return false;
  });
  window_.signal_configure_event().connect(
      [this](GdkEventConfigure*) {
        Configured();
        return false;
      },
      false);
  window_.signal_key_press_event().connect(
      [this](GdkEventKey* event) {
        const auto here = life_.Look();
        KeyEvent key{VirtualKey(*event), ShiftState(event->state)};
        const int code = key.KeyCode;
        KeyDown.Raise(key);
        return !here || (code != 0 && key.KeyCode == 0);
      },
      false);
  window_.signal_key_press_event().connect([this](GdkEventKey* event) { return Escape(*event); },
                                           true);
  window_.property_is_active().signal_changed().connect([this] {
    if (window_.property_is_active().get_value()) windows_.WindowActivated.Raise(handle_);
  });
}

// What the window shows belongs to others, who may still use it.
FormWindow::~FormWindow() {
  life_.End();
  windows_.Remove(handle_);
  window_.hide();
  for (auto* slot : {&menu_slot_, &content_slot_, &status_slot_}) {
    while (!slot->Children().empty()) slot->remove(*slot->Children().back());
  }
}

WindowHandle FormWindow::hwnd() const { return handle_; }

std::string FormWindow::Caption() const { return caption_; }

void FormWindow::SetCaption(const std::string& caption) {
  caption_ = caption;
  window_.set_title(Valid(caption));
}

float FormWindow::Left() const { return geometry_.left; }
float FormWindow::Top() const { return geometry_.top; }
float FormWindow::Width() const { return geometry_.width; }
float FormWindow::Height() const { return geometry_.height; }

void FormWindow::SetLeft(float twips) {
  geometry_.left = asked_.left = twips;
  if (Visible()) window_.move(PixelsOf(geometry_.left), PixelsOf(geometry_.top));
}

void FormWindow::SetTop(float twips) {
  geometry_.top = asked_.top = twips;
  if (Visible()) window_.move(PixelsOf(geometry_.left), PixelsOf(geometry_.top));
}

void FormWindow::SetWidth(float twips) {
  geometry_.width = asked_.width = std::max(twips, kLeastWidth * kTwipsPerPixel);
  if (Visible()) window_.resize(PixelsOf(geometry_.width), PixelsOf(geometry_.height));
}

void FormWindow::SetHeight(float twips) {
  geometry_.height = asked_.height = std::max(twips, kLeastHeight * kTwipsPerPixel);
  if (Visible()) window_.resize(PixelsOf(geometry_.width), PixelsOf(geometry_.height));
}

Form::WindowState FormWindow::State() const {
  if ((state_ & GDK_WINDOW_STATE_ICONIFIED) != 0) return WindowState::Minimized;
  if ((state_ & GDK_WINDOW_STATE_MAXIMIZED) != 0) return WindowState::Maximized;
  return WindowState::Normal;
}

// What the frame needs of it is known only when the window manager has made one.
void FormWindow::FillScreen() {
  const auto display = window_.get_display();
  const auto monitor = display->get_primary_monitor();
  (monitor ? monitor : display->get_monitor(0))->get_workarea(filled_);
  SetLeft(static_cast<float>(filled_.get_x()) * kTwipsPerPixel);
  SetTop(static_cast<float>(filled_.get_y()) * kTwipsPerPixel);
  SetWidth(static_cast<float>(filled_.get_width()) * kTwipsPerPixel);
  SetHeight(static_cast<float>(filled_.get_height()) * kTwipsPerPixel);
}

// Once: from then on the size is the user's.
void FormWindow::LeaveRoomForFrame(int width, int height) {
  Gdk::Rectangle frame;
  window_.get_window()->get_frame_extents(frame);
  const int beside = frame.get_width() - width;
  const int above = frame.get_height() - height;
  if (beside <= 0 && above <= 0) return;
  const int free_width = filled_.get_width() - beside;
  const int free_height = filled_.get_height() - above;
  filled_ = {};
  if (width > free_width || height > free_height)
    window_.resize(std::min(width, free_width), std::min(height, free_height));
}

void FormWindow::Replace(ClipBox& slot, Gtk::Widget& widget) {
  while (!slot.Children().empty()) slot.remove(*slot.Children().back());
  if (auto* old = widget.get_parent()) old->remove(widget);
  slot.add(widget);
}

void FormWindow::SetMenu(Menu& menu) {
  auto* root = dynamic_cast<MenuRoot*>(&menu);
  if (!root) throw RunTimeError(kErrTypeMismatch, "", "Not a menu of this desktop");
  Replace(menu_slot_, root->Bar());
}

void FormWindow::SetContent(ElasticFrame& frame) {
  Replace(content_slot_, WidgetOf(frame));
  windows_.Place(frame.hwnd(), handle_);
}

void FormWindow::SetStatusBar(StatusBar& bar) {
  Replace(status_slot_, WidgetOf(bar));
  windows_.Place(bar.hwnd(), handle_);
}

bool FormWindow::Visible() const { return window_.get_visible(); }

void FormWindow::Show() {
  if (closed_) return;
  if (!Visible()) Present();
  window_.present();
}

void FormWindow::ShowModal(Form* owner) {
  if (closed_) return;
  auto* behind = dynamic_cast<FormWindow*>(owner);
  way_back_.Remember(&window_, behind ? &behind->window_ : nullptr);
  if (behind && behind != this && behind->Visible()) {
    window_.set_transient_for(behind->window_);
    behind->group_->add_window(window_);
  }
  modal_ = true;
  window_.set_modal(true);
  Show();
}

void FormWindow::Present() {
  BringOntoScreen();
  window_.set_default_size(PixelsOf(geometry_.width), PixelsOf(geometry_.height));
  window_.resize(PixelsOf(geometry_.width), PixelsOf(geometry_.height));
  window_.move(PixelsOf(geometry_.left), PixelsOf(geometry_.top));
  window_.show();
}

void FormWindow::BringOntoScreen() {
  const auto display = window_.get_display();
  const int left = PixelsOf(geometry_.left);
  const int top = PixelsOf(geometry_.top);
  int width = PixelsOf(geometry_.width);
  int height = PixelsOf(geometry_.height);
  for (int i = 0; i < display->get_n_monitors(); ++i) {
    Gdk::Rectangle area;
    display->get_monitor(i)->get_workarea(area);
    const int seen =
        std::min(left + width, area.get_x() + area.get_width()) - std::max(left, area.get_x());
    const bool reachable = seen >= std::min(width, kReachable) && top >= area.get_y() &&
                           top + kReachable <= area.get_y() + area.get_height();
    if (reachable && width <= area.get_width() && height <= area.get_height()) return;
  }
  Gdk::Rectangle area;
  display->get_monitor_at_point(left + width / 2, top)->get_workarea(area);
  width = std::min(width, area.get_width());
  height = std::min(height, area.get_height());
  const int right_most = area.get_x() + area.get_width() - width;
  const int lowest = area.get_y() + area.get_height() - height;
  geometry_.width = Twips(width, geometry_.width);
  geometry_.height = Twips(height, geometry_.height);
  geometry_.left = Twips(std::clamp(left, area.get_x(), right_most), geometry_.left);
  geometry_.top = Twips(std::clamp(top, area.get_y(), lowest), geometry_.top);
  asked_ = geometry_;
}

void FormWindow::Configured() {
  if (!Visible() || State() == WindowState::Minimized) return;
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  window_.get_position(left, top);
  window_.get_size(width, height);
  if (filled_.get_width() > 0) LeaveRoomForFrame(width, height);
  geometry_ = {Twips(left, asked_.left), Twips(top, asked_.top), Twips(width, asked_.width),
               Twips(height, asked_.height)};
}

void FormWindow::Hide() {
  window_.hide();
  if (!modal_) return;
  modal_ = false;
  window_.set_modal(false);
  window_.unset_transient_for();
  way_back_.Go();
}

void FormWindow::Close(UnloadMode mode) {
  if (closing_ || closed_) return;
  closing_ = true;
  const auto here = life_.Look();
  bool cancel = false;
  QueryUnload.Raise(cancel, mode);
  if (!here) return;
  if (cancel) {
    closing_ = false;
    return;
  }
  Unload.Raise();
  if (!here) return;
  closed_ = true;
  Hide();
}

// Runs only when nothing inside the window has used the key.
bool FormWindow::Escape(const GdkEventKey& event) {
  if (!modal_ || event.keyval != GDK_KEY_Escape) return false;
  Close(UnloadMode::ControlMenu);
  return true;
}

}  // namespace corvane::desktop
