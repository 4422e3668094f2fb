// How the document of a page is put together, followed and told, over an engine that does
// what the test says.
#include "web/page/DocumentReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tests/fakes/fake_engine.h"
#include "tests/fakes/fake_time.h"

namespace corvane::tests {
namespace {

using fakes::FakeEngine;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kText = "Some thirty characters and more of text";
constexpr const char* kTwoFrames = R"(,"frames":[["First","a"],["Second","b"]])";

/// What a frame tells: its place, name and links.
std::string Frame(const std::string& place, const std::string& id,
                  const std::string& more = R"(,"body":"words")") {
  return R"({"id":")" + id + R"(","place":)" + place + R"(,"origin":"f","top":"o","title":")" + id +
         "\"" + more + "}";
}

class DocumentReaderTest : public testing::Test {
 protected:
  void Show(const std::string& more, const std::string& text = kText) {
    engine_.answers["corvane.collect()"] = FakeEngine::Record("Title", text, more);
  }
  void Tell(const std::string& kind, const std::string& text) {
    engine_.Message.Raise("corvane", kind, text);
  }
  void Read() {
    reader_.Read([this](const HTMLDocumentPtr& document) {
      read_ = document;
      ++readings_;
    });
    time_.Pass(0);
  }
  Schedule MakeSchedule() {
    return {time_.AsLater(),
            [this](Weight, const std::function<std::function<void()>()>& work) {
              aside_.push_back(time_.AsLater()(0, work()));
            },
            [this] { return time_.Now(); }};
  }
  ElementEvents::Look Looking() {
    return [this](std::function<void(const FieldFocus&)> seen) { seen_ = std::move(seen); };
  }

  fakes::FakeTime time_;
  FakeEngine engine_{time_.AsLater()};
  std::vector<std::shared_ptr<void>> aside_;
  std::function<void(const FieldFocus&)> seen_;  // who looks waits for this
  DocumentReader reader_{engine_, MakeSchedule(), Looking()};
  HTMLDocumentPtr read_;
  int readings_ = 0;
};

TEST_F(DocumentReaderTest, APageIsReadOnce) {
  Read();
  ASSERT_TRUE(read_);
  EXPECT_EQ(read_->Title, "Title");
  time_.Pass(100);
  EXPECT_EQ(readings_, 1);
}

TEST_F(DocumentReaderTest, APageThatIsNotToBeReadHasItsTitleAndAddress) {
  engine_.answers["corvane.collect()"] = "no record";
  engine_.title = "Engine's";
  engine_.address = "https://example.org/";
  Read();
  ASSERT_TRUE(read_);
  EXPECT_EQ(read_->Title, "Engine's");
  EXPECT_EQ(read_->location, "https://example.org/");
  EXPECT_FALSE(read_->has_body);
}

TEST_F(DocumentReaderTest, APageThatComesEmptyIsReadOnceMoreWhenItIsFilled) {
  Show("", "");
  engine_.answers["corvaneChanges.filled()"] = "";
  Read();
  EXPECT_EQ(readings_, 1);
  EXPECT_EQ(std::count(engine_.evaluated.begin(), engine_.evaluated.end(), "corvane.collect()"), 2);
}

TEST_F(DocumentReaderTest, OnlyTheLastReadingIsTold) {
  reader_.Read([](const auto&) { FAIL() << "overtaken"; });
  Read();
  EXPECT_EQ(readings_, 1);
  reader_.Read([](const auto&) { FAIL() << "given up"; });
  reader_.Cancel();
  time_.Pass(100);
}

TEST_F(DocumentReaderTest, ALongRecordIsReadAside) {
  Show("", std::string(100'000, 'x'));
  Read();
  EXPECT_THAT(aside_, SizeIs(1));
  EXPECT_EQ(readings_, 1);
}

// --- frames ---------------------------------------------------------------------------

TEST_F(DocumentReaderTest, APageWaitsForItsFramesAndPutsThemInTheirPlaces) {
  Show(kTwoFrames);
  Tell("record", Frame("[1]", "second"));
  Read();
  EXPECT_EQ(readings_, 0) << "one is missing";
  Tell("record", Frame("[0]", "first"));
  ASSERT_EQ(readings_, 1);
  ASSERT_THAT(read_->frames, SizeIs(2));
  EXPECT_EQ(read_->frames[0]->Title, "first");
  EXPECT_EQ(read_->frames[1]->Title, "second");
}

TEST_F(DocumentReaderTest, AFrameThatTellsNothingIsNotWaitedForForLong) {
  Show(kTwoFrames);
  Tell("record", Frame("[1]", "second"));
  Read();
  time_.Pass(0.5);
  ASSERT_EQ(readings_, 1);
  EXPECT_EQ(read_->frames[0]->Title, "First") << "as the page calls it";
  EXPECT_EQ(read_->frames[1]->Title, "second");
}

TEST_F(DocumentReaderTest, AFrameWithoutScriptsIsNotWaitedForAtAll) {
  Show(R"(,"frames":[["First","a",1]])");
  Read();
  EXPECT_EQ(readings_, 1);
}

TEST_F(DocumentReaderTest, AFrameThatComesLateTakesItsPlace) {
  Show(kTwoFrames);
  Read();
  time_.Pass(0.5);
  Tell("record", Frame("[0]", "late"));
  EXPECT_EQ(read_->frames[0]->Title, "late");
  Tell("record", Frame("[0]", "next"));
  EXPECT_EQ(read_->frames[0]->Title, "next");
  Tell("record", Frame("[0,3]", "inner"));
  ASSERT_THAT(read_->frames[0]->frames, SizeIs(4));
  EXPECT_EQ(read_->frames[0]->frames[3]->Title, "inner");
}

TEST_F(DocumentReaderTest, AFrameOfAnotherPageIsNotTaken) {
  Show(R"(,"frames":[["First","a"]])");
  std::string stranger = Frame("[0]", "stranger");
  stranger.replace(stranger.find(R"("top":"o")"), 9, R"("top":"x")");
  Tell("record", stranger);
  Read();
  EXPECT_EQ(read_->frames.at(0)->Title, "First");
  Tell("record", stranger);
  EXPECT_EQ(read_->frames.at(0)->Title, "First");
}

TEST_F(DocumentReaderTest, WhatFramesOfThePageBeforeHaveToldIsForgotten) {
  Show(R"(,"frames":[["First","a"]])");
  Tell("record", Frame("[0]", "old"));
  reader_.Forget();
  Read();
  EXPECT_EQ(readings_, 0);
  time_.Pass(0.5);
  EXPECT_EQ(read_->frames.at(0)->Title, "First");
}

TEST_F(DocumentReaderTest, ADescriptionLeavesTheDocumentAsItIs) {
  Show(kTwoFrames);
  Tell("record", Frame("[0]", "first"));
  Read();
  time_.Pass(0.5);
  engine_.answers["corvane.collect(false)"] = FakeEngine::Record("Now", kText, kTwoFrames);
  HTMLDocumentPtr described;
  reader_.Describe([&](const HTMLDocumentPtr& document) { described = document; });
  time_.Pass(0);
  ASSERT_TRUE(described);
  EXPECT_EQ(described->Title, "Now");
  EXPECT_EQ(described->frames.at(0)->Title, "first") << "as it was";
  EXPECT_EQ(read_->Title, "Title");
}

// --- events ---------------------------------------------------------------------------

class ElementEventsTest : public DocumentReaderTest {
 protected:
  ElementEventsTest() {
    Show(R"(,"links":[1,0,"Link","https://example.org/x","",""],"forms":[[)"
         R"([2,"HTMLInputElement","text","q","","","","",0,-1,[],[],"",""],)"
         R"([3,"HTMLInputElement","password","p","","","","",0,-1,[],[],"",""]]])");
    Read();
    Listen(read_->links.at(0), "link");
    Listen(read_->forms.at(0).elements.at(0), "field");
    Listen(read_->forms.at(0).elements.at(1), "password");
    connections_ += read_->onelementadded.Connect([this](const HTMLElementPtr& element) {
      log_.push_back("added");
      Listen(element, "new");
    });
    connections_ += reader_.Events().FocusMoved.Connect(
        [this](const PageElement& element) { moved_.push_back(element.number); });
  }
  void Listen(const HTMLElementPtr& element, const std::string& name) {
    const auto note = [this](const std::string& what) {
      return [this, what] { log_.push_back(what); };
    };
    connections_ += element->onfocus.Connect(note("focus " + name));
    connections_ += element->onkeyup.Connect(note("key " + name));
    connections_ += element->onstate.Connect(note("state " + name));
  }
  void Event(const std::string& kind, int number, const std::string& more = "") {
    Tell("event", R"({"kind":")" + kind + R"(","document":"d1","number":)" +
                      std::to_string(number) + more + "}");
  }

  std::vector<std::string> log_;
  std::vector<int> moved_;
  Connections connections_;
};

TEST_F(ElementEventsTest, AnElementRaisesWhatThePageTells) {
  Event("focus", 2);
  Event("keyup", 2, R"(,"state":["typed"])");
  EXPECT_THAT(log_, ElementsAre("focus field", "key field"));
  EXPECT_THAT(moved_, ElementsAre(2));
  ASSERT_TRUE(reader_.Events().Focused());
  EXPECT_EQ(reader_.Events().Focused()->value, "typed");
}

TEST_F(ElementEventsTest, WhatIsToldOnceMoreIsNotHeardTwice) {
  reader_.TellFocus();
  Event("focus", 2);
  Event("focus", 2, R"(,"again":1)");
  EXPECT_THAT(log_, ElementsAre("focus field"));
}

TEST_F(ElementEventsTest, WhatNobodyCouldHearIsToldOnceMore) {
  Event("focus", 2);  // before anybody has asked
  log_.clear();
  reader_.TellFocus();
  EXPECT_EQ(engine_.evaluated.back(), "corvaneEvents.tellAgain()");
  Event("focus", 2, R"(,"again":1)");
  EXPECT_THAT(log_, ElementsAre("focus field"));
}

TEST_F(ElementEventsTest, AnElementThatCameLateIsIntroducedBeforeItsFirstEvent) {
  const std::string field =
      R"(,"field":[9,"HTMLInputElement","text","n","","","","",0,-1,[],[],"",""])";
  Event("focus", 9, field);
  Event("keyup", 9, field);
  EXPECT_THAT(log_, ElementsAre("added", "focus new", "key new"));
}

TEST_F(ElementEventsTest, WhatIsNotKnownAndNotDescribedIsLeftOut) {
  Event("focus", 77);
  Tell("event", "broken");
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(ElementEventsTest, AFieldOfHiddenTextIsKnownUntilItIsLeft) {
  Event("focus", 3);
  EXPECT_TRUE(reader_.Events().InPassword());
  Event("leave", 3);
  EXPECT_FALSE(reader_.Events().InPassword());
}

TEST_F(ElementEventsTest, WhatTheUserHasLeftIsNotTold) {
  reader_.Events().Ignore(true);
  Event("focus", 2);
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(ElementEventsTest, WhatComesWhileAFieldIsLookedAtWaitsBehindIt) {
  Event("keyup", 2, R"(,"state":["12"],"look":1)");
  Event("focus", 1);
  EXPECT_THAT(log_, IsEmpty());
  ASSERT_TRUE(seen_);
  FieldFocus seen;
  seen.text = "123";
  seen.caret = 1;
  seen_(seen);
  EXPECT_THAT(log_, ElementsAre("key field", "focus link"));
  EXPECT_EQ(read_->forms.at(0).elements.at(0)->caret.text_after, 2);
}

TEST_F(ElementEventsTest, AFieldThatCannotBeSeenIsNotWaitedForForLong) {
  Event("keyup", 2, R"(,"look":1)");
  const auto late = seen_;
  time_.Pass(0.3);
  EXPECT_THAT(log_, ElementsAre("key field"));
  late({});
  EXPECT_THAT(log_, ElementsAre("key field"));
}

TEST_F(ElementEventsTest, TheEventsOfThePageBeforeAreForgotten) {
  Event("keyup", 2, R"(,"look":1)");
  reader_.Forget();
  seen_({});
  time_.Pass(1);
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(ElementEventsTest, WhoIsToldMayCloseTheWindow) {
  auto other = std::make_unique<DocumentReader>(engine_, MakeSchedule(), nullptr);
  HTMLDocumentPtr document;
  other->Read([&](const HTMLDocumentPtr& read) { document = read; });
  time_.Pass(0);
  ASSERT_TRUE(document);
  const Connection closes =
      document->forms.at(0).elements.at(0)->onfocus.Connect([&] { other.reset(); });
  Event("focus", 2);
  EXPECT_EQ(other, nullptr);
}

TEST_F(DocumentReaderTest, APageThatCannotTellIsAskedWhereItsFocusIs) {
  Show(R"(,"silent":1,"links":[1,0,"Link","https://example.org/x","",""])");
  Read();
  std::vector<std::string> log;
  const Connection focus = read_->links.at(0)->onfocus.Connect([&] { log.push_back("focus"); });
  engine_.answers["corvaneEvents.focus(1)"] = R"({"kind":"focus","document":"d1","number":1})";
  reader_.AskFocus(DocumentReader::Moved::ByKey);
  time_.Pass(0);
  EXPECT_THAT(log, ElementsAre("focus"));
  engine_.evaluated.clear();
  time_.Pass(1);
  EXPECT_THAT(engine_.evaluated, SizeIs(2)) << "a slow page is asked again";
}

TEST_F(DocumentReaderTest, APageThatTellsIsNotAsked) {
  Read();
  engine_.evaluated.clear();
  reader_.AskFocus(DocumentReader::Moved::ByKey);
  time_.Pass(1);
  EXPECT_THAT(engine_.evaluated, IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
