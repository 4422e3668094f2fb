// Closing a window whose page may have something against it.
#include <gmock/gmock.h>

#include "tests/platform/web/asking.h"
#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kAsks =
    "<title>A</title><input autofocus><script>onbeforeunload = event => event.preventDefault()"
    "</script>";

class LeavingTest : public testing::Test {
 protected:
  EngineOptions Options() {
    EngineOptions options = TestOptions();
    options.questions = asking_;
    options.hang.warn = options.hang.end = 3600;
    return options;
  }
  void Open(const std::string& page) {
    server_.Page("/", page);
    view_.Go(server_.Url());
  }
  /// The user types into the page, and the page has it.
  void Touch() {
    view_.Focus();
    view_.Key(GDK_KEY_x);
    ASSERT_TRUE(WaitUntil(
        [&] { return view_.EvaluateInPage("document.querySelector('input').value") != ""; }));
  }

  std::shared_ptr<Asking> asking_ = std::make_shared<Asking>();
  WebEngine engine_{Options()};
  TestServer server_;
  TestView view_{engine_};
};

TEST_F(LeavingTest, APageThatWasOnlyReadClosesAtOnce) {
  Open(kAsks);
  EXPECT_TRUE(view_->MayClose());
  EXPECT_THAT(asking_->asked, IsEmpty());
}

TEST_F(LeavingTest, APageWithNothingToAskClosesByItself) {
  Open("<title>A</title><input autofocus>");
  Touch();
  EXPECT_FALSE(view_->MayClose());
  ASSERT_TRUE(WaitUntil([&] { return view_.Count("close") == 1; }));
  EXPECT_THAT(asking_->asked, IsEmpty());
}

TEST_F(LeavingTest, APageThatAsksIsClosedWhenTheUserLeaves) {
  asking_->replies = {{0, {}}};
  Open(kAsks);
  Touch();
  EXPECT_FALSE(view_->MayClose());
  ASSERT_TRUE(WaitUntil([&] { return view_.Count("close") == 1; }));
  EXPECT_THAT(asking_->Titles(), ElementsAre("Leave this page?"));
}

TEST_F(LeavingTest, WhoStaysIsLetGoTheNextTime) {
  asking_->replies = {{1, {}}};
  Open(kAsks);
  Touch();
  const int begun = view_.Count("begin");
  EXPECT_FALSE(view_->MayClose());
  ASSERT_TRUE(WaitUntil([&] { return asking_->asked.size() == 1 && !asking_->open; }));
  EXPECT_EQ(view_.EvaluateInPage("document.querySelector('input').value"), "x");
  EXPECT_EQ(view_.Count("close"), 0);
  EXPECT_EQ(view_.Count("begin"), begun) << "the page is still the same";
  EXPECT_TRUE(view_->MayClose());
}

TEST_F(LeavingTest, WhoGoesOnWorkingAfterStayingIsAskedAgain) {
  asking_->replies = {{1, {}}};
  Open(kAsks);
  Touch();
  EXPECT_FALSE(view_->MayClose());
  ASSERT_TRUE(WaitUntil([&] { return asking_->asked.size() == 1 && !asking_->open; }));
  view_.Key(GDK_KEY_Control_L);
  view_.Key(GDK_KEY_y);
  EXPECT_FALSE(view_->MayClose());
  ASSERT_TRUE(WaitUntil([&] { return asking_->asked.size() == 2 && !asking_->open; }));
  view_.Key(GDK_KEY_Control_L);  // on the way to the keys that close the window
  EXPECT_TRUE(view_->MayClose());
}

TEST_F(LeavingTest, TheQuestionItselfCannotHoldTheUser) {
  Open(kAsks);
  Touch();
  EXPECT_FALSE(view_->MayClose());
  ASSERT_TRUE(WaitUntil([&] { return asking_->asked.size() == 1; }));
  EXPECT_TRUE(view_->MayClose());
}

TEST_F(LeavingTest, APageThatDoesNotAnswerIsClosedAfterAWhile) {
  Open(
      "<title>A</title><input autofocus><script>onkeydown = event => {"
      "if (event.key == 'z') for (;;); }</script>");
  Touch();
  view_.Key(GDK_KEY_z);
  EXPECT_FALSE(view_->MayClose());
  EXPECT_TRUE(WaitUntil([&] { return view_.Count("close") == 1; }));
}

}  // namespace
}  // namespace corvane::desktop
