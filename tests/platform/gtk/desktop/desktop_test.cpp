#include "tests/platform/gtk/desktop/desktop_test.h"

#include <glib.h>
#include <gtk/gtk.h>
#include <gtkmm/main.h>

#include <mutex>

namespace corvane::test {
namespace {

std::mutex log_mutex;
std::vector<std::string> log_messages;

GLogWriterOutput Record(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer data) {
  if ((level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING)) != 0) {
    const std::scoped_lock lock(log_mutex);
    for (gsize i = 0; i < count; ++i) {
      if (std::string(fields[i].key) == "MESSAGE") {
        log_messages.emplace_back(static_cast<const char*>(fields[i].value));
      }
    }
  }
  return g_log_writer_default(level, fields, count, data);
}

class Toolkit : public testing::Environment {
 public:
  void SetUp() override {
    g_log_set_writer_func(Record, nullptr, nullptr);
    Gtk::Main::init_gtkmm_internals();
    gtk_init(nullptr, nullptr);
  }
};
const auto* const toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

GdkEvent* MakeKey(Gtk::Widget& widget, guint keyval, guint state, GdkEventType type) {
  auto* event = gdk_event_new(type);
  auto* top = gtk_widget_get_toplevel(widget.gobj());
  event->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(top)));
  event->key.time = GDK_CURRENT_TIME;
  event->key.keyval = keyval;
  event->key.state = state;
  GdkKeymapKey* keys = nullptr;
  gint count = 0;
  auto* display = gdk_display_get_default();
  if (gdk_keymap_get_entries_for_keyval(gdk_keymap_get_for_display(display), keyval, &keys,
                                        &count) &&
      count > 0) {
    event->key.hardware_keycode = static_cast<guint16>(keys[0].keycode);
    event->key.group = static_cast<guint8>(keys[0].group);
  }
  g_free(keys);
  gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(display)));
  return event;
}

void Send(GdkEvent* event) {
  gtk_main_do_event(event);
  gdk_event_free(event);
}

}  // namespace

void DesktopTest::SetUp() {
  const std::scoped_lock lock(log_mutex);
  log_messages.clear();
}

void DesktopTest::TearDown() {
  Settle();
  const std::scoped_lock lock(log_mutex);
  for (const auto& message : log_messages) ADD_FAILURE() << "unexpected log message: " << message;
}

void DesktopTest::ExpectLog(const std::string& part) {
  const std::scoped_lock lock(log_mutex);
  std::erase_if(log_messages, [&](const std::string& message) {
    return message.find(part) != std::string::npos;
  });
}

void DesktopTest::Settle() {
  const auto drain = [] {
    gdk_display_sync(gdk_display_get_default());
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
  };
  drain();
  for (int round = 0; round < 2; ++round) {  // a layout may ask for another one
    auto* windows = gtk_window_list_toplevels();
    g_list_foreach(
        windows, [](gpointer window, gpointer) { g_object_ref(window); }, nullptr);
    for (auto* link = windows; link; link = link->next) {
      auto* window = GTK_WIDGET(link->data);
      auto* clock = gtk_widget_get_mapped(window) ? gtk_widget_get_frame_clock(window) : nullptr;
      if (!clock) continue;
      bool painted = false;
      const auto handler = g_signal_connect(
          clock, "after-paint",
          G_CALLBACK(+[](GdkFrameClock*, gpointer flag) { *static_cast<bool*>(flag) = true; }),
          &painted);
      gdk_frame_clock_request_phase(clock, GDK_FRAME_CLOCK_PHASE_PAINT);
      const guint guard = g_timeout_add_seconds(
          5,
          [](gpointer flag) -> gboolean {
            *static_cast<bool*>(flag) = true;
            return G_SOURCE_CONTINUE;
          },
          &painted);
      while (!painted && gtk_widget_get_mapped(window)) g_main_context_iteration(nullptr, TRUE);
      g_source_remove(guard);
      g_signal_handler_disconnect(clock, handler);
    }
    g_list_free_full(windows, g_object_unref);
    drain();
  }
}

void DesktopTest::WaitFor(const std::string& what, const std::function<bool()>& condition) {
  constexpr guint kGiveUp = 10000;  // milliseconds; only a failing test takes them
  bool gave_up = false;
  const guint guard = g_timeout_add(
      kGiveUp,
      [](gpointer flag) -> gboolean {
        *static_cast<bool*>(flag) = true;
        return G_SOURCE_CONTINUE;
      },
      &gave_up);
  // What is waited for may happen outside and raise no event here.
  const guint look = g_timeout_add(
      5, [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr);
  while (!condition() && !gave_up) g_main_context_iteration(nullptr, TRUE);
  g_source_remove(guard);
  g_source_remove(look);
  EXPECT_TRUE(condition()) << "waited in vain for: " << what;
}

void DesktopTest::KeyDown(Gtk::Widget& widget, guint keyval, guint state) {
  Send(MakeKey(widget, keyval, state, GDK_KEY_PRESS));
}

void DesktopTest::KeyUp(Gtk::Widget& widget, guint keyval, guint state) {
  Send(MakeKey(widget, keyval, state, GDK_KEY_RELEASE));
}

void DesktopTest::Key(Gtk::Widget& widget, guint keyval, guint state) {
  // Either may take the window away.
  auto* down = MakeKey(widget, keyval, state, GDK_KEY_PRESS);
  auto* up = MakeKey(widget, keyval, state, GDK_KEY_RELEASE);
  Send(down);
  if (!gdk_window_is_destroyed(up->key.window)) {
    Send(up);
  } else {
    gdk_event_free(up);
  }
}

void DesktopTest::Outside(const std::vector<std::string>& command) {
  std::vector<char*> arguments;
  for (const auto& part : command) arguments.push_back(const_cast<char*>(part.c_str()));
  arguments.push_back(nullptr);
  GError* error = nullptr;
  GPid pid = 0;
  constexpr auto kFlags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
  g_spawn_async(nullptr, arguments.data(), nullptr, kFlags, nullptr, nullptr, &pid, &error);
  ASSERT_EQ(error, nullptr) << error->message;
  // To its end: a key that is still down would swallow the next press of it.
  bool ended = false;
  g_child_watch_add(
      pid, [](GPid, gint, gpointer flag) { *static_cast<bool*>(flag) = true; }, &ended);
  while (!ended) g_main_context_iteration(nullptr, TRUE);
  g_spawn_close_pid(pid);
}

TestWindow::TestWindow(desktop::WindowTable& windows, int width, int height)
    : form("frmTest", windows), frame("ELATest", windows) {
  form.SetLeft(50 * desktop::kTwipsPerPixel);
  form.SetTop(50 * desktop::kTwipsPerPixel);
  form.SetWidth(static_cast<float>(width) * desktop::kTwipsPerPixel);
  form.SetHeight(static_cast<float>(height) * desktop::kTwipsPerPixel);
  form.SetContent(frame);
}

void TestWindow::Show() {
  form.Show();
  for (int i = 0; i < 10000 && !form.window().property_is_active(); ++i) {
    g_main_context_iteration(nullptr, TRUE);
  }
}

}  // namespace corvane::test
