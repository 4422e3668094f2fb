// Windows of another program, which the test starts, on a real accessibility bus.
#include <signal.h>
#include <sys/wait.h>

#include "access/CWin32API.h"
#include "platform/linux/access/desktop_windows.h"
#include "tests/platform/access/access_fixture.h"

namespace corvane::desktop {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr std::uint32_t kSelected = 0x2;

/// The program, as long as the object lives.
class OtherProgram {
 public:
  OtherProgram() {
    const char* command[] = {CORVANE_OTHER_PROGRAM, nullptr};
    EXPECT_TRUE(g_spawn_async(nullptr, const_cast<gchar**>(command), nullptr,
                              G_SPAWN_DO_NOT_REAP_CHILD, nullptr, nullptr, &pid_, nullptr));
  }
  ~OtherProgram() { End(); }
  void End() {
    if (pid_ == 0) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    pid_ = 0;
  }
  void Hang() const { kill(pid_, SIGSTOP); }
  std::uint32_t Process() const { return static_cast<std::uint32_t>(pid_); }

 private:
  GPid pid_ = 0;
};

class OtherPrograms : public AccessTest {
 protected:
  void FetchDesktop() { Fetch(0); }
  void Fetch(WindowHandle window) {
    bool done = false;
    const auto fetching =
        accessibility_->Fetch({window}, Accessibility::Depth::All, [&] { done = true; });
    ASSERT_TRUE(WaitUntil([&] { return done; }));
  }
  std::vector<WindowHandle> Windows(const std::string& title) {
    std::vector<WindowHandle> found;
    CWin32API(all_).FindWindow(0, title, "*", found, false);
    return found;
  }
  /// The program's window, once it is there; all that lies in it is fetched.
  AccessiblePtr Find(const std::string& title) {
    WindowHandle window = 0;
    EXPECT_TRUE(WaitUntil([&] {
      FetchDesktop();
      const auto found = Windows(title);
      if (!found.empty()) window = found.front();
      return window != 0;
    })) << title;
    Fetch(window);
    return access_().IAccessibleObjectFromWindow(window, kObjectWindow);
  }
  /// The names of the rows of the other program's list that are selected.
  std::vector<std::string> Selected(const AccessiblePtr& list) {
    std::vector<std::string> names;
    for (const auto& row : list->Children(4)) {
      if ((row.object->State({}) & kSelected) != 0) {
        names.push_back(row.object->Text(AccessibleText::Name, {}));
      }
    }
    return names;
  }
  static ScreenPoint MiddleOf(const AccessiblePtr& object) {
    const ScreenRect place = object->Location({});
    return {place.left + place.width / 2, place.top + place.height / 2};
  }
  std::string NameAt(ScreenPoint point) {
    const auto found = accessibility_->ObjectFromPoint(point).object;
    return found ? found->Text(AccessibleText::Name, {}) : "nothing";
  }

  OtherProgram program_;
  DesktopWindows all_{windows_, *accessibility_};
};

TEST_F(OtherPrograms, WindowIsFoundByItsTitleAndTellsWhoseItIs) {
  const auto frame = Find("Other prog");
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->Text(AccessibleText::Name, {}), "Other program");
  EXPECT_EQ(frame->Role({}), 9);
  const WindowHandle window = access_().hWndFromAccessibleObject(frame);
  EXPECT_EQ(all_.ProcessId(window), program_.Process());
  EXPECT_EQ(all_.ClassName(window), "other_program");
  EXPECT_EQ(windows_.FirstThreadWindow(), top_) << "it is none of the program's own";
  EXPECT_EQ(all_.FirstChild(0), top_) << "which come first";
}

TEST_F(OtherPrograms, WindowsStandOnTheDesktopBesideTheProgramsOwn) {
  const auto frame = Find("Other program");
  const auto desktop = accessibility_->ObjectFromWindow(0, kObjectClient);
  std::vector<std::string> names;
  for (const auto& child : desktop->Children(desktop->ChildCount())) {
    names.push_back(child.object->Text(AccessibleText::Name, {}));
  }
  EXPECT_THAT(names, UnorderedElementsAre("Elements", "Other program", "A question"));
  const auto button = Named(frame, "Press me");
  ASSERT_TRUE(button);
  AccessiblePtr top;
  access_().FindTopParent(button, 0, top);
  ASSERT_TRUE(top);
  EXPECT_EQ(top->Text(AccessibleText::Name, {}), "Other program");
  AccessiblePtr dialog;
  access_().FindParentDialog(button, 0, dialog);
  EXPECT_EQ(dialog, nullptr);
}

TEST_F(OtherPrograms, DialogIsFoundFromWhatIsInIt) {
  const auto maybe = Named(Find("A question"), "Maybe");
  ASSERT_TRUE(maybe);
  AccessiblePtr dialog;
  access_().FindParentDialog(maybe, 0, dialog);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->Text(AccessibleText::Name, {}), "A question");
}

TEST_F(OtherPrograms, TextOfTheWindowIsItsLeaves) {
  std::string text;
  access_().GetBottomChildrenInfo(Find("Other program"), {}, true, 0, text);
  EXPECT_THAT(text, HasSubstr("push button, Press me.\r\n"));
  EXPECT_THAT(text, HasSubstr("editable text, Ada.\r\n"));
  EXPECT_THAT(text, HasSubstr("Apple"));
}

TEST_F(OtherPrograms, ButtonIsPressedByItsDefaultAction) {
  const auto button = Named(Find("Other program"), "Press me");
  ASSERT_TRUE(button);
  EXPECT_EQ(button->Text(AccessibleText::DefaultAction, {}), "click");
  access_().accDoDefaultAction(button, {});
  EXPECT_TRUE(Find("Pressed"));
}

TEST_F(OtherPrograms, SelectionChangesAsTheFlagsSay) {
  const auto list = Named(Find("Other program"), "Fruit");
  ASSERT_TRUE(list);
  const auto select = [&](const char* name, int flags) {
    access_().accSelect(Named(list, name), flags, {});
  };
  const auto becomes = [&](const std::vector<std::string>& names) {
    return WaitUntil([&] { return Selected(list) == names; });
  };
  select("Pear", kSelectTakeSelection);
  ASSERT_TRUE(becomes({"Pear"})) << ::testing::PrintToString(Selected(list));
  select("Quince", kSelectAddSelection);
  ASSERT_TRUE(becomes({"Pear", "Quince"})) << ::testing::PrintToString(Selected(list));
  select("Pear", kSelectRemoveSelection);
  ASSERT_TRUE(becomes({"Quince"})) << ::testing::PrintToString(Selected(list));
  select("Pear", kSelectExtendSelection);
  ASSERT_TRUE(becomes({"Pear", "Plum", "Quince"})) << ::testing::PrintToString(Selected(list));
  select("Apple", kSelectTakeFocus | kSelectTakeSelection);
  ASSERT_TRUE(becomes({"Apple"})) << ::testing::PrintToString(Selected(list));
}

TEST_F(OtherPrograms, ElementUnderThePointerIsThatOfTheUppermostWindow) {
  const auto button = Named(Find("Other program"), "Press me");
  ASSERT_TRUE(button);
  ASSERT_TRUE(WaitUntil([&] { return button->Location({}).left >= 900; })) << "not in its place";
  const ScreenPoint point = MiddleOf(button);
  EXPECT_EQ(NameAt(point), "Press me");

  gtk_window_move(GTK_WINDOW(window_), 700, 50);  // over the other one
  gtk_window_present(GTK_WINDOW(window_));
  EXPECT_TRUE(WaitUntil([&] { return NameAt(point) != "Press me"; }));
  AccessiblePtr top;
  access_().FindTopParent(accessibility_->ObjectFromPoint(point).object, 0, top);
  ASSERT_TRUE(top);
  EXPECT_EQ(top->Text(AccessibleText::Name, {}), "Elements");
}

TEST_F(OtherPrograms, WhatIsInAWindowIsAskedForWhenItIsWanted) {
  ASSERT_TRUE(WaitUntil([&] {
    FetchDesktop();
    return !Windows("Other program").empty();
  }));
  const auto frame = accessibility_->ObjectFromWindow(Windows("Other program")[0], kObjectWindow);
  ASSERT_TRUE(frame);
  EXPECT_TRUE(WaitUntil([&] { return Named(frame, "Press me") != nullptr; }));
}

TEST_F(OtherPrograms, WindowIsFetchedWholeAndKeepsWhatItShowedWhenItsProgramEnds) {
  const auto frame = Find("Other program");
  const WindowHandle window = access_().hWndFromAccessibleObject(frame);
  Fetch(window);
  const auto whole = accessibility_->ObjectFromWindow(window, kObjectClient);
  ASSERT_TRUE(whole);
  EXPECT_EQ(access_().hWndFromAccessibleObject(whole), window) << "the handle stays";
  program_.End();
  EXPECT_THAT(Listed(whole), Contains("push button: Press me"));
  ASSERT_TRUE(WaitUntil([&] {
    FetchDesktop();
    return Windows("Other program").empty();
  }));
  EXPECT_EQ(accessibility_->ObjectFromWindow(window, kObjectClient), nullptr);
  EXPECT_EQ(all_.Text(window), "");
  EXPECT_THAT(said_, IsEmpty());
}

TEST_F(OtherPrograms, ProgramThatHangsKeepsNobodyWaiting) {
  const auto button = Named(Find("Other program"), "Press me");
  ASSERT_TRUE(button);
  const ScreenPoint point = MiddleOf(button);
  program_.Hang();
  EXPECT_EQ(NameAt(point), "Other program") << "what is known of it";
  EXPECT_EQ(button->Text(AccessibleText::Name, {}), "Press me");
  button->DoDefaultAction({});
  button->Select(kSelectAddSelection, {});
  EXPECT_EQ(button->Location({}).width, 0);
}

// Which window is the display's --------------------------------------------------------

OtherWindow Window(const std::string& title, std::uint32_t process, ScreenRect place,
                   bool active = false) {
  OtherWindow window;
  window.element.name = title;
  window.process = process;
  window.place = place;
  window.active = active;
  return window;
}

TEST(WindowAt, IsThatOfTheProcessWithTheTitleAtMostThePlace) {
  const ScreenRect left{0, 0, 100, 100};
  const ScreenRect right{50, 0, 100, 100};
  const std::vector<OtherWindow> windows = {Window("a", 1, left), Window("a", 2, left),
                                            Window("b", 2, left), Window("b", 2, right)};
  const auto at = [&](std::uint32_t process, const std::string& title, ScreenRect place) {
    const OtherWindow* found = WindowAt(windows, StackedWindow{process, title, place}, {60, 10});
    return found == nullptr ? -1 : static_cast<int>(found - windows.data());
  };
  EXPECT_EQ(at(2, "a", right), 1);
  EXPECT_EQ(at(2, "b", left), 2);
  EXPECT_EQ(at(2, "b", right), 3);
  EXPECT_EQ(at(2, "c", right), 3);
  EXPECT_EQ(at(0, "a", left), 0) << "by title alone where the process is not known";
  EXPECT_EQ(at(9, "z", left), -1);
}

TEST(WindowAt, WithoutTheDisplaysHelpIsTheActiveOneThatCanBeSeen) {
  const ScreenRect place{0, 0, 100, 100};
  std::vector<OtherWindow> windows = {Window("hidden", 1, place, true), Window("a", 1, place),
                                      Window("b", 1, place, true)};
  windows[0].element.state = kStateInvisible;
  EXPECT_EQ(WindowAt(windows, {}, {5, 5}), &windows[2]);
  EXPECT_EQ(WindowAt(windows, {}, {100, 5}), nullptr);
}

}  // namespace
}  // namespace corvane::desktop
