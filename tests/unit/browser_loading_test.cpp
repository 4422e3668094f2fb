// How pages come and why they do not, over an engine that does what the test says.
#include "tests/unit/browser_fixture.h"
#include "web/address/OwnAddress.h"
#include "web/address/TypedAddress.h"

namespace corvane::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kPage = "https://example.org/";
constexpr const char* kOther = "https://other.example/";

using Loading = BrowserTest;

TEST_F(Loading, NothingIsShownBeforeTheFirstPage) {
  EXPECT_FALSE(browser_->Busy());
  EXPECT_EQ(browser_->LocationURL(), "");
  EXPECT_EQ(browser_->Document(), nullptr);
  bool described = false;
  const Connection wanted = browser_->Describe([&](const HTMLDocumentPtr& document) {
    EXPECT_EQ(document, nullptr);
    described = true;
  });
  EXPECT_TRUE(described) << "at once";
  browser_->Save();
  EXPECT_THAT(files_, IsEmpty());
}

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

TEST_F(Loading, APageWithoutATitleIsCalledByItsAddress) {
  engine_.answers["corvane.collect()"] = fakes::FakeEngine::Record("", "Some text of this page");
  Visit(kPage);
  EXPECT_EQ(browser_->LocationName(), kPage);
  engine_.title = "Engine's";
  EXPECT_EQ(browser_->LocationName(), "Engine's");
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

TEST_F(Loading, RefreshOfWhatIsNoAddressTellsItAgain) {
  browser_->Navigate("no such thing");
  EXPECT_THAT(engine_.problem_page, testing::StartsWith("Not an address"));
  engine_.Bring(kProblemAddress);
  Settle();
  engine_.TakeCalls();
  engine_.problem_page.clear();
  browser_->Refresh();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("show problem"));
  EXPECT_THAT(engine_.problem_page, testing::StartsWith("Not an address"));
}

TEST_F(Loading, AMegabyteThatIsTypedIsToldInBounds) {
  browser_->Navigate(std::string(1'000'000, 'a'));
  EXPECT_THAT(engine_.problem_page, testing::StartsWith("Address too long"));
  EXPECT_LT(engine_.problem_page.size(), 2000U);
}

TEST_F(Loading, AScriptIsRefusedThatIsNoLinkOfThePage) {
  const std::string script = "javascript:follow()";
  Visit(kPage);
  browser_->Navigate(script);
  EXPECT_THAT(engine_.problem_page, testing::StartsWith("Address refused"));
  engine_.answers["corvane.collect()"] = fakes::FakeEngine::Record(
      "T", "A link", R"-(,"links":[1,0,"A link","javascript:follow()","",""])-");
  Visit(kPage);
  browser_->Navigate(script);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("act corvane.follow(\"javascript:follow()\")"));
}

TEST_F(Loading, AHostIsTriedAnotherWayWhereThereIsNoConnection) {
  const TypedAddress target = ResolveTyped("  example.org ", "");
  ASSERT_FALSE(target.fallback.empty());
  browser_->Navigate("  example.org ");
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("load " + target.uri));
  engine_.Begin(target.uri);
  engine_.Fail(LoadFailure::Kind::Refused);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("load " + target.fallback));
  engine_.Begin(target.fallback);
  engine_.Fail(LoadFailure::Kind::Refused);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("show problem"));
  EXPECT_THAT(log_, ElementsAre("begin")) << "all one navigation";
}

TEST_F(Loading, StopDoesNothingWhereNothingLoads) {
  Visit(kPage);
  browser_->Stop();
  Settle();
  EXPECT_FALSE(browser_->Busy());
  EXPECT_THAT(log_, IsEmpty());
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

TEST_F(Loading, TheSizeOfPagesIsToldStoredAndBounded) {
  EnginePreferences preferences;
  preferences.zoom = 1.1;
  preferences_.Set(preferences);
  EXPECT_DOUBLE_EQ(engine_.zoom, 1.1);
  EXPECT_THAT(zooms_, IsEmpty()) << "it comes from the store";
  const auto zoom = [this](WebBrowser::PageCommand command, int times) {
    for (int i = 0; i < times; ++i) browser_->Do(command);
    return said_.back();
  };
  EXPECT_EQ(zoom(WebBrowser::PageCommand::ZoomIn, 1), "120 percent");
  EXPECT_DOUBLE_EQ(engine_.zoom, 1.2);
  EXPECT_THAT(zooms_, ElementsAre(120));
  EXPECT_EQ(zoom(WebBrowser::PageCommand::ZoomOut, 100), "30 percent");
  EXPECT_EQ(zoom(WebBrowser::PageCommand::ZoomIn, 100), "300 percent");
  EXPECT_EQ(zoom(WebBrowser::PageCommand::ZoomReset, 1), "100 percent");
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
