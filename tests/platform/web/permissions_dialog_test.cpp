#include "platform/linux/permissions_dialog.h"

#include "platform/linux/store/ini_file.h"
#include "tests/platform/gtk/desktop/desktop_test.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class PermissionsDialogTest : public test::DesktopTest {
 protected:
  void Show() {
    dialog_.Show([this] { ++closed_; });
    WaitForSpeech();
  }
  void WaitForSpeech() {
    WaitFor("speech", [&] { return !spoken_.empty(); });
  }
  std::string Press(const std::string& key) {
    spoken_.clear();
    Outside({"xdotool", "key", key});
    WaitForSpeech();
    return spoken_.back();
  }
  void Close() {
    Outside({"xdotool", "key", "Escape"});
    WaitFor("the end", [&] { return closed_ == 1; });
    EXPECT_EQ(windows_.FindWindow("Sites' permissions"), 0U);
  }

  const test::TemporaryFolder folder_;
  PermissionBook book_{folder_ / "permissions.ini", &ReplaceFile};
  std::vector<std::string> spoken_;
  int closed_ = 0;
  SpokenDialogs dialogs_{windows_,
                         [this](const std::string& text, bool) { spoken_.push_back(text); }};
  PermissionsDialog dialog_{dialogs_, [this]() -> PermissionBook& { return book_; }};
};

TEST_F(PermissionsDialogTest, SaysWhichSiteIsAllowedOrRefusedWhat) {
  book_.Decide("https://maps.example", "location", true);
  book_.Decide("http://chat.example:8080", "camera", false);
  Show();
  EXPECT_THAT(spoken_, ElementsAre("Sites' permissions. 2 decisions are kept. Site, list, "
                                   "http://chat.example:8080, camera, never allowed, 1 of 2"));
  EXPECT_EQ(Press("Down"), "maps.example, location, always allowed, 2 of 2");
  EXPECT_EQ(Press("Tab"), "Take back Button");
  Close();
  EXPECT_THAT(book_.List(), SizeIs(2));
}

TEST_F(PermissionsDialogTest, TakesOneBackAndSaysSo) {
  book_.Decide("https://chat.example", "camera", false);
  book_.Decide("https://maps.example", "location", true);
  Show();
  Press("Down");
  EXPECT_EQ(Press("alt+t"),
            "Sites' permissions. Taken back: maps.example, location, always allowed. The site has "
            "to ask again. 1 decision is kept. Site, list, chat.example, camera, never allowed, "
            "1 of 1");
  EXPECT_EQ(PermissionBook(folder_ / "permissions.ini", &ReplaceFile)
                .Find("https://maps.example", "location"),
            std::nullopt)
      << "also with the next start";
  EXPECT_EQ(Press("alt+t"),
            "Sites' permissions. Taken back: chat.example, camera, never allowed. The site has to "
            "ask again. No site is allowed or refused anything for good. Close Button");
  Close();
}

TEST_F(PermissionsDialogTest, TakesAllBackAtOnce) {
  book_.Decide("https://chat.example", "camera", false);
  book_.Decide("https://maps.example", "location", true);
  Show();
  EXPECT_EQ(Press("alt+a"),
            "Sites' permissions. All decisions are taken back. The sites have to ask again. No "
            "site is allowed or refused anything for good. Close Button");
  EXPECT_THAT(book_.List(), IsEmpty());
  Close();
}

TEST_F(PermissionsDialogTest, SaysThatNothingIsKept) {
  Show();
  EXPECT_THAT(spoken_, ElementsAre("Sites' permissions. No site is allowed or refused anything for "
                                   "good. Close Button"));
  Close();
}

TEST_F(PermissionsDialogTest, SaysWhatCannotBeStored) {
  book_ = PermissionBook("/proc/nowhere/permissions.ini", &ReplaceFile);
  book_.Decide("https://maps.example", "location", true);
  Show();
  EXPECT_EQ(Press("alt+t"),
            "Sites' permissions. Taken back: maps.example, location, always allowed. The site has "
            "to ask again. This could not be stored: when Corvane is started again, it is as it "
            "was. No site is allowed or refused anything for good. Close Button");
  Close();
}

}  // namespace
}  // namespace corvane::desktop
