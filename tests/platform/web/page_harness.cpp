#include "tests/platform/web/page_harness.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <utility>

#include "platform/linux/glib/owner.h"
#include "platform/linux/web/drawing.h"

namespace corvane::desktop {
namespace {

constexpr guint kGenerousSeconds = 60;

void OnPageScript(GObject* view, GAsyncResult* result, gpointer data) {
  const ObjectPtr<JSCValue> value(
      webkit_web_view_evaluate_javascript_finish(WEBKIT_WEB_VIEW(view), result, nullptr));
  const GText text(value ? jsc_value_to_string(value.get()) : nullptr);
  *static_cast<std::optional<std::string>*>(data) = Text(text.get());
}

void SendKey(GtkWidget* widget, GdkEventType type, guint keyval, guint modifiers) {
  GdkEvent* event = gdk_event_new(type);
  event->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(widget)));
  event->key.time = GDK_CURRENT_TIME;
  event->key.keyval = keyval;
  event->key.state = modifiers;
  event->key.is_modifier = keyval >= GDK_KEY_Shift_L && keyval <= GDK_KEY_Hyper_R;
  GdkKeymap* keymap = gdk_keymap_get_for_display(gdk_display_get_default());
  GdkKeymapKey* keys = nullptr;
  int count = 0;
  if (gdk_keymap_get_entries_for_keyval(keymap, keyval, &keys, &count)) {
    event->key.hardware_keycode = static_cast<guint16>(keys[0].keycode);
    event->key.group = static_cast<guint8>(keys[0].group);
    if (keys[0].level > 0) event->key.state |= GDK_SHIFT_MASK;
    g_free(keys);
  }
  GdkSeat* seat = gdk_display_get_default_seat(gdk_display_get_default());
  gdk_event_set_device(event, gdk_seat_get_keyboard(seat));
  gtk_main_do_event(event);
  gdk_event_free(event);
}

void SendButton(GtkWidget* widget, GdkEventType type, double x, double y) {
  GdkEvent* event = gdk_event_new(type);
  event->button.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(widget)));
  event->button.time = GDK_CURRENT_TIME;
  event->button.x = x;
  event->button.y = y;
  event->button.button = 1;
  if (type == GDK_BUTTON_RELEASE) event->button.state = GDK_BUTTON1_MASK;
  GdkSeat* seat = gdk_display_get_default_seat(gdk_display_get_default());
  gdk_event_set_device(event, gdk_seat_get_pointer(seat));
  gtk_main_do_event(event);
  gdk_event_free(event);
}

/// The page processes of this program, also inside their sandboxes.
std::vector<pid_t> PageProcesses() {
  std::map<pid_t, pid_t> parents;
  std::vector<pid_t> found;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const std::string name = entry.path().filename();
    if (name.find_first_not_of("0123456789") != std::string::npos) continue;
    std::ifstream stat(entry.path() / "stat");
    std::string line;
    std::getline(stat, line);
    const auto close = line.rfind(')');
    if (close == std::string::npos || close + 4 > line.size()) continue;
    const pid_t pid = std::stoi(name);
    parents[pid] = std::stoi(line.substr(line.find(' ', close + 2) + 1));
    if (line.find("(WebKitWebProces") != std::string::npos) found.push_back(pid);
  }
  std::erase_if(found, [&](pid_t pid) {
    while (pid > 1 && pid != getpid()) pid = parents[pid];
    return pid != getpid();
  });
  return found;
}

}  // namespace

EngineOptions TestOptions() {
  DrawByProcessor();
  gtk_init(nullptr, nullptr);  // the engine needs it
  EngineOptions options;
  options.ephemeral = true;
  return options;
}

bool WaitUntil(const std::function<bool()>& condition) {
  if (condition()) return true;
  bool late = false;
  const guint guard = g_timeout_add_seconds(
      kGenerousSeconds,
      +[](gpointer flag) -> gboolean {
        *static_cast<bool*>(flag) = true;
        return G_SOURCE_CONTINUE;
      },
      &late);
  while (!condition() && !late) g_main_context_iteration(nullptr, TRUE);
  g_source_remove(guard);
  return condition();
}

void SendTestKey(GtkWidget* widget, guint keyval, guint modifiers) {
  SendKey(widget, GDK_KEY_PRESS, keyval, modifiers);
  SendKey(widget, GDK_KEY_RELEASE, keyval, modifiers);
}

void TestView::Listen() {
  const auto note = [this](const std::string& entry) {
    return [this, entry] { log.push_back(entry); };
  };
  const auto note_text = [this](const std::string& kind) {
    return [this, kind](const std::string& text) { log.push_back(kind + " " + text); };
  };
  connections_ += events_.DownloadBegin.Connect(note("begin"));
  connections_ += events_.DownloadComplete.Connect(note("complete"));
  connections_ += events_.StatusTextChange.Connect(note_text("status"));
  connections_ += events_.Announcement.Connect(note_text("say"));
  connections_ += events_.NewWindow.Connect([this] { new_window(); });
  connections_ += events_.WindowClosing.Connect(note("close"));
  connections_ +=
      events_.FilesWanted.Connect([this](const FileRequest& request) { files(request); });
  connections_ += events_.PlaceReached.Connect([this](const PagePlace& place) {
    places.push_back(place);
    if (!place.words.empty()) log.push_back("say " + place.words);
  });
  connections_ += events_.PageSays.Connect([this](const PageWords& words) {
    if (words.opened == PageWords::Opened::Part)
      log.push_back("say " + words.words);
    else
      page_words.push_back(words);
  });
  connections_ +=
      events_.LeftElement.Connect([this](const PageElement& element) { left.push_back(element); });
  connections_ += events_.Found.Connect(note("found"));
  connections_ += events_.ElementGone.Connect(note("gone"));
  connections_ += events_.FocusMoved.Connect(
      [this](const PageElement& element) { focused.push_back(element); });
  connections_ += events_.TextChanged.Connect([this] { ++text_changes; });
}

void TestView::Show() {
  window_ = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_window_set_default_size(GTK_WINDOW(window_), 800, 600);
  gtk_container_add(GTK_CONTAINER(window_), GTK_WIDGET(View()));
  gtk_widget_show_all(window_);
}

TestView::TestView(std::unique_ptr<EngineView> view) : view_(std::move(view)) {
  Listen();
  Show();
  view_->Page().TellTo(events_);
}

TestView::TestView(WebEngine& engine) : TestView(std::make_unique<EngineView>(engine)) {}

std::unique_ptr<TestView> TestView::TakeOpened(WebEngine& engine) {
  auto opened = engine.TakeOffered();
  return opened ? std::unique_ptr<TestView>(new TestView(std::move(opened))) : nullptr;
}

TestView::~TestView() {
  view_.reset();
  if (window_ != nullptr) gtk_widget_destroy(window_);
}

void TestView::WaitIdle() {
  ASSERT_TRUE(WaitUntil([this] { return !view_->Page().Busy(); })) << "still busy";
}

void TestView::Go(const std::string& address) {
  view_->Page().Navigate(address);
  WaitIdle();
}

std::vector<std::string> TestView::EventsWithoutStatus() const {
  std::vector<std::string> events;
  std::copy_if(log.begin(), log.end(), std::back_inserter(events), [](const std::string& entry) {
    return !entry.starts_with("status ") && !entry.starts_with("say ");
  });
  return events;
}

std::vector<std::string> TestView::Said() const {
  std::vector<std::string> said;
  for (const auto& entry : log) {
    if (entry.starts_with("say ")) said.push_back(entry.substr(4));
  }
  return said;
}

bool TestView::HasStatus(const std::string& part) const {
  return std::any_of(log.begin(), log.end(), [&](const std::string& entry) {
    return entry.starts_with("status ") && entry.find(part) != std::string::npos;
  });
}

int TestView::Count(const std::string& entry) const {
  return static_cast<int>(std::count(log.begin(), log.end(), entry));
}

void TestView::Focus() {
  gtk_window_present(GTK_WINDOW(window_));
  gtk_widget_grab_focus(GTK_WIDGET(View()));
  ASSERT_TRUE(WaitUntil([this] { return gtk_widget_has_focus(GTK_WIDGET(View())); }));
}

void TestView::Key(guint keyval, guint modifiers) {
  SendTestKey(GTK_WIDGET(View()), keyval, modifiers);
}

void TestView::Click(double x, double y) {
  SendButton(GTK_WIDGET(View()), GDK_BUTTON_PRESS, x, y);
  SendButton(GTK_WIDGET(View()), GDK_BUTTON_RELEASE, x, y);
}

void TestView::KillPageProcesses() {
  for (const pid_t pid : PageProcesses()) kill(pid, SIGKILL);
}

std::string TestView::EvaluateInPage(const std::string& script) {
  std::optional<std::string> result;
  webkit_web_view_evaluate_javascript(View(), script.c_str(), -1, nullptr, nullptr, nullptr,
                                      &OnPageScript, &result);
  EXPECT_TRUE(WaitUntil([&] { return result.has_value(); })) << "the script never returned";
  return result.value_or("");
}

void TestView::RunInPage(const std::string& script) {
  webkit_web_view_evaluate_javascript(View(), script.c_str(), -1, nullptr, nullptr, nullptr,
                                      nullptr, nullptr);
}

void TestView::RunByItself(const std::string& script) {
  // Past the time for which a page may still act for its user.
  RunInPage("setTimeout(() => {" + script + "}, 1500)");
}

WebEngine& SharedEngine() {
  static auto* engine = new WebEngine(TestOptions());  // lives as long as the program
  return *engine;
}

}  // namespace corvane::desktop
