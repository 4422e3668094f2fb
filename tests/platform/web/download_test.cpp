// Files that come from the network, against the real engine.
#include "platform/linux/web/files/downloads.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "base/language.h"
#include "tests/platform/web/asking.h"
#include "tests/platform/web/page_harness.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A name that comes with the file.
const std::string kDataZip = language::Marked("data.zip", language::kOfAPage);

class DownloadTest : public testing::Test {
 protected:
  EngineOptions Options() {
    EngineOptions options = TestOptions();
    options.questions = asking_;
    options.download_folder = folder_;
    return options;
  }
  DownloadTest() { asking_->replies = {{0, {"data.zip"}}}; }

  bool WaitForEnd() {
    return WaitUntil([&] { return !engine_.GetDownloads().Any(); });
  }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder_, error)) {
      names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  std::string Content(const std::string& name) const {
    return test::ContentOf(folder_ + "/" + name);
  }

  const test::TemporaryFolder root_;
  const std::string folder_ = root_ / "corvane download test";
  std::shared_ptr<Asking> asking_ = std::make_shared<Asking>();
  WebEngine engine_{Options()};
  TestServer server_;
  TestView view_{engine_};
};

TEST_F(DownloadTest, ThePageThatIsShownNeedNotBeReadAgain) {
  server_.Page("/", "<title>A</title>");
  server_.Page("/b", "<title>B</title>");
  server_.Page("/data.zip", "PK and more", "application/zip");
  view_.Go(server_.Url());
  EXPECT_FALSE(view_->StayedOnPage());
  const auto document = view_.Document();
  view_.Go(server_.Url("/data.zip"));
  EXPECT_TRUE(view_->StayedOnPage());
  EXPECT_EQ(view_.Document(), document);
  EXPECT_EQ(view_->LocationURL(), server_.Url());
  ASSERT_TRUE(WaitForEnd());
  view_.Go(server_.Url("/b"));
  EXPECT_FALSE(view_->StayedOnPage());
  EXPECT_EQ(view_.Document()->Title, "B");
}

TEST_F(DownloadTest, AFileIsAskedSavedAndTold) {
  server_.Page("/data.zip", "PK and more", "application/zip");
  view_.Go(server_.Url("/data.zip"));
  ASSERT_TRUE(WaitUntil([&] { return view_.Said().size() >= 2; }));
  ASSERT_TRUE(WaitForEnd());
  EXPECT_EQ(asking_->asked.at(0).title, "Download");
  EXPECT_EQ(asking_->asked.at(0).text, "Save a file from 127.0.0.1? Its size is 11 bytes.");
  EXPECT_EQ(asking_->asked.at(0).fields.at(0).value, "data.zip");
  EXPECT_THAT(view_.Said(),
              ElementsAre("Download begins: " + kDataZip,
                          "Download finished: " + kDataZip + " is in corvane download test"));
  EXPECT_EQ(Content("data.zip"), "PK and more");
  EXPECT_THAT(Files(), ElementsAre("data.zip"));
}

TEST_F(DownloadTest, NothingIsSavedAgainstTheUsersWill) {
  asking_->replies = {{1, {"data.zip"}}};
  server_.Page("/data.zip", "PK", "application/zip");
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  view_.Go(server_.Url("/data.zip"));
  ASSERT_TRUE(WaitUntil([&] { return !asking_->asked.empty(); }));
  ASSERT_TRUE(WaitForEnd());
  EXPECT_THAT(Files(), IsEmpty());
  EXPECT_THAT(view_.Said(), IsEmpty());
  EXPECT_EQ(view_.Document()->Title, "A");
  EXPECT_EQ(view_->LocationURL(), server_.Url());
}

TEST_F(DownloadTest, AFileOfThatNameIsNotOverwritten) {
  fs::create_directories(folder_);
  std::ofstream(folder_ + "/data.zip") << "mine";
  server_.Page("/data.zip", "theirs", "application/zip");
  view_.Go(server_.Url("/data.zip"));
  ASSERT_TRUE(WaitUntil([&] { return view_.Said().size() >= 2; }));
  EXPECT_EQ(Content("data.zip"), "mine");
  EXPECT_EQ(Content("data 2.zip"), "theirs");
}

TEST_F(DownloadTest, TwoFilesOfOneNameAtTheSameTimeAreTwo) {
  // Long enough for the engine to take a look at what it is.
  server_.StallAfter("/a/data.zip", std::string(2000, '1'), "application/zip");
  server_.StallAfter("/b/data.zip", std::string(2000, '2'), "application/zip");
  view_.Go(server_.Url("/a/data.zip"));
  ASSERT_TRUE(WaitUntil([&] { return engine_.GetDownloads().List().size() == 1; }));
  view_.Go(server_.Url("/b/data.zip"));
  ASSERT_TRUE(WaitUntil([&] { return engine_.GetDownloads().List().size() == 2; }));
  const auto list = engine_.GetDownloads().List();
  EXPECT_EQ(fs::path(list[0].path).filename(), "data 2.zip");
  EXPECT_EQ(fs::path(list[1].path).filename(), "data.zip");
}

TEST_F(DownloadTest, TheListTellsHowFarEachIsAndOneCanBeStopped) {
  server_.StallAfter("/endless.zip", std::string(100000, 'x'), "application/zip");
  server_.Page("/small.zip", "PK", "application/zip");
  asking_->replies = {{0, {"endless.zip"}}, {0, {"small.zip"}}};
  view_.Go(server_.Url("/endless.zip"));
  ASSERT_TRUE(WaitUntil([&] {
    const auto list = engine_.GetDownloads().List();
    return list.size() == 1 && list[0].words == "endless.zip, 100.0 kB so far";
  }));
  view_.Go(server_.Url("/small.zip"));
  ASSERT_TRUE(WaitUntil([&] {
    const auto list = engine_.GetDownloads().List();
    return list.size() == 2 && list[0].words == "small.zip, finished";
  }));
  engine_.GetDownloads().Stop(engine_.GetDownloads().List()[1].number);
  ASSERT_TRUE(WaitForEnd());
  EXPECT_EQ(engine_.GetDownloads().List()[1].words, "endless.zip, stopped");
  engine_.GetDownloads().Stop(engine_.GetDownloads().List()[1].number);  // over: nothing happens
}

TEST_F(DownloadTest, WhatIsNotWantedIsNotInTheList) {
  asking_->replies = {{1, {"data.zip"}}};
  server_.Page("/data.zip", "PK", "application/zip");
  view_.Go(server_.Url("/data.zip"));
  ASSERT_TRUE(WaitUntil([&] { return !asking_->asked.empty(); }));
  ASSERT_TRUE(WaitForEnd());
  EXPECT_THAT(engine_.GetDownloads().List(), IsEmpty());
}

TEST_F(DownloadTest, APageThatIsSentAsAFileIsOne) {
  asking_->replies = {};
  server_.Page("/page", "<title>A</title>", "text/html",
               {{"Content-Disposition", "attachment; filename=\"../../.bash rc\""}});
  view_.Go(server_.Url("/page"));
  ASSERT_TRUE(WaitUntil([&] { return !asking_->asked.empty(); }));
  EXPECT_EQ(asking_->asked.at(0).fields.at(0).value.find('/'), std::string::npos);
  EXPECT_NE(asking_->asked.at(0).fields.at(0).value.at(0), '.');
}

TEST_F(DownloadTest, ALinkMeantAsADownloadIsOne) {
  server_.Page("/file", "content", "text/plain");
  server_.Page("/", "<title>A</title><a href=/file download=data.zip>Save</a>");
  view_.Go(server_.Url());
  view_.EvaluateInPage("document.querySelector('a').click(); 1");
  ASSERT_TRUE(WaitUntil([&] { return view_.Said().size() >= 2; }));
  EXPECT_EQ(Content("data.zip"), "content");
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(DownloadTest, ADownloadThatStopsHalfwayKeepsWhatHasCome) {
  server_.StallAfter("/data.zip", std::string(100000, 'x'), "application/zip");
  view_.Go(server_.Url("/data.zip"));
  ASSERT_TRUE(WaitUntil(
      [&] { return Files().size() >= 2 && Content("data (not complete).zip").size() == 100000; }));
  engine_.GetDownloads().StopAll();
  ASSERT_TRUE(WaitForEnd());
  EXPECT_THAT(Files(), ElementsAre("data (not complete).zip"));
  EXPECT_EQ(Content("data (not complete).zip").size(), 100000U);
  EXPECT_EQ(view_.Said().back(), "Download stopped: " + kDataZip +
                                     ". 100.0 kB came and are kept as data (not complete).zip.");
}

TEST_F(DownloadTest, AFolderThatCannotBeWrittenIsTold) {
  std::ofstream(folder_) << "a file where the folder should be";
  server_.Page("/data.zip", "PK", "application/zip");
  view_.Go(server_.Url("/data.zip"));
  ASSERT_TRUE(WaitUntil([&] {
    return !view_.Said().empty() &&
           view_.Said().back().starts_with("Download failed: " + kDataZip + ".");
  }));
  ASSERT_TRUE(WaitForEnd());
}

TEST_F(DownloadTest, AFloodOfDownloadsIsAFewQuestions) {
  TestView other(engine_);
  asking_->replies = {{1, {""}}};
  std::string frames;
  for (int i = 0; i < 20; ++i) {
    const std::string path = "/file" + std::to_string(i);
    server_.Page(path, "content", "text/plain", {{"Content-Disposition", "attachment"}});
    frames += "<iframe src=" + path + "></iframe>";
  }
  server_.Page("/", "<title>A</title>" + frames);
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return !view_.Said().empty(); }));
  ASSERT_TRUE(WaitForEnd());
  EXPECT_LE(asking_->asked.size(), 5U);
  EXPECT_THAT(view_.Said().front(), HasSubstr("Too many downloads"));
  EXPECT_THAT(other.Said(), IsEmpty()) << "not heard from a window that has nothing to do with it";
  EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(DownloadTest, WhenItsWindowHasGoneItIsToldInOneOther) {
  auto gone = std::make_unique<TestView>(engine_);
  TestView other(engine_);
  server_.StallAfter("/data.zip", std::string(1000, 'x'), "application/zip");
  (*gone)->Navigate(server_.Url("/data.zip"));
  ASSERT_TRUE(WaitUntil([&] { return !engine_.GetDownloads().List().empty(); }));
  gone.reset();
  engine_.GetDownloads().StopAll();
  ASSERT_TRUE(WaitForEnd());
  EXPECT_EQ(view_.Said().size() + other.Said().size(), 1U);
}

}  // namespace
}  // namespace corvane::desktop
