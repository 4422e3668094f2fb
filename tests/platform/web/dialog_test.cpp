// Dialogs of page scripts, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

class RecordingDialogs : public ScriptDialogs {
 public:
  void ShowAlert(const std::string& text, std::function<void()> done) override {
    alerts.push_back(text);
    if (answer_at_once) return done();
    waiting = std::move(done);
  }
  std::vector<std::string> alerts;
  bool answer_at_once = true;
  std::function<void()> waiting;
};

class DialogTest : public testing::Test {
 protected:
  EngineOptions Options() {
    EngineOptions options = TestOptions();
    options.dialogs = dialogs_;
    options.hang = {0.3, 1.0, 0.1};
    return options;
  }
  std::shared_ptr<RecordingDialogs> dialogs_ = std::make_shared<RecordingDialogs>();
  WebEngine engine_{Options()};
  TestServer server_;
  TestView view_{engine_};
};

TEST_F(DialogTest, AnAlertIsHandedOver) {
  server_.Page("/", "<title>A</title><script>alert('Hello')</script>");
  view_.Go(server_.Url());
  EXPECT_THAT(dialogs_->alerts, ElementsAre("Hello"));
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(DialogTest, ThePageWaitsForTheAnswerAndDoesNotCountAsHung) {
  dialogs_->answer_at_once = false;
  server_.Page("/", "<title>A</title><script>alert('Hello'); document.title = 'B'</script>");
  view_->Navigate(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return dialogs_->waiting != nullptr; }));
  bool later = false;  // well past the limit for pages that hang
  Delay delay;
  delay.Start(2.5, [&] { later = true; });
  ASSERT_TRUE(WaitUntil([&] { return later; }));
  EXPECT_TRUE(view_->Busy());
  EXPECT_FALSE(view_.HasStatus("does not answer"));
  dialogs_->waiting();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "B");
}

TEST_F(DialogTest, AnAnswerThatIsForgottenLetsThePageGoOn) {
  dialogs_->answer_at_once = false;
  server_.Page("/", "<title>A</title><script>alert('Hello')</script>");
  view_->Navigate(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return dialogs_->waiting != nullptr; }));
  dialogs_->waiting = nullptr;
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(DialogTest, AlertsWithoutEndDoNotHoldTheUser) {
  server_.Page("/", "<title>A</title><script>for (let i = 0; i < 100; i++) alert(i)</script>");
  view_.Go(server_.Url());
  EXPECT_THAT(dialogs_->alerts, ElementsAre("0", "1", "2", "3", "4"));
  EXPECT_TRUE(view_.HasStatus("too many messages"));
}

TEST_F(DialogTest, APageThatOnlyAlertsIsGivenUp) {
  server_.Page("/", "<script>for (;;) alert('again')</script>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "The page does not answer: 127.0.0.1");
}

TEST_F(DialogTest, TheNextPageMayAlertAgain) {
  server_.Page("/", "<script>for (let i = 0; i < 10; i++) alert(i)</script>");
  server_.Page("/b", "<script>alert('again')</script>");
  view_.Go(server_.Url());
  view_.Go(server_.Url("/b"));
  EXPECT_EQ(dialogs_->alerts.back(), "again");
}

TEST_F(DialogTest, ConfirmIsCancelledAndPromptIsEmpty) {
  server_.Page("/", "<script>document.title = confirm('Really?') + ' ' + prompt('Name?')</script>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "false null");
}

TEST_F(DialogTest, NoPageKeepsTheUserFromLeaving) {
  server_.Page("/",
               "<title>A</title><script>onbeforeunload = event => { event.preventDefault(); "
               "return 'Stay'; }</script><input>");
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url());
  view_.Focus();
  view_.Key(GDK_KEY_Tab);
  view_.Key(GDK_KEY_a);
  view_.Go(server_.Url("/b"));
  EXPECT_EQ(view_.Document()->Title, "B");
}

TEST_F(DialogTest, AnAlertOutlivesItsView) {
  dialogs_->answer_at_once = false;
  server_.Page("/", "<script>alert('Hello')</script>");
  {
    TestView other(engine_);
    other->Navigate(server_.Url());
    ASSERT_TRUE(WaitUntil([&] { return dialogs_->waiting != nullptr; }));
  }
  dialogs_->waiting();
}

}  // namespace
}  // namespace corvane::desktop
