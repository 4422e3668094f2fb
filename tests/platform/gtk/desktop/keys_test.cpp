#include <gdk/gdkkeysyms.h>
#include <gtkmm/button.h>
#include <gtkmm/entry.h>
#include <gtkmm/icontheme.h>
#include <gtkmm/image.h>

#include "platform/button_image.h"
#include "platform/linux/gtk/controls/combo_box.h"
#include "platform/linux/gtk/controls/command_button.h"
#include "platform/linux/gtk/controls/text_box.h"
#include "platform/linux/gtk/text_pane/rich_text_box.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

class KeysTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    combo_ = ComboBoxControl::Create("cboAddress", ComboBox::Style::DropDown, windows_);
    button_ = std::make_unique<CommandButtonControl>("cmdOK", windows_);
    button_->SetCaption("&OK");
    window_.frame.Add(*combo_);
    window_.frame.Add(*button_);
    window_.Show();
    Settle();
    combo_->SetFocus();
    Settle();
    listening_ += combo_->KeyDown.Connect([this](KeyEvent& key) {
      log_.push_back("down " + std::to_string(key.KeyCode) + "/" + std::to_string(key.Shift));
      if (on_down_) on_down_(key);
    });
    listening_ += combo_->KeyPress.Connect([this](int& code) {
      log_.push_back("press " + std::to_string(code));
      if (on_press_) on_press_(code);
    });
    listening_ += combo_->KeyUp.Connect([this](KeyEvent& key) {
      log_.push_back("up " + std::to_string(key.KeyCode) + "/" + std::to_string(key.Shift));
    });
  }

  Gtk::Widget& Top() { return window_.form.window(); }

  test::TestWindow window_{windows_};
  std::unique_ptr<ComboBoxControl> combo_;
  std::unique_ptr<CommandButtonControl> button_;
  Connections listening_;
  std::vector<std::string> log_;
  std::function<void(KeyEvent&)> on_down_;
  std::function<void(int&)> on_press_;
};

TEST_F(KeysTest, AKeyIsHeardThreeTimesAndThenTyped) {
  Key(Top(), 'a');
  EXPECT_THAT(log_, ElementsAre("down 65/0", "press 97", "up 65/0"));
  EXPECT_EQ(combo_->Text(), "a");
}

TEST_F(KeysTest, AReadOnlyFieldTellsOfItsKeysAndKeepsItsText) {
  TextBoxControl field("Text3", windows_);
  window_.frame.Add(field);
  field.SetText("as it was");
  field.SetFocus();
  Settle();
  listening_ += field.KeyPress.Connect([this](int& code) { log_.push_back(std::to_string(code)); });
  Key(Top(), 'a');
  Key(Top(), GDK_KEY_BackSpace);
  EXPECT_EQ(log_.front(), "97");
  EXPECT_EQ(field.Text(), "as it was");
}

TEST_F(KeysTest, ShiftedKeysKeepTheirCode) {
  Key(Top(), 'A', GDK_SHIFT_MASK);
  Key(Top(), GDK_KEY_Return);
  EXPECT_THAT(log_,
              ElementsAre("down 65/1", "press 65", "up 65/1", "down 13/0", "press 13", "up 13/0"));
}

TEST_F(KeysTest, AKeyDownOfCodeZeroIsKeptFromTheField) {
  on_down_ = [](KeyEvent& key) { key.KeyCode = 0; };
  Key(Top(), 'a');
  EXPECT_THAT(log_, ElementsAre("down 65/0")) << "its release is not told either";
  EXPECT_EQ(combo_->Text(), "");
}

TEST_F(KeysTest, AKeyPressOfCodeZeroIsKeptFromTheField) {
  on_press_ = [](int& code) { code = 0; };
  Key(Top(), 'a');
  EXPECT_EQ(combo_->Text(), "");
}

TEST_F(KeysTest, AChangedCodeIsTheKeyThatTheFieldGets) {
  on_press_ = [](int& code) { code = 'z'; };
  Key(Top(), 'a');
  EXPECT_EQ(combo_->Text(), "z");
  on_press_ = nullptr;
  on_down_ = [](KeyEvent& key) {
    if (key.KeyCode == kKeyDelete) key.KeyCode = 8;
  };
  Key(Top(), GDK_KEY_Delete);
  EXPECT_EQ(combo_->Text(), "") << "Delete at the end does nothing, Backspace does";
}

TEST_F(KeysTest, AHandlerThatMovesTheFocusHasUsedTheKey) {
  on_press_ = [this](int& code) {
    if (code == kKeyTab) button_->SetFocus();
  };
  Key(Top(), GDK_KEY_Tab);
  EXPECT_TRUE(button_->widget().has_focus()) << "Tab must not go on from there";
}

TEST_F(KeysTest, TabMovesOnByItself) {
  Key(Top(), GDK_KEY_Tab);
  EXPECT_TRUE(button_->widget().has_focus());
  EXPECT_THAT(log_, ElementsAre("down 9/0", "press 9"));
}

TEST_F(KeysTest, ShiftAndTabGoBackPastAHandlerOfTab) {
  on_press_ = [](int& code) {
    if (code == kKeyTab) code = 0;
  };
  Key(Top(), GDK_KEY_ISO_Left_Tab, GDK_SHIFT_MASK);
  EXPECT_TRUE(button_->widget().has_focus());
}

TEST_F(KeysTest, AKeyThatWasPressedElsewhereIsNotReleasedHere) {
  button_->SetFocus();
  KeyDown(Top(), GDK_KEY_Tab);
  ASSERT_FALSE(button_->widget().has_focus());
  KeyUp(Top(), GDK_KEY_Tab);
  EXPECT_THAT(log_, ElementsAre());
}

TEST_F(KeysTest, AKeyThatIsReleasedElsewhereIsForgotten) {
  KeyDown(Top(), 'a');
  button_->SetFocus();
  KeyUp(Top(), 'a');
  KeyDown(Top(), 'a');
  combo_->SetFocus();
  KeyUp(Top(), 'a');
  EXPECT_THAT(log_, ElementsAre("down 65/0", "press 97"));
}

TEST_F(KeysTest, AKeyThatACommandHasUsedIsNotReleased) {
  on_down_ = [](KeyEvent& key) { key.KeyCode = 0; };
  Key(Top(), 'd');
  on_down_ = nullptr;
  Key(Top(), 'e');
  EXPECT_THAT(log_, ElementsAre("down 68/0", "down 69/0", "press 101", "up 69/0"));
}

TEST_F(KeysTest, ModifiersAreNotReleased) {
  for (const guint key : {GDK_KEY_Control_L, GDK_KEY_Shift_R, GDK_KEY_Alt_L}) Key(Top(), key);
  EXPECT_THAT(log_, ElementsAre("down 17/0", "down 16/0", "down 18/0"));
}

TEST_F(KeysTest, AControlMayBeDestroyedByItsOwnKey) {
  on_down_ = [this](KeyEvent&) { combo_.reset(); };
  Key(Top(), 'a');
  EXPECT_EQ(combo_, nullptr);
}

TEST_F(KeysTest, FocusIsToldOnceAndNotWhenAMenuCloses) {
  int focused = 0;
  listening_ += button_->GotFocus.Connect([&] { ++focused; });
  button_->SetFocus();
  EXPECT_EQ(focused, 1);
  button_->SetFocus();
  EXPECT_EQ(focused, 1);
  combo_->SetFocus();
  Key(Top(), GDK_KEY_Tab);
  EXPECT_EQ(focused, 2);
}

TEST_F(KeysTest, AButtonIsPressedWithSpaceAndEnter) {
  int clicks = 0;
  listening_ += button_->Click.Connect([&] { ++clicks; });
  button_->SetFocus();
  Key(Top(), GDK_KEY_space);
  Settle();
  EXPECT_EQ(clicks, 1);
  Key(Top(), GDK_KEY_Return);
  WaitFor("the click by Enter", [&] { return clicks == 2; });
  EXPECT_EQ(button_->Caption(), "&OK");
  EXPECT_EQ(windows_.Text(button_->hwnd()), "OK");
}

TEST_F(KeysTest, RealKeysFromTheDisplayArrive) {
  Outside({"xdotool", "key", "shift+b", "Home"});
  WaitFor("Home released", [&] { return !log_.empty() && log_.back() == "up 36/0"; });
  EXPECT_THAT(log_, testing::IsSupersetOf({"down 16/0", "down 66/1", "press 66", "down 36/0"}));
  EXPECT_EQ(combo_->Text(), "B");
  EXPECT_EQ(combo_->SelStart(), 0);
}

TEST_F(KeysTest, EveryPictureCanBeShown) {
  const auto* shown = dynamic_cast<Gtk::Button&>(button_->widget()).get_image();
  ASSERT_EQ(shown, nullptr);
  button_->SetPicture(kImageLoading + 1);  // which there is not
  Glib::RefPtr<const Gio::Icon> before;
  for (int image = 1; image <= kImageLoading; ++image) {
    button_->SetPicture(image);
    const auto* picture =
        dynamic_cast<const Gtk::Image*>(dynamic_cast<Gtk::Button&>(button_->widget()).get_image());
    ASSERT_NE(picture, nullptr) << image;
    ASSERT_EQ(picture->get_storage_type(), Gtk::IMAGE_GICON) << image;
    const auto icon = picture->property_gicon().get_value();
    EXPECT_TRUE(Gtk::IconTheme::get_default()->lookup_icon(icon, 16)) << image;
    EXPECT_FALSE(before && before->equal(icon)) << image << " looks like the one before";
    before = icon;
  }
}

TEST_F(KeysTest, AReadOnlyFieldTakesTheFocusAndGivesItAway) {
  TextBoxControl text("Text1", windows_);
  text.SetText("one\ntwo");
  window_.frame.Add(text);
  text.SetFocus();
  Key(Top(), 'x');
  EXPECT_EQ(text.Text(), "one\ntwo");
  Key(Top(), GDK_KEY_Tab, GDK_SHIFT_MASK);
  Settle();
  EXPECT_FALSE(text.widget().has_focus());
}

}  // namespace
}  // namespace corvane::desktop
