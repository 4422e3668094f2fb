// Navigations against the real engine: events, addresses, history, stopping.
#include <glib/gstdio.h>
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using NavigationTest = PageTest;

TEST_F(NavigationTest, RaisesBeginStatusCompleteInOrder) {
  server_.Page("/", "<title>A</title>text");
  view_.Go(server_.Url());
  ASSERT_GE(view_.log.size(), 4u);
  EXPECT_EQ(view_.log.front(), "begin");
  EXPECT_EQ(view_.log.back(), "complete");
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
  EXPECT_TRUE(view_.HasStatus("Loading "));
  EXPECT_TRUE(view_.HasStatus("Not secure"));
  EXPECT_TRUE(view_.HasStatus("Done"));
}

TEST_F(NavigationTest, DocumentIsThereWhenNoLongerBusy) {
  server_.Page("/x.html", "<title> The  title </title><body>Some text");
  view_.Go(server_.Url("/x.html"));
  ASSERT_NE(view_.Document(), nullptr);
  EXPECT_EQ(view_.Document()->Title, "The title");
  EXPECT_EQ(view_.Document()->nameProp, "The title");
  EXPECT_EQ(view_.Document()->location, server_.Url("/x.html"));
  EXPECT_EQ(view_.Body(), "Some text");
  EXPECT_EQ(view_->LocationURL(), server_.Url("/x.html"));
  EXPECT_EQ(view_->LocationName(), "The title");
}

TEST_F(NavigationTest, RedirectEndsAtItsTarget) {
  server_.Redirect("/a", "/b");
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url("/a"));
  EXPECT_EQ(view_->LocationURL(), server_.Url("/b"));
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
}

TEST_F(NavigationTest, ScriptRedirectIsANavigationOfItsOwn) {
  server_.Page("/a", "<title>A</title><script>location.replace('/b')</script>");
  server_.Page("/b", "<title>B</title>");
  view_->Navigate(server_.Url("/a"));
  ASSERT_TRUE(
      WaitUntil([&] { return !view_->Busy() && view_->LocationURL() == server_.Url("/b"); }));
  EXPECT_EQ(view_.Document()->Title, "B");
  EXPECT_EQ(view_.Count("begin"), view_.Count("complete"));
}

TEST_F(NavigationTest, TextOfLoadHandlersIsRead) {
  server_.Page("/", "before<script>onload = () => document.body.append(' after')</script>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Body(), "before after");
}

TEST_F(NavigationTest, FragmentTypedMovesOnlyTheAddress) {
  server_.Page("/", "<title>A</title><p id=x>text");
  view_.Go(server_.Url());
  view_.log.clear();
  view_->Navigate(server_.Url("/#x"));
  EXPECT_FALSE(view_->Busy());
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url("/#x"); }));
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre());
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(NavigationTest, PushStateMovesOnlyTheAddress) {
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  view_.log.clear();
  view_.RunInPage("history.pushState(0, '', '/pushed')");
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url("/pushed"); }));
  EXPECT_FALSE(view_->Busy());
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre());
}

TEST_F(NavigationTest, BackAndForward) {
  server_.Page("/a", "<title>A</title>");
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url("/a"));
  view_.Go(server_.Url("/b"));
  view_.log.clear();
  view_->GoBack();
  EXPECT_TRUE(view_->Busy());
  view_.WaitIdle();
  EXPECT_EQ(view_->LocationURL(), server_.Url("/a"));
  EXPECT_EQ(view_.Document()->Title, "A");
  view_->GoForward();
  view_.WaitIdle();
  EXPECT_EQ(view_->LocationURL(), server_.Url("/b"));
  EXPECT_EQ(view_.Document()->Title, "B");
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete", "begin", "complete"));
}

TEST_F(NavigationTest, BackWithinThePageEnds) {
  server_.Page("/", "<title>A</title><p id=x>text");
  view_.Go(server_.Url());
  view_->Navigate(server_.Url("/#x"));
  ASSERT_TRUE(WaitUntil([&] {
    return webkit_web_view_can_go_back(view_.View()) && view_->LocationURL() == server_.Url("/#x");
  }));
  view_->GoBack();
  view_.WaitIdle();
  EXPECT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url("/"); }));
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(NavigationTest, RefreshLoadsAgain) {
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  server_.Page("/", "<title>B</title>");
  view_->Refresh();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "B");
  EXPECT_EQ(server_.Requests("/"), 2);
}

TEST_F(NavigationTest, AnotherAddressWhileLoading) {
  server_.Stall("/slow");
  server_.Page("/b", "<title>B</title>");
  view_->Navigate(server_.Url("/slow"));
  ASSERT_TRUE(WaitUntil([&] { return server_.Requests("/slow") == 1; }));
  view_.Go(server_.Url("/b"));
  EXPECT_EQ(view_->LocationURL(), server_.Url("/b"));
  EXPECT_EQ(view_.Document()->Title, "B");
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete", "begin", "complete"));
}

TEST_F(NavigationTest, ManyAddressesInARowEndAtTheLast) {
  server_.Page("/b", "<title>B</title>");
  TestServer other;
  other.Page("/a", "<title>A</title>");
  for (int i = 0; i < 10; ++i) {
    view_->Navigate(other.Url("/a"));
    EXPECT_TRUE(view_->Busy());
    view_->Navigate(server_.Url("/b"));
    EXPECT_TRUE(view_->Busy());
  }
  view_.WaitIdle();
  EXPECT_EQ(view_->LocationURL(), server_.Url("/b"));
  EXPECT_EQ(view_.Document()->Title, "B");
  EXPECT_EQ(view_.Count("begin"), view_.Count("complete"));
}

TEST_F(NavigationTest, StopEndsAStalledConnection) {
  server_.Stall("/slow");
  view_->Navigate(server_.Url("/slow"));
  ASSERT_TRUE(WaitUntil([&] { return server_.Requests("/slow") == 1; }));
  EXPECT_TRUE(view_->Busy());
  view_->Stop();
  view_.WaitIdle();
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
}

TEST_F(NavigationTest, StopKeepsThePageBefore) {
  server_.Page("/a", "<title>A</title>");
  server_.Stall("/slow");
  view_.Go(server_.Url("/a"));
  view_->Navigate(server_.Url("/slow"));
  ASSERT_TRUE(WaitUntil([&] { return server_.Requests("/slow") == 1; }));
  view_->Stop();
  view_.WaitIdle();
  EXPECT_EQ(view_->LocationURL(), server_.Url("/a"));
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(NavigationTest, TheAddressIsThatOfThePageShown) {
  server_.Page("/a", "<title>A</title>");
  server_.Stall("/slow");
  view_.Go(server_.Url("/a"));
  view_.RunInPage("location = '/slow'");
  ASSERT_TRUE(WaitUntil([&] { return server_.Requests("/slow") == 1 && view_->Busy(); }));
  EXPECT_EQ(view_->LocationURL(), server_.Url("/a"));
  view_->Stop();
  view_.WaitIdle();
}

TEST_F(NavigationTest, TheAddressIsThatOfThePageShownWhilePartsStillLoad) {
  server_.Stall("/picture");
  server_.Page("/a", "<title>A</title><img src=/picture>");
  server_.Stall("/slow");
  view_->Navigate(server_.Url("/a"));
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url("/a"); }));
  ASSERT_TRUE(WaitUntil([&] { return server_.Requests("/picture") == 1; }));
  view_.RunInPage("location = '/slow'");
  ASSERT_TRUE(WaitUntil([&] { return server_.Requests("/slow") == 1; }));
  EXPECT_TRUE(view_->Busy());
  EXPECT_EQ(view_->LocationURL(), server_.Url("/a"));
  view_->Stop();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(NavigationTest, StopReadsWhatHasCome) {
  server_.StallAfter("/", "<title>Half</title><p>The first half. " + std::string(4000, '.'));
  view_->Navigate(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url(); }));
  ASSERT_TRUE(WaitUntil([&] {
    return view_.EvaluateInPage("document.body ? document.body.innerText : ''").starts_with("The");
  }));
  EXPECT_TRUE(view_->Busy());
  view_->Stop();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "Half");
  EXPECT_THAT(view_.Body(), HasSubstr("The first half."));
}

TEST_F(NavigationTest, NoContentKeepsThePageAndEnds) {
  server_.Page("/", "<title>A</title>");
  server_.Handle("/none", [](SoupServerMessage* message) {
    soup_server_message_set_status(message, SOUP_STATUS_NO_CONTENT, nullptr);
  });
  view_.Go(server_.Url());
  view_.Go(server_.Url("/none"));
  EXPECT_EQ(view_->LocationURL(), server_.Url());
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(NavigationTest, AViewMayGoWhileItsPageLoads) {
  server_.Stall("/slow");
  auto other = std::make_unique<TestView>(SharedEngine());
  (*other)->Navigate(server_.Url("/slow"));
  ASSERT_TRUE(WaitUntil([&] { return server_.Requests("/slow") == 1; }));
  other.reset();
  server_.Page("/", "<title>A</title>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Document()->Title, "A");
}

TEST_F(NavigationTest, TypedPathOfAFile) {
  const test::TemporaryFolder folder;
  view_.Go(folder.Write("corvane test page.html", "<title>From disk</title>"));
  EXPECT_EQ(view_.Document()->Title, "From disk");
  EXPECT_THAT(view_->LocationURL(), HasSubstr("corvane%20test%20page.html"));
}

TEST_F(NavigationTest, AboutBlank) {
  view_.Go("about:blank");
  EXPECT_EQ(view_->LocationURL(), "about:blank");
  ASSERT_NE(view_.Document(), nullptr);
  EXPECT_EQ(view_.Document()->Title, "");
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
}

}  // namespace
}  // namespace corvane::desktop
