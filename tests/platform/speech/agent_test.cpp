#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "base/error.h"
#include "platform/linux/speech/linux_voice.h"
#include "tests/platform/speech/agent_fixture.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class AgentTest : public AgentFixture {};

TEST_F(AgentTest, LoadCompletesFromTheLoop) {
  const AgentRequest load = agent_->Load("Genie", file_);
  EXPECT_GT(load.id, 0);
  EXPECT_THAT(completed_, IsEmpty());
  ASSERT_TRUE(WaitFor(load));
  EXPECT_THAT(completed_, ElementsAre(load.id));
}

TEST_F(AgentTest, AMissingFileIsAnErrorForTheUser) {
  try {
    agent_->Load("Genie", folder_ / "talker.acf");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_THAT(error.Description(), HasSubstr("not found"));
  }
  RunPending();
  EXPECT_THAT(completed_, IsEmpty());
  EXPECT_THROW(agent_->Character("Genie"), RunTimeError);
}

TEST_F(AgentTest, OnlyTheLoadedCharacterIsThere) {
  EXPECT_THROW(agent_->Character("Genie"), RunTimeError);
  LoadGenie();
  EXPECT_THROW(agent_->Character("Robot"), RunTimeError);
  EXPECT_NE(agent_->Character("Genie"), nullptr);
}

TEST_F(AgentTest, WordsInALanguageHaveTheVoiceThatTheFileNamesForIt) {
  file_ = folder_.Write("talker.acf",
                        "Corvane character 1\n[Character]\nName=Genie\nVoice=en-gb\n"
                        "[Languages]\nde=de+Annie\n");
  const auto character = LoadGenie();
  ASSERT_TRUE(WaitFor(
      character->Speak("One \\Lng=de-at\\zwei \\Vce=de+f2\\drei \\Vce=\\\\Lng=fr\\quatre", false)));
  std::vector<std::string> chosen;
  for (const auto& entry : spoken_->Entries()) chosen.push_back(entry.style.chosen);
  EXPECT_THAT(chosen, ElementsAre("", "de+Annie", "de+f2", ""));
}

TEST_F(AgentTest, LoadShowAndWelcomeFollowEachOther) {
  // As the speaking form uses it: each completion makes the next request.
  std::vector<int> requests;
  std::vector<std::string> chain;
  const auto step = agent_->RequestComplete.Connect([&](const AgentRequest& request, RequestEnd) {
    if (request.id == requests.back() && chain.size() == 1) {
      chain.push_back("show");
      requests.push_back(agent_->Character("Genie")->Show().id);
    } else if (request.id == requests.back() && chain.size() == 2) {
      chain.push_back("welcome");
      requests.push_back(agent_->Character("Genie")->Speak("Hello").id);
    } else if (request.id == requests.back()) {
      chain.push_back("ready");
    }
  });
  chain.push_back("load");
  requests.push_back(agent_->Load("Genie", file_).id);
  ASSERT_TRUE(RunLoopUntil([&] { return chain.back() == "ready"; }));
  EXPECT_THAT(chain, ElementsAre("load", "show", "welcome", "ready"));
  EXPECT_EQ(completed_, requests);
  EXPECT_EQ(audio_->Count(), 500U) << "completed before the welcome was spoken";
}

TEST_F(AgentTest, ShowWithoutADisplayCompletesAndSpeechGoesOn) {
  const auto genie = LoadGenie();
  ASSERT_TRUE(WaitFor(genie->Show()));
  ASSERT_TRUE(WaitFor(genie->Speak("Hello")));
  EXPECT_THAT(cut_, IsEmpty()) << "what is spoken to its end is no cut";
}

TEST_F(AgentTest, TagsSetPitchAndSpeedAndAreNotSpoken) {
  const auto genie = LoadGenie();
  ASSERT_TRUE(WaitFor(genie->Speak("\\Pit=110\\\\Spd=200\\Hello", true)));
  const auto entries = spoken_->Entries();
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].text, "Hello");
  EXPECT_EQ(entries[0].style.pitch, 110);
  EXPECT_EQ(entries[0].style.speed, 200);
  EXPECT_EQ(entries[0].style.voice, "en-gb");
}

TEST_F(AgentTest, TranscriptHasTheRequestsNumberAndWhatWasAsked) {
  const auto genie = LoadGenie();
  const AgentRequest first = genie->Speak("\\Pit=110\\\\Spd=200\\One", true);
  const AgentRequest second = genie->Speak("\\Pit=\\\\Spd=\\Two");
  ASSERT_TRUE(WaitFor(second));
  std::vector<nlohmann::json> speak;
  std::istringstream lines(test::ContentOf(transcript_));
  for (std::string line; std::getline(lines, line);) {
    auto json = nlohmann::json::parse(line);
    if (json["event"] == "speak") speak.push_back(std::move(json));
  }
  ASSERT_EQ(speak.size(), 2U);
  EXPECT_EQ(speak[0]["id"], first.id);
  EXPECT_EQ(speak[0]["text"], "One");
  EXPECT_EQ(speak[0]["pitch"], 110);
  EXPECT_EQ(speak[0]["speed"], 200);
  EXPECT_EQ(speak[0]["urgent"], true);
  EXPECT_EQ(speak[1]["id"], second.id);
  EXPECT_EQ(speak[1]["pitch"], kPitchDefault);
  EXPECT_EQ(speak[1]["speed"], kSpeedDefault);
  EXPECT_EQ(speak[1]["urgent"], false);
}

TEST_F(AgentTest, StopSpeakCompletesEveryRequestInItsOrder) {
  const auto genie = LoadGenie();
  completed_.clear();
  audio_->SetRoom(10);
  const AgentRequest first = genie->Speak("one");
  const AgentRequest second = genie->Speak("two");
  genie->StopSpeak();
  EXPECT_THAT(completed_, IsEmpty());
  ASSERT_TRUE(WaitFor(second));
  EXPECT_THAT(completed_, ElementsAre(first.id, second.id));
  EXPECT_THAT(cut_, ElementsAre(first.id, second.id));
}

TEST_F(AgentTest, VoiceSpeaksWithoutACharacterAndAfterAnother) {
  LinuxVoice voice(*speech_);
  audio_->SetRoom(10);
  const AgentRequest first = voice.Speak("\\Pit=110\\\\Spd=200\\One", true);
  const AgentRequest second = voice.Speak("Two", false);
  ASSERT_TRUE(RunLoopUntil([&] { return !spoken_->Entries().empty(); })) << "the first is begun";
  voice.StopSpeak({second});
  audio_->SetRoom(static_cast<std::size_t>(-1));
  const auto genie = LoadGenie();
  const AgentRequest third = genie->Speak("Three");
  EXPECT_LT(first.id, second.id);
  EXPECT_LT(second.id, third.id);
  ASSERT_TRUE(WaitFor(third));
  const auto entries = spoken_->Entries();
  EXPECT_EQ(entries.front().text, "One");
  EXPECT_EQ(entries.front().style.speed, 200);
  EXPECT_EQ(entries.back().text, "Three");
}

TEST_F(AgentTest, LettingGoSilencesAndACharacterThatIsKeptDoesNothing) {
  const auto genie = LoadGenie();
  audio_->SetRoom(10);
  genie->Speak("long text");
  ASSERT_TRUE(RunLoopUntil([&] { return audio_->Count() == 10; }));
  agent_.reset();
  EXPECT_TRUE(audio_->SilentEnd());
  EXPECT_EQ(genie->Speak("x").id, 0);
  EXPECT_EQ(genie->Show().id, 0);
  genie->StopSpeak();
  RunPending();
}

TEST_F(AgentTest, TheAgentMayGoWhileARequestCompletes) {
  const auto genie = LoadGenie();
  const auto gone =
      agent_->RequestComplete.Connect([&](const AgentRequest&, RequestEnd) { agent_.reset(); });
  genie->Speak("x");
  EXPECT_TRUE(RunLoopUntil([&] { return agent_ == nullptr; }));
}

TEST_F(AgentTest, LoadingAgainReplacesTheCharacter) {
  const auto old = LoadGenie();
  const auto genie = LoadGenie();
  EXPECT_NE(old, genie);
  EXPECT_EQ(old->Speak("x").id, 0);
  EXPECT_TRUE(WaitFor(genie->Speak("y")));
}

}  // namespace
}  // namespace corvane::desktop
