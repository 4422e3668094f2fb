#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <memory>
#include <utility>

#include "base/event.h"
#include "base/life.h"
#include "platform/hooks.h"
#include "platform/linux/gtk/hooks/switched_hook.h"

namespace corvane::desktop {

/// Listens to all key presses and menu highlights of the process, whichever
/// window or menu they are for, before anything acts on them. One a process,
/// made after the toolkit; while it lives it stands between the display and the
/// toolkit.
class EventHooks {
 public:
  EventHooks();
  ~EventHooks();
  EventHooks(const EventHooks&) = delete;
  EventHooks& operator=(const EventHooks&) = delete;

  /// A key has gone down, or repeats; each press is told once, also when an input
  /// method or the page hands it back.
  Event<const GdkEventKey&> KeyPressed;
  Event<const MenuSelect&> MenuSelected;

  /// Takes an event as it comes from the display and gives it to the toolkit.
  void Handle(GdkEvent* event);

 private:
  static gboolean OnSelect(GSignalInvocationHint*, guint count, const GValue* values,
                           gpointer self);

  static gboolean OnDeselect(GSignalInvocationHint*, guint count, const GValue* values,
                             gpointer self);
  static gboolean OnCancel(GSignalInvocationHint*, guint count, const GValue* values,
                           gpointer self);
  void Tell(GtkMenuItem* item);
  void TellWhereASubmenuWasLeft(GtkWidget* submenu);

  guint select_signal_ = 0;
  guint deselect_signal_ = 0;
  guint cancel_signal_ = 0;
  gulong select_hook_ = 0;
  gulong deselect_hook_ = 0;
  gulong cancel_hook_ = 0;
  unsigned selections_ = 0;  // counts what was highlighted
  Life life_;
};

/// Hands on the keys that the process's hooks see.
class LinuxKeyboardHook : public SwitchedHook<KeyboardHook> {
 public:
  /// `into_password`: whether keys go into a field whose text is hidden.
  explicit LinuxKeyboardHook(
      EventHooks& hooks, std::function<bool()> into_password = [] { return false; })
      : hooks_(hooks), into_password_(std::move(into_password)) {}
  bool IntoPassword() const override { return into_password_(); }

 private:
  Connection Listen() override;
  EventHooks& hooks_;
  std::function<bool()> into_password_;
};

/// The same for highlighted menu items.
class LinuxMessageHook : public SwitchedHook<MessageHook> {
 public:
  explicit LinuxMessageHook(EventHooks& hooks) : hooks_(hooks) {}

 private:
  Connection Listen() override;
  EventHooks& hooks_;
};

}  // namespace corvane::desktop
