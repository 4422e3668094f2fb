#include "platform/linux/gtk/hooks/event_hooks.h"

#include <gdk/gdkkeysyms.h>

#include "platform/linux/gtk/controls/combo_box.h"
#include "platform/linux/gtk/menu/menu.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

// Last: it defines words that others use as names.
#include <gdk/gdkx.h>

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Keys come from outside, as from a keyboard.
class EventHooksTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    Outside({"xdotool", "mousemove", "1270", "890"});
    listening_ += keyboard_.KeyDown.Connect([this](const PressedKey& key) {
      keys_.push_back(key.code);
      characters_.push_back(key.character);
      text_then_.push_back(text_->Text());
    });
    listening_ += messages_.MenuSelected.Connect([this](const MenuSelect& select) {
      menu_words_.push_back(select.text);
      selects_.push_back(select);
    });
    keyboard_.SetEnabled(true);
    messages_.SetEnabled(true);
    new_.SetId(5);
    marked_.SetId(60);
    marked_.SetChecked(true);
    gray_.SetEnabled(false);
    window_.frame.Add(*text_);
    window_.form.SetMenu(menu_);
    window_.Show();
    text_->SetFocus();
    Settle();
  }
  void Press(const std::vector<std::string>& keys) {
    for (const auto& key : keys) Outside({"xdotool", "key", key});
  }
  GdkWindow* TextWindow() {
    return gtk_widget_get_window(GTK_WIDGET(windows_.WidgetOf(text_->hwnd())->gobj()));
  }
  void WaitForWords(const std::vector<std::string>& words) {
    WaitFor(testing::PrintToString(words), [&] { return menu_words_ == words; });
  }

  EventHooks hooks_;
  LinuxKeyboardHook keyboard_{hooks_};
  LinuxMessageHook messages_{hooks_};
  test::TestWindow window_{windows_};
  std::unique_ptr<ComboBox> text_ =
      ComboBoxControl::Create("cboAddress", ComboBox::Style::DropDown, windows_);
  MenuRoot menu_;
  MenuItem& file_ = menu_.Add("&File");
  MenuItem& new_ = file_.Add("&New Window");
  MenuItem& line_ = file_.Add("-");
  MenuItem& more_ = file_.Add("&More");
  MenuItem& marked_ = more_.Add("Marked");
  MenuItem& gray_ = file_.Add("Gray");
  std::vector<int> keys_;
  std::u32string characters_;
  std::vector<std::string> text_then_;
  std::vector<std::string> menu_words_;
  std::vector<MenuSelect> selects_;
  Connections listening_;
};

TEST_F(EventHooksTest, EveryKeyIsHeardOnceBeforeTheFieldHasIt) {
  Press({"a", "b"});
  WaitFor("both keys", [&] { return keys_.size() == 2; });
  EXPECT_THAT(keys_, ElementsAre('A', 'B'));
  EXPECT_THAT(text_then_, ElementsAre("", "a"));
  Settle();
  EXPECT_EQ(text_->Text(), "ab");
}

TEST_F(EventHooksTest, ModifiersAndNamedKeysHaveTheirCodes) {
  Press({"Control_L", "Escape", "F1", "shift+a"});
  WaitFor("the keys", [&] { return keys_.size() == 5; });
  EXPECT_THAT(keys_, ElementsAre(17, 27, 112, 16, 'A'));
}

TEST_F(EventHooksTest, KeysBringWhatTheyTypeWithoutShift) {
  Press({"comma", "shift+comma", "F13"});
  WaitFor("the keys", [&] { return keys_.size() == 4; });
  EXPECT_THAT(keys_, ElementsAre(188, 16, 188, 124));
  EXPECT_EQ(characters_, std::u32string({U',', U'\0', U',', U'\0'}));
}

TEST_F(EventHooksTest, ARepeatedKeyIsHeardEachTime) {
  // The tests' display does not repeat keys, so that a busy machine types none twice.
  Display* display = gdk_x11_display_get_xdisplay(gdk_display_get_default());
  XAutoRepeatOn(display);
  XSync(display, 0);
  Outside({"xdotool", "keydown", "a", "sleep", "1", "keyup", "a"});
  XAutoRepeatOff(display);
  Settle();
  EXPECT_GT(keys_.size(), 2U);
  EXPECT_EQ(text_->Text(), std::string(keys_.size(), 'a'));
}

TEST_F(EventHooksTest, KeysOfAnInputMethodAreNotHeardTwice) {
  GdkEvent* event = gdk_event_new(GDK_KEY_PRESS);
  event->key.state = GDK_MODIFIER_RESERVED_25_MASK;
  event->key.keyval = GDK_KEY_a;
  event->key.window = GDK_WINDOW(g_object_ref(TextWindow()));
  gdk_event_set_device(
      event, gdk_seat_get_keyboard(gdk_display_get_default_seat(gdk_display_get_default())));
  hooks_.Handle(event);
  gdk_event_free(event);
  EXPECT_THAT(keys_, IsEmpty());
}

TEST_F(EventHooksTest, AHookThatIsOffHearsNothing) {
  keyboard_.SetEnabled(false);
  messages_.SetEnabled(false);
  Press({"a", "alt+f", "Escape"});
  Settle();
  EXPECT_THAT(keys_, IsEmpty());
  EXPECT_THAT(menu_words_, IsEmpty());
}

TEST_F(EventHooksTest, HighlightedItemsAreToldWithTheirStates) {
  Press({"alt+f"});
  WaitForWords({"&File", "&New Window"});
  EXPECT_EQ(selects_[0].flags, kMenuHilite | kMenuPopup);
  EXPECT_EQ(selects_[0].item, 0);
  EXPECT_EQ(selects_[1].flags, kMenuHilite);
  EXPECT_EQ(selects_[1].item, 5);
  Press({"Down"});
  WaitForWords({"&File", "&New Window", "&More"});
  EXPECT_EQ(selects_[2].flags, kMenuHilite | kMenuPopup);
  EXPECT_EQ(selects_[2].item, 2) << "its place, separators counted";
  Press({"Down"});
  WaitForWords({"&File", "&New Window", "&More", "Gray"});
  EXPECT_EQ(selects_[3].flags, kMenuHilite | kMenuDisabled);
  Press({"Escape", "Escape"});
}

TEST_F(EventHooksTest, ASubmenuThatIsLeftLeadsBackToItsTitle) {
  Press({"alt+f", "Down", "Right"});
  WaitForWords({"&File", "&New Window", "&More", "Marked"});
  EXPECT_EQ(selects_[3].flags, kMenuHilite | kMenuChecked);
  EXPECT_EQ(selects_[3].item, 60);
  Press({"Left"});
  WaitForWords({"&File", "&New Window", "&More", "Marked", "&More"});
  Press({"Escape", "Escape"});
  Settle();
  EXPECT_EQ(menu_words_.size(), 5U) << "closing the menu highlights nothing";
}

TEST_F(EventHooksTest, TheMouseHighlightsItemsToo) {
  Press({"alt+f"});
  WaitForWords({"&File", "&New Window"});
  gint x = 0;
  gint y = 0;
  gdk_window_get_origin(TextWindow(), &x, &y);
  Outside({"xdotool", "mousemove", std::to_string(x + 20), std::to_string(y + 10)});
  Outside({"xdotool", "mousemove_relative", "5", "25"});
  WaitFor("an item under the pointer", [&] { return menu_words_.size() > 2; });
  Press({"Escape", "Escape"});
}

}  // namespace
}  // namespace corvane::desktop
