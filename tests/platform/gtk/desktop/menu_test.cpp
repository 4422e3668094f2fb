#include "platform/linux/gtk/menu/menu.h"

#include <gdk/gdkkeysyms.h>
#include <gtkmm/checkmenuitem.h>
#include <gtkmm/separatormenuitem.h>

#include "platform/button_image.h"
#include "platform/linux/gtk/controls/command_button.h"
#include "platform/linux/gtk/controls/text_box.h"
#include "platform/linux/gtk/menu/menu_entry.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

class MenuTest : public test::DesktopTest {
 protected:
  static MenuEntry& Entry(MenuItem& item) { return dynamic_cast<MenuEntry&>(item); }
  static bool HasState(GtkWidget* widget, AtkStateType state) {
    auto* set = atk_object_ref_state_set(gtk_widget_get_accessible(widget));
    const bool has = atk_state_set_contains_state(set, state) != FALSE;
    g_object_unref(set);
    return has;
  }
  static bool HasState(MenuItem& item, AtkStateType state) {
    return HasState(GTK_WIDGET(Entry(item).Widget()->gobj()), state);
  }
  void Listen(MenuItem& item) {
    listening_ += item.Click.Connect([this, &item] { clicks_.push_back(item.Caption()); });
  }
  Connections listening_;
  std::vector<std::string> clicks_;
};

TEST_F(MenuTest, AMenuThatIsNeverShownIsPlainData) {
  MenuRoot menu;
  auto& top = menu.Add("&Options");
  auto& item = top.Add("Side&Bar");
  item.SetChecked(true);
  item.SetEnabled(false);
  EXPECT_EQ(item.Caption(), "Side&Bar");
  EXPECT_TRUE(item.Checked());
  EXPECT_FALSE(item.Enabled());
  EXPECT_EQ(Entry(item).Widget(), nullptr);
}

class ShownMenuTest : public MenuTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    window_.frame.Add(text_);
    window_.form.SetMenu(menu_);
    window_.Show();
    text_.SetFocus();
    Settle();
    for (auto* item : {&new_, &exit_, &none_, &links_, &help_}) Listen(*item);
  }
  static const Gtk::MenuItem* Selected(const Gtk::MenuShell& shell) {
    return dynamic_cast<const Gtk::MenuItem*>(
        Glib::wrap(gtk_menu_shell_get_selected_item(const_cast<GtkMenuShell*>(shell.gobj()))));
  }

  test::TestWindow window_{windows_};
  TextBoxControl text_{"Text1", windows_};
  MenuRoot menu_;
  MenuItem& file_ = menu_.Add("&File");
  MenuItem& new_ = file_.Add("&New Window");
  MenuItem& line_ = file_.Add("-");
  MenuItem& exit_ = file_.Add("E&xit");
  MenuItem& focus_ = menu_.Add("&Options");
  MenuItem& none_ = focus_.Add("None");
  MenuItem& links_ = focus_.Add("Links");
  MenuItem& help_ = menu_.Add("Help");
};

TEST_F(ShownMenuTest, EntriesHaveTheirWidgets) {
  EXPECT_TRUE(Entry(file_).Widget()->get_submenu() != nullptr);
  EXPECT_TRUE(dynamic_cast<Gtk::SeparatorMenuItem*>(Entry(line_).Widget()) != nullptr);
  EXPECT_EQ(Entry(new_).Widget()->get_label(), "_New Window");
  EXPECT_TRUE(Entry(new_).Widget()->get_use_underline());
}

TEST_F(ShownMenuTest, OnlyEntriesWhoseMarkWasSetShowOne) {
  EXPECT_EQ(dynamic_cast<Gtk::CheckMenuItem*>(Entry(none_).Widget()), nullptr);
  none_.SetChecked(false);
  links_.SetChecked(true);
  line_.SetChecked(false);
  auto* none = dynamic_cast<Gtk::CheckMenuItem*>(Entry(none_).Widget());
  auto* links = dynamic_cast<Gtk::CheckMenuItem*>(Entry(links_).Widget());
  ASSERT_TRUE(none && links);
  EXPECT_FALSE(none->get_active());
  EXPECT_TRUE(links->get_active());
  EXPECT_TRUE(HasState(links_, ATK_STATE_CHECKED));
  const auto children = Entry(focus_).Widget()->get_submenu()->get_children();
  EXPECT_EQ(children, (std::vector<Gtk::Widget*>{none, links})) << "each at its place";
  links_.SetChecked(false);
  EXPECT_FALSE(links->get_active());
  EXPECT_TRUE(clicks_.empty());
}

TEST_F(ShownMenuTest, ChoosingAnEntryDoesNotChangeItsMark) {
  links_.SetChecked(true);
  auto* links = dynamic_cast<Gtk::CheckMenuItem*>(Entry(links_).Widget());
  links->activate();
  EXPECT_THAT(clicks_, ElementsAre("Links"));
  EXPECT_TRUE(links->get_active());
  EXPECT_TRUE(links_.Checked());
}

TEST_F(ShownMenuTest, ADisabledEntryCanBeReachedButDoesNothing) {
  new_.SetEnabled(false);
  auto* item = Entry(new_).Widget();
  EXPECT_TRUE(item->get_sensitive()) << "or the arrow keys would pass it over";
  EXPECT_LT(item->get_child()->get_opacity(), 1.0);
  EXPECT_FALSE(HasState(new_, ATK_STATE_ENABLED));
  EXPECT_FALSE(HasState(new_, ATK_STATE_SENSITIVE));
  item->activate();
  EXPECT_TRUE(clicks_.empty());
  new_.SetEnabled(true);
  EXPECT_EQ(item->get_child()->get_opacity(), 1.0);
  EXPECT_TRUE(HasState(new_, ATK_STATE_ENABLED));
  item->activate();
  EXPECT_THAT(clicks_, ElementsAre("&New Window"));
}

TEST_F(ShownMenuTest, ADisabledCheckEntryReportsItToo) {
  links_.SetChecked(true);
  links_.SetEnabled(false);
  EXPECT_FALSE(HasState(links_, ATK_STATE_ENABLED));
  EXPECT_TRUE(HasState(links_, ATK_STATE_CHECKED));
  EXPECT_TRUE(HasState(exit_, ATK_STATE_ENABLED));
}

TEST_F(ShownMenuTest, OtherReadersLearnWhereAChosenEntryLedThoughTheyAreToldOfMenusLate) {
  TextBoxControl other{"Text2", windows_};
  window_.frame.Add(other);
  other.widget().show();
  listening_ += exit_.Click.Connect([&] {
    // As when the toolkit has not yet told of the last entries that were walked over.
    gtk_menu_item_select(Entry(help_).Widget()->gobj());
    other.SetFocus();
  });
  Settle();
  Outside({"xdotool", "key", "alt+f", "Down", "Return"});
  WaitFor("the command", [&] { return !clicks_.empty(); });
  Settle();
  EXPECT_THAT(clicks_, ElementsAre("E&xit"));
  auto* focused = window_.form.window().get_focus();
  ASSERT_TRUE(focused && focused->is_ancestor(other.widget()));
  EXPECT_TRUE(HasState(focused->gobj(), ATK_STATE_FOCUSED));
}

TEST_F(ShownMenuTest, F10AndAccessKeysOpenTheBarAndArrowsReachDisabledEntries) {
  int focused = 0;
  listening_ += text_.GotFocus.Connect([&] { ++focused; });
  new_.SetEnabled(false);
  Outside({"xdotool", "mousemove", "1270", "890", "key", "F10"});
  WaitFor("the bar", [&] { return Selected(menu_.Bar()) == Entry(file_).Widget(); });
  Outside({"xdotool", "key", "Down"});
  auto* submenu = Entry(file_).Widget()->get_submenu();
  WaitFor("the disabled entry", [&] { return Selected(*submenu) == Entry(new_).Widget(); });
  Outside({"xdotool", "key", "Down"});
  WaitFor("the next entry", [&] { return Selected(*submenu) == Entry(exit_).Widget(); });
  Outside({"xdotool", "key", "Escape", "Escape"});
  WaitFor("the bar to close", [&] { return Selected(menu_.Bar()) == nullptr; });
  Outside({"xdotool", "key", "alt+f"});
  WaitFor("the File menu", [&] { return submenu->get_mapped(); });
  Outside({"xdotool", "key", "x"});
  WaitFor("the choice", [&] { return clicks_ == std::vector<std::string>{"E&xit"}; });
  WaitFor("the menu to close", [&] { return !submenu->get_mapped(); });
  Settle();
  EXPECT_EQ(focused, 0) << "the focus was never anywhere else";
}

TEST_F(ShownMenuTest, AnAccessKeyThatAButtonHasTooOpensTheMenuEveryTime) {
  CommandButtonControl button("cmdFind", windows_);
  button.SetCaption("&Find");
  button.SetPicture(kImageSearch);
  window_.frame.Add(button);
  Settle();
  int focused = 0;
  listening_ += button.GotFocus.Connect([&] { ++focused; });
  auto* submenu = Entry(file_).Widget()->get_submenu();
  for (int press = 0; press < 3; ++press) {
    Outside({"xdotool", "key", "alt+f"});
    WaitFor("the File menu", [&] { return submenu->get_mapped(); });
    Outside({"xdotool", "key", "Escape", "Escape"});
    WaitFor("the menu to close", [&] { return !submenu->get_mapped(); });
  }
  EXPECT_EQ(focused, 0);
}

class SharedLetterTest : public ShownMenuTest {
 protected:
  void Press(const char* key) { Outside({"xdotool", "key", key}); }
  void WaitForMenu(MenuItem& title, MenuItem& first) {
    auto* menu = Entry(title).Widget()->get_submenu();
    WaitFor(title.Caption() + " open at " + first.Caption(), [&] {
      return menu->get_mapped() && Selected(*menu) == Entry(first).Widget() &&
             Selected(menu_.Bar()) == Entry(title).Widget();
    });
  }
  void Close() {
    Outside({"xdotool", "key", "Escape", "Escape"});
    WaitFor("the bar to close", [&] { return Selected(menu_.Bar()) == nullptr; });
  }

  MenuItem& go_ = menu_.Add("&Go");
  MenuItem& back_ = go_.Add("&Back");
  MenuItem& settings_ = menu_.Add("Settin&gs");
  MenuItem& side_ = settings_.Add("Side&Bar");
  MenuItem& hidden_ = side_.Add("Hidden");
};

TEST_F(SharedLetterTest, OpensTheFirstOfItsTitlesEveryTime) {
  for (int press = 0; press < 3; ++press) {
    Press("alt+g");
    WaitForMenu(go_, back_);
    Close();
  }
}

TEST_F(SharedLetterTest, GoesOnToTheNextWhilePressedAgain) {
  Press("alt+g");
  WaitForMenu(go_, back_);
  Press("alt+g");
  WaitForMenu(settings_, side_);
  Press("alt+g");
  WaitForMenu(go_, back_);
  Close();
  Press("alt+g");
  WaitForMenu(go_, back_);
}

TEST_F(SharedLetterTest, LeadsOutOfAnySubmenu) {
  Press("alt+g");
  Press("alt+g");
  WaitForMenu(settings_, side_);
  Press("Right");
  auto* inner = Entry(side_).Widget()->get_submenu();
  WaitFor("the submenu", [&] { return Selected(*inner) == Entry(hidden_).Widget(); });
  Press("alt+f");
  WaitForMenu(file_, new_);
  EXPECT_FALSE(inner->get_mapped());
}

TEST_F(SharedLetterTest, OpensFromTheBarToo) {
  Press("F10");
  WaitFor("the bar", [&] { return Selected(menu_.Bar()) == Entry(file_).Widget(); });
  Press("g");
  WaitForMenu(go_, back_);
}

TEST_F(ShownMenuTest, ATopLevelEntryWithoutEntriesIsChosenItself) {
  Entry(help_).Widget()->activate();
  EXPECT_THAT(clicks_, ElementsAre("Help"));
}

TEST_F(ShownMenuTest, EntriesMayBeAddedLater) {
  auto& late = help_.Add("&About");
  Listen(late);
  ASSERT_NE(Entry(help_).Widget()->get_submenu(), nullptr);
  Entry(late).Widget()->activate();
  EXPECT_THAT(clicks_, ElementsAre("&About"));
}

TEST_F(MenuTest, AMenuMayBeDestroyedByItsOwnEntry) {
  auto window = std::make_unique<test::TestWindow>(windows_);
  auto menu = std::make_unique<MenuRoot>();
  auto& exit = menu->Add("&File").Add("E&xit");
  window->form.SetMenu(*menu);
  window->Show();
  listening_ += exit.Click.Connect([&] {
    menu.reset();
    window.reset();
  });
  Outside({"xdotool", "key", "alt+f", "x"});
  WaitFor("the window to go", [&] { return window == nullptr; });
}

}  // namespace
}  // namespace corvane::desktop
