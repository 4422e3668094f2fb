// Loads that fail, pages that crash or hang, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using ProblemTest = PageTest;

TEST_F(ProblemTest, UnknownHost) {
  view_.Go("http://does-not-exist.invalid/x");
  EXPECT_EQ(view_->LocationURL(), "http://does-not-exist.invalid/x");
  EXPECT_EQ(view_.Document()->Title, "Page not found: does-not-exist.invalid");
  EXPECT_EQ(view_->LocationName(), "Page not found: does-not-exist.invalid");
  EXPECT_THAT(view_.Body(), HasSubstr("There is no server named does-not-exist.invalid"));
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
}

TEST_F(ProblemTest, RefusedPort) {
  int port = 0;
  {
    TestServer gone;
    port = gone.Port();
  }
  view_.Go("127.0.0.1:" + std::to_string(port));
  EXPECT_EQ(view_.Document()->Title, "Connection refused: 127.0.0.1");
}

TEST_F(ProblemTest, MissingFile) {
  view_.Go("/no/such/file.html");
  EXPECT_EQ(view_.Document()->Title, "File not found");
  EXPECT_EQ(view_->LocationURL(), "file:///no/such/file.html");
}

TEST_F(ProblemTest, EndlessRedirects) {
  server_.Redirect("/loop", "/loop");
  view_.Go(server_.Url("/loop"));
  EXPECT_THAT(view_.Document()->Title, HasSubstr("could not be loaded"));
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
}

TEST_F(ProblemTest, ACertificateThatNobodyVouchesFor) {
  TestServer secure(TestServer::Kind::SelfSigned);
  secure.Page("/", "<title>Secret</title>");
  view_.Go(secure.Url());
  EXPECT_EQ(view_.Document()->Title, "No secure connection: 127.0.0.1");
  EXPECT_THAT(view_.Body(), HasSubstr("authority"));
  EXPECT_EQ(view_->LocationURL(), secure.Url());
  EXPECT_EQ(secure.Requests("/"), 0);
  EXPECT_FALSE(view_.HasStatus("Secure connection"));
}

TEST_F(ProblemTest, AServerThatHangsUp) {
  server_.Handle("/", [](SoupServerMessage* message) {
    g_socket_close(soup_server_message_get_socket(message), nullptr);
  });
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "The page could not be loaded: 127.0.0.1");
}

TEST_F(ProblemTest, TheServersOwnErrorPageIsShown) {
  view_.Go(server_.Url("/missing"));
  EXPECT_EQ(view_.Document()->Title, "404");
  EXPECT_EQ(view_.Body(), "The server has no such page.");
}

TEST_F(ProblemTest, ConnectionThatBreaksOffKeepsWhatHasCome) {
  server_.Handle("/", [](SoupServerMessage* message) {
    soup_server_message_set_status(message, SOUP_STATUS_OK, nullptr);
    SoupMessageHeaders* headers = soup_server_message_get_response_headers(message);
    soup_message_headers_replace(headers, "Content-Type", "text/html");
    soup_message_headers_set_encoding(headers, SOUP_ENCODING_CHUNKED);
    const std::string half = "<title>Half</title><p>First half" + std::string(4000, '.');
    soup_message_body_append(soup_server_message_get_response_body(message), SOUP_MEMORY_COPY,
                             half.data(), half.size());
    g_signal_connect(message, "wrote-chunk", G_CALLBACK(+[](SoupServerMessage* sent, gpointer) {
                       GSocket* socket = soup_server_message_get_socket(sent);
                       g_socket_close(socket, nullptr);
                     }),
                     nullptr);
  });
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "Half");
}

TEST_F(ProblemTest, SomethingTypedThatIsNoAddress) {
  view_.Go("no such <thing>");
  EXPECT_EQ(view_.Document()->Title, "Not an address");
  EXPECT_THAT(view_.Body(), HasSubstr("no such <thing>"));
  EXPECT_EQ(view_->LocationURL(), "about:problem");
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
}

TEST_F(ProblemTest, AScriptThatIsALinkOfThePageIsFollowed) {
  server_.Page("/", "<a href=\"javascript:document.title = 'ran \\'it\\''; void 0\">Run</a>");
  view_.Go(server_.Url());
  view_->Navigate(view_.Document()->links.at(0)->href);
  EXPECT_FALSE(view_->Busy());
  EXPECT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "ran 'it'"; }));
}

TEST_F(ProblemTest, BackFromAProblemLeadsToThePageBefore) {
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  view_.Go("http://does-not-exist.invalid/");
  view_->GoBack();
  view_.WaitIdle();
  EXPECT_EQ(view_->LocationURL(), server_.Url());
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(ProblemTest, AFrameThatIsNoPageHoldsNothingUp) {
  server_.Page("/data.zip", "PK", "application/zip");
  server_.Page("/", "<title>Out</title><iframe src=/data.zip></iframe>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "Out");
}

TEST_F(ProblemTest, KilledPageProcessAndRefresh) {
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  view_.log.clear();
  TestView::KillPageProcesses();
  ASSERT_TRUE(WaitUntil([&] { return view_.Count("complete") == 1; }));
  EXPECT_EQ(view_.Document()->Title, "The page has crashed: 127.0.0.1");
  EXPECT_EQ(view_->LocationURL(), server_.Url());
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
  view_->Refresh();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(ProblemTest, KilledWhileLoading) {
  server_.StallAfter("/", "<title>Half</title>" + std::string(4000, '.'));
  view_->Navigate(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url(); }));
  TestView::KillPageProcesses();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "The page has crashed: 127.0.0.1");
}

TEST_F(ProblemTest, KilledAgainAndAgainStillEnds) {
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  // The first times the problem's page is shown; in the end it is only said.
  for (int round = 1; round <= 4; ++round) {
    const int before = view_.Count("complete");
    TestView::KillPageProcesses();
    ASSERT_TRUE(WaitUntil([&] { return view_.Count("complete") > before; })) << round;
    ASSERT_FALSE(view_->Busy());
    ASSERT_NE(view_.Document(), nullptr);
    EXPECT_EQ(view_.Document()->Title, "The page has crashed: 127.0.0.1");
    EXPECT_THAT(view_.Body(), HasSubstr("Press Refresh"));
  }
  view_->Refresh();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "A");
}

/// An engine that loses patience soon.
class HangTest : public testing::Test {
 protected:
  static EngineOptions Impatient() {
    EngineOptions options = TestOptions();
    options.hang = {0.3, 1.0, 0.1};
    return options;
  }
  WebEngine engine_{Impatient()};
  TestServer server_;
  TestView view_{engine_};
};

TEST_F(HangTest, AScriptThatNeverEndsWhileLoading) {
  server_.Page("/", "<title>Loop</title><script>for (;;);</script>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "The page does not answer: 127.0.0.1");
  EXPECT_EQ(view_->LocationURL(), server_.Url());
  EXPECT_TRUE(view_.HasStatus("The page does not answer"));
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
}

TEST_F(HangTest, AnotherPageAfterOneThatHung) {
  server_.Page("/", "<script>for (;;);</script>");
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url());
  view_.Go(server_.Url("/b"));
  EXPECT_EQ(view_.Document()->Title, "B");
}

TEST_F(HangTest, AScriptThatNeverEndsOnAKey) {
  server_.Page("/", "<title>Loop</title><script>onkeydown = () => { for (;;); }</script>");
  view_.Go(server_.Url());
  view_.Focus();
  view_.Key(GDK_KEY_a);
  ASSERT_TRUE(WaitUntil([&] { return view_.Count("complete") == 2; }));
  EXPECT_EQ(view_.Document()->Title, "The page does not answer: 127.0.0.1");
}

TEST_F(HangTest, AnotherPageWhileTheFirstIsBeingEnded) {
  server_.Page("/", "<title>Loop</title><script>onkeydown = () => { for (;;); }</script>");
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url());
  view_.Focus();
  view_.Key(GDK_KEY_a);
  ASSERT_TRUE(WaitUntil([&] { return view_->Busy(); }));
  view_->Navigate(server_.Url("/b"));
  EXPECT_TRUE(WaitUntil([&] { return view_->LocationName() == "B"; }));
}

TEST_F(HangTest, AStalledConnectionIsNoHang) {
  server_.StallAfter("/", "<title>Half</title>" + std::string(4000, '.'));
  view_->Navigate(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url(); }));
  int rounds = 0;
  Delay later;  // well past the limit
  later.Start(2.5, [&] { rounds = 1; });
  ASSERT_TRUE(WaitUntil([&] { return rounds == 1; }));
  EXPECT_TRUE(view_->Busy());
  EXPECT_FALSE(view_.HasStatus("does not answer"));
  view_->Stop();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "Half");
}

class PatientHangTest : public HangTest {
 protected:
  static EngineOptions WarnsOnly() {
    EngineOptions options = TestOptions();
    options.hang = {0.3, 3600, 0.1};
    return options;
  }
  WebEngine patient_{WarnsOnly()};
  TestView patient_view_{patient_};
};

class HungByKeyTest : public PatientHangTest {
 protected:
  void SetUp() override {
    server_.Page("/", "<title>Loop</title><script>onkeydown = () => { for (;;); }</script>");
    server_.Page("/b", "<title>B</title>");
    patient_view_.Go(server_.Url("/b"));
    patient_view_.Go(server_.Url());
    patient_view_.Focus();
    patient_view_.Key(GDK_KEY_a);
  }
  void WaitForWarning() {
    ASSERT_TRUE(WaitUntil([&] { return patient_view_.HasStatus("Press Stop"); }));
  }
  void ExpectOther() {
    ASSERT_TRUE(WaitUntil([&] { return patient_view_.Count("complete") == 3; }));
    EXPECT_EQ(patient_view_.Document()->Title, "B");
    EXPECT_EQ(patient_view_->LocationURL(), server_.Url("/b"));
  }
};

TEST_F(HungByKeyTest, AnotherPageNeedNotWaitForIt) {
  WaitForWarning();
  patient_view_->Navigate(server_.Url("/b"));
  ExpectOther();
}

TEST_F(HungByKeyTest, AnotherPageBeforeItIsKnown) {
  patient_view_->Navigate(server_.Url("/b"));
  ExpectOther();
}

TEST_F(PatientHangTest, StopEndsAPageThatDoesNotAnswer) {
  server_.Page("/", "<script>for (;;);</script>");
  patient_view_->Navigate(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return patient_view_.HasStatus("Press Stop"); }));
  patient_view_->Stop();
  patient_view_.WaitIdle();
  EXPECT_EQ(patient_view_.Document()->Title, "The page does not answer: 127.0.0.1");
}

TEST_F(PatientHangTest, StopBeforeTheWarningEndsItToo) {
  server_.Page("/", "<script>fetch('/running', {keepalive: true}); for (;;);</script>");
  patient_view_->Navigate(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return patient_view_->LocationURL() == server_.Url(); }));
  patient_view_->Stop();
  patient_view_.WaitIdle();
  EXPECT_FALSE(patient_view_->Busy());
}

}  // namespace
}  // namespace corvane::desktop
