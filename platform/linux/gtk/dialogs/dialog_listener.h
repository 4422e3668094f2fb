#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <memory>
#include <string>

#include "base/life.h"
#include "platform/linux/gtk/dialogs/speaker.h"

namespace corvane::desktop {

/// Says of a dialog that it speaks by itself; before it is shown.
void MarkAsSpeaking(GtkWidget* dialog);

/// Speaks for the toolkit's own dialogs, such as the one for printing: the title
/// when one appears, each control that gets the focus, and what a key changes in
/// it. One a process.
class DialogListener {
 public:
  explicit DialogListener(Speaker speak);
  ~DialogListener();
  DialogListener(const DialogListener&) = delete;
  DialogListener& operator=(const DialogListener&) = delete;

 private:
  static gboolean OnMap(GSignalInvocationHint*, guint count, const GValue* values, gpointer self);
  static void OnFocus(GtkWindow* dialog, GtkWidget* focus, gpointer self);
  static void OnActive(GtkWindow* dialog, GParamSpec*, gpointer self);
  static gboolean OnKeyDown(GtkWidget* dialog, GdkEventKey* event, gpointer self);
  static gboolean OnKeyUp(GtkWidget* dialog, GdkEventKey*, gpointer self);
  /// Tells what there is to say of the focus when the event at hand has been handled.
  void Afterwards(
      GtkWindow* dialog,
      std::function<void(DialogListener&, GtkWindow* dialog, const std::string& words)> tell);
  void Say(GtkWindow* dialog, const std::string& words);

  const Speaker speak_;
  gulong hook_ = 0;
  bool moved_ = false;  // the focus, and nothing has been said of it yet
  std::string last_;    // words of the control that has the focus
  Life life_;
};

}  // namespace corvane::desktop
