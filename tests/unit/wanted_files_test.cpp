// Files that a page or a command wants, and closing a window whose page is asked.
#include "platform/file_request.h"

#include <optional>

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using Paths = std::vector<std::string>;

struct WantedFiles : testing::Test {
  Program p;
  std::optional<Paths> chosen;

  void SetUp() override { p.Start(); }
  void Want(FileRequest::Kind kind, bool several, const std::string& name = "") {
    FileRequest request;
    request.kind = kind;
    request.title = "For the page";
    request.name = name;
    request.filter = "Texts|*.txt";
    request.default_extension = "txt";
    request.several = several;
    request.chosen = [this](const Paths& paths) { chosen = paths; };
    p.Browser().FilesWanted.Raise(request);
  }
  FakeFileDialog::Script& Dialog() { return p.desktop.file_dialogs; }
};

TEST_F(WantedFiles, OneIsAskedForInTheFileDialogOverTheWindow) {
  Want(FileRequest::Kind::Open, false);
  ASSERT_TRUE(Dialog().shown);
  EXPECT_EQ(Dialog().kind, FileDialog::Kind::Open);
  EXPECT_EQ(Dialog().record.title, "For the page");
  EXPECT_EQ(Dialog().record.filter, "Texts|*.txt");
  EXPECT_EQ(Dialog().record.owner, p.Inside().form->hwnd());
  EXPECT_EQ(Dialog().record.flags & kAllowMultiSelect, 0U);
  EXPECT_NE(Dialog().record.flags & kFileMustExist, 0U);
  Dialog().Choose("/home/me/a.txt", "a.txt", 9);
  EXPECT_EQ(chosen, Paths{"/home/me/a.txt"});
}

TEST_F(WantedFiles, SeveralComeWithTheirFolder) {
  Want(FileRequest::Kind::Open, true);
  EXPECT_NE(Dialog().record.flags & kAllowMultiSelect, 0U);
  Dialog().Choose(std::string("/home/me\0a.txt\0b.txt\0\0", 22), "", 9);
  EXPECT_EQ(chosen, (Paths{"/home/me/a.txt", "/home/me/b.txt"}));
}

TEST_F(WantedFiles, OneOfSeveralPossibleIsOne) {
  Want(FileRequest::Kind::Open, true);
  Dialog().Choose("/a.txt", "a.txt", 1);
  EXPECT_EQ(chosen, Paths{"/a.txt"});
}

TEST_F(WantedFiles, SavingProposesANameAndAsksBeforeItReplaces) {
  Want(FileRequest::Kind::Save, false, "/home/me/Page.txt");
  EXPECT_EQ(Dialog().kind, FileDialog::Kind::Save);
  EXPECT_EQ(Dialog().record.file.substr(0, 17), "/home/me/Page.txt");
  EXPECT_EQ(Dialog().record.default_extension, "txt");
  EXPECT_NE(Dialog().record.flags & kOverwritePrompt, 0U);
  Dialog().Choose("/home/me/Other.txt", "Other.txt", 9);
  EXPECT_EQ(chosen, Paths{"/home/me/Other.txt"});
}

TEST_F(WantedFiles, ACancelledDialogChoosesNothing) {
  Want(FileRequest::Kind::Save, false, "/home/me/Page.txt");
  Dialog().Cancel();
  EXPECT_EQ(chosen, Paths{});
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(WantedFiles, AFailedDialogChoosesNothingAndIsTold) {
  for (const bool several : {false, true}) {
    chosen.reset();
    Want(FileRequest::Kind::Open, several, "/home/me/Page.txt");
    Dialog().Fail(12290);
    EXPECT_EQ(chosen, Paths{}) << several;
  }
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("Invalid filename specified.", "Invalid filename specified."));
}

TEST_F(WantedFiles, WhileOneDialogIsShownNoOtherIs) {
  Want(FileRequest::Kind::Open, false);
  Dialog().record.title = "the first one";
  Want(FileRequest::Kind::Save, false, "/b.txt");
  EXPECT_EQ(Dialog().record.title, "the first one");
  Dialog().Choose("/a.txt", "a.txt", 1);
  EXPECT_EQ(chosen, Paths{"/a.txt"});
}

TEST(ClosingAWindow, WaitsForAPageThatIsAskedFirst) {
  Program p;
  p.Start();
  p.Browser().may_close = false;
  p.Inside().form->Close(Form::UnloadMode::ControlMenu);
  p.Inside().menu.mnuFileItem(7).Click.Raise();
  ASSERT_EQ(p.process.Forms().size(), 1U);
  p.Browser().WindowClosing.Raise();  // the page agrees
  EXPECT_TRUE(p.process.Forms().empty());
}

TEST(ClosingAWindow, GoesThroughWhenThePageHasNothingAgainstIt) {
  Program p;
  p.Start();
  p.Inside().menu.mnuFileItem(7).Click.Raise();
  EXPECT_TRUE(p.process.Forms().empty());
}

TEST(ClosingAWindow, OfAnotherProgramAsksNoPage) {
  Program p;
  p.Start();
  Application other(p.process);
  other.StartBrowser(p.Service());
  p.Browser().may_close = false;
  other.KillBrowser();
  EXPECT_EQ(p.process.Forms().size(), 1U);
}

}  // namespace
}  // namespace corvane::tests
