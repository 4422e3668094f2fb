#include "platform/linux/gtk/dialogs/dialog_listener.h"

#include <gtkmm/widget.h>

#include <utility>

#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/gtk/dialogs/chooser_keys.h"
#include "platform/linux/gtk/dialogs/focus_words.h"
#include "platform/linux/gtk/dialogs/part_names.h"

namespace corvane::desktop {
namespace {

constexpr const char* kSpeaks = "corvane-speaks";

guint MapSignal() { return g_signal_lookup("map", GTK_TYPE_WIDGET); }

std::string WordsFor(GtkWindow* dialog) {
  GtkWidget* focus = gtk_window_get_focus(dialog);
  return focus ? FocusWords(*Glib::wrap(focus)) : std::string();
}

// The title, and what a message says.
std::string Introduction(GtkWindow* dialog) {
  const char* title = gtk_window_get_title(dialog);
  std::string words = title && *title ? std::string(title) + ". " : "";
  if (!GTK_IS_MESSAGE_DIALOG(dialog)) return words;
  for (const char* property : {"text", "secondary-text"}) {
    char* text = nullptr;
    g_object_get(dialog, property, &text, nullptr);
    const std::string part = Taken(text);
    if (!part.empty()) words += part + ". ";
  }
  return words;
}

}  // namespace

void MarkAsSpeaking(GtkWidget* dialog) {
  g_object_set_data(G_OBJECT(dialog), kSpeaks, GINT_TO_POINTER(1));
}

DialogListener::DialogListener(Speaker speak) : speak_(std::move(speak)) {
  g_type_ensure(GTK_TYPE_WIDGET);
  g_type_class_unref(g_type_class_ref(GTK_TYPE_WIDGET));
  hook_ = g_signal_add_emission_hook(MapSignal(), 0, &DialogListener::OnMap, this, nullptr);
}

DialogListener::~DialogListener() {
  life_.End();
  g_signal_remove_emission_hook(MapSignal(), hook_);
  const ListPtr windows(gtk_window_list_toplevels());
  for (GList* link = windows.get(); link; link = link->next) {
    g_signal_handlers_disconnect_by_data(link->data, this);
  }
}

gboolean DialogListener::OnMap(GSignalInvocationHint*, guint, const GValue* values, gpointer self) {
  auto* widget = GTK_WIDGET(g_value_get_object(&values[0]));
  if (!GTK_IS_DIALOG(widget)) return TRUE;
  NameParts(widget);
  if (g_object_get_data(G_OBJECT(widget), kSpeaks)) return TRUE;
  MarkAsSpeaking(widget);
  g_signal_connect(widget, "set-focus", G_CALLBACK(&DialogListener::OnFocus), self);
  g_signal_connect(widget, "notify::is-active", G_CALLBACK(&DialogListener::OnActive), self);
  g_signal_connect(widget, "key-press-event", G_CALLBACK(&DialogListener::OnKeyDown), self);
  g_signal_connect(widget, "key-release-event", G_CALLBACK(&DialogListener::OnKeyUp), self);
  return TRUE;  // keep listening
}

// A choice that an arrow leads to is chosen right after it has got the focus.
void DialogListener::OnFocus(GtkWindow* dialog, GtkWidget* focus, gpointer self) {
  if (!focus || !gtk_window_is_active(dialog)) return;
  auto& listener = *static_cast<DialogListener*>(self);
  listener.moved_ = true;
  listener.Afterwards(dialog, [](DialogListener& now, GtkWindow* at, const std::string& words) {
    if (std::exchange(now.moved_, false)) now.Say(at, words);
  });
}

void DialogListener::OnActive(GtkWindow* dialog, GParamSpec*, gpointer self) {
  if (!gtk_window_is_active(dialog)) return;
  auto& listener = *static_cast<DialogListener*>(self);
  const std::string words = WordsFor(dialog);
  listener.Say(dialog, Introduction(dialog) + words);
  listener.last_ = words;
  listener.moved_ = false;
}

gboolean DialogListener::OnKeyDown(GtkWidget* dialog, GdkEventKey* event, gpointer /*self*/) {
  return ChooserTakesKey(GTK_WINDOW(dialog), *event) ? TRUE : FALSE;
}

// The control has the key only after this.
gboolean DialogListener::OnKeyUp(GtkWidget* dialog, GdkEventKey*, gpointer self) {
  static_cast<DialogListener*>(self)->Afterwards(
      GTK_WINDOW(dialog), [](DialogListener& listener, GtkWindow* at, const std::string& words) {
        if (words != listener.last_) listener.Say(at, words);
      });
  return FALSE;
}

void DialogListener::Afterwards(
    GtkWindow* dialog, std::function<void(DialogListener&, GtkWindow*, const std::string&)> tell) {
  const std::shared_ptr<GtkWindow> held = Held(dialog);
  PostToLoop([held, this, here = life_.Look(), tell = std::move(tell)] {
    if (!here || !gtk_window_is_active(held.get())) return;
    tell(*this, held.get(), WordsFor(held.get()));
  });
}

void DialogListener::Say(GtkWindow* dialog, const std::string& words) {
  last_ = words;
  if (speak_ && !words.empty()) speak_(words, dialog);
}

}  // namespace corvane::desktop
