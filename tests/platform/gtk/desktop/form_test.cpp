#include "platform/linux/gtk/layout/form.h"

#include <gdk/gdkkeysyms.h>
#include <gdkmm/display.h>
#include <gdkmm/monitor.h>

#include "platform/linux/gtk/controls/status_bar.h"
#include "platform/linux/gtk/controls/text_box.h"
#include "platform/linux/gtk/hooks/activation_hook.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

class FormTest : public test::DesktopTest {
 protected:
  static void Place(Form& form, float left, float top, float width, float height) {
    form.SetLeft(left);
    form.SetTop(top);
    form.SetWidth(width);
    form.SetHeight(height);
  }
  static void ExpectPlace(const Form& form, float left, float top, float width, float height) {
    EXPECT_EQ(form.Left(), left);
    EXPECT_EQ(form.Top(), top);
    EXPECT_EQ(form.Width(), width);
    EXPECT_EQ(form.Height(), height);
  }
  void ShowActive(FormWindow& form) {
    form.Show();
    WaitFor("the window to be active",
            [&] { return form.window().property_is_active().get_value(); });
    Settle();
  }
};

TEST_F(FormTest, AFormIsKnownToTheTableWhileItLives) {
  WindowHandle handle = 0;
  {
    FormWindow form("frmProcess", windows_);
    form.SetCaption("Marker1234");
    handle = form.hwnd();
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(windows_.FindWindow("Marker1234"), handle);
    EXPECT_EQ(windows_.FirstThreadWindow(), handle);
    EXPECT_EQ(windows_.ClassName(handle), "Form");
  }
  EXPECT_EQ(windows_.FindWindow("Marker1234"), 0U);
}

TEST_F(FormTest, ABoxOverAnotherWindowLeadsBackToWhereTheUserWas) {
  FormWindow other("other", windows_);
  FormWindow here("here", windows_);
  FormWindow box("box", windows_);
  ShowActive(other);
  ShowActive(here);
  EXPECT_EQ(windows_.Active(), here.hwnd());
  EXPECT_EQ(windows_.Owner(here.hwnd()), 0U);
  for (FormWindow* owner : {&other, &here}) {
    box.ShowModal(owner);
    WaitFor("the box", [&] { return windows_.Active() == box.hwnd(); });
    EXPECT_EQ(windows_.Owner(box.hwnd()), owner->hwnd());
    box.Hide();
    WaitFor("the way back", [&] { return windows_.Active() == here.hwnd(); });
    Settle();
    EXPECT_EQ(windows_.Active(), here.hwnd());
    EXPECT_EQ(windows_.Owner(box.hwnd()), 0U);
  }
}

TEST_F(FormTest, ItsPlaceIsThatWhichWasSetShownOrHidden) {
  FormWindow form("frm", windows_);
  Place(form, 500, 350, 8500, 6500);
  ExpectPlace(form, 500, 350, 8500, 6500);
  for (int round = 0; round < 3; ++round) {
    ShowActive(form);
    ExpectPlace(form, 500, 350, 8500, 6500);
    form.Hide();
    Settle();
    ExpectPlace(form, 500, 350, 8500, 6500);
  }
}

TEST_F(FormTest, AMoveFromOutsideIsAnswered) {
  FormWindow form("frm", windows_);
  Place(form, 1500, 1500, 6000, 4500);
  ShowActive(form);
  form.window().move(200, 150);
  form.window().resize(500, 350);
  WaitFor("the new place", [&] { return form.Left() == 3000 && form.Width() == 7500; });
  ExpectPlace(form, 3000, 2250, 7500, 5250);
}

TEST_F(FormTest, ChangesWhileShownAreCarriedOut) {
  FormWindow form("frm", windows_);
  Place(form, 1500, 1500, 6000, 4500);
  ShowActive(form);
  Place(form, 2250, 1800, 7500, 6000);
  ExpectPlace(form, 2250, 1800, 7500, 6000);
  WaitFor("the window's size", [&] {
    int width = 0;
    int height = 0;
    form.window().get_size(width, height);
    return width == 500 && height == 400;
  });
  Settle();
  ExpectPlace(form, 2250, 1800, 7500, 6000);
}

TEST_F(FormTest, APlaceOffTheScreenIsBroughtBack) {
  for (const float far : {-90000.0F, 90000.0F}) {
    FormWindow form("frm", windows_);
    Place(form, far, far, 6000, 4500);
    ShowActive(form);
    EXPECT_GE(form.Left(), 0);
    EXPECT_GE(form.Top(), 0);
    EXPECT_LE(form.Left() + form.Width(), 1280 * kTwipsPerPixel);
    EXPECT_LE(form.Top() + form.Height(), 900 * kTwipsPerPixel);
    EXPECT_EQ(form.Width(), 6000);
  }
}

TEST_F(FormTest, AFormThatFillsTheScreenLeavesRoomForItsTitleBar) {
  Gdk::Rectangle area;
  Gdk::Display::get_default()->get_monitor(0)->get_workarea(area);
  FormWindow form("frmCorvane", windows_);
  form.FillScreen();
  ShowActive(form);
  WaitFor("all of the screen", [&] {
    Gdk::Rectangle frame;
    form.window().get_window()->get_frame_extents(frame);
    return frame.get_x() == area.get_x() && frame.get_y() == area.get_y() &&
           frame.get_width() == area.get_width() && frame.get_height() == area.get_height();
  });
  EXPECT_EQ(form.Left(), static_cast<float>(area.get_x()) * kTwipsPerPixel);
  EXPECT_LE(form.Height(), static_cast<float>(area.get_height()) * kTwipsPerPixel);

  // What it keeps of that is the same place for the next one.
  FormWindow next("frmCorvane", windows_);
  Place(next, form.Left(), form.Top(), form.Width(), form.Height());
  ShowActive(next);
  ExpectPlace(next, form.Left(), form.Top(), form.Width(), form.Height());
}

TEST_F(FormTest, PlacesBeyondAllScreensAreBroughtBack) {
  FormWindow form("frmCorvane", windows_);
  Place(form, 1e30F, -1e30F, 1e30F, 1e30F);
  ShowActive(form);
  Gdk::Rectangle area;
  Gdk::Display::get_default()->get_monitor(0)->get_workarea(area);
  EXPECT_LE(form.Width(), static_cast<float>(area.get_width()) * kTwipsPerPixel);
  EXPECT_GE(form.Left(), static_cast<float>(area.get_x()) * kTwipsPerPixel);
  EXPECT_GE(form.Top(), static_cast<float>(area.get_y()) * kTwipsPerPixel);
}

TEST_F(FormTest, AWindowLargerThanTheScreenIsMadeToFit) {
  FormWindow form("frm", windows_);
  Place(form, 0, 0, 500000, 500000);
  ShowActive(form);
  EXPECT_LE(form.Width(), 1280 * kTwipsPerPixel);
  EXPECT_LE(form.Height(), 900 * kTwipsPerPixel);
}

TEST_F(FormTest, StatesFollowTheWindow) {
  FormWindow form("frm", windows_);
  Place(form, 1500, 1500, 6000, 4500);
  EXPECT_EQ(form.State(), Form::WindowState::Normal);
  ShowActive(form);
  form.window().maximize();
  WaitFor("maximized", [&] { return form.State() == Form::WindowState::Maximized; });
  WaitFor("the maximized size", [&] { return form.Width() > 1000 * kTwipsPerPixel; });
  form.window().unmaximize();
  WaitFor("normal", [&] { return form.State() == Form::WindowState::Normal; });
  WaitFor("the old size", [&] { return form.Width() == 6000; });
  form.window().iconify();
  WaitFor("minimized", [&] { return form.State() == Form::WindowState::Minimized; });
  ExpectPlace(form, 1500, 1500, 6000, 4500);
}

TEST_F(FormTest, ClosingAsksThenUnloadsThenHides) {
  FormWindow form("frm", windows_);
  std::vector<std::string> events;
  bool keep = true;
  Connections listening;
  listening += form.QueryUnload.Connect([&](bool& cancel, Form::UnloadMode mode) {
    events.push_back(mode == Form::UnloadMode::ControlMenu ? "query menu" : "query code");
    cancel = keep;
  });
  listening += form.Unload.Connect([&] {
    events.emplace_back("unload");
    EXPECT_TRUE(form.Visible()) << "its place can still be asked for";
  });
  ShowActive(form);
  form.Close(Form::UnloadMode::ControlMenu);
  EXPECT_TRUE(form.Visible());
  keep = false;
  form.Close(Form::UnloadMode::Code);
  EXPECT_FALSE(form.Visible());
  form.Close(Form::UnloadMode::Code);
  form.Show();
  EXPECT_FALSE(form.Visible()) << "a closed form is off the screen for good";
  EXPECT_THAT(events, ElementsAre("query menu", "query code", "unload"));
}

TEST_F(FormTest, TheCloseButtonAndACloseRequestAskForTheControlMenu) {
  FormWindow form("frm", windows_);
  std::vector<Form::UnloadMode> modes;
  const auto listening = form.QueryUnload.Connect([&](bool& cancel, Form::UnloadMode mode) {
    modes.push_back(mode);
    cancel = true;
  });
  ShowActive(form);
  form.window().close();
  WaitFor("the close button", [&] { return modes.size() == 1; });
  windows_.PostClose(form.hwnd());
  EXPECT_EQ(modes.size(), 1U);
  WaitFor("the close request", [&] { return modes.size() == 2; });
  EXPECT_EQ(modes[0], Form::UnloadMode::ControlMenu);
  EXPECT_EQ(modes[1], Form::UnloadMode::ControlMenu);
}

TEST_F(FormTest, AFormMayBeDestroyedWhileItUnloads) {
  auto form = std::make_unique<FormWindow>("frm", windows_);
  const auto listening = form->Unload.Connect([&] { form.reset(); });
  ShowActive(*form);
  form->window().close();
  WaitFor("the form to go", [&] { return form == nullptr; });
}

TEST_F(FormTest, AModalFormTakesTheInputOfOthersAndGivesItBack) {
  FormWindow owner("owner", windows_);
  FormWindow dialog("dialog", windows_);
  ShowActive(owner);
  dialog.ShowModal(&owner);
  WaitFor("the dialog", [&] { return dialog.window().property_is_active().get_value(); });
  const auto grab = [&] {
    return gtk_window_group_get_current_grab(gtk_window_get_group(owner.window().gobj()));
  };
  EXPECT_EQ(grab(), GTK_WIDGET(dialog.window().gobj()));
  EXPECT_EQ(dialog.window().get_transient_for(), &owner.window());
  dialog.Hide();
  Settle();
  EXPECT_EQ(grab(), nullptr);
  dialog.ShowModal(nullptr);
  EXPECT_TRUE(dialog.Visible());
}

TEST_F(FormTest, EscapeClosesAModalFormOnly) {
  FormWindow form("frm", windows_);
  ElasticFrameControl frame("ELAMain", windows_);
  TextBoxControl text("Text1", windows_);
  frame.Add(text);
  form.SetContent(frame);
  int asked = 0;
  const auto listening = form.QueryUnload.Connect([&](bool& cancel, Form::UnloadMode) {
    ++asked;
    cancel = true;
    form.Hide();
  });
  ShowActive(form);
  text.SetFocus();
  Key(form.window(), GDK_KEY_Escape);
  EXPECT_EQ(asked, 0);
  form.Hide();
  form.ShowModal(nullptr);
  WaitFor("the form", [&] { return form.window().property_is_active().get_value(); });
  Key(form.window(), GDK_KEY_Escape);
  EXPECT_EQ(asked, 1);
  EXPECT_FALSE(form.Visible());
}

TEST_F(FormTest, HooksHearOfWindowsThatBecomeActive) {
  TableActivationHook hook(windows_);
  std::vector<WindowHandle> heard;
  const auto listening = hook.Activated.Connect([&](WindowHandle w) { heard.push_back(w); });
  FormWindow first("first", windows_);
  FormWindow second("second", windows_);
  ShowActive(first);
  EXPECT_TRUE(heard.empty());
  hook.SetEnabled(true);
  EXPECT_TRUE(hook.Enabled());
  ShowActive(second);
  EXPECT_THAT(heard, ElementsAre(second.hwnd()));
  hook.SetEnabled(false);
  ShowActive(first);
  EXPECT_EQ(heard.size(), 1U);
}

TEST_F(FormTest, ItsPartsMayBeDestroyedInAnyOrder) {
  auto form = std::make_unique<FormWindow>("frm", windows_);
  auto frame = std::make_unique<ElasticFrameControl>("ELAMain", windows_);
  auto bar = std::make_unique<StatusBarControl>("sbStatusBar", windows_);
  auto text = std::make_unique<TextBoxControl>("Text1", windows_);
  form->SetContent(*frame);
  form->SetStatusBar(*bar);
  frame->Add(*text);
  ShowActive(*form);
  form.reset();
  bar->SetPanelText(1, "still there");
  text->SetText("still there");
  EXPECT_EQ(text->Text(), "still there");
  frame.reset();
  text->SetText("and now");
  EXPECT_EQ(windows_.Parent(text->hwnd()), 0U);
}

TEST_F(FormTest, AStatusBarHasPanels) {
  StatusBarControl bar("sbStatusBar", windows_);
  EXPECT_EQ(bar.PanelText(1), "");
  bar.SetPanelText(1, "Done");
  bar.SetPanelText(3, "secure");
  EXPECT_EQ(bar.PanelText(1), "Done");
  EXPECT_EQ(bar.PanelText(2), "");
  EXPECT_EQ(bar.PanelText(3), "secure");
  EXPECT_EQ(bar.PanelText(9), "");
  EXPECT_ANY_THROW(bar.SetPanelText(0, "x"));
}

TEST_F(FormTest, TheFormSeesAKeyBeforeItsControlAndMayUseIt) {
  test::TestWindow window(windows_);
  TextBoxControl field("Text1", windows_);
  window.frame.Add(field);
  window.Show();
  field.SetFocus();
  std::vector<std::string> seen;
  const auto form = window.form.KeyDown.Connect([&](KeyEvent& key) {
    seen.push_back("form " + std::to_string(key.KeyCode) + "/" + std::to_string(key.Shift));
    if (key.KeyCode == kKeyF5) key.KeyCode = 0;
  });
  const auto control = field.KeyDown.Connect(
      [&](KeyEvent& key) { seen.push_back("field " + std::to_string(key.KeyCode)); });
  Key(field.widget(), GDK_KEY_F5);
  Key(field.widget(), GDK_KEY_F6, GDK_SHIFT_MASK);
  EXPECT_THAT(seen, ElementsAre("form 116/0", "form 117/1", "field 117"));
}

TEST_F(FormTest, AKeyMayEndItsForm) {
  auto form = std::make_unique<FormWindow>("frmGone", windows_);
  ShowActive(*form);
  const auto unload = form->Unload.Connect([&] { form.reset(); });
  const auto keys = form->KeyDown.Connect([&](KeyEvent&) { form->Close(Form::UnloadMode::Code); });
  Key(form->window(), GDK_KEY_F5);
  EXPECT_EQ(form, nullptr);
}

TEST_F(FormTest, AModalFormHoldsUpItsOwnerAndNoOtherWindow) {
  FormWindow owner("frmOwner", windows_);
  FormWindow other("frmOther", windows_);
  FormWindow modal("frmModal", windows_);
  ShowActive(other);
  ShowActive(owner);
  modal.ShowModal(&owner);
  WaitFor("the modal window", [&] { return modal.window().property_is_active().get_value(); });
  int keys = 0;
  const auto listening = other.KeyDown.Connect([&](KeyEvent&) { ++keys; });
  const auto not_listening = owner.KeyDown.Connect([&](KeyEvent&) { keys += 100; });
  Key(owner.window(), GDK_KEY_F5);
  EXPECT_EQ(keys, 0);
  Key(other.window(), GDK_KEY_F5);
  EXPECT_EQ(keys, 1);
}

}  // namespace
}  // namespace corvane::desktop
