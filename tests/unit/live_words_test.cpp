#include "browser/LiveWords.h"

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

PageWords Polite(const std::string& text) {
  PageWords words;
  words.words = text;
  return words;
}
PageWords Urgent(const std::string& text) {
  PageWords words = Polite(text);
  words.urgent = true;
  return words;
}

class LiveWordsTest : public testing::Test {
 protected:
  void Start(const std::string& manner = "1") {
    p.desktop.settings.Main("Manner") = manner;
    p.StartTalking();
    PageIsRead();
    p.Spoken();
  }
  void PageIsRead() {
    p.Browser().busy = false;
    p.Reading().SetEnabled(false);
  }
  void Says(const PageWords& words) { p.Browser().PageSays.Raise(words); }
  /// What is being said has been spoken to its end.
  void Over() { p.desktop.speech.agent->CompleteLast(); }
  void F12() {
    KeyEvent key{123, 0};
    p.Inside().form->KeyDown.Raise(key);
  }

  Program p;
};

TEST_F(LiveWordsTest, AreSaidAsThePageSaysThem) {
  Start();
  Says(Polite("Saved"));
  EXPECT_THAT(p.Spoken(), ElementsAre("Saved"));
}

TEST_F(LiveWordsTest, AreNotSaidInTheEstablishedManner) {
  Start("0");
  Says(Polite("Saved"));
  Says(Urgent("Wrong password"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(LiveWordsTest, ThatArePoliteCutNothingOff) {
  Start();
  p.desktop.speech.calls.clear();
  Says(Polite("one"));
  EXPECT_THAT(p.desktop.speech.calls, testing::Not(testing::Contains("stop")));
}

TEST_F(LiveWordsTest, ThatAreUrgentCutOrdinaryWordsOff) {
  Start();
  p.desktop.speech.calls.clear();
  Says(Urgent("Wrong password"));
  EXPECT_EQ(p.desktop.speech.calls.front(), "stop");
  EXPECT_THAT(p.Spoken(), ElementsAre("Wrong password"));
}

TEST_F(LiveWordsTest, WaitForEachOther) {
  Start();
  Says(Polite("one"));
  Says(Polite("two"));
  EXPECT_THAT(p.Spoken(), ElementsAre("one"));
  Over();
  EXPECT_THAT(p.Spoken(), ElementsAre("two"));
}

TEST_F(LiveWordsTest, OfAFloodTheNewestAreSaidAndTheRestCounted) {
  Start();
  for (int i = 0; i < 10; ++i) Says(Polite("line " + std::to_string(i)));
  std::vector<std::string> heard;
  for (int i = 0; i < 10; ++i) {
    for (const auto& each : p.Spoken()) heard.push_back(each);
    Over();
  }
  EXPECT_THAT(heard, ElementsAre("line 0", "line 7", "line 8", "line 9", "6 more messages"));
}

TEST_F(LiveWordsTest, AreNotSaidTwiceWithinASecond) {
  Start();
  Says(Polite("Saved"));
  Over();
  Says(Polite("Saved"));
  EXPECT_THAT(p.Spoken(), ElementsAre("Saved"));
  for (FakeTimer* timer : std::vector(p.desktop.timers)) {
    if (timer->interval == 1000 && timer->enabled) timer->Fire();
  }
  Says(Polite("Saved"));
  EXPECT_THAT(p.Spoken(), ElementsAre("Saved"));
}

TEST_F(LiveWordsTest, ThatComeWhileThePageIsReadAreSaidBehindItsTitle) {
  Start();
  p.Browser().busy = true;
  Says(Polite("Cookies?"));
  Says(Urgent("Storm!"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
  const auto look = [&] {
    for (FakeTimer* timer : std::vector(p.desktop.timers)) {
      if (timer->interval == 200) timer->Fire();
    }
  };
  look();
  EXPECT_THAT(p.Spoken(), IsEmpty());
  p.Browser().busy = false;
  look();
  EXPECT_THAT(p.Spoken(), ElementsAre("Cookies?"));
  Over();
  EXPECT_THAT(p.Spoken(), ElementsAre("Storm!"));
}

TEST_F(LiveWordsTest, AreEachNotSaidAgainForASecond) {
  Start();
  Says(Polite("one"));
  Over();
  Says(Polite("two"));
  Over();
  p.Spoken();
  FakeTimer* first = nullptr;
  for (FakeTimer* timer : p.desktop.timers) {
    if (timer->interval == 1000 && timer->enabled && first == nullptr) first = timer;
  }
  ASSERT_NE(first, nullptr);
  first->Fire();  // a second after "one", less after "two"
  Says(Polite("two"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
  Says(Polite("one"));
  EXPECT_THAT(p.Spoken(), ElementsAre("one"));
}

TEST_F(LiveWordsTest, ThatNobodyHearsAreToldAsAPartThatOpens) {
  PageWords opened = Polite("Opened: Basket");
  opened.opened = PageWords::Opened::PartOfRegion;
  Start("0");
  Says(opened);
  EXPECT_THAT(p.Spoken(), ElementsAre("Opened: Basket"));
}

TEST_F(LiveWordsTest, ThatAreHeardAreNotToldAsAPartThatOpens) {
  PageWords opened = Polite("Opened: Basket");
  opened.opened = PageWords::Opened::PartOfRegion;
  Start();
  Says(opened);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(LiveWordsTest, AreNotCutOffByAPartThatOpensWithThem) {
  PageWords opened = Polite("Opened: Basket");
  opened.opened = PageWords::Opened::Part;
  for (const bool urgent : {false, true}) {
    Program fresh;
    fresh.desktop.settings.Main("Manner") = "1";
    fresh.StartTalking();
    fresh.Browser().busy = false;
    fresh.Reading().SetEnabled(false);
    fresh.Spoken();
    fresh.Browser().PageSays.Raise(urgent ? Urgent("Saved") : Polite("Saved"));
    fresh.desktop.speech.calls.clear();
    fresh.Browser().PageSays.Raise(opened);
    EXPECT_THAT(fresh.desktop.speech.calls, testing::Not(testing::Contains("stop"))) << urgent;
    fresh.desktop.speech.agent->CompleteLast();
    EXPECT_THAT(fresh.Spoken(), testing::Contains("Opened: Basket")) << urgent;
  }
}

TEST_F(LiveWordsTest, ThatDoNotComeLetAPartThatOpensCutOffTheKey) {
  PageWords opened = Polite("Opened: Basket");
  opened.opened = PageWords::Opened::Part;
  Start();
  p.desktop.speech.calls.clear();
  Says(opened);
  EXPECT_THAT(p.desktop.speech.calls, testing::Contains("stop"));
  EXPECT_THAT(p.Spoken(), ElementsAre("Opened: Basket"));
}

TEST_F(LiveWordsTest, OfADialogAreItsNameItsKindAndHowItBegins) {
  Start();
  PageWords dialog = Polite("We use cookies.");
  dialog.dialog = "dialog";
  dialog.name = "Cookies";
  Says(dialog);
  EXPECT_THAT(p.Spoken(), ElementsAre("Cookies, dialog, We use cookies."));
}

TEST_F(LiveWordsTest, AreChosenForThePageWithOneKey) {
  Start();
  F12();
  EXPECT_THAT(p.Spoken(), ElementsAre("Live words: important"));
  Says(Polite("Saved"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
  Says(Urgent("Wrong"));
  EXPECT_THAT(p.Spoken(), ElementsAre("Wrong"));
  F12();
  EXPECT_THAT(p.Spoken(), ElementsAre("Live words: none"));
  Says(Urgent("Again"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
  F12();
  EXPECT_THAT(p.Spoken(), ElementsAre("Live words: all"));
}

TEST_F(LiveWordsTest, EndWithThePage) {
  Start();
  Says(Polite("one"));
  Says(Polite("two"));
  F12();
  p.Spoken();
  p.Browser().Begin();
  p.Spoken();
  Over();
  EXPECT_THAT(p.Spoken(), IsEmpty());
  PageIsRead();
  Says(Polite("three"));
  EXPECT_THAT(p.Spoken(), ElementsAre("three")) << "the choice was for the page before";
}

TEST_F(LiveWordsTest, AreHeardAgainAfterSpeechWasOff) {
  Start();
  Says(Polite("one"));
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  Says(Polite("two"));
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  p.MakeReady();
  p.Spoken();
  Says(Polite("three"));
  EXPECT_THAT(p.Spoken(), ElementsAre("three"));
}

TEST_F(LiveWordsTest, ThatWereLeftOutAreForgottenWithAnotherChoice) {
  Start();
  for (int i = 0; i < 10; ++i) Says(Polite("line " + std::to_string(i)));
  for (int i = 0; i < 3; ++i) F12();
  p.Spoken();
  Over();
  Over();
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(LiveWordsTest, FollowAChoiceForAllPagesAtOnce) {
  Start();
  auto values = std::vector<std::string>();
  const auto list = p.desktop.own_options.list();
  for (const auto& option : list) {
    values.push_back(option.label == "Live words of pages that are said" ? "none" : option.value);
  }
  p.desktop.own_options.apply(values);
  Says(Polite("Saved"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
