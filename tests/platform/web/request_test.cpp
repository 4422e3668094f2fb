// What pages want of the user: windows, permissions, passwords, other programs.
#include <gmock/gmock.h>

#include "base/language.h"
#include "tests/fakes/fake_programs.h"
#include "tests/platform/web/asking.h"
#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RequestTest : public testing::Test {
 protected:
  EngineOptions Options() {
    EngineOptions options = TestOptions();
    options.questions = asking_;
    options.programs = programs_;
    return options;
  }
  RequestTest() {
    view_.new_window = [this] { opened_.push_back(TestView::TakeOpened(engine_)); };
    server_.Page("/b", "<title>B</title><p>The second page");
  }
  /// Presses Enter on the page's first link.
  void FollowFirstLink() {
    view_.Focus();
    view_.Key(GDK_KEY_Tab);
    view_.Key(GDK_KEY_Return);
  }
  bool WaitForWindow() {
    return WaitUntil([&] { return !opened_.empty(); });
  }

  std::shared_ptr<Asking> asking_ = std::make_shared<Asking>();
  std::shared_ptr<fakes::FakePrograms> programs_ = std::make_shared<fakes::FakePrograms>();
  WebEngine engine_{Options()};
  TestServer server_;
  TestView view_{engine_};
  std::vector<std::unique_ptr<TestView>> opened_;
};

// --- windows -----------------------------------------------------------------

TEST_F(RequestTest, ALinkToANewWindowOpensOneWithThatPage) {
  server_.Page("/", "<title>A</title><a href='/b' target='_blank'>b</a>");
  view_.Go(server_.Url());
  FollowFirstLink();
  ASSERT_TRUE(WaitForWindow());
  TestView& window = *opened_.at(0);
  ASSERT_TRUE(WaitUntil([&] { return window.Document() && window.Document()->Title == "B"; }));
  EXPECT_EQ(window->LocationURL(), server_.Url("/b"));
  EXPECT_EQ(window.EventsWithoutStatus().front(), "begin");
  ASSERT_TRUE(WaitUntil([&] { return window.EventsWithoutStatus().back() == "complete"; }));
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(RequestTest, AFormThatPostsIntoANewWindowLosesNothing) {
  std::string body;
  server_.Handle("/post", [&](SoupServerMessage* message) {
    SoupMessageBody* sent = soup_server_message_get_request_body(message);
    if (sent->data != nullptr) body.assign(sent->data, static_cast<std::size_t>(sent->length));
    const std::string page = "<title>Posted</title>";
    soup_server_message_set_status(message, SOUP_STATUS_OK, nullptr);
    soup_server_message_set_response(message, "text/html", SOUP_MEMORY_COPY, page.data(),
                                     page.size());
  });
  server_.Page("/",
               "<form action='/post' method='post' target='_blank'>"
               "<input type='submit' name='order' value='66'></form>");
  view_.Go(server_.Url());
  FollowFirstLink();
  ASSERT_TRUE(WaitForWindow());
  TestView& window = *opened_.at(0);
  ASSERT_TRUE(WaitUntil([&] { return window.Document() && window.Document()->Title == "Posted"; }));
  EXPECT_EQ(body, "order=66");
}

TEST_F(RequestTest, AWindowThatItsOpenerFillsIsReadToo) {
  server_.Page(
      "/",
      "<a href='#' onclick=\"w = window.open(''); w.document.write('<title>W</title><p>Hi');"
      "w.document.close(); return false\">w</a>");
  view_.Go(server_.Url());
  FollowFirstLink();
  ASSERT_TRUE(WaitForWindow());
  TestView& window = *opened_.at(0);
  ASSERT_TRUE(WaitUntil([&] { return window.Document() && window.Document()->Title == "W"; }));
  EXPECT_THAT(window.Body(), testing::HasSubstr("Hi"));
}

TEST_F(RequestTest, AWindowTalksToItsOpenerAndClosesItself) {
  server_.Page("/",
               "<title>A</title><a href='#' onclick=\"window.open('/popup'); return false\">w</a>"
               "<script>onmessage = event => document.title = event.data</script>");
  server_.Page("/popup", "<script>opener.postMessage('signed in', '*'); close()</script>");
  view_.Go(server_.Url());
  FollowFirstLink();
  ASSERT_TRUE(WaitForWindow());
  EXPECT_TRUE(WaitUntil([&] { return opened_.at(0)->Count("close") == 1; }));
  EXPECT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "signed in"; }));
}

TEST_F(RequestTest, APopUpThatNobodyAskedForIsBlockedWithAWord) {
  server_.Page("/", "<title>A</title><script>for (let i = 0; i < 100; i++) open('/b')</script>");
  view_.Go(server_.Url());
  EXPECT_THAT(opened_, IsEmpty());
  EXPECT_THAT(view_.Said(), ElementsAre("A pop-up window was blocked."));
  EXPECT_EQ(server_.Requests("/b"), 0);
}

TEST_F(RequestTest, OneKeyPressOpensOneWindow) {
  server_.Page("/",
               "<a href='#' onclick=\"window.open('/b'); window.open('/b'); window.open('/b'); "
               "return false\">w</a>");
  view_.Go(server_.Url());
  FollowFirstLink();
  ASSERT_TRUE(WaitUntil([&] { return !view_.Said().empty(); }));
  ASSERT_TRUE(WaitForWindow());
  EXPECT_EQ(opened_.size(), 1U);
}

TEST_F(RequestTest, AWindowThatNobodyTakesGoes) {
  view_.new_window = [] {};
  server_.Page("/", "<a href='#' onclick=\"w = window.open('/b'); return false\">w</a>");
  view_.Go(server_.Url());
  FollowFirstLink();
  EXPECT_TRUE(
      WaitUntil([&] { return view_.EvaluateInPage("'' + (self.w && w.closed)") == "true"; }));
}

TEST_F(RequestTest, ThePageCannotCloseTheUsersOwnWindow) {
  server_.Page("/", "<title>A</title><script>close(); document.title = 'still here'</script>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "still here");
  EXPECT_EQ(view_.Count("close"), 0);
}

TEST_F(RequestTest, NoNewWindowShowsFilesOrTheProgramsOwnPages) {
  server_.Page(
      "/",
      "<a href='#' onclick=\"window.open('file:///etc/passwd'); window.open('corvane://home/cv/');"
      "document.title = 'tried'; return false\">w</a>");
  view_.Go(server_.Url());
  FollowFirstLink();
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "tried"; }));
  EXPECT_THAT(opened_, IsEmpty());
}

// --- permissions ---------------------------------------------------------------

constexpr const char* kWhereAmI =
    "navigator.geolocation.getCurrentPosition(() => document.title = 'yes',"
    "error => document.title = error.code == 1 ? 'refused' : 'allowed')";

TEST_F(RequestTest, APermissionIsRefusedUnlessTheUserAllowsIt) {
  asking_->replies = {{0, {}}};
  server_.Page("/", std::string("<script>") + kWhereAmI + "</script>");
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "refused"; }));
  ASSERT_EQ(asking_->asked.size(), 1U);
  EXPECT_EQ(asking_->asked[0].title, "Permission");
  EXPECT_EQ(asking_->asked[0].text, "127.0.0.1 wants to know where you are.");
  EXPECT_EQ(asking_->asked[0].buttons.front(), "&Refuse");
  EXPECT_EQ(
      engine_.Permissions().Find("http://127.0.0.1:" + std::to_string(server_.Port()), "location"),
      std::nullopt);
}

TEST_F(RequestTest, ADecisionForTheSiteIsNotAskedAgain) {
  asking_->replies = {{3, {}}};
  server_.Page("/", std::string("<script>") + kWhereAmI + "</script>");
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "refused"; }));
  view_->Refresh();
  view_.WaitIdle();
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "refused"; }));
  EXPECT_EQ(asking_->asked.size(), 1U);
  EXPECT_EQ(
      engine_.Permissions().Find("http://127.0.0.1:" + std::to_string(server_.Port()), "location"),
      false);
}

TEST_F(RequestTest, AThousandRequestsAreOneQuestionAndThenSilence) {
  webkit_settings_set_enable_mock_capture_devices(engine_.Settings(), TRUE);
  server_.Page("/",
               "<title>A</title><script>let refused = 0;"
               "for (let i = 0; i < 1000; i++) navigator.mediaDevices.getUserMedia({audio: true})"
               ".catch(() => { if (++refused == 1000) document.title = 'all refused' })</script>");
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return !asking_->asked.empty(); }));
  asking_->Answer({0, {}});
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "all refused"; }));
  EXPECT_EQ(asking_->asked.size(), 1U);
  EXPECT_EQ(asking_->asked[0].text, "127.0.0.1 wants to use your microphone.");
  EXPECT_LE(view_.Said().size(), 2U);
}

TEST_F(RequestTest, AQuestionForAPermissionGoesWithItsPage) {
  server_.Page("/", std::string("<script>") + kWhereAmI + "</script>");
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return !asking_->asked.empty(); }));
  view_.Go(server_.Url("/b"));
  EXPECT_EQ(asking_->taken_back, 1);
}

// --- passwords -----------------------------------------------------------------

class LoginTest : public RequestTest {
 protected:
  LoginTest() {
    server_.Handle("/private", [this](SoupServerMessage* message) {
      const char* sent = soup_message_headers_get_one(
          soup_server_message_get_request_headers(message), "Authorization");
      const bool right = sent != nullptr && std::string(sent) == "Basic YWRhOnNlY3JldA==";
      if (!right) {
        soup_message_headers_replace(soup_server_message_get_response_headers(message),
                                     "WWW-Authenticate", "Basic realm=\"The vault\"");
      }
      soup_server_message_set_status(message, right ? 200 : 401, nullptr);
      const std::string page = right ? "<title>Inside</title>" : "<title>Not for you</title>";
      soup_server_message_set_response(message, "text/html", SOUP_MEMORY_COPY, page.data(),
                                       page.size());
    });
  }
};

TEST_F(LoginTest, NameAndPasswordAreAskedAndSent) {
  asking_->replies = {{0, {"ada", "secret"}}};
  view_.Go(server_.Url("/private"));
  EXPECT_EQ(view_.Document()->Title, "Inside");
  ASSERT_EQ(asking_->asked.size(), 1U);
  EXPECT_EQ(asking_->asked[0].title, "Sign in");
  EXPECT_EQ(asking_->asked[0].text, "The server 127.0.0.1:" + std::to_string(server_.Port()) +
                                        " asks for a user name and a password. It says: " +
                                        language::Marked("The vault", language::kOfAPage));
  EXPECT_EQ(asking_->asked[0].fields.at(0).kind, DialogField::Kind::kText);
  EXPECT_EQ(asking_->asked[0].fields.at(1).kind, DialogField::Kind::kPassword);
}

TEST_F(LoginTest, AWrongPasswordIsAskedAgain) {
  asking_->once = true;
  asking_->replies = {{0, {"ada", "wrong"}}, {0, {"ada", "secret"}}};
  view_.Go(server_.Url("/private"));
  EXPECT_EQ(view_.Document()->Title, "Inside");
  ASSERT_EQ(asking_->asked.size(), 2U);
  EXPECT_THAT(asking_->asked[1].text,
              testing::StartsWith("The name or the password was not right. "));
}

TEST_F(LoginTest, CancellingShowsWhatTheServerSays) {
  asking_->replies = {{1, {"", ""}}};
  view_.Go(server_.Url("/private"));
  EXPECT_EQ(view_.Document()->Title, "Not for you");
  EXPECT_EQ(asking_->asked.size(), 1U);
}

// --- other programs --------------------------------------------------------------

TEST_F(RequestTest, AMailLinkIsHandedOverAfterAQuestion) {
  asking_->replies = {{0, {}}};
  server_.Page("/", "<title>A</title><a href='mailto:ada@example.org'>mail</a>");
  view_.Go(server_.Url());
  FollowFirstLink();
  ASSERT_TRUE(WaitUntil([&] { return !programs_->opened.empty(); }));
  EXPECT_THAT(programs_->opened, ElementsAre("mailto:ada@example.org"));
  EXPECT_EQ(asking_->asked.at(0).title, "Open with another program?");
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(RequestTest, APageOpensNoOtherProgramByItself) {
  asking_->replies = {{0, {}}};
  server_.Page("/", "<title>A</title><script>location = 'mailto:ada@example.org'</script>");
  view_.Go(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return !view_.Said().empty(); }));
  EXPECT_THAT(view_.Said(),
              ElementsAre("The page wanted to open another program. This was refused."));
  EXPECT_THAT(asking_->asked, IsEmpty());
  EXPECT_THAT(programs_->opened, IsEmpty());
}

TEST_F(RequestTest, ATypedMailAddressIsHandedOverToo) {
  asking_->replies = {{0, {}}};
  view_->Navigate("mailto:ada@example.org");
  ASSERT_TRUE(WaitUntil([&] { return !programs_->opened.empty(); }));
  EXPECT_FALSE(view_->Busy());
}

TEST_F(RequestTest, AScriptThatIsTypedOrComesFromAFavouriteDoesNotRun) {
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  view_.Go("javascript:document.title='taken over'");
  EXPECT_EQ(view_.Document()->Title, "Address refused");
}

}  // namespace
}  // namespace corvane::desktop
