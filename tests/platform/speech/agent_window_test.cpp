#include <gmock/gmock.h>
#include <gtk/gtk.h>
#include <gtkmm/main.h>

#include "tests/platform/speech/agent_fixture.h"

namespace corvane::desktop {
namespace {

GtkWidget* Find(GtkWidget* widget, const std::string& name) {
  if (name == gtk_widget_get_name(widget)) return widget;
  GtkWidget* found = nullptr;
  if (GTK_IS_CONTAINER(widget)) {
    GList* children = gtk_container_get_children(GTK_CONTAINER(widget));
    for (GList* at = children; at != nullptr && found == nullptr; at = at->next) {
      found = Find(GTK_WIDGET(at->data), name);
    }
    g_list_free(children);
  }
  return found;
}

/// The character's window on the screen, or null.
GtkWidget* CharacterOnScreen() {
  GtkWidget* found = nullptr;
  GList* windows = gtk_window_list_toplevels();
  for (GList* at = windows; at != nullptr; at = at->next) {
    auto* window = GTK_WIDGET(at->data);
    if (std::string("Character") == gtk_widget_get_name(window)) found = window;
  }
  g_list_free(windows);
  return found;
}

class AgentWindowTest : public AgentFixture {
 protected:
  static void SetUpTestSuite() {
    gtk_init(nullptr, nullptr);
    Gtk::Main::init_gtkmm_internals();
  }

  std::string Balloon() {
    return gtk_label_get_text(GTK_LABEL(Find(CharacterOnScreen(), "Balloon")));
  }
  /// Whether a point of that widget, in fractions of its size, is to be seen.
  static bool Seen(const std::string& name, double across, double down) {
    GtkWidget* window = CharacterOnScreen();
    GtkAllocation place;
    gtk_widget_get_allocation(Find(window, name), &place);
    cairo_region_t* seen = gdk_window_get_clip_region(gtk_widget_get_window(window));
    const bool inside =
        cairo_region_contains_point(seen, place.x + static_cast<int>(across * place.width),
                                    place.y + static_cast<int>(down * place.height)) != 0;
    cairo_region_destroy(seen);
    return inside;
  }
  GdkPixbuf* Picture() {
    return gtk_image_get_pixbuf(GTK_IMAGE(Find(CharacterOnScreen(), "Picture")));
  }
};

TEST_F(AgentWindowTest, IsShownWithItsPictureAtTheBottomRight) {
  const auto genie = LoadGenie();
  EXPECT_EQ(CharacterOnScreen(), nullptr);
  ASSERT_TRUE(WaitFor(genie->Show()));
  GtkWidget* window = CharacterOnScreen();
  ASSERT_NE(window, nullptr);
  ASSERT_TRUE(RunLoopUntil([&] { return gtk_widget_get_mapped(window) != 0; }));
  EXPECT_NE(Picture(), nullptr);
  const auto at_corner = [&] {
    int x = 0;
    int y = 0;
    gdk_window_get_origin(gtk_widget_get_window(window), &x, &y);
    GdkRectangle screen;
    gdk_monitor_get_workarea(gdk_display_get_monitor(gdk_display_get_default(), 0), &screen);
    return x + gtk_widget_get_allocated_width(window) == screen.width &&
           y + gtk_widget_get_allocated_height(window) == screen.height;
  };
  EXPECT_TRUE(RunLoopUntil(at_corner));
}

TEST_F(AgentWindowTest, NeverTakesTheFocus) {
  GtkWidget* form = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  GtkWidget* entry = gtk_entry_new();
  gtk_container_add(GTK_CONTAINER(form), entry);
  gtk_widget_show_all(form);
  gtk_window_present(GTK_WINDOW(form));
  ASSERT_TRUE(RunLoopUntil([&] { return gtk_window_is_active(GTK_WINDOW(form)) != 0; }));
  const auto genie = LoadGenie();
  ASSERT_TRUE(WaitFor(genie->Show()));
  GtkWidget* window = CharacterOnScreen();
  ASSERT_TRUE(RunLoopUntil([&] { return gtk_widget_get_mapped(window) != 0; }));
  ASSERT_TRUE(WaitFor(genie->Speak("Hello")));
  gdk_display_sync(gdk_display_get_default());
  RunPending();
  EXPECT_TRUE(gtk_window_is_active(GTK_WINDOW(form)));
  EXPECT_FALSE(gtk_window_is_active(GTK_WINDOW(window)));
  EXPECT_FALSE(gtk_window_get_accept_focus(GTK_WINDOW(window)));
  EXPECT_FALSE(gtk_window_get_decorated(GTK_WINDOW(window)));
  EXPECT_TRUE(gtk_window_get_skip_taskbar_hint(GTK_WINDOW(window)));
  gtk_widget_destroy(form);
}

TEST_F(AgentWindowTest, TheBalloonHoldsWhatIsBeingSaid) {
  const auto genie = LoadGenie();
  ASSERT_TRUE(WaitFor(genie->Show()));
  GdkPixbuf* idle = Picture();
  EXPECT_EQ(Balloon(), "");
  audio_->SetRoom(10);
  const AgentRequest first = genie->Speak("\\Pit=90\\\\Spd=150\\Favorites menu");
  ASSERT_TRUE(RunLoopUntil([&] { return Balloon() == "Favorites menu"; }));
  EXPECT_NE(Picture(), idle);
  genie->StopSpeak();
  ASSERT_TRUE(WaitFor(first));
  EXPECT_EQ(Balloon(), "");
  EXPECT_EQ(Picture(), idle);
}

TEST_F(AgentWindowTest, OnlyTheCharacterItselfIsSeen) {
  const auto genie = LoadGenie();
  ASSERT_TRUE(WaitFor(genie->Show()));
  GtkWidget* window = CharacterOnScreen();
  ASSERT_TRUE(RunLoopUntil([&] { return gtk_widget_get_mapped(window) != 0; }));
  RunPending();
  EXPECT_TRUE(Seen("Picture", 0.5, 0.4)) << "the face";
  EXPECT_FALSE(Seen("Picture", 0.05, 0.05)) << "beside the head";
  EXPECT_FALSE(Seen("Balloon", 0.5, 0.5)) << "it says nothing";
  EXPECT_FALSE(Seen("Character", 0.5, 0.01)) << "the window's edge";
}

TEST_F(AgentWindowTest, TheBalloonIsSeenWhileTheCharacterSpeaks) {
  const auto genie = LoadGenie();
  ASSERT_TRUE(WaitFor(genie->Show()));
  GtkWidget* window = CharacterOnScreen();
  ASSERT_TRUE(RunLoopUntil([&] { return gtk_widget_get_mapped(window) != 0; }));
  audio_->SetRoom(10);
  const AgentRequest speaking = genie->Speak("Favorites menu");
  ASSERT_TRUE(RunLoopUntil([&] { return Seen("Balloon", 0.5, 0.5); }));
  EXPECT_TRUE(Seen("Picture", 0.5, 0.4));
  EXPECT_FALSE(Seen("Balloon", 0.002, 0.005)) << "its corners are round";
  genie->StopSpeak();
  ASSERT_TRUE(WaitFor(speaking));
  EXPECT_FALSE(Seen("Balloon", 0.5, 0.5));
}

TEST_F(AgentWindowTest, KeepsItsSizeWhateverIsSaid) {
  const auto genie = LoadGenie();
  ASSERT_TRUE(WaitFor(genie->Show()));
  GtkWidget* window = CharacterOnScreen();
  ASSERT_TRUE(RunLoopUntil([&] { return gtk_widget_get_mapped(window) != 0; }));
  const int width = gtk_widget_get_allocated_width(window);
  const int height = gtk_widget_get_allocated_height(window);
  audio_->SetRoom(10);
  std::string text = "\xFF";
  while (text.size() < 1'000'000) text += "Very_long_word_of_a_page and more. ";
  genie->Speak(text);
  ASSERT_TRUE(RunLoopUntil([&] { return !Balloon().empty(); }));
  EXPECT_LT(Balloon().size(), 200U);
  while (gtk_events_pending() != 0) gtk_main_iteration();
  EXPECT_EQ(gtk_widget_get_allocated_width(window), width);
  EXPECT_EQ(gtk_widget_get_allocated_height(window), height);
}

TEST_F(AgentWindowTest, GoesWithTheAgent) {
  const auto genie = LoadGenie();
  ASSERT_TRUE(WaitFor(genie->Show()));
  ASSERT_NE(CharacterOnScreen(), nullptr);
  agent_.reset();
  EXPECT_EQ(CharacterOnScreen(), nullptr);
}

TEST_F(AgentWindowTest, ACharacterWithoutPicturesStillSpeaks) {
  file_ = folder_.Write("talker.acf",
                        "Corvane character 1\n[Character]\nName=Genie\nVoice=en\n"
                        "[Pictures]\nIdle=missing.svg\nSpeaking=broken.svg\n");
  folder_.Write("broken.svg", "<svg");
  const auto genie = LoadGenie();
  ASSERT_TRUE(WaitFor(genie->Show()));
  ASSERT_TRUE(WaitFor(genie->Speak("Hello")));
  EXPECT_EQ(Picture(), nullptr);
}

}  // namespace
}  // namespace corvane::desktop
