// What a user does with the page shown: finding, zooming, saving.
#include <gmock/gmock.h>

#include <sys/mount.h>

#include <filesystem>
#include <fstream>

#include "tests/platform/web/asking.h"
#include "tests/platform/web/page_harness.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Command = WebBrowser::PageCommand;

class CommandTest : public testing::Test {
 protected:
  EngineOptions Options() {
    EngineOptions options = TestOptions();
    options.questions = asking_;
    return options;
  }
  CommandTest() {
    view_.files = [this](const FileRequest& request) { request.chosen({file_}); };
  }
  void Find(const std::string& words) {
    asking_->replies = {{0, {words}}};
    view_->Do(Command::Find);
  }
  /// Waits for the next sentence and returns it.
  std::string Heard() {
    EXPECT_TRUE(WaitUntil([&] { return view_.Said().size() > heard_; }));
    return view_.Said().size() > heard_ ? view_.Said()[heard_++] : "";
  }

  const test::TemporaryFolder folder_;
  std::string file_ = folder_ / "saved.mhtml";
  std::size_t heard_ = 0;
  std::shared_ptr<Asking> asking_ = std::make_shared<Asking>();
  WebEngine engine_{Options()};
  TestServer server_;
  TestView view_{engine_};
};

TEST_F(CommandTest, FindTellsThePlaceAndTheWordsAroundIt) {
  server_.Page("/", "<title>A</title><p>The <b>Cat</b> sat.<p>A cat ran.<p>No dog.<p>Last cat.");
  view_.Go(server_.Url());
  Find("cat");
  EXPECT_EQ(Heard(), "1 of 3: The Cat sat.");
  view_->Do(Command::FindNext);
  EXPECT_EQ(Heard(), "2 of 3: A cat ran.");
  view_->Do(Command::FindNext);
  EXPECT_EQ(Heard(), "3 of 3: Last cat.");
  view_->Do(Command::FindNext);
  EXPECT_EQ(Heard(), "From the beginning. 1 of 3: The Cat sat.");
  view_->Do(Command::FindPrevious);
  EXPECT_EQ(Heard(), "From the end. 3 of 3: Last cat.");
  EXPECT_EQ(asking_->asked.at(0).title, "Find in page");
}

TEST_F(CommandTest, WhatIsNotThereIsSaidToBeNotThere) {
  server_.Page("/", "<title>A</title><p>The cat sat.");
  view_.Go(server_.Url());
  Find("dog");
  EXPECT_EQ(Heard(), "Not found: dog");
}

TEST_F(CommandTest, ALongParagraphIsToldInPart) {
  server_.Page("/",
               "<title>A</title><p>" + std::string(5000, 'x') + " cat " + std::string(5000, 'y'));
  view_.Go(server_.Url());
  Find("cat");
  const std::string heard = Heard();
  EXPECT_LE(heard.size(), 250U);
  EXPECT_THAT(heard, HasSubstr("x cat y"));
}

TEST_F(CommandTest, APageThatWantsToBePrintedIsAskedAboutFirst) {
  asking_->replies = {{1, {}}};
  server_.Page("/", "<title>A</title><script>onload = () => print()</script>");
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return !asking_->asked.empty(); }));
  EXPECT_EQ(asking_->asked[0].text, "The page 127.0.0.1 wants to be printed.");
}

TEST_F(CommandTest, ASavedPageOpensAgainWithoutTheNetwork) {
  {
    TestServer gone;
    gone.Page("/",
              "<title>Kept</title><link rel=stylesheet href=/style.css><p>Every word"
              "<a href='/next'>Next</a>");
    gone.Page("/style.css", "p { color: red }", "text/css");
    view_.Go(gone.Url());
    view_->Save();
    EXPECT_EQ(Heard(), "Saved as " + file_);
  }
  view_.Go("file://" + file_);
  EXPECT_EQ(view_.Document()->Title, "Kept");
  EXPECT_THAT(view_.Body(), HasSubstr("Every word"));
}

TEST_F(CommandTest, APageThatCannotBeSavedIsTold) {
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  std::filesystem::create_directories(file_);
  view_->Save();
  EXPECT_THAT(Heard(), HasSubstr("The page could not be saved: "));
}

/// A disk of 64 kilobytes, where one may be had.
class SmallDisk {
 public:
  explicit SmallDisk(std::string folder) : folder_(std::move(folder)) {
    std::filesystem::create_directories(folder_);
    mounted_ = mount("tmpfs", folder_.c_str(), "tmpfs", 0, "size=64k") == 0;
  }
  ~SmallDisk() {
    if (mounted_) umount2(folder_.c_str(), MNT_DETACH);
    std::filesystem::remove(folder_);
  }
  bool Mounted() const { return mounted_; }

 private:
  const std::string folder_;
  bool mounted_ = false;
};

TEST_F(CommandTest, AFullDiskKeepsTheFileThatWasThereBefore) {
  const std::string folder = folder_ / "small disk";
  const SmallDisk disk(folder);
  if (!disk.Mounted()) GTEST_SKIP() << "no small disk can be mounted here";
  file_ = folder + "/kept.mhtml";
  std::ofstream(file_) << "from before";
  server_.Page("/", "<title>A</title><p>" + std::string(200'000, 'x'));
  view_.Go(server_.Url());
  view_->Save();
  EXPECT_THAT(Heard(), HasSubstr("The page could not be saved: "));
  EXPECT_EQ(test::ContentOf(file_), "from before");
  const std::filesystem::directory_iterator left(folder);
  EXPECT_EQ(std::distance(begin(left), end(left)), 1) << "nothing half written is left";
}

TEST_F(CommandTest, AFileNameMayHoldAnyCharacter) {
  for (const char* name :
       {"a \"b\" 'c'.mhtml", "100%25 & #1?.mhtml", "two\nlines.mhtml", " blanks .mhtml "}) {
    file_ = folder_ / name;
    server_.Page("/", "<title>Kept</title><p>Every word");
    view_.Go(server_.Url());
    view_->Save();
    EXPECT_THAT(Heard(), HasSubstr("Saved as ")) << name;
    view_.Go(file_);
    EXPECT_EQ(view_.Document()->Title, "Kept") << name;
    EXPECT_THAT(view_.Body(), HasSubstr("Every word")) << name;
  }
}

TEST_F(CommandTest, PlainTextIsReadAsItStands) {
  server_.Page("/notes.txt", "Plain words\nin two lines", "text/plain");
  view_.Go(server_.Url("/notes.txt"));
  EXPECT_THAT(view_.Body(), HasSubstr("Plain words\nin two lines"));
  EXPECT_EQ(view_->LocationName(), server_.Url("/notes.txt"));
}

TEST_F(CommandTest, ADrawingIsReadAsItsWords) {
  server_.Page("/picture.svg", "<svg xmlns='http://www.w3.org/2000/svg'><text>Drawn</text></svg>",
               "image/svg+xml");
  view_.Go(server_.Url("/picture.svg"));
  EXPECT_EQ(view_.Body(), "Drawn");
  EXPECT_EQ(view_->LocationName(), server_.Url("/picture.svg"));
}

}  // namespace
}  // namespace corvane::desktop
