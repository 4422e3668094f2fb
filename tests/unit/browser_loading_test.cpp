// How pages come and why they do not, over an engine that does what the test says.
#include "tests/unit/browser_fixture.h"

namespace corvane::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kPage = "https://example.org/";
constexpr const char* kOther = "https://other.example/";

using Loading = BrowserTest;

TEST_F(Loading, APageIsThereWhenItHasBeenRead) {
  browser_->Navigate(kPage);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre(std::string("load ") + kPage));
  EXPECT_TRUE(browser_->Busy());
  engine_.Bring(kPage);
  EXPECT_THAT(log_, ElementsAre("begin"));
  EXPECT_TRUE(browser_->Busy()) << "not read yet";
  Settle();
  EXPECT_THAT(log_, ElementsAre("begin", "end"));
  EXPECT_FALSE(browser_->Busy());
  EXPECT_EQ(browser_->LocationURL(), kPage);
  EXPECT_EQ(browser_->LocationName(), "Title");
  EXPECT_EQ(status_, "Done");
  EXPECT_THAT(visited_, ElementsAre(kPage));
}

TEST_F(Loading, AServerMayLeadElsewhere) {
  browser_->Navigate(kPage);
  engine_.Begin(kPage);
  engine_.Commit(kOther);
  engine_.End();
  Settle();
  EXPECT_EQ(browser_->LocationURL(), kOther);
  EXPECT_THAT(visited_, ElementsAre(kOther));
}

TEST_F(Loading, WhatIsOvertakenEndsBeforeTheOtherBegins) {
  browser_->Navigate(kPage);
  engine_.Begin(kPage);
  browser_->Navigate(kOther);
  engine_.Bring(kOther);
  Settle();
  EXPECT_THAT(log_, ElementsAre("begin", "end", "begin", "end"));
  EXPECT_EQ(browser_->LocationURL(), kOther);
  EXPECT_THAT(visited_, ElementsAre(kOther));
}

TEST_F(Loading, APageThatIsLeftWhileItIsReadIsNotTold) {
  browser_->Navigate(kPage);
  engine_.Bring(kPage);
  browser_->Navigate(kOther);
  Settle();
  EXPECT_THAT(visited_, IsEmpty());
  engine_.Bring(kOther);
  Settle();
  EXPECT_THAT(visited_, ElementsAre(kOther));
}

TEST_F(Loading, AFailureIsAPageThatTellsWhy) {
  browser_->Navigate(kPage);
  engine_.Begin(kPage);
  engine_.Fail(LoadFailure::Kind::NoHost);
  EXPECT_THAT(engine_.problem_page, HasSubstr("example.org"));
  EXPECT_EQ(engine_.problem_address, kPage);
  engine_.BringProblem();
  Settle();
  EXPECT_THAT(log_, ElementsAre("begin", "end")) << "one navigation";
  EXPECT_FALSE(browser_->Busy());
  EXPECT_THAT(visited_, IsEmpty()) << "no page was loaded";
}

TEST_F(Loading, RefreshLoadsWhatHadFailed) {
  browser_->Navigate(kPage);
  engine_.Begin(kPage);
  engine_.Fail(LoadFailure::Kind::Refused);
  engine_.BringProblem();
  Settle();
  engine_.TakeCalls();
  browser_->Refresh();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre(std::string("load ") + kPage));
}

TEST_F(Loading, RefreshOfAPageReloadsItAndBeforeAnyDoesNothing) {
  browser_->Refresh();
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty());
  EXPECT_FALSE(browser_->Busy());
  Visit(kPage);
  browser_->Refresh();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("reload"));
}

TEST_F(Loading, ACertificateThatCannotBeTrustedIsNoPage) {
  browser_->Navigate(kPage);
  engine_.Begin(kPage);
  engine_.Failed.Raise({kPage, {}, CertificateFault::Expired});
  EXPECT_THAT(engine_.problem_page, HasSubstr("its certificate has expired"));
}

TEST_F(Loading, WhatHasComeOfABrokenPageIsRead) {
  browser_->Navigate(kPage);
  engine_.Begin(kPage);
  engine_.Commit();
  engine_.Failed.Raise(
      {kPage, {LoadFailure::Kind::NoConnection, "it broke"}, std::nullopt, /*halfway=*/true});
  EXPECT_EQ(status_, "The page is not complete: it broke");
  engine_.End();
  Settle();
  EXPECT_THAT(visited_, ElementsAre(kPage));
}

TEST_F(Loading, AnEmptyPageInsteadOfAForbiddenPortIsTold) {
  browser_->Navigate("http://example.org:25/");
  engine_.Begin("about:blank");
  engine_.Commit();
  EXPECT_THAT(engine_.problem_page, HasSubstr("Address not allowed: example.org"));
}

TEST_F(Loading, WhatIsNoAddressIsTold) {
  browser_->Navigate("nosuch:thing");
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("show problem"));
  EXPECT_TRUE(browser_->Busy());
}

TEST_F(Loading, AfterStopTheUserIsWhereHeWas) {
  Visit(kPage);
  browser_->Navigate(kOther);
  engine_.Begin(kOther);
  browser_->Stop();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre(std::string("load ") + kOther, "stop"));
  Settle();
  EXPECT_FALSE(browser_->Busy());
  EXPECT_EQ(browser_->LocationURL(), kPage) << "the engine still names the other one";
  engine_.SetAddress(kPage);
  engine_.SetLoading(false);
  Settle();
  EXPECT_EQ(browser_->LocationURL(), kPage);
}

TEST_F(Loading, WhatLeadsToNoPageLeavesTheUserWhereHeWas) {
  Visit(kPage);
  browser_->Navigate(kOther);
  engine_.Begin(kOther);
  engine_.SetAddress(kPage);
  engine_.SetLoading(false);  // it was a file to be saved
  Settle();
  EXPECT_FALSE(browser_->Busy());
  EXPECT_TRUE(browser_->StayedOnPage());
  EXPECT_EQ(browser_->LocationURL(), kPage);
  EXPECT_THAT(log_, ElementsAre("begin", "end"));
}

TEST_F(Loading, BackWithinThePageReadsItAfterAMoment) {
  Visit(kPage);
  engine_.has_back = true;
  browser_->GoBack();
  engine_.SetLoading(true);
  engine_.SetAddress(std::string(kPage) + "before");
  engine_.SetLoading(false);
  Settle();
  EXPECT_TRUE(browser_->Busy()) << "its scripts have only just been told";
  time_.Pass(0.5);
  EXPECT_FALSE(browser_->Busy());
  EXPECT_EQ(browser_->LocationURL(), std::string(kPage) + "before");
  EXPECT_THAT(log_, ElementsAre("begin", "end"));
}

TEST_F(Loading, BackAndForwardGoNowhereWhereThereIsNothing) {
  browser_->GoBack();
  browser_->GoForward();
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty());
  EXPECT_FALSE(browser_->Busy());
}

TEST_F(Loading, APlaceInThePageLoadsNothing) {
  Visit(kPage);
  browser_->Navigate(std::string(kPage) + "#there");
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre(std::string("load ") + kPage + "#there"));
  EXPECT_FALSE(browser_->Busy());
  EXPECT_EQ(browser_->LocationURL(), kPage) << "not there yet";
  engine_.SetLoading(false);
  Settle();
  EXPECT_EQ(browser_->LocationURL(), std::string(kPage) + "#there");
}

TEST_F(Loading, ASearchGoesToTheServiceAndIsAnsweredHereWhereItCannotBeReached) {
  options_.search_service = [] { return std::string("https://search.example/?q=%s"); };
  const std::string search = "corvane://search/cgi-bin/query?q=cats";
  browser_->Navigate(search);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("load https://search.example/?q=cats"));
  engine_.Begin("https://search.example/?q=cats");
  engine_.Fail(LoadFailure::Kind::NoHost);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("load " + search));
}

TEST_F(Loading, TheSizeThatTheUserHasSetHoldsForEachView) {
  EnginePreferences preferences;
  preferences.zoom = 1.3;
  preferences_.Set(preferences);
  EXPECT_DOUBLE_EQ(engine_.zoom, 1.3);
  browser_->Do(WebBrowser::PageCommand::ZoomIn);
  EXPECT_DOUBLE_EQ(engine_.zoom, 1.4);
  EXPECT_THAT(said_, ElementsAre("140 percent"));
}

// --- what may be loaded --------------------------------------------------------------

TEST_F(Loading, APageOfTheNetworkLeadsToNoFile) {
  Visit(kPage);
  EXPECT_EQ(engine_.Decide(LoadWish{"file:///etc/passwd"}).kind, LoadDecision::Kind::Ignore);
  EXPECT_EQ(engine_.Decide(LoadWish{kOther}).kind, LoadDecision::Kind::Use);
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty());
}

TEST_F(Loading, AnAddressOfAMailIsForAnotherProgram) {
  browser_->Navigate("mailto:a@example.org");
  questions_->Answer({});  // the first button
  EXPECT_THAT(programs_->opened, ElementsAre("mailto:a@example.org"));
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty());
  EXPECT_FALSE(browser_->Busy());
}

TEST_F(Loading, AnArchiveIsAFileToBeSavedAndADocumentAPage) {
  browser_->Navigate(kPage);
  engine_.Begin(kPage);
  EXPECT_EQ(engine_.Decide(LoadAnswer{kPage, "application/zip", false, true}).kind,
            LoadDecision::Kind::Download);
  EXPECT_EQ(engine_.Decide(LoadAnswer{kPage, "text/html", true, true}).kind,
            LoadDecision::Kind::Use);
  engine_.TakeCalls();
  EXPECT_EQ(engine_.Decide(LoadAnswer{kPage, "application/pdf", true, true}).kind,
            LoadDecision::Kind::Document);
  Settle();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("load " + DocumentPage(kPage)));
}

TEST_F(Loading, ADocumentThatComesAfterStopIsNotShown) {
  Visit(kPage);
  browser_->Navigate(kOther);
  engine_.Begin(kOther);
  browser_->Stop();
  engine_.TakeCalls();
  EXPECT_EQ(engine_.Decide(LoadAnswer{kOther, "application/pdf", true, true}).kind,
            LoadDecision::Kind::Ignore);
  Settle();
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
