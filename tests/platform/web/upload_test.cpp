// Fields of pages for files, against the real engine.
#include <gmock/gmock.h>

#include <optional>

#include "tests/platform/web/page_harness.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

class UploadTest : public PageTest {
 protected:
  /// Opens a page with one field for files and presses it.
  FileRequest Ask(const std::string& attributes) {
    std::optional<FileRequest> wanted;
    view_.files = [&](const FileRequest& request) { wanted = request; };
    server_.Page("/", "<title>A</title><input type=file " + attributes +
                          " style='position:fixed;left:0;top:0;width:100%;height:100%'>");
    view_.Go(server_.Url());
    view_.Focus();
    view_.Click(60, 20);
    EXPECT_TRUE(WaitUntil([&] { return wanted.has_value(); }));
    return wanted.value_or(FileRequest());
  }
  std::string Make(const std::string& name) { return folder_.Write(name, "content of " + name); }
  std::string Names() {
    return view_.EvaluateInPage(
        "[...document.querySelector('input').files].map(file => file.name).join(' ')");
  }

  const test::TemporaryFolder folder_;
};

TEST_F(UploadTest, OneFileIsAskedForAndGivenToThePage) {
  const FileRequest request = Ask("");
  EXPECT_EQ(request.kind, FileRequest::Kind::Open);
  EXPECT_EQ(request.title, "Choose a file for the page");
  EXPECT_EQ(request.filter, "All files|*");
  EXPECT_FALSE(request.several);
  request.chosen({Make("upload_a.txt")});
  EXPECT_TRUE(WaitUntil([&] { return Names() == "upload_a.txt"; }));
}

TEST_F(UploadTest, SeveralFilesWhereThePageTakesThem) {
  const FileRequest request = Ask("multiple");
  EXPECT_EQ(request.title, "Choose files for the page");
  EXPECT_TRUE(request.several);
  request.chosen({Make("upload_a.txt"), Make("upload_b.txt")});
  EXPECT_TRUE(WaitUntil([&] { return Names() == "upload_a.txt upload_b.txt"; }));
}

TEST_F(UploadTest, TypesThatThePageAsksForAreOfferedFirst) {
  const FileRequest request = Ask("accept='image/*,text/plain'");
  EXPECT_EQ(request.filter, "Files that the page asks for|image/*;text/plain|All files|*");
}

TEST_F(UploadTest, ChoosingNothingOrNotAnsweringLeavesTheFieldAlone) {
  Ask("").chosen({});
  EXPECT_EQ(Names(), "");
  Ask("");  // goes unanswered
  EXPECT_EQ(Names(), "");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(UploadTest, AnAnswerThatComesAfterThePageHasGoneDoesNoHarm) {
  const FileRequest request = Ask("");
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url("/b"));
  request.chosen({Make("upload_a.txt")});
  EXPECT_EQ(view_.EvaluateInPage("document.title"), "B");
}

}  // namespace
}  // namespace corvane::desktop
