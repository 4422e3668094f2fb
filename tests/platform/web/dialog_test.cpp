// Dialogs of page scripts, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/asking.h"
#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::Not;

class RecordingDialogs : public ScriptDialogs {
 public:
  void ShowAlert(void*, const std::string& text, std::function<void()> done) override {
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
    options.questions = asking_;
    options.hang = {0.3, 1.0, 0.1};
    return options;
  }
  static constexpr const char* kClingingPage =
      "<title>A</title><script>onbeforeunload = event => { event.preventDefault(); "
      "return 'You will regret it'; }</script><input>";
  void TypeIntoThePage() {
    view_.Focus();
    view_.Key(GDK_KEY_Tab);
    view_.Key(GDK_KEY_a);
  }
  std::shared_ptr<Asking> asking_ = std::make_shared<Asking>();
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

TEST_F(DialogTest, ConfirmAndPromptAreQuestions) {
  asking_->replies = {{0, {}}, {0, {"Ada"}}};
  server_.Page("/",
               "<script>document.title = confirm('Really?') + ' ' + prompt('Name?', 'Bob')"
               "</script>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "true Ada");
  ASSERT_EQ(asking_->asked.size(), 2U);
  EXPECT_EQ(asking_->asked[0].title, "Question of 127.0.0.1");
  EXPECT_EQ(asking_->asked[0].text, "Really?");
  EXPECT_EQ(asking_->asked[1].text, "Name?");
  EXPECT_EQ(asking_->asked[1].fields.at(0).value, "Bob");
}

TEST_F(DialogTest, ACancelledConfirmIsFalseAndACancelledPromptIsNull) {
  asking_->replies = {{1, {}}, {1, {"Ada"}}};
  server_.Page("/", "<script>document.title = confirm('Really?') + ' ' + prompt('Name?')</script>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "false null");
}

TEST_F(DialogTest, AnEmptyAnswerIsNotACancelledOne) {
  asking_->replies = {{0, {""}}};
  server_.Page("/",
               "<title>A</title><script>document.title = '[' + prompt('Name?') + ']'</script>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "[]");
}

TEST_F(DialogTest, APageWhoseQuestionIsOpenCanBeLeft) {
  server_.Page("/", "<script>confirm('Really?')</script>");
  view_->Navigate(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return !asking_->asked.empty(); }));
  asking_->Answer({1, {}});
  view_.WaitIdle();
}

TEST_F(DialogTest, LeavingAPageThatAsksIsUpToTheUser) {
  asking_->replies = {{0, {}}};
  server_.Page("/", kClingingPage);
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url());
  TypeIntoThePage();
  view_.Go(server_.Url("/b"));
  EXPECT_EQ(view_.Document()->Title, "B");
  ASSERT_EQ(asking_->asked.size(), 1U);
  EXPECT_EQ(asking_->asked[0].title, "Leave this page?");
  EXPECT_THAT(asking_->asked[0].text, Not(testing::HasSubstr("regret")));
}

TEST_F(DialogTest, StayingKeepsThePageAndWhatWasEntered) {
  asking_->replies = {{1, {}}};
  server_.Page("/", kClingingPage);
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url());
  TypeIntoThePage();
  view_.Go(server_.Url("/b"));
  EXPECT_EQ(view_.Document()->Title, "A");
  EXPECT_EQ(view_->LocationURL(), server_.Url());
  EXPECT_EQ(server_.Requests("/b"), 0);
  EXPECT_EQ(view_.EvaluateInPage("document.querySelector('input').value"), "a");
}

TEST_F(DialogTest, APageCannotRefuseToBeLeftForever) {
  asking_->replies = {{1, {}}};
  server_.Page("/", kClingingPage);
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url());
  TypeIntoThePage();
  for (int i = 0; i < 6; ++i) view_.Go(server_.Url("/b"));
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
