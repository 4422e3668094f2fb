#include <set>

#include "platform/file_dialog.h"
#include "speech/MenuWords.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

std::vector<std::string> captions(const MenuArray& array) {
  std::vector<std::string> all;
  for (int i = 0; i < array.Count(); ++i) all.push_back(array(i).Caption());
  return all;
}

TEST(MainMenu, CaptionsStandAsTheyAre) {
  Program p;
  p.Start();
  const MainMenu& m = p.Inside().menu;
  EXPECT_THAT(captions(m.mnuFile),
              ElementsAre("&File", "&Edit", "&Go", "Settin&gs", "&View", "Spee&ch", "Help"));
  EXPECT_THAT(captions(m.mnuFileItem), ElementsAre("&New Window", "&Open Web Site", "Open &File",
                                                   "&Save as", "-", "&Print", "-", "E&xit"));
  EXPECT_THAT(captions(m.mnuEdit), ElementsAre("Cu&t", "&Copy", "&Paste", "-", "Select &All"));
  EXPECT_THAT(captions(m.mnuGo),
              ElementsAre("&Back", "&Forward", "S&top", "&Refresh", "&Home", "S&earch"));
  EXPECT_THAT(captions(m.mnuSettings),
              ElementsAre("&IE Settings", "-", "Side&Bar", "&Text History", "&Home", "Auto&Focus",
                          "-", "Enable &Status Change Feedback"));
  EXPECT_THAT(
      captions(m.mnuSideBarContent),
      ElementsAre("None", "-", "Favorites", "History", "Page Structure", "Accessibility Browser"));
  EXPECT_THAT(captions(m.mnuTextHistory), ElementsAre("Clear with New Page", "Never Clear"));
  EXPECT_THAT(captions(m.mnuHome),
              ElementsAre("None", "-", "Use Explorer's", "Use Corvane's", "Last one Opened"));
  EXPECT_THAT(captions(m.mnuFocus),
              ElementsAre("None", "-", "Links", "SideBar", "WebBrowser", "Text Box"));
  EXPECT_THAT(captions(m.mnuView), ElementsAre("&Toolbar", "&Statusbar"));
  EXPECT_THAT(captions(m.mnuSpeech),
              ElementsAre("Enable Speech", "Enable Keyboard Echo", "-", "Rate", "&Pitch"));
  EXPECT_THAT(captions(m.mnuRate), ElementsAre("Very Slow", "Slow", "Normal", "Fast", "Very Fast"));
  EXPECT_THAT(captions(m.mnuPitch), ElementsAre("Very Low", "Low", "Normal", "High", "Very High"));
  EXPECT_THAT(captions(m.mnuHelp), ElementsAre("&Contents", "&About"));
}

TEST(MainMenu, SpeaksOfNoOtherProgramToday) {
  Program p;
  p.desktop.settings.Main("Manner") = "1";
  p.Start();
  const MainMenu& m = p.Inside().menu;
  EXPECT_THAT(captions(m.mnuFile),
              ElementsAre("&File", "&Edit", "&Go", "&Settings", "&View", "Spee&ch", "&Help"));
  EXPECT_THAT(captions(m.mnuSettings),
              ElementsAre("Web Opt&ions", "-", "Side&Bar", "&Text History", "&Home", "Auto&Focus",
                          "-", "Enable &Status Change Feedback"));
  EXPECT_THAT(captions(m.mnuHome), ElementsAre("None", "-", "Use Start Page of Web Options",
                                               "Use Corvane's", "Last one Opened"));
  EXPECT_EQ(m.mnuRate(0).Id(), kRateIds.first) << "the numbers stay";
}

TEST(MainMenu, EveryAccessKeyOfTodayIsTheOnlyOneInItsMenu) {
  Program p;
  p.desktop.settings.Main("Manner") = "1";
  p.Start();
  const MainMenu& m = p.Inside().menu;
  for (const MenuArray* menu : {&m.mnuFile, &m.mnuFileItem, &m.mnuEdit, &m.mnuGo, &m.mnuSettings,
                                &m.mnuView, &m.mnuSpeech, &m.mnuHelp}) {
    std::set<std::string> keys;
    for (const std::string& caption : captions(*menu)) {
      const auto mark = caption.find('&');
      if (mark == std::string::npos) continue;
      EXPECT_TRUE(keys.insert(text::lower(caption.substr(mark + 1, 1))).second) << caption;
    }
  }
}

TEST(Toolbar, HasAccessKeysInTheEstablishedManner) {
  Program p;
  p.Start();
  EXPECT_EQ(p.desktop.Get<FakeCommandButton>("cmdToolbar4").caption, "&Home");
}

TEST(Toolbar, LeavesAltWithALetterToTheMenusToday) {
  Program p;
  p.desktop.settings.Main("Manner") = "1";
  p.Start();
  for (int i = 0; i < kToolbarButtons; ++i) {
    const auto& button = p.desktop.Get<FakeCommandButton>("cmdToolbar" + std::to_string(i));
    EXPECT_THAT(button.caption, ::testing::Not(::testing::HasSubstr("&")));
    EXPECT_FALSE(button.caption.empty());
  }
}

// Whether the array is what the item opens, in its order and no more.
bool Opens(const MenuItem& opener, const MenuArray& array) {
  const auto& items = dynamic_cast<const FakeMenuItem&>(opener).items;
  if (static_cast<int>(items.size()) != array.Count()) return false;
  for (int i = 0; i < array.Count(); ++i) {
    if (items[static_cast<std::size_t>(i)].get() != &array(i)) return false;
  }
  return true;
}

TEST(MainMenu, EachMenuHangsOnItsTitle) {
  Program p;
  p.Start();
  const MainMenu& m = p.Inside().menu;
  const std::vector<const MenuArray*> menus = {
      &m.mnuFileItem, &m.mnuEdit, &m.mnuGo, &m.mnuSettings, &m.mnuView, &m.mnuSpeech, &m.mnuHelp};
  for (int i = 0; i < m.mnuFile.Count(); ++i) {
    EXPECT_TRUE(Opens(m.mnuFile(i), *menus.at(static_cast<std::size_t>(i)))) << i;
  }
  EXPECT_TRUE(Opens(m.mnuSettings(2), m.mnuSideBarContent));
  EXPECT_TRUE(Opens(m.mnuSettings(3), m.mnuTextHistory));
  EXPECT_TRUE(Opens(m.mnuSettings(4), m.mnuHome));
  EXPECT_TRUE(Opens(m.mnuSettings(5), m.mnuFocus));
  EXPECT_TRUE(Opens(m.mnuSpeech(3), m.mnuRate));
  EXPECT_TRUE(Opens(m.mnuSpeech(4), m.mnuPitch));
}

TEST(MenuCommands, StatusFeedbackTogglesItsMarkButThePanesFlagStaysSet) {
  Program p;
  p.Start();
  MenuItem& item = p.Inside().menu.mnuSettings(7);
  const PaneState& state = p.Inside().ctlWebBrowser1.Inside().state;
  item.Click.Raise();
  EXPECT_TRUE(item.Checked());
  EXPECT_EQ(p.desktop.settings.Main("StatusChange"), "True");
  EXPECT_TRUE(state.blnStatusFeedback);
  item.Click.Raise();
  EXPECT_FALSE(item.Checked());
  EXPECT_EQ(p.desktop.settings.Main("StatusChange"), "False");
  EXPECT_TRUE(state.blnStatusFeedback);
}

TEST(MenuCommands, StatusFeedbackThatIsUncheckedTodayIsSilentFromThenOn) {
  Program p;
  p.desktop.settings.Main("Manner") = "1";
  p.StartTalking();
  MenuItem& item = p.Inside().menu.mnuSettings(7);
  item.Click.Raise();
  p.Browser().StatusTextChange.Raise("Loading one");
  EXPECT_THAT(p.Spoken(), ElementsAre("Loading one"));
  item.Click.Raise();
  p.Browser().StatusTextChange.Raise("Loading two");
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_EQ(p.Status().PanelText(1), "Loading two");
  item.Click.Raise();
  p.Browser().StatusTextChange.Raise("Loading three");
  EXPECT_THAT(p.Spoken(), ElementsAre("Loading three"));
}

TEST(MenuCommands, StatusFeedbackFollowsItsMarkAlsoWhenTheMannerHasChanged) {
  Program p;
  p.StartTalking();
  MenuItem& item = p.Inside().menu.mnuSettings(7);
  item.Click.Raise();
  item.Click.Raise();  // unchecked, but still on
  auto values = std::vector<std::string>();
  for (const OwnOption& option : p.desktop.own_options.list()) values.push_back(option.value);
  values[0] = p.desktop.own_options.list()[0].choices[1];
  p.desktop.own_options.apply(values);
  ASSERT_TRUE(p.process.Manner().today);
  item.Click.Raise();
  EXPECT_TRUE(p.Inside().ctlWebBrowser1.Inside().state.blnStatusFeedback);
  item.Click.Raise();
  EXPECT_FALSE(p.Inside().ctlWebBrowser1.Inside().state.blnStatusFeedback);
}

TEST(MenuCommands, ChoicesGoToThePaneToo) {
  Program p;
  p.Start();
  p.Inside().menu.mnuHome(4).Click.Raise();
  p.Inside().menu.mnuTextHistory(1).Click.Raise();
  p.Inside().menu.mnuFocus(5).Click.Raise();
  p.Inside().menu.mnuSideBarContent(0).Click.Raise();
  PaneMenu& pane = p.Inside().ctlWebBrowser1.Inside().menu;
  EXPECT_EQ(pane.mnuHome.FirstChecked(), 4);
  EXPECT_EQ(pane.mnuTextHistory.FirstChecked(), 1);
  EXPECT_EQ(pane.mnuFocus().FirstChecked(), 5);
  EXPECT_EQ(pane.mnuSideBarContent.FirstChecked(), 0);
  EXPECT_EQ(p.desktop.settings.Pane("Home"), "4");
  EXPECT_EQ(p.desktop.settings.Pane("TextHistory"), "1");
  EXPECT_EQ(p.desktop.settings.Pane("Focus"), "5");
  EXPECT_EQ(p.desktop.settings.Pane("SideBar"), "0");
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(MenuCommands, ExitClosesThisWindowOnly) {
  Program p;
  p.Start();
  Application other(p.process);
  other.StartBrowser(p.Service());
  p.Inside(1).menu.mnuFileItem(7).Click.Raise();
  EXPECT_EQ(p.process.Forms().size(), 1U);
  EXPECT_EQ(p.desktop.Living("frmProcess"), 1U);
}

TEST(MenuCommands, NewWindowSharesTheServiceAndOutlivesTheFirst) {
  Program p;
  p.Start();
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  ASSERT_EQ(p.process.Forms().size(), 2U);
  const auto service = p.Service();
  EXPECT_EQ(p.Window(1)->MainApp(), service);
  EXPECT_TRUE(p.Inside(1).form->Visible());
  p.Window(0)->Unload();
  ASSERT_EQ(p.process.Forms().size(), 1U);
  EXPECT_EQ(p.Window(0)->MainApp(), service);
  EXPECT_EQ(p.desktop.Living("frmProcess"), 1U);
}

TEST(MenuCommands, OpenWebSiteEmptiesTheAddressBoxAndGoesThere) {
  Program p;
  p.Start();
  p.Address().text = "http://somewhere";
  p.Inside().menu.mnuFileItem(1).Click.Raise();
  EXPECT_EQ(p.Address().text, "");
  EXPECT_EQ(p.desktop.focus, "cboAddress");
}

TEST(MenuCommands, OpenFileAsksForAPageAndGoesThere) {
  Program p;
  p.Start();
  p.Inside().menu.mnuFileItem(2).Click.Raise();
  auto& dialog = p.desktop.file_dialogs;
  ASSERT_TRUE(dialog.shown);
  EXPECT_EQ(dialog.kind, FileDialog::Kind::Open);
  EXPECT_EQ(dialog.record.flags, 0x28102CU);
  EXPECT_EQ(dialog.record.filter, "HyperText Markup Language (*.htm,*.html)|*.htm*");
  EXPECT_EQ(dialog.record.owner, p.Inside().form->hwnd());
  dialog.hook({FakeFileDialog::kHookWindow, kWmInitDialog, 0, 0});
  EXPECT_THAT(dialog.calls, ElementsAre("Move 900 to 100,50 300x200"));
  p.Browser().calls.clear();
  dialog.Choose("/home/ann/a page.html", "a page.html");
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 /home/ann/a page.html"));
}

TEST(MenuCommands, OpenFileHasRoomForALongPath) {
  Program p;
  p.Start();
  p.Inside().menu.mnuFileItem(2).Click.Raise();
  EXPECT_EQ(p.desktop.file_dialogs.record.max_file, 0x10000);
}

TEST(MenuCommands, CancellingTheOpenFileDialogNavigatesNowhere) {
  Program p;
  p.Start();
  p.Browser().calls.clear();
  for (int i = 0; i < 2; ++i) {  // it can be opened again
    p.Inside().menu.mnuFileItem(2).Click.Raise();
    ASSERT_TRUE(p.desktop.file_dialogs.shown);
    p.desktop.file_dialogs.Cancel();
  }
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(MenuCommands, AnOpenFileDialogGoesWithItsWindow) {
  Program p;
  p.Start();
  p.Inside().menu.mnuFileItem(2).Click.Raise();
  p.Window(0)->Unload();
  EXPECT_FALSE(p.desktop.file_dialogs.shown);
}

TEST(MenuCommands, SaveAsAndPrintAreTheEnginesCommands) {
  Program p;
  p.Start();
  p.Browser().calls.clear();
  p.Inside().menu.mnuFileItem(3).Click.Raise();
  p.Inside().menu.mnuFileItem(5).Click.Raise();
  EXPECT_THAT(p.Browser().calls, ElementsAre("ExecWB 4 2", "ExecWB 6 1"));
}

TEST(MenuCommands, EditWorksOnTheTextPaneAndTheClipboard) {
  Program p;
  p.Start();
  MainMenu& menu = p.Inside().menu;
  ctlText& pane = p.Inside().ctlWebBrowser1.Inside().controls.ctlText1;
  pane.SetText("one two");
  menu.mnuEdit(4).Click.Raise();
  EXPECT_EQ(pane.SelText(), "one two");
  EXPECT_EQ(p.desktop.focus, "Text1");
  pane.SetSelStart(0);
  pane.SetSelLength(3);
  menu.mnuEdit(1).Click.Raise();
  EXPECT_EQ(p.desktop.clipboard.text, "one");
  menu.mnuEdit(0).Click.Raise();
  EXPECT_EQ(pane.Text(), " two");
  pane.SetSelStart(4);
  menu.mnuEdit(2).Click.Raise();
  EXPECT_EQ(pane.Text(), " twoone");
  menu.mnuEdit(3).Click.Raise();  // the separator
  EXPECT_EQ(pane.Text(), " twoone");
}

TEST(MenuCommands, GoIsTheToolbar) {
  Program p;
  p.Start();
  p.Browser().calls.clear();
  for (int index = 0; index <= 4; ++index) p.Inside().menu.mnuGo(index).Click.Raise();
  EXPECT_THAT(p.Browser().calls, ElementsAre("GoBack", "GoForward", "Stop", "Refresh",
                                             testing::StartsWith("Navigate2 ")));
  p.Inside().menu.mnuGo(5).Click.Raise();
  EXPECT_EQ(p.Address().text, "Search ");
  EXPECT_EQ(p.Address().caret, 7);
}

TEST(MenuCommands, EngineSettingsAreShown) {
  Program p;
  p.Start();
  p.Inside().menu.mnuSettings(0).Click.Raise();
  EXPECT_EQ(p.desktop.engine_options, 1);
}

TEST(MenuCommands, ToolbarItemHidesAndShowsTheButtons) {
  Program p;
  p.Start();
  MenuItem& item = p.Inside().menu.mnuView(0);
  const auto& buttons = p.Inside().ctlWebBrowser1.Inside().controls.ButtonContainer;
  EXPECT_TRUE(item.Checked());
  item.Click.Raise();
  EXPECT_FALSE(item.Checked());
  EXPECT_FALSE(buttons->Visible());
  item.Click.Raise();
  EXPECT_TRUE(item.Checked());
  EXPECT_TRUE(buttons->Visible());
}

TEST(MenuCommands, StatusbarItemHidesAndDetachesTheBar) {
  Program p;
  p.Start();
  MenuItem& item = p.Inside().menu.mnuView(1);
  int realigned = 0;
  bool marked = true;  // when the window was laid out last
  const auto listening = p.Inside().ELAMain->RealignFrame.Connect([&] {
    ++realigned;
    marked = item.Checked();
  });
  EXPECT_TRUE(item.Checked());
  item.Click.Raise();
  EXPECT_FALSE(item.Checked());
  EXPECT_FALSE(p.Status().Visible());
  EXPECT_EQ(realigned, 1);
  EXPECT_FALSE(marked) << "the mark comes before the layout";
  p.Browser().StatusTextChange.Raise("unseen");
  EXPECT_NE(p.Status().PanelText(1), "unseen");
  item.Click.Raise();
  EXPECT_TRUE(item.Checked());
  EXPECT_TRUE(p.Status().Visible());
  EXPECT_EQ(realigned, 2);
  p.Browser().StatusTextChange.Raise("seen");
  EXPECT_EQ(p.Status().PanelText(1), "seen");
}

TEST(MenuCommands, ChoosingAnItemThatIsCheckedKeepsExactlyOne) {
  Program p;
  p.Start();
  MainMenu& menu = p.Inside().menu;
  for (MenuArray* array : {&menu.mnuSideBarContent, &menu.mnuTextHistory, &menu.mnuHome,
                           &menu.mnuFocus, &menu.mnuRate, &menu.mnuPitch}) {
    for (int i = 0; i < array->Count(); ++i) {
      if ((*array)(i).Caption() == "-") continue;
      (*array)(i).Click.Raise();
      (*array)(i).Click.Raise();
      int checked = 0;
      for (int j = 0; j < array->Count(); ++j) checked += (*array)(j).Checked() ? 1 : 0;
      EXPECT_EQ(checked, 1);
      EXPECT_TRUE((*array)(i).Checked());
    }
  }
}

}  // namespace
}  // namespace corvane::tests
