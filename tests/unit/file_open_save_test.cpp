#include "controls/dwFileOpenSave.h"

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using namespace std::string_literals;

constexpr std::uint32_t kExplorerMulti = kExplorerStyle | kAllowMultiSelect | kEnableHook;

struct FileOpenSave : testing::Test {
  FakeDesktop desktop;
  dwFileOpenSave dialog{desktop};
  FakeFileDialog::Script& shown = desktop.file_dialogs;
  std::vector<std::string> closed;  // how each dialog ended

  void Open() {
    dialog.ShowOpen([this](const std::optional<RunTimeError>& error) {
      closed.push_back(error ? error->Source() + ": " + error->Description() : "");
    });
  }
  /// A message as the dialog sends it to its hook.
  void Send(int message, int control = 0, int code = 0) {
    const bool explorer = (shown.record.flags & kExplorerStyle) != 0;
    shown.hook(
        {explorer ? FakeFileDialog::kHookWindow : FakeFileDialog::kDialog, message, control, code});
  }
};

TEST_F(FileOpenSave, AFreshOneHasItsDefaults) {
  EXPECT_FALSE(dialog.CancelError);
  EXPECT_EQ(dialog.filename(), "");
  EXPECT_EQ(dialog.FileTitle(), "");
  EXPECT_EQ(dialog.DlgWindowOwner(), 0U);
  EXPECT_EQ(dialog.Filter(), "");
  EXPECT_EQ(dialog.FilterIndex(), 0);
  EXPECT_EQ(dialog.InitDir(), "/home/ann");
  EXPECT_EQ(dialog.Flags(), 32U);
  EXPECT_EQ(dialog.HelpCommand, 3);
  EXPECT_EQ(dialog.HelpContext, 0);
  EXPECT_EQ(dialog.HelpFile, "");
  EXPECT_EQ(dialog.HelpKey, "");
  EXPECT_EQ(dialog.DefaultExt(), "");
  EXPECT_EQ(dialog.DialogTitle(), "");
  EXPECT_EQ(dialog.MaxFileSize(), 260);
  EXPECT_FALSE(dialog.HideCancel);
  EXPECT_EQ(dialog.PosX, 0);
  EXPECT_EQ(dialog.PosY, 0);
  EXPECT_FALSE(dialog.SetDialogPosition);
  EXPECT_FALSE(dialog.SetDialogRelativeToScreen);
  EXPECT_FALSE(dialog.CustomOkButtonCaption);
  EXPECT_EQ(dialog.OkButtonCaption, "Select");
  EXPECT_FALSE(dialog.CustomCancelButtonCaption);
  EXPECT_EQ(dialog.CancelButtonCaption, "Cancel");
  EXPECT_FALSE(dialog.RaiseCallbackEvent);
  EXPECT_EQ(dialog.FileCount(), 1);
}

TEST_F(FileOpenSave, TheDialogGetsAllProperties) {
  dialog.SetDlgWindowOwner(7);
  dialog.SetFilter("Pages|*.htm");
  dialog.SetFilterIndex(1);
  dialog.SetInitDir("/tmp");
  dialog.SetDefaultExt("htm");
  dialog.SetDialogTitle("Pick");
  dialog.SetFilename("first.htm");
  dialog.ShowSave();
  EXPECT_EQ(shown.kind, FileDialog::Kind::Save);
  EXPECT_EQ(shown.record.owner, 7U);
  EXPECT_EQ(shown.record.filter, "Pages|*.htm");
  EXPECT_EQ(shown.record.filter_index, 1);
  EXPECT_EQ(shown.record.initial_dir, "/tmp");
  EXPECT_EQ(shown.record.default_extension, "htm");
  EXPECT_EQ(shown.record.title, "Pick");
  EXPECT_EQ(shown.record.file, "first.htm" + std::string(250, '\0'));
  EXPECT_EQ(shown.record.max_file, 260);
  EXPECT_EQ(shown.record.file_title, std::string(259, '\0'));
  EXPECT_EQ(shown.record.max_file_title, 260);
}

TEST_F(FileOpenSave, FlagsDropTheTemplateFlagsAndMakeRoomForSeveralFiles) {
  dialog.SetFlags(0x240);
  EXPECT_EQ(dialog.Flags(), 0x200U);
  EXPECT_EQ(dialog.filename(), std::string(4096, '\0'));
  EXPECT_EQ(dialog.MaxFileSize(), 4095);
  dialog.SetFlags(0x80000 | 0x80);
  EXPECT_EQ(dialog.Flags(), 0x80000U);
}

TEST_F(FileOpenSave, MaxFileSizePadsTheBuffer) {
  dialog.SetMaxFileSize(1000);
  EXPECT_EQ(dialog.MaxFileSize(), 1000);
  dialog.ShowOpen();
  EXPECT_EQ(shown.record.file, std::string(1000, '\0'));
}

TEST_F(FileOpenSave, MaxFileSizeKeepsTheNameThatIsThere) {
  dialog.SetFilename("first.htm");
  dialog.SetMaxFileSize(1000);
  EXPECT_EQ(dialog.filename(), "first.htm");
  dialog.ShowOpen();
  EXPECT_EQ(shown.record.file, "first.htm" + std::string(991, '\0'));
  EXPECT_EQ(shown.record.max_file, 1000);
}

TEST_F(FileOpenSave, FlagsForOneFileKeepTheNameThatIsThere) {
  dialog.SetFilename("first.htm");
  dialog.SetFlags(kExplorerStyle | kEnableHook);
  EXPECT_EQ(dialog.filename(), "first.htm");
  EXPECT_EQ(dialog.MaxFileSize(), 260);
}

TEST_F(FileOpenSave, WhatWasChosenStaysUntilMoreIsChosen) {
  Open();
  shown.Choose("/home/ann/page.htm", "page.htm", 10);
  Open();
  EXPECT_EQ(dialog.filename(), "/home/ann/page.htm");
  shown.Cancel();
  EXPECT_EQ(dialog.filename(), "/home/ann/page.htm");
  EXPECT_EQ(dialog.FileTitle(), "page.htm");
  Open();
  shown.Fail(12290);
  EXPECT_EQ(dialog.FilePath(), "/home/ann");
}

TEST_F(FileOpenSave, TheCountIsKeptUntilADialogIsOver) {
  dialog.SetFlags(kExplorerMulti);
  Open();
  shown.Choose("/a\0b\0c\0\0"s, "\0"s, 3);
  EXPECT_EQ(dialog.FileCount(), 2);
  dialog.SetFlags(kExplorerStyle);
  EXPECT_EQ(dialog.FileCount(), 2);
  dialog.ShowSave();
  shown.Cancel();
  EXPECT_EQ(dialog.FileCount(), 1);
}

TEST_F(FileOpenSave, TheSwitchForTheOldStyleHoldsWhileADialogIsShown) {
  dialog.SetFlags(kExplorerStyle | kEnableHook);
  dialog.SetDialogPosition = true;
  dialog.SetDialogRelativeToScreen = true;
  dialog.HideCancel = true;
  dialog.HelpFile = "h.txt";
  Open();
  dwFileOpenSave::intOldStyle = 35;
  Send(kWmInitDialog);
  Send(kWmNotify, 0, kNotifyHelp);
  dwFileOpenSave::intOldStyle = 0;
  EXPECT_THAT(shown.calls, ElementsAre("Move 901 to 0,0 300x200"));
}

TEST_F(FileOpenSave, WithoutTheHookFlagThereIsNoHook) {
  dialog.SetFlags(kExplorerStyle);
  Open();
  EXPECT_EQ(shown.hook, nullptr);
}

TEST_F(FileOpenSave, OneFile) {
  Open();
  shown.Choose("/home/ann/page.htm"s + std::string(10, '\0'), "page.htm"s + '\0', 10);
  EXPECT_THAT(closed, ElementsAre(""));
  EXPECT_EQ(dialog.filename(), "/home/ann/page.htm");
  EXPECT_EQ(dialog.FileTitle(), "page.htm");
  EXPECT_EQ(dialog.FileCount(), 1);
  EXPECT_EQ(dialog.FileNameByIndex(1), "page.htm");
  EXPECT_EQ(dialog.FilePath(), "/home/ann");
}

TEST_F(FileOpenSave, AFileInTheRootFolder) {
  Open();
  shown.Choose("/page.htm", "page.htm", 1);
  EXPECT_EQ(dialog.FilePath(), "/");
  EXPECT_EQ(dialog.FileNameByIndex(1), "page.htm");
}

TEST_F(FileOpenSave, ThreeFilesInTheExplorerStyle) {
  dialog.SetFlags(kExplorerMulti);
  Open();
  const std::string raw = "/home/ann\0c d.htm\0a.htm\0b.htm\0\0"s + std::string(50, '\0');
  shown.Choose(raw, std::string(20, '\0'), 10);
  EXPECT_EQ(dialog.FileCount(), 3);
  EXPECT_EQ(dialog.FileNameByIndex(1), "c d.htm");
  EXPECT_EQ(dialog.FileNameByIndex(2), "a.htm");
  EXPECT_EQ(dialog.FileNameByIndex(3), "b.htm");
  EXPECT_EQ(dialog.FilePath(), "/home/ann");
  EXPECT_EQ(dialog.filename(), raw);
  for (const std::int16_t index : {0, 4, -1}) {
    try {
      dialog.FileNameByIndex(index);
      ADD_FAILURE() << index;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Description(), "Invalid property-array index.");
      EXPECT_EQ(error.Source(), "dwFileOpenSave");
    }
  }
}

TEST_F(FileOpenSave, ThreeFilesInTheOldStyle) {
  dialog.SetFlags(kAllowMultiSelect);
  Open();
  shown.Choose("/home/ann a.htm b.htm c.htm"s + std::string(30, '\0'), std::string(5, '\0'), 10);
  EXPECT_EQ(dialog.FileCount(), 3);
  EXPECT_EQ(dialog.FileNameByIndex(1), "a.htm");
  EXPECT_EQ(dialog.FileNameByIndex(3), "c.htm");
  EXPECT_EQ(dialog.FilePath(), "/home/ann");
}

TEST_F(FileOpenSave, OneFileWithMultipleSelectionOn) {
  for (const std::uint32_t flags : {kExplorerMulti, std::uint32_t{kAllowMultiSelect}}) {
    dialog.SetFlags(flags);
    Open();
    shown.Choose("/home/ann/my page.htm\0\0"s, "my page.htm\0"s, 10);
    EXPECT_EQ(dialog.FileCount(), 1);
    EXPECT_EQ(dialog.FilePath(), "/home/ann");
    EXPECT_EQ(dialog.FileNameByIndex(1), "my page.htm");
  }
}

TEST_F(FileOpenSave, AListWithoutItsEndCountsNothing) {
  dialog.SetFlags(kExplorerMulti);
  Open();
  shown.Choose("/home/ann\0a.htm"s, "\0"s, 10);
  EXPECT_EQ(dialog.FileCount(), 0);
  EXPECT_THROW(dialog.FileNameByIndex(1), RunTimeError);
}

TEST_F(FileOpenSave, TheCountIsTakenAnewAfterEachDialog) {
  dialog.SetFlags(kExplorerMulti);
  Open();
  shown.Choose("/a\0b\0c\0\0"s, "\0"s, 3);
  EXPECT_EQ(dialog.FileCount(), 2);
  Open();
  shown.Choose("/a\0b\0c\0d\0\0"s, "\0"s, 3);
  EXPECT_EQ(dialog.FileCount(), 3);
}

TEST_F(FileOpenSave, CancellingIsAnErrorOnlyWhenAskedFor) {
  Open();
  shown.Cancel();
  dialog.CancelError = true;
  Open();
  shown.Cancel();
  EXPECT_THAT(closed, ElementsAre("", "dwOpenSave: Cancel was selected."));
  EXPECT_THAT(desktop.boxes.Texts(), IsEmpty());
  EXPECT_EQ(dialog.filename(), "");
}

TEST_F(FileOpenSave, AFailureIsShownAndNeverRaised) {
  dialog.CancelError = true;
  Open();
  shown.Fail(12290);
  ASSERT_EQ(desktop.boxes.shown.size(), 1U);
  EXPECT_EQ(desktop.boxes.shown[0].text, "Invalid filename specified.");
  EXPECT_EQ(desktop.boxes.shown[0].icon, MessageBox::Icon::Exclamation);
  Open();
  shown.Fail(4711);
  EXPECT_EQ(desktop.boxes.shown.size(), 1U);
  EXPECT_THAT(closed, ElementsAre("", ""));
}

TEST_F(FileOpenSave, OneDialogAtATime) {
  Open();
  dialog.ShowSave();
  EXPECT_EQ(shown.kind, FileDialog::Kind::Open);
  shown.Cancel();
  dialog.ShowSave();
  EXPECT_EQ(shown.kind, FileDialog::Kind::Save);
}

TEST_F(FileOpenSave, NothingIsTouchedUnlessAsked) {
  dialog.SetFlags(kExplorerStyle | kEnableHook);
  Open();
  Send(kWmInitDialog);
  EXPECT_THAT(shown.calls, IsEmpty());
}

TEST_F(FileOpenSave, TheExplorerStylesParentIsTheDialog) {
  dialog.SetFlags(kExplorerStyle | kEnableHook);
  dialog.SetDialogPosition = true;
  dialog.SetDialogRelativeToScreen = true;
  dialog.PosX = 30;
  dialog.PosY = 40;
  dialog.HideCancel = true;
  dialog.CustomOkButtonCaption = true;
  dialog.CustomCancelButtonCaption = true;
  dialog.CancelButtonCaption = "Back";
  Open();
  Send(kWmInitDialog);
  EXPECT_THAT(shown.calls, ElementsAre("Move 900 to 30,40 300x200", "Hide 2 of 900",
                                       "Text 1 of 900: Select", "Text 2 of 900: Back"));
}

TEST_F(FileOpenSave, ThePlaceIsRelativeToTheOwnerOtherwise) {
  dialog.SetDlgWindowOwner(5);
  dialog.SetFlags(kExplorerStyle | kEnableHook);
  dialog.SetDialogPosition = true;
  dialog.PosX = 30;
  dialog.PosY = 40;
  Open();
  Send(kWmInitDialog);
  EXPECT_THAT(shown.calls, ElementsAre("Move 900 to 130,90 300x200"));
}

TEST_F(FileOpenSave, TheOldStyleMovesTheHookWindowAndKeepsItsButtons) {
  dialog.SetDialogPosition = true;
  dialog.SetDialogRelativeToScreen = true;
  dialog.HideCancel = true;
  dialog.CustomOkButtonCaption = true;
  Open();
  Send(kWmInitDialog);
  EXPECT_THAT(shown.calls, ElementsAre("Move 900 to 0,0 300x200"));
}

TEST_F(FileOpenSave, HelpNeedsAFileAndTakesContextOrKey) {
  dialog.SetFlags(kExplorerStyle | kEnableHook);
  Open();
  Send(kWmCommand, kDialogHelp);
  Send(kWmNotify, 0, kNotifyHelp);
  EXPECT_THAT(shown.calls, IsEmpty());
  dialog.HelpFile = "h.txt";
  dialog.HelpContext = 12;
  Send(kWmCommand, kDialogHelp);
  Send(kWmNotify, 0, kNotifyHelp);
  Send(kWmNotify, 0, -601);
  Send(kWmCommand, kDialogOk);
  dialog.HelpCommand = 0x101;
  dialog.HelpKey = "files";
  Send(kWmCommand, kDialogHelp);
  EXPECT_THAT(shown.calls,
              ElementsAre("Help h.txt 3 12", "Help h.txt 3 12", "Help h.txt 257 files"));
}

TEST_F(FileOpenSave, TheHelpNotificationIsTheExplorerStylesOnly) {
  dialog.HelpFile = "h.txt";
  Open();
  Send(kWmNotify, 0, kNotifyHelp);
  EXPECT_THAT(shown.calls, IsEmpty());
}

TEST_F(FileOpenSave, MessagesArePassedOnWhenAskedFor) {
  std::vector<int> seen;
  const auto listening = dialog.CallbackMessage.Connect(
      [&](const DialogMessage& message) { seen.push_back(message.message); });
  Open();
  Send(kWmInitDialog);
  dialog.RaiseCallbackEvent = true;
  Send(kWmCommand, kDialogOk);
  Send(99);
  EXPECT_THAT(seen, ElementsAre(kWmCommand, 99));
}

TEST_F(FileOpenSave, TheSwitchForTheOldStyleTakesTheExplorerStyleAway) {
  dwFileOpenSave::intOldStyle = 35;
  dialog.SetFlags(kExplorerStyle | kEnableHook);
  dialog.HideCancel = true;
  dialog.SetDialogPosition = true;
  dialog.SetDialogRelativeToScreen = true;
  Open();
  Send(kWmInitDialog);
  dwFileOpenSave::intOldStyle = 0;
  EXPECT_EQ(shown.record.flags, 32U);
  EXPECT_EQ(dialog.Flags(), 32U);
  EXPECT_THAT(shown.calls, ElementsAre("Move 900 to 0,0 300x200"));
}

TEST_F(FileOpenSave, AnotherValueOfTheSwitchChangesNothing) {
  dwFileOpenSave::intOldStyle = 1;
  dialog.SetFlags(kExplorerStyle);
  Open();
  dwFileOpenSave::intOldStyle = 0;
  EXPECT_EQ(shown.record.flags, static_cast<std::uint32_t>(kExplorerStyle));
}

}  // namespace
}  // namespace corvane::tests
