// Who may ask the user, and how often; what is kept of the answers.
#include "web/requests/QuestionDesk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/language.h"
#include "tests/fakes/fake_questions.h"
#include "tests/temporary_folder.h"
#include "web/requests/PageNotices.h"
#include "web/requests/PageRequests.h"
#include "web/requests/PermissionBook.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class QuestionDeskTest : public testing::Test {
 protected:
  void Ask(const std::string& title, QuestionDesk::Asker asker = QuestionDesk::Asker::Page) {
    desk_.Ask(asker, {title, "", {}, {"&Yes", "&No"}}, [this, title](const auto& reply) {
      log_.push_back(title + (reply ? " " + std::to_string(reply->button) : " none"));
    });
  }
  std::shared_ptr<fakes::FakeQuestions> asking_ = std::make_shared<fakes::FakeQuestions>();
  double now_ = 1;
  int too_many_ = 0;
  std::vector<std::string> log_;
  QuestionDesk desk_{asking_, [this] { ++too_many_; }, [this] { return now_; }};
};

TEST_F(QuestionDeskTest, OneQuestionIsShownAtATime) {
  Ask("a");
  Ask("b");
  EXPECT_THAT(asking_->Titles(), ElementsAre("a"));
  asking_->Answer({1, {}});
  EXPECT_THAT(asking_->Titles(), ElementsAre("a", "b"));
  asking_->Answer({0, {}});
  EXPECT_THAT(log_, ElementsAre("a 1", "b 0"));
}

TEST_F(QuestionDeskTest, APageThatAsksAndAsksIsAnsweredByItselfAfterAWhile) {
  for (int i = 0; i < 1000; ++i) {
    Ask("q");
    asking_->Answer({0, {}});
  }
  EXPECT_EQ(asking_->asked.size(), 5U);
  EXPECT_EQ(too_many_, 995);
  EXPECT_EQ(log_.size(), 1000U);
  now_ += 60;
  Ask("later");
  EXPECT_EQ(asking_->asked.back().title, "later");
}

TEST_F(QuestionDeskTest, WhatTheUserWantsIsAskedNeverthelessButNotWithoutEnd) {
  for (int i = 0; i < 10; ++i) {
    Ask("page");
    asking_->Answer({0, {}});
  }
  Ask("user", QuestionDesk::Asker::User);
  EXPECT_EQ(asking_->asked.back().title, "user");
  for (int i = 0; i < 100; ++i) Ask("more", QuestionDesk::Asker::User);
  EXPECT_EQ(log_.back(), "more none");
}

TEST_F(QuestionDeskTest, AQuestionGoesWithItsPage) {
  Ask("a");
  Ask("b");
  desk_.Reset();
  EXPECT_EQ(asking_->taken_back, 1);
  EXPECT_THAT(log_, ElementsAre("a none", "b none"));
}

TEST_F(QuestionDeskTest, WithNobodyToAskThereIsNoAnswer) {
  QuestionDesk desk(nullptr, [] {});
  bool answered = false;
  desk.Ask(QuestionDesk::Asker::User, {"q", "", {}, {"&OK"}}, [&](const auto& reply) {
    EXPECT_FALSE(reply);
    answered = true;
  });
  EXPECT_TRUE(answered);
}

TEST(PageNotices, FloodsBecomeAFewWords) {
  double now = 1;
  std::vector<std::string> said;
  PageNotices notices([&](const std::string& text) { said.push_back(text); }, [&] { return now; });
  for (int i = 0; i < 1000; ++i) notices.Tell("A pop-up window was blocked.");
  EXPECT_EQ(said.size(), 1U);
  for (int i = 0; i < 1000; ++i) notices.Tell(i % 2 == 0 ? "one" : "two");
  EXPECT_EQ(said.size(), 6U);
  now += 60;
  notices.Tell("one");
  EXPECT_EQ(said.size(), 7U);
}

class PermissionBookTest : public testing::Test {
 protected:
  const test::TemporaryFolder root_;
  const std::string folder_ = root_ / "permission_book";
  const std::string file_ = folder_ + "/permissions.ini";
};

TEST_F(PermissionBookTest, DecisionsOutliveTheProgram) {
  {
    PermissionBook book(file_, &test::WriteFile);
    book.Decide("https://example.org", "camera and microphone", true);
    book.Decide("https://example.org", "location", false);
  }
  const PermissionBook book(file_, &test::WriteFile);
  EXPECT_EQ(book.Find("https://example.org", "camera and microphone"), true);
  EXPECT_EQ(book.Find("https://example.org", "location"), false);
  EXPECT_EQ(book.Find("https://example.org", "camera"), std::nullopt);
  EXPECT_EQ(book.Find("http://example.org", "location"), std::nullopt);
}

TEST_F(PermissionBookTest, DecisionsAreListedAndTakenBackOneByOne) {
  PermissionBook book(file_, &test::WriteFile);
  book.Decide("https://b.example", "location", false);
  book.Decide("https://a.example", "camera", true);
  EXPECT_TRUE(book.Forget("https://b.example", "location"));
  const auto left = PermissionBook(file_, &test::WriteFile).List();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].site, "https://a.example");
  EXPECT_EQ(left[0].kind, "camera");
  EXPECT_TRUE(left[0].allowed);
  EXPECT_FALSE(
      PermissionBook("/proc/nowhere/permissions.ini", &test::WriteFile).Forget("https://a", "x"));
}

TEST_F(PermissionBookTest, AFileThatSomebodySpoiledAllowsNothing) {
  std::filesystem::create_directories(folder_);
  std::ofstream(file_) << "[https://example.org]\nlocation=perhaps\n";
  EXPECT_EQ(PermissionBook(file_, &test::WriteFile).Find("https://example.org", "location"), false);
  std::ofstream(file_) << "\xff\xfe[[[ nothing of use";
  EXPECT_EQ(PermissionBook(file_, &test::WriteFile).Find("https://example.org", "location"),
            std::nullopt);
}

TEST_F(PermissionBookTest, AFileThatCannotBeWrittenHoldsUntilTheEnd) {
  PermissionBook book("/proc/nowhere/permissions.ini", &test::WriteFile);
  book.Decide("https://example.org", "location", true);
  EXPECT_EQ(book.Find("https://example.org", "location"), true);
}

// --- what pages want ---------------------------------------------------------

class EngineDialog : public ScriptDialog {
 public:
  EngineDialog(Kind of, const std::string& words, std::string& log)
      : ScriptDialog(of, words, "preset"), log_(log) {}
  ~EngineDialog() override { log_ += "gone "; }
  void Confirm(bool yes) override { log_ += yes ? "yes " : "no "; }
  void Enter(const std::string& text) override { log_ += text + " "; }

 private:
  std::string& log_;
};

class MailOnly : public OtherPrograms {
 public:
  bool CanOpen(const std::string& scheme) const override { return scheme == "mailto"; }
  void Open(const std::string& address, std::function<void(const std::string&)> done) override {
    opened.push_back(address);
    done(problem);
  }
  std::vector<std::string> opened;
  std::string problem;
};

class PageRequestsTest : public testing::Test {
 protected:
  void Show(ScriptDialog::Kind kind, const std::string& message = "m") {
    requests_.Show(std::make_unique<EngineDialog>(kind, message, log_));
  }
  void Want(const std::string& kind, const std::string& site = "https://example.org") {
    requests_.Decide({site, kind, "b.example"},
                     [this](bool allowed) { log_ += allowed ? "allowed " : "refused "; });
  }
  std::shared_ptr<fakes::FakeQuestions> asking_ = std::make_shared<fakes::FakeQuestions>();
  std::shared_ptr<MailOnly> programs_ = std::make_shared<MailOnly>();
  PermissionBook book_{"", &test::WriteFile};
  std::string log_;
  std::vector<std::string> said_;
  PageRequests requests_{{asking_, nullptr, programs_, book_},
                         nullptr,
                         {[] { return std::string("https://example.org/a"); },
                          [this](const std::string& text) { log_ += "[" + text + "] "; },
                          [this](const std::string& text) { said_.push_back(text); },
                          [this](bool open) { log_ += open ? "held " : "free "; },
                          [this] { log_ += "stays "; }, [this] { log_ += "prints "; }}};
};

TEST_F(PageRequestsTest, ADialogHoldsItsPageUntilItIsAnswered) {
  Show(ScriptDialog::Kind::Confirm, "Sure?");
  EXPECT_EQ(asking_->asked.at(0).title, "Question of example.org");
  EXPECT_EQ(asking_->asked.at(0).text, "Sure?");
  EXPECT_EQ(log_, "held ");
  asking_->Answer({0, {}});
  EXPECT_EQ(log_, "held yes gone free ");
}

TEST_F(PageRequestsTest, WhatIsEnteredGoesToThePageAndEscapeNothing) {
  Show(ScriptDialog::Kind::Prompt);
  EXPECT_EQ(asking_->asked.at(0).fields.at(0).value, "preset");
  asking_->Answer({0, {"typed"}});
  EXPECT_EQ(log_, "held typed gone free ");
  log_.clear();
  Show(ScriptDialog::Kind::Prompt);
  asking_->Answer({1, {"typed"}});
  EXPECT_EQ(log_, "held gone free ");
}

TEST_F(PageRequestsTest, WhoStaysOnAPageIsNotLedAway) {
  Show(ScriptDialog::Kind::Leave);
  asking_->Answer({1, {}});
  EXPECT_EQ(log_, "held no gone free stays ");
  log_.clear();
  requests_.LetLeave(true);
  Show(ScriptDialog::Kind::Leave);
  EXPECT_EQ(log_, "yes gone ") << "asked once on one way";
}

TEST_F(PageRequestsTest, AlertsWithoutEndAreShownAFewTimes) {
  for (int i = 0; i < 100; ++i) Show(ScriptDialog::Kind::Alert, "a");
  EXPECT_THAT(said_, ElementsAre("This page shows too many messages. No more of them are shown."));
}

TEST_F(PageRequestsTest, QuestionsWithoutEndAreAskedAFewTimes) {
  for (int i = 0; i < 100; ++i) {
    Show(ScriptDialog::Kind::Confirm, "Go on?");
    asking_->Answer({0, {}});
  }
  EXPECT_EQ(asking_->asked.size(), 5U);
  EXPECT_THAT(said_, ElementsAre("This page shows too many messages. No more of them are shown."));
}

TEST_F(PageRequestsTest, TheNextPageMayAlertAgain) {
  for (int i = 0; i < 10; ++i) Show(ScriptDialog::Kind::Alert, "a");
  log_.clear();
  requests_.PageChanged();
  Show(ScriptDialog::Kind::Alert, "again");
  EXPECT_EQ(log_, "[again] gone ");
}

TEST_F(PageRequestsTest, APageThatGoesTakesItsDialogsAlong) {
  Show(ScriptDialog::Kind::Confirm);
  requests_.PageChanged();
  EXPECT_EQ(log_, "held no gone free ");
  EXPECT_EQ(asking_->taken_back, 1);
}

TEST_F(PageRequestsTest, APermissionIsAskedForOnceForAllWhoWantIt) {
  Want("camera");
  Want("camera");
  EXPECT_EQ(asking_->asked.size(), 1U);
  EXPECT_EQ(asking_->asked[0].text, "example.org wants to use your camera.");
  asking_->Answer({1, {}});  // once
  EXPECT_EQ(log_, "allowed allowed ");
  log_.clear();
  requests_.PageChanged();
  Want("camera");
  EXPECT_EQ(log_, "") << "another page is asked about again";
}

TEST_F(PageRequestsTest, ARefusalHoldsUntilTheUserGoesElsewhere) {
  Want("camera");
  asking_->Answer({0, {}});
  requests_.PageChanged();
  Want("camera");
  EXPECT_EQ(log_.substr(0, 16), "refused [This pa");
  EXPECT_EQ(asking_->asked.size(), 1U);
  requests_.UserAskedForPage();
  Want("camera");
  EXPECT_EQ(asking_->asked.size(), 2U);
}

TEST_F(PageRequestsTest, WhatIsDecidedForGoodStandsInTheBook) {
  Want("location");
  asking_->Answer({2, {}});
  EXPECT_EQ(book_.Find("https://example.org", "location"), true);
  Want("location");
  EXPECT_EQ(log_, "allowed allowed ");
}

TEST_F(PageRequestsTest, ADecisionThatWasTakenBackIsAskedForAgain) {
  Want("location");
  asking_->Answer({3, {}});
  Want("location");
  EXPECT_EQ(log_, "refused refused ");
  book_.Forget("https://example.org", "location");
  Want("location");
  EXPECT_EQ(asking_->asked.size(), 2U);
}

TEST_F(PageRequestsTest, ADecisionThatCannotBeStoredHoldsAndIsTold) {
  book_ = PermissionBook("/proc/nowhere/permissions.ini", &test::WriteFile);
  Want("location");
  asking_->Answer({3, {}});
  EXPECT_THAT(said_,
              ElementsAre("The decision could not be stored. It holds until Corvane is closed."));
  EXPECT_EQ(book_.Find("https://example.org", "location"), false);
}

TEST_F(PageRequestsTest, DataOfAnotherSiteIsDecidedForThatSite) {
  Want("data");
  EXPECT_EQ(asking_->asked.at(0).text,
            "example.org wants to let b.example use what it has stored here.");
  asking_->Answer({2, {}});
  EXPECT_EQ(book_.Find("https://example.org", "data of b.example"), true);
}

TEST_F(PageRequestsTest, WhatNoDecisionCouldHoldForIsRefused) {
  Want("camera", "");
  Want("");
  Want("all your money");
  EXPECT_EQ(log_, "refused refused refused ");
  EXPECT_THAT(asking_->asked, testing::IsEmpty());
}

TEST_F(PageRequestsTest, SigningInIsGivenUpOnceForAServer) {
  std::vector<std::string> users;
  const auto ask = [&] {
    requests_.AskToSignIn({"example.org:443", "Club", false, true}, [&](const auto& given) {
      users.push_back(given ? given->user + "/" + given->password : "none");
    });
  };
  ask();
  EXPECT_EQ(asking_->asked.at(0).text,
            "The name or the password was not right. The server example.org:443 asks for a user "
            "name and a password. It says: " +
                language::Marked("Club", language::kOfAPage));
  asking_->Answer({0, {"ann", "secret"}});
  ask();
  asking_->Answer({1, {"", ""}});
  ask();
  EXPECT_THAT(users, ElementsAre("ann/secret", "none", "none"));
  EXPECT_EQ(asking_->asked.size(), 2U);
}

TEST_F(PageRequestsTest, AnotherProgramIsOpenedOnlyForTheUserWhoWantsIt) {
  requests_.OpenOutside("mailto:ann@example.org", false);
  EXPECT_THAT(asking_->asked, testing::IsEmpty());
  requests_.OpenOutside("tel:123", true);
  requests_.OpenOutside("mailto:ann@example.org", true);
  asking_->Answer({0, {}});
  EXPECT_THAT(programs_->opened, ElementsAre("mailto:ann@example.org"));
  EXPECT_THAT(said_, ElementsAre("The page wanted to open another program. This was refused.",
                                 "There is no program for addresses that begin with tel:"));
}

TEST_F(PageRequestsTest, AProgramThatDoesNotStartIsTold) {
  programs_->problem = "broken";
  requests_.OpenOutside("mailto:ann@example.org", true);
  asking_->Answer({0, {}});
  EXPECT_THAT(said_, ElementsAre("No program could open the mailto address."));
}

TEST_F(PageRequestsTest, OneWindowForEachThingThatTheUserDoes) {
  EXPECT_TRUE(requests_.MayOpenWindow(true));
  EXPECT_FALSE(requests_.MayOpenWindow(true));
  requests_.UserActed();
  EXPECT_FALSE(requests_.MayOpenWindow(false));
  EXPECT_TRUE(requests_.MayOpenWindow(true));
  EXPECT_THAT(said_, ElementsAre("A pop-up window was blocked."));
}

TEST_F(PageRequestsTest, APageIsPrintedWhenTheUserAgrees) {
  requests_.AskToPrint();
  asking_->Answer({1, {}});
  EXPECT_EQ(log_, "");
  requests_.AskToPrint();
  asking_->Answer({0, {}});
  EXPECT_EQ(log_, "prints ");
}

}  // namespace
}  // namespace corvane
