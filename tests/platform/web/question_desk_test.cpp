// Who may ask the user, and how often; what is kept of the answers.
#include "platform/linux/web/requests/question_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/web/requests/outside_links.h"
#include "platform/linux/web/requests/page_notices.h"
#include "platform/linux/web/requests/permission_book.h"
#include "tests/platform/web/asking.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

class QuestionDeskTest : public testing::Test {
 protected:
  void Ask(const std::string& title, QuestionDesk::Asker asker = QuestionDesk::Asker::Page) {
    desk_.Ask(asker, {title, "", {}, {"&Yes", "&No"}}, [this, title](const auto& reply) {
      log_.push_back(title + (reply ? " " + std::to_string(reply->button) : " none"));
    });
  }
  std::shared_ptr<Asking> asking_ = std::make_shared<Asking>();
  gint64 now_ = 1;
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
  asking_->once = true;
  for (int i = 0; i < 1000; ++i) {
    Ask("q");
    asking_->Answer({0, {}});
  }
  EXPECT_EQ(asking_->asked.size(), 5U);
  EXPECT_EQ(too_many_, 995);
  EXPECT_EQ(log_.size(), 1000U);
  now_ += 60 * G_USEC_PER_SEC;
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
  gint64 now = 1;
  std::vector<std::string> said;
  PageNotices notices([&](const std::string& text) { said.push_back(text); }, [&] { return now; });
  for (int i = 0; i < 1000; ++i) notices.Tell("A pop-up window was blocked.");
  EXPECT_EQ(said.size(), 1U);
  for (int i = 0; i < 1000; ++i) notices.Tell(i % 2 == 0 ? "one" : "two");
  EXPECT_EQ(said.size(), 6U);
  now += 60 * G_USEC_PER_SEC;
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
    PermissionBook book(file_);
    book.Decide("https://example.org", "camera and microphone", true);
    book.Decide("https://example.org", "location", false);
  }
  const PermissionBook book(file_);
  EXPECT_EQ(book.Find("https://example.org", "camera and microphone"), true);
  EXPECT_EQ(book.Find("https://example.org", "location"), false);
  EXPECT_EQ(book.Find("https://example.org", "camera"), std::nullopt);
  EXPECT_EQ(book.Find("http://example.org", "location"), std::nullopt);
}

TEST_F(PermissionBookTest, DecisionsAreListedAndTakenBackOneByOne) {
  PermissionBook book(file_);
  book.Decide("https://b.example", "location", false);
  book.Decide("https://a.example", "camera", true);
  EXPECT_TRUE(book.Forget("https://b.example", "location"));
  const auto left = PermissionBook(file_).List();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].site, "https://a.example");
  EXPECT_EQ(left[0].kind, "camera");
  EXPECT_TRUE(left[0].allowed);
  EXPECT_FALSE(PermissionBook("/proc/nowhere/permissions.ini").Forget("https://a", "x"));
}

TEST_F(PermissionBookTest, AFileThatSomebodySpoiledAllowsNothing) {
  std::filesystem::create_directories(folder_);
  std::ofstream(file_) << "[https://example.org]\nlocation=perhaps\n";
  EXPECT_EQ(PermissionBook(file_).Find("https://example.org", "location"), false);
  std::ofstream(file_) << "\xff\xfe[[[ nothing of use";
  EXPECT_EQ(PermissionBook(file_).Find("https://example.org", "location"), std::nullopt);
}

TEST_F(PermissionBookTest, AFileThatCannotBeWrittenHoldsUntilTheEnd) {
  PermissionBook book("/proc/nowhere/permissions.ini");
  book.Decide("https://example.org", "location", true);
  EXPECT_EQ(book.Find("https://example.org", "location"), true);
}

}  // namespace
}  // namespace corvane::desktop
