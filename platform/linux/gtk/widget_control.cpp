#include "platform/linux/gtk/widget_control.h"

#include <atkmm/object.h>
#include <gtkmm/menushell.h>
#include <gtkmm/window.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <utility>

#include "base/error.h"
#include "platform/linux/gtk/text.h"
#include "platform/linux/gtk/virtual_key.h"

namespace corvane::desktop {
namespace {

constexpr const char* kBindingKey = "corvane-binding";

// Turns an event into that of another key. The toolkit's key bindings go by the
// hardware code, so that one changes along.
void BecomeKey(GdkEventKey& event, guint keyval) {
  event.keyval = keyval;
  GdkKeymapKey* keys = nullptr;
  gint count = 0;
  auto* keymap = gdk_keymap_get_for_display(gdk_window_get_display(event.window));
  if (gdk_keymap_get_entries_for_keyval(keymap, keyval, &keys, &count) && count > 0) {
    event.hardware_keycode = static_cast<guint16>(keys[0].keycode);
    event.group = static_cast<guint8>(keys[0].group);
  }
  g_free(keys);
}

bool IsModifier(int code) { return code == kKeyShift || code == kKeyControl || code == kKeyAlt; }

}  // namespace

// A display counts its pixels in sixteen bits; sums of two stay far from overflow.
int PixelsOf(float twips) {
  constexpr float kMost = std::numeric_limits<std::int16_t>::max();
  return static_cast<int>(std::lround(std::clamp(twips / kTwipsPerPixel, -kMost, kMost)));
}

WidgetHolder& HolderOf(Control& control) {
  auto* holder = dynamic_cast<WidgetHolder*>(&control);
  if (!holder) throw RunTimeError(kErrTypeMismatch, "", "Not a control of this desktop");
  return *holder;
}

Gtk::Widget& WidgetOf(Control& control) { return HolderOf(control).widget(); }

struct WidgetBinding::State {
  Control* control = nullptr;  // null once the binding is gone
  Gtk::Widget& outer;
  Gtk::Widget& focus;
  WindowTable& windows;
  WindowHandle handle = 0;
  struct Size {
    float twips = -1;  // as asked for or given, whichever came last; below 0: neither yet
    std::optional<int> wish;
  } width, height;
  std::optional<Point> place;
  bool had_focus = false;
  bool own_list_open = false;
  bool menu_took_focus = false;
  std::set<guint16> down;  // keys that were pressed here, by their hardware code
  std::vector<sigc::connection> signals;

  State(Control& owner, Gtk::Widget& outside, Gtk::Widget& inside, WindowTable& table)
      : control(&owner), outer(outside), focus(inside), windows(table) {}

  Size& Of(Gtk::Orientation orientation) {
    return orientation == Gtk::ORIENTATION_HORIZONTAL ? width : height;
  }
  static void Take(Size& size, int pixels) {
    if (size.twips >= 0 && PixelsOf(size.twips) == pixels) return;
    size.twips = static_cast<float>(pixels) * kTwipsPerPixel;
  }
  Gtk::Widget* Focused() const {
    auto* top = dynamic_cast<Gtk::Window*>(focus.get_toplevel());
    return top ? top->get_focus() : nullptr;
  }
  void FocusChanged();
  bool KeyDown(GdkEventKey* event);
  bool KeyUp(GdkEventKey* event);
};

// The toolkit tells of one change twice. On some desktops a menu takes the focus for
// as long as it is open, as the control's own list does; its return is no news.
void WidgetBinding::State::FocusChanged() {
  if (std::exchange(had_focus, focus.has_focus()) == focus.has_focus()) return;
  if (!focus.has_focus()) {
    down.clear();
    auto* top = gtk_widget_get_toplevel(focus.gobj());
    auto* grab = GTK_IS_WINDOW(top)
                     ? gtk_window_group_get_current_grab(gtk_window_get_group(GTK_WINDOW(top)))
                     : nullptr;
    menu_took_focus = own_list_open || (grab && GTK_IS_MENU_SHELL(grab));
    return;
  }
  if (!std::exchange(menu_took_focus, false)) control->GotFocus.Raise();
}

bool WidgetBinding::State::KeyDown(GdkEventKey* event) {
  const auto* before = Focused();
  down.insert(event->hardware_keycode);
  KeyEvent key{VirtualKey(*event), ShiftState(event->state)};
  const int code = key.KeyCode;
  control->KeyDown.Raise(key);
  if (!control) return true;
  const bool used = code != 0 && key.KeyCode == 0;
  if (used) down.erase(event->hardware_keycode);
  if (used || Focused() != before) return true;
  if (key.KeyCode != code) {
    if (const guint other = KeyvalOf(key.KeyCode)) BecomeKey(*event, other);
  }
  int character = CharacterCode(*event);
  if (character == 0) return false;
  const int typed = character;
  control->KeyPress.Raise(character);
  if (!control || character == 0 || Focused() != before) return true;
  if (character != typed) {
    BecomeKey(*event, gdk_unicode_to_keyval(static_cast<guint32>(character)));
  }
  return false;
}

// The release of a key that was pressed elsewhere is not told, nor that of a key
// that a command has used or of a modifier: it would cut off what the command says, the Tab that
// leads here would have the field read its line over the field's own name, the Escape that closes a
// menu would be taken for the field's, and the Control that silences would speak again.
bool WidgetBinding::State::KeyUp(GdkEventKey* event) {
  KeyEvent key{VirtualKey(*event), ShiftState(event->state)};
  const int code = key.KeyCode;
  const bool pressed_here = down.erase(event->hardware_keycode) > 0;
  if (!pressed_here || IsModifier(code)) return false;
  control->KeyUp.Raise(key);
  return !control || (code != 0 && key.KeyCode == 0);
}

WidgetBinding::WidgetBinding(Control& control, Gtk::Widget& outer, Gtk::Widget& focus,
                             const std::string& name, const std::string& class_name,
                             WindowTable& windows, std::function<std::string()> text)
    : state_(std::make_shared<State>(control, outer, focus, windows)) {
  WindowTable::Entry entry;
  entry.class_name = class_name;
  entry.text = std::move(text);
  entry.widget = &outer;
  entry.child = true;
  state_->handle = windows.Add(std::move(entry));

  outer.set_data(kBindingKey, this);
  outer.set_name(name);
  outer.show();
  // A scrolling area takes the focus of its own where it can; nothing would name it.
  if (&outer != &focus) outer.set_can_focus(false);
  focus.add_events(Gdk::KEY_PRESS_MASK | Gdk::KEY_RELEASE_MASK | Gdk::FOCUS_CHANGE_MASK);
  // Each handler holds the state: its own control may be destroyed from inside it.
  auto& signals = state_->signals;
  const std::weak_ptr<State> weak = state_;
  signals.push_back(focus.property_has_focus().signal_changed().connect([weak] {
    if (auto state = weak.lock(); state && state->control) state->FocusChanged();
  }));
  signals.push_back(focus.signal_key_press_event().connect(
      [weak](GdkEventKey* event) {
        auto state = weak.lock();
        return state && state->control && state->KeyDown(event);
      },
      false));
  signals.push_back(focus.signal_key_release_event().connect(
      [weak](GdkEventKey* event) {
        auto state = weak.lock();
        return state && state->control && state->KeyUp(event);
      },
      false));
  signals.push_back(outer.signal_size_allocate().connect([weak](const Gtk::Allocation& place) {
    if (auto state = weak.lock()) {
      State::Take(state->width, place.get_width());
      State::Take(state->height, place.get_height());
    }
  }));
}

// The widgets may be gone already: they belong to the derived control.
WidgetBinding::~WidgetBinding() {
  state_->control = nullptr;
  for (auto& signal : state_->signals) signal.disconnect();
  state_->windows.Remove(state_->handle);
}

WidgetBinding* WidgetBinding::Of(Gtk::Widget& outer) {
  return static_cast<WidgetBinding*>(outer.get_data(kBindingKey));
}

Control& WidgetBinding::control() const { return *state_->control; }

WindowHandle WidgetBinding::hwnd() const { return state_->handle; }

WidgetBinding* WidgetBinding::Focused() {
  for (Gtk::Window* window : Gtk::Window::list_toplevels()) {
    if (!window->is_active()) continue;
    for (Gtk::Widget* widget = window->get_focus(); widget; widget = widget->get_parent()) {
      if (WidgetBinding* binding = Of(*widget)) return binding;
    }
  }
  return nullptr;
}

void WidgetBinding::OwnListOpen(bool open) { state_->own_list_open = open; }

void WidgetBinding::FocusIsBack() {
  if (state_->focus.has_focus()) {
    control().GotFocus.Raise();
  } else {
    state_->menu_took_focus = false;  // told when it comes
  }
}

void WidgetBinding::SetFocus() { state_->focus.grab_focus(); }

bool WidgetBinding::Visible() const { return state_->outer.get_visible(); }

void WidgetBinding::SetVisible(bool visible) { state_->outer.set_visible(visible); }

bool WidgetBinding::Enabled() const { return state_->outer.get_sensitive(); }

void WidgetBinding::SetEnabled(bool enabled) { state_->outer.set_sensitive(enabled); }

float WidgetBinding::Width() const {
  if (state_->width.twips >= 0) return state_->width.twips;
  int minimum = 0;
  int natural = 0;
  state_->outer.get_preferred_width(minimum, natural);
  return static_cast<float>(natural) * kTwipsPerPixel;
}

float WidgetBinding::Height() const {
  if (state_->height.twips >= 0) return state_->height.twips;
  int minimum = 0;
  int natural = 0;
  state_->outer.get_preferred_height(minimum, natural);
  return static_cast<float>(natural) * kTwipsPerPixel;
}

void WidgetBinding::SetWidth(float twips) {
  twips = std::max(0.0F, twips);
  state_->width = {twips, PixelsOf(twips)};
  Wished.Raise(Gtk::ORIENTATION_HORIZONTAL, *state_->width.wish);
}

void WidgetBinding::SetHeight(float twips) {
  twips = std::max(0.0F, twips);
  state_->height = {twips, PixelsOf(twips)};
  Wished.Raise(Gtk::ORIENTATION_VERTICAL, *state_->height.wish);
}

void WidgetBinding::SetAccessibleName(const std::string& name) {
  state_->focus.get_accessible()->set_name(Valid(name));
}

std::optional<int> WidgetBinding::Wish(Gtk::Orientation orientation) const {
  return state_->Of(orientation).wish;
}

std::optional<WidgetBinding::Point> WidgetBinding::Place() const { return state_->place; }

void WidgetBinding::SetPlace(Point place) {
  if (state_->place == place) return;
  state_->place = place;
  state_->outer.queue_resize();
}

void WidgetBinding::TakeSize(Gtk::Orientation orientation, int pixels) {
  State::Take(state_->Of(orientation), pixels);
}

}  // namespace corvane::desktop
