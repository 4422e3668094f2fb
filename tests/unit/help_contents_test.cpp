#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

TEST(HelpContents, OpensTheHelpTextInTheSideBar) {
  Program p;
  p.desktop.files.files["/opt/corvane/cvhelp.txt"] = {"Keys: All of them.", "\tF5: Loads again."};
  p.Start();
  p.Inside().menu.mnuHelp(0).Click.Raise();
  ASSERT_EQ(p.Tree().nodes.size(), 1U);
  EXPECT_EQ(p.Tree().nodes[0]->text, "Keys");
  EXPECT_EQ(p.desktop.focus, "TreeView1");
}

TEST(HelpContents, AMissingTextIsTold) {
  Program p;
  p.Start();
  p.Address().SetFocus();
  p.Inside().menu.mnuHelp(0).Click.Raise();
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("The help text cvhelp.txt was not found. Installing Corvane again brings "
                          "it back."));
  EXPECT_EQ(p.desktop.focus, "cboAddress");
}

struct HelpThatCannotBeShown : testing::Test {
  Program p;
  void Open() {
    p.Start();
    p.Tree().Add(nullptr, "kept");
    p.Address().SetFocus();
    p.Inside().menu.mnuHelp(0).Click.Raise();
  }
  void ExpectNothingChanged() {
    ASSERT_FALSE(p.Tree().nodes.empty());
    EXPECT_EQ(p.Tree().nodes.back()->text, "kept");
    EXPECT_EQ(p.desktop.focus, "cboAddress");
  }
};

TEST_F(HelpThatCannotBeShown, AnUnreadableOneIsTold) {
  p.desktop.files.files["/opt/corvane/cvhelp.txt"] = {"Keys"};
  p.desktop.files.unreadable = true;
  Open();
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("GetHelp Error: Permission denied"));
  ExpectNothingChanged();
}

TEST_F(HelpThatCannotBeShown, AnEmptyOneIsTold) {
  p.desktop.files.files["/opt/corvane/cvhelp.txt"] = {"", " \t"};
  Open();
  EXPECT_THAT(
      p.desktop.boxes.Texts(),
      ElementsAre("GetHelp Error: There is nothing in the help text /opt/corvane/cvhelp.txt"));
  ExpectNothingChanged();
}

}  // namespace
}  // namespace corvane::tests
