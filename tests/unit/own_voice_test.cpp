#include "base/language.h"
#include "speech/SpeechChoices.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::Not;

/// What the program asks and warns of has a voice that no page's words ever have.
struct OwnVoice : testing::Test {
  Program p;

  void Start(const char* languages_voices = "") {
    p.desktop.settings.Main("Manner") = "1";
    if (*languages_voices != '\0') p.desktop.settings.Main("LanguageVoices") = languages_voices;
    p.StartTalking();
    p.desktop.speech.calls.clear();
  }
  void Ask(const std::string& text, bool from_page = false) {
    p.desktop.speak_dialog({text, p.Inside().form->hwnd(), from_page});
  }
  std::vector<std::string> Heard() { return p.desktop.speech.Spoken(); }
  static constexpr const char* kQuestion = "Permission. example.com wants to know where you are.";
};

TEST_F(OwnVoice, AQuestionOfTheProgramHasIt) {
  Start();
  Ask(kQuestion);
  EXPECT_THAT(Heard(), ElementsAre(std::string("\\Pit=90\\\\Spd=150\\\\Vce=+f4\\") + kQuestion +
                                   " (urgent)"));
}

TEST_F(OwnVoice, ANoticeOfTheProgramHasIt) {
  Start();
  p.Browser().Announcement.Raise("A pop-up window was blocked.");
  EXPECT_THAT(Heard(), Contains("\\Pit=90\\\\Spd=150\\\\Vce=+f4\\A pop-up window was blocked."));
}

TEST_F(OwnVoice, APageThatSpeaksLikeTheProgramIsHeardAsAPage) {
  Start();
  auto page = MakePage("http://a/", kQuestion, kQuestion, {{kQuestion, "http://a/b"}});
  p.Read(page);
  p.Links().SetListIndex(1);
  p.Links().Click.Raise();
  PageWords words;
  words.words = kQuestion;
  words.urgent = true;
  p.Browser().busy = false;
  p.Reading().SetEnabled(false);
  p.Browser().PageSays.Raise(words);
  Ask(kQuestion, true);
  p.Browser().StatusTextChange.Raise(kQuestion);
  EXPECT_THAT(Heard(), Contains(HasSubstr(kQuestion)));
  EXPECT_THAT(Heard(), Each(Not(HasSubstr("Vce"))));
}

TEST_F(OwnVoice, APageCannotAskForItByTags) {
  Start();
  Ask("\\Vce=+f4\\Give me your password", true);
  EXPECT_THAT(Heard(), Each(Not(HasSubstr("\\Vce"))));
}

TEST_F(OwnVoice, ThePagesPartsOfAQuestionHaveThePagesVoice) {
  Start("en:page:en-us+f2");
  Ask("Sign in. It says: " + language::Marked("Corvane asks", language::kOfAPage) + ". Новости");
  EXPECT_THAT(Heard(), ElementsAre("\\Pit=90\\\\Spd=150\\\\Vce=en-us+f4\\Sign in. It says: "
                                   "\\Vce=en-us+f2\\Corvane asks\\Lng=ru\\\\Vce=\\. Новости "
                                   "(urgent)"));
}

TEST_F(OwnVoice, NoLanguageThatThePageChoosesHasIt) {
  Start("de:page:+f4 fr:page:+m3");
  Ask(kQuestion);
  EXPECT_THAT(Heard(), Contains(HasSubstr("\\Vce=+f2\\")));
}

TEST_F(OwnVoice, WithOneVoiceForAllLanguagesToo) {
  p.desktop.settings.Main("Languages") = "False";
  Start();
  Ask("It says: " + language::Marked("Corvane asks", language::kOfAPage));
  EXPECT_THAT(Heard(), ElementsAre("\\Pit=90\\\\Spd=150\\\\Vce=+f4\\It says: \\Vce=\\Corvane asks "
                                   "(urgent)"));
}

TEST_F(OwnVoice, CanBeSwitchedOffAndIsOffInTheEstablishedManner) {
  p.desktop.settings.Main("OwnVoice") = "False";
  Start();
  Ask(kQuestion);
  EXPECT_THAT(Heard(), Each(Not(HasSubstr("Vce"))));
  Program established;
  established.StartTalking();
  established.desktop.speak_dialog({kQuestion, 0});
  EXPECT_THAT(established.desktop.speech.Spoken(), Each(Not(HasSubstr("Vce"))));
}

}  // namespace
}  // namespace corvane::tests
