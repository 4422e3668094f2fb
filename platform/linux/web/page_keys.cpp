#include "platform/linux/web/page_keys.h"

#include <gdk/gdkkeysyms.h>

#include <string>
#include <utility>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

PageKeys& KeysOf(gpointer self) { return *static_cast<PageKeys*>(self); }

/// Whether the engine is at work: it handles what the page's process tells it in
/// an event source of its own.
bool IsFromEngine() {
  GSource* source = g_main_current_source();
  return source != nullptr && Text(g_source_get_name(source)).starts_with("[WebKit]");
}

bool IsTab(const GdkEventKey& event) {
  return event.keyval == GDK_KEY_Tab || event.keyval == GDK_KEY_ISO_Left_Tab;
}

bool IsBack(const GdkEventKey& event) {
  return event.keyval == GDK_KEY_ISO_Left_Tab || (event.state & GDK_SHIFT_MASK) != 0;
}

}  // namespace

PageKeys::PageKeys(WebKitWebView* view, Host host, double patience)
    : view_(GTK_WIDGET(view)), host_(std::move(host)), patience_(patience) {
  g_signal_connect(view_, "key-press-event",
                   G_CALLBACK(+[](GtkWidget*, GdkEventKey* event, gpointer self) -> gboolean {
                     return KeysOf(self).KeyPressed(*event);
                   }),
                   this);
  g_signal_connect(view_, "key-release-event",
                   G_CALLBACK(+[](GtkWidget*, GdkEventKey* event, gpointer) -> gboolean {
                     NameBackTab(*event);
                     return FALSE;
                   }),
                   this);
  g_signal_connect(view_, "focus-in-event",
                   G_CALLBACK(+[](GtkWidget*, GdkEventFocus*, gpointer self) -> gboolean {
                     PageKeys& keys = KeysOf(self);
                     if (std::exchange(keys.left_, false)) keys.host_.left(false);
                     return FALSE;
                   }),
                   this);
  g_signal_connect(
      view_, "hierarchy-changed",
      G_CALLBACK(+[](GtkWidget*, GtkWidget*, gpointer self) { KeysOf(self).WatchWindow(); }), this);
  WatchWindow();
}

PageKeys::~PageKeys() {
  g_signal_handlers_disconnect_by_data(view_, this);
  ForgetWindow();
}

// The engine tells a page of a Tab with Shift as of a key without a name, and dialogs
// that keep the focus within let it go.
void PageKeys::NameBackTab(GdkEventKey& event) {
  if (event.keyval == GDK_KEY_ISO_Left_Tab) event.keyval = GDK_KEY_Tab;
}

// Alt and Down open a list everywhere but in the engine, which knows Space for it.
void PageKeys::OpenList(GdkEventKey& event) {
  const bool alone = (event.state & gtk_accelerator_get_default_mod_mask()) == GDK_MOD1_MASK;
  if (event.keyval != GDK_KEY_Down || !alone) return;
  event.keyval = GDK_KEY_space;
  event.state &= ~static_cast<guint>(GDK_MOD1_MASK);
}

gboolean PageKeys::KeyPressed(GdkEventKey& event) {
  if (IsFromEngine()) {
    // Whoever listens has had this key already; only the widget goes on.
    g_signal_stop_emission_by_name(view_, "key-press-event");
    return GTK_WIDGET_GET_CLASS(view_)->key_press_event(view_, &event);
  }
  if (host_.hung()) {
    Keep(event);
    return TRUE;
  }
  host_.input(event);
  if (IsTab(event)) WatchTab(IsBack(event));
  NameBackTab(event);
  if (host_.on_list()) OpenList(event);
  return FALSE;
}

// Tab leads out, access keys work.
void PageKeys::Keep(GdkEventKey& event) {
  if (IsTab(event)) return LeadOut(IsBack(event));
  if (window_ != nullptr) gtk_window_activate_key(GTK_WINDOW(window_), &event);
}

void PageKeys::WatchTab(bool back) {
  if (tab_.Running()) return;
  // The page is asked after it has been given the key, not before.
  ask_.Start(0, [this, wanted = asked_.Renew()] {
    host_.ask([this, wanted] {
      if (wanted) tab_.Cancel();
    });
  });
  tab_.Start(patience_, [this, back] {
    asked_.End();
    if (gtk_widget_has_focus(view_) && !host_.waits()) LeadOut(back);
  });
}

void PageKeys::LeadOut(bool back) {
  if (window_ == nullptr) return;
  left_ = true;
  host_.left(true);
  g_signal_emit_by_name(window_, "move-focus", back ? GTK_DIR_TAB_BACKWARD : GTK_DIR_TAB_FORWARD);
  if (gtk_widget_has_focus(view_) && std::exchange(left_, false)) host_.left(false);
}

// What the engine wants from the window after the user has left the page.
bool PageKeys::IsStale() const { return IsFromEngine() && !gtk_widget_has_focus(view_); }

// A key that comes back when the focus is elsewhere. The engine expects to meet it in
// its view and would let the next key that the user presses there go by instead, so
// it gets it; nobody else does.
gboolean PageKeys::KeyOfWindow(GdkEventKey& event) {
  if (!IsStale()) return FALSE;
  const GtkWidgetClass* engine = GTK_WIDGET_GET_CLASS(view_);
  const bool press = event.type == GDK_KEY_PRESS;
  (press ? engine->key_press_event : engine->key_release_event)(view_, &event);
  return TRUE;
}

void PageKeys::WatchWindow() {
  ForgetWindow();
  GtkWidget* window = gtk_widget_get_toplevel(view_);
  if (!GTK_IS_WINDOW(window)) return;
  window_ = window;
  g_object_add_weak_pointer(G_OBJECT(window_), reinterpret_cast<gpointer*>(&window_));
  for (const char* signal : {"key-press-event", "key-release-event"}) {
    g_signal_connect(window_, signal,
                     G_CALLBACK(+[](GtkWidget*, GdkEventKey* event, gpointer self) -> gboolean {
                       return KeysOf(self).KeyOfWindow(*event);
                     }),
                     this);
  }
  g_signal_connect(window_, "focus",
                   G_CALLBACK(+[](GtkWidget*, GtkDirectionType, gpointer self) -> gboolean {
                     return KeysOf(self).IsStale();
                   }),
                   this);
}

void PageKeys::ForgetWindow() {
  if (window_ == nullptr) return;
  g_signal_handlers_disconnect_by_data(window_, this);
  g_object_remove_weak_pointer(G_OBJECT(window_), reinterpret_cast<gpointer*>(&window_));
  window_ = nullptr;
}

}  // namespace corvane::desktop
