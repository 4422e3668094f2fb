#include "speech/ChosenMaker.h"

#include "base/language.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

constexpr const char* kLost = "Speech Dispatcher does not answer. The built in voice goes on.";

/// Who makes the sound, as the user has chosen it.
struct ChosenMakerTest : testing::Test {
  Program p;

  std::string& Stored(const char* key) { return p.desktop.settings.Main(key); }
  void SetUp() override {
    Stored("Manner") = "1";
    p.desktop.voices = {{{"en", "en", "English"}, {"de", "de", "German"}}, {}};
  }
  std::string Tags(const std::string& words) {
    p.desktop.speech.calls.clear();
    p.Service()->Say(words, false);
    return p.desktop.speech.Spoken().at(0);
  }
};

TEST_F(ChosenMakerTest, WithoutAChoiceTheBuiltInOneIsAskedFor) {
  p.StartTalking();
  EXPECT_EQ(p.desktop.asked_maker, SpeechMaker::BuiltIn);
}

TEST_F(ChosenMakerTest, TheStoredOneIsAskedForAtTheStart) {
  Stored("SpeechOutput") = "dispatcher";
  p.StartTalking();
  EXPECT_EQ(p.desktop.asked_maker, SpeechMaker::SpeechDispatcher);
}

TEST_F(ChosenMakerTest, ItIsTriedAsItIsChosenAndTakenBackWithTheRest) {
  p.StartTalking();
  OwnOptions& page = p.desktop.option_pages.at("Spe&ech");
  std::vector<std::string> values;
  std::size_t output = 0;
  for (const OwnOption& option : page.list()) {
    if (option.label == "Output") output = values.size();
    values.push_back(option.value);
  }
  EXPECT_EQ(values[output], "built in");
  values[output] = "Speech Dispatcher";
  EXPECT_EQ(page.try_out(values, output).language, language::kOfAPage);
  EXPECT_EQ(p.desktop.asked_maker, SpeechMaker::SpeechDispatcher);
  page.take_back();
  EXPECT_EQ(p.desktop.asked_maker, SpeechMaker::BuiltIn);
  page.list();
  page.apply(values);
  EXPECT_EQ(p.desktop.asked_maker, SpeechMaker::SpeechDispatcher);
  EXPECT_EQ(Stored("SpeechOutput"), "dispatcher");
}

TEST_F(ChosenMakerTest, ItsVoicesAreChosenForThemselves) {
  Stored("SpeechOutput") = "dispatcher";
  Stored("LanguageVoices") = "de:page:de+Annie:German_2bAdam";
  p.StartTalking();
  const std::string words = language::Marked("Haus", "de");
  EXPECT_EQ(Tags(words), "\\Pit=90\\\\Spd=150\\\\Lng=de\\\\Vce=de+Annie\\Haus");
  p.desktop.maker = SpeechMaker::SpeechDispatcher;
  p.desktop.voices = {{{"English", "en", "English"},
                       {"German", "de", "German"},
                       {"German_2bAdam", "de", "German+Adam"}},
                      {}};
  EXPECT_EQ(Tags(words), "\\Pit=90\\\\Spd=150\\\\Lng=de\\\\Vce=German_2bAdam\\Haus");
  OwnOptions& page = p.desktop.option_pages.at("Spe&ech");
  std::vector<std::string> values;
  for (const OwnOption& option : page.list()) values.push_back(option.value);
  const auto at = [&](const char* value) {
    return static_cast<std::size_t>(std::find(values.begin(), values.end(), value) -
                                    values.begin());
  };
  const std::size_t language = at("English");
  values[language] = "German";
  const auto options = page.try_out(values, language).options;
  EXPECT_EQ(options[language + 2].value, "German+Adam");
  values.clear();
  for (const OwnOption& option : options) values.push_back(option.value);
  values[language + 2] = "German";
  page.apply(values);
  EXPECT_EQ(Stored("LanguageVoices"), "de:page:de+Annie:German");
}

TEST_F(ChosenMakerTest, ThatItIsLostIsSaidBehindTheWordsThatGoOn) {
  p.StartTalking();
  p.desktop.speech.calls.clear();
  p.Service()->Say("words", false);
  p.desktop.SpeechMakerLost.Raise(SpeechMaker::SpeechDispatcher);
  EXPECT_THAT(p.desktop.speech.calls.back(), testing::EndsWith(kLost));
  EXPECT_THAT(p.Spoken(), ElementsAre("words", std::string("\\Vce=+f4\\") + kLost));
}

TEST_F(ChosenMakerTest, WhoCutsThatOffHearsItAgainButNotForEver) {
  p.StartTalking();
  p.Spoken();
  p.desktop.SpeechMakerLost.Raise(SpeechMaker::SpeechDispatcher);
  int times = 0;
  for (int i = 0; i < 10; ++i) {
    p.Service()->Say("key", false);
    p.desktop.speech.agent->CompleteLast();
    for (const std::string& text : p.Spoken()) times += text.ends_with(kLost) ? 1 : 0;
  }
  EXPECT_EQ(times, 4);
}

TEST_F(ChosenMakerTest, WhoseSpeechIsOffIsToldNothing) {
  Stored("Speech") = "False";
  p.Start();
  p.desktop.SpeechMakerLost.Raise(SpeechMaker::SpeechDispatcher);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_THAT(p.desktop.speech.calls, IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
