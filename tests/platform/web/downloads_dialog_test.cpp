// The list of downloads on the screen and by ear.
#include "platform/linux/downloads_dialog.h"

#include "base/language.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Phase = DownloadState::Phase;

class DownloadsDialogTest : public test::DesktopTest {
 protected:
  void Show() {
    dialog_.Show();
    WaitFor("the first words", [&] { return !spoken_.empty(); });
  }
  std::string Press(const std::string& key) {
    spoken_.clear();
    Outside({"xdotool", "key", key});
    WaitFor("words after " + key, [&] { return !spoken_.empty(); });
    return spoken_.back();
  }
  void WaitForEnd() {
    WaitFor("the end", [&] { return windows_.FindWindow("Downloads") == 0; });
  }

  std::vector<DownloadState> files_ = {
      {7, Phase::Coming, "/d/data.zip", "data.zip, 30 percent of 2 MB"},
      {5, Phase::Finished, "/e/book.pdf", "book.pdf, finished"}};
  std::vector<int> stopped_;
  std::vector<std::string> opened_;
  std::vector<std::string> spoken_;
  SpokenDialogs dialogs_{windows_,
                         [this](const std::string& text, GtkWindow*) { spoken_.push_back(text); }};
  DownloadsDialog dialog_{
      dialogs_,
      {.list = [this] { return files_; },
       .stop = [this](int number) { stopped_.push_back(number); },
       .open_folder = [this](const std::string& path) { opened_.push_back(path); }}};
};

TEST_F(DownloadsDialogTest, TellsHowFarEachFileIs) {
  Show();
  // What a server calls a file is no word of the program's.
  const auto named = [](const std::string& words) {
    return language::Marked(words, language::kOfAPage);
  };
  EXPECT_THAT(spoken_, ElementsAre("Downloads. 1 file is coming, 1 file is over. File, list, " +
                                   named("data.zip, 30 percent of 2 MB") + ", 1 of 2"));
  EXPECT_EQ(Press("Down"), named("book.pdf, finished") + ", 2 of 2");
  Outside({"xdotool", "key", "Return"});
  WaitForEnd();
  EXPECT_THAT(stopped_, IsEmpty());
  EXPECT_THAT(opened_, IsEmpty());
}

TEST_F(DownloadsDialogTest, StopsTheOneThatIsChosen) {
  Show();
  Outside({"xdotool", "key", "alt+s"});
  WaitForEnd();
  EXPECT_THAT(stopped_, ElementsAre(7));
}

TEST_F(DownloadsDialogTest, WhatIsOverCannotBeStopped) {
  Show();
  Press("Down");
  EXPECT_EQ(Press("alt+s"), "This file is not coming any more.");
  EXPECT_THAT(stopped_, IsEmpty());
  Outside({"xdotool", "key", "Escape"});
  WaitForEnd();
}

TEST_F(DownloadsDialogTest, WhatHasEndedMeanwhileCannotBeStopped) {
  Show();
  files_[0].phase = Phase::Finished;
  EXPECT_EQ(Press("alt+s"), "This file is not coming any more.");
  EXPECT_THAT(stopped_, IsEmpty());
}

TEST_F(DownloadsDialogTest, OpensTheFolderOfTheOneThatIsChosen) {
  Show();
  Press("Down");
  Outside({"xdotool", "key", "alt+o"});
  WaitForEnd();
  EXPECT_THAT(opened_, ElementsAre("/e/book.pdf"));
}

TEST_F(DownloadsDialogTest, SaysWhenThereIsNothing) {
  files_.clear();
  Show();
  EXPECT_THAT(spoken_,
              ElementsAre("Downloads. No file has come from the network since the program was "
                          "started. Close Button"));
  Outside({"xdotool", "key", "Escape"});
  WaitForEnd();
}

}  // namespace
}  // namespace corvane::desktop
