#include "platform/linux/speech/speech_output.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "base/error.h"
#include "platform/linux/speech/espeak_synthesizer.h"
#include "platform/linux/speech/recording_synthesizer.h"
#include "platform/linux/speech/silent_output.h"
#include "tests/platform/speech/loop_wait.h"
#include "tests/platform/speech/recording_audio.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::size_t kSamplesPerCharacter = 100;

Utterance Plain(const std::string& text) {
  Utterance utterance;
  utterance.text = text;
  return utterance;
}

class SpeechOutputTest : public testing::Test {
 protected:
  SpeechOutputTest() { Make(); }

  void Make(const std::string& transcript = "") {
    speech_.reset();
    speech_ = std::make_unique<SpeechOutput>(
        [this] { return std::make_unique<RecordingSynthesizer>(spoken_, kSamplesPerCharacter); },
        [this](const Notice&) { return std::make_unique<RecordingAudio>(audio_); }, transcript);
  }

  /// Speaks and notes the end as "text spoken" or "text cut".
  int Speak(const std::string& text) {
    return speech_->Speak(
        Plain(text), [this, text] { events_.push_back(text + " begun"); },
        [this, text](SpeechEnd end) {
          events_.push_back(text + (end == SpeechEnd::kSpoken ? " spoken" : " cut"));
        });
  }

  bool WaitForEvents(std::size_t count) {
    return RunLoopUntil([&] { return events_.size() >= count; });
  }

  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& entry : spoken_->Entries()) texts.push_back(entry.text);
    return texts;
  }

  /// The transcript as "event id", in order.
  static std::vector<std::string> Recorded(const std::string& file) {
    std::vector<std::string> events;
    std::istringstream stream(test::ContentOf(file));
    for (std::string line; std::getline(stream, line);) {
      const auto json = nlohmann::json::parse(line);
      events.push_back(json["event"].get<std::string>() + " " + json["id"].dump());
    }
    return events;
  }

  test::TemporaryFolder folder_;
  std::shared_ptr<SynthesisRecord> spoken_ = std::make_shared<SynthesisRecord>();
  std::shared_ptr<AudioRecord> audio_ = std::make_shared<AudioRecord>();
  std::vector<std::string> events_;
  std::unique_ptr<SpeechOutput> speech_;
};

TEST_F(SpeechOutputTest, SpeaksOneTextAfterTheOtherAndReportsFromTheLoop) {
  Speak("one");
  Speak("three");
  EXPECT_THAT(events_, IsEmpty());
  ASSERT_TRUE(WaitForEvents(4));
  EXPECT_THAT(events_, ElementsAre("one begun", "one spoken", "three begun", "three spoken"));
  EXPECT_THAT(Texts(), ElementsAre("one", "three"));
  EXPECT_EQ(audio_->Count(), 8 * kSamplesPerCharacter);
}

TEST_F(SpeechOutputTest, RequestsCountUpward) {
  const int first = Speak("a");
  EXPECT_GT(first, 0);
  EXPECT_EQ(speech_->NextRequest(), first + 1);
  EXPECT_EQ(Speak("b"), first + 2);
}

TEST_F(SpeechOutputTest, StyleReachesTheSynthesizerWithTheCharactersOwnAdded) {
  Utterance utterance = Plain("x");
  utterance.pitch = 110;
  utterance.speed = 200;
  utterance.voice = "en-gb";
  utterance.pitch_shift = -20;
  utterance.speed_shift = 10;
  bool done = false;
  speech_->Speak(utterance, nullptr, [&](SpeechEnd) { done = true; });
  ASSERT_TRUE(RunLoopUntil([&] { return done; }));
  const auto entries = spoken_->Entries();
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].style.voice, "en-gb");
  EXPECT_EQ(entries[0].style.pitch, 90);
  EXPECT_EQ(entries[0].style.speed, 210);
}

TEST_F(SpeechOutputTest, EachPartReachesTheSynthesizerWithItsLanguage) {
  Utterance utterance = Plain("link, Preise");
  utterance.runs = {{"link, ", ""}, {"Preise", "de"}};
  bool done = false;
  speech_->Speak(utterance, nullptr, [&](SpeechEnd) { done = true; });
  ASSERT_TRUE(RunLoopUntil([&] { return done; }));
  EXPECT_THAT(Texts(), ElementsAre("link, ", "Preise"));
  EXPECT_EQ(spoken_->Entries()[0].style.language, "");
  EXPECT_EQ(spoken_->Entries()[1].style.language, "de");
}

TEST_F(SpeechOutputTest, WhatIsCutSaysNoOtherPart) {
  Utterance utterance = Plain("many words, Preise");
  utterance.runs = {{std::string(100'000, 'a'), ""}, {"Preise", "de"}};
  bool done = false;
  speech_->Speak(
      utterance, [&] { speech_->Stop(); }, [&](SpeechEnd) { done = true; });
  ASSERT_TRUE(RunLoopUntil([&] { return done; }));
  speech_.reset();
  EXPECT_EQ(Texts().size(), 1U);
}

TEST_F(SpeechOutputTest, StopCutsEverythingAndNothingMoreIsWritten) {
  audio_->SetRoom(50);
  Speak("long text");
  Speak("waiting");
  ASSERT_TRUE(WaitForEvents(1));
  EXPECT_THAT(events_, ElementsAre("long text begun"));
  speech_->Stop();
  EXPECT_EQ(events_.size(), 1U) << "reported from inside Stop";
  ASSERT_TRUE(WaitForEvents(3));
  EXPECT_THAT(events_, ElementsAre("long text begun", "long text cut", "waiting cut"));
  EXPECT_EQ(audio_->Stops(), 1);

  audio_->SetRoom(static_cast<std::size_t>(-1));
  Speak("b");
  ASSERT_TRUE(WaitForEvents(5));
  EXPECT_EQ(events_.back(), "b spoken");
  EXPECT_EQ(audio_->Count(), 50 + kSamplesPerCharacter);
  EXPECT_THAT(Texts(), ElementsAre("long text", "b"));
}

TEST_F(SpeechOutputTest, NoStopEverLetsAStaleSampleThrough) {
  for (int round = 0; round < 300; ++round) {
    events_.clear();
    audio_->SetRoom(150);
    Speak("stale text");
    if (round % 3 == 0) {
      ASSERT_TRUE(WaitForEvents(1));
    } else if (round % 3 == 1) {
      std::this_thread::yield();
    }
    speech_->Stop();
    const std::size_t after_stop = audio_->Count();
    ASSERT_TRUE(
        RunLoopUntil([&] { return !events_.empty() && events_.back() == "stale text cut"; }));
    audio_->SetRoom(static_cast<std::size_t>(-1));
    Speak("n");
    ASSERT_TRUE(RunLoopUntil([&] { return events_.back() == "n spoken"; }));
    ASSERT_EQ(audio_->Count(), after_stop + kSamplesPerCharacter) << "round " << round;
  }
}

TEST_F(SpeechOutputTest, StopWithNothingToSayLeavesTheDeviceAlone) {
  speech_->Stop();
  EXPECT_EQ(audio_->Stops(), 0);
}

TEST_F(SpeechOutputTest, StopLeavesWhatIsKeptWhetherItIsSpokenOrWaits) {
  audio_->SetRoom(10);
  const int spoken = Speak("Save this file?");
  ASSERT_TRUE(WaitForEvents(1));
  Speak("page text");
  const int waiting = Speak("welcome");
  speech_->Stop({spoken, waiting});
  EXPECT_EQ(audio_->Stops(), 0);
  speech_->Stop({spoken, waiting, 999});
  audio_->SetRoom(static_cast<std::size_t>(-1));
  ASSERT_TRUE(RunLoopUntil([&] { return !events_.empty() && events_.back() == "welcome spoken"; }));
  EXPECT_THAT(Texts(), ElementsAre("Save this file?", "welcome"));
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "page text cut"), 1);
}

TEST_F(SpeechOutputTest, StopCutsOffWhatIsSpokenBeforeWhatIsKept) {
  audio_->SetRoom(10);
  Speak("page text");
  ASSERT_TRUE(WaitForEvents(1));
  const int kept = Speak("kept");
  speech_->Stop({kept});
  audio_->SetRoom(static_cast<std::size_t>(-1));
  ASSERT_TRUE(RunLoopUntil([&] { return !events_.empty() && events_.back() == "kept spoken"; }));
  EXPECT_THAT(events_,
              ElementsAre("page text begun", "page text cut", "kept begun", "kept spoken"));
}

TEST_F(SpeechOutputTest, TranscriptHasEveryRequestInItsOrder) {
  const std::string file = folder_ / "spoken.jsonl";
  Make(file);
  const int first = Speak("one");
  const int second = Speak("two");
  ASSERT_TRUE(WaitForEvents(4));
  audio_->SetRoom(10);
  const int third = Speak("three");
  const int fourth = Speak("four");
  ASSERT_TRUE(WaitForEvents(5));
  speech_->Stop();
  std::vector<std::string> of_two;
  std::vector<std::string> all = Recorded(file);
  const auto line = [](const char* event, int id) { return event + (" " + std::to_string(id)); };
  for (const int id : {first, second}) {
    const auto at = [&](const char* event) {
      return std::find(all.begin(), all.end(), line(event, id)) - all.begin();
    };
    EXPECT_LT(at("speak"), at("begin"));
    EXPECT_LT(at("begin"), at("end"));
    EXPECT_LT(at("end"), std::ssize(all));
  }
  const std::vector<std::string> tail(all.end() - 5, all.end());
  EXPECT_THAT(tail, ElementsAre(line("speak", third), testing::_, testing::_, line("cut", third),
                                line("cut", fourth)));
  EXPECT_THAT(tail, testing::Contains(line("begin", third)));
}

TEST_F(SpeechOutputTest, ATranscriptThatCannotBeOpenedIsANotice) {
  std::vector<std::string> notices;
  Make(folder_ / "missing/spoken.jsonl");
  const auto connection =
      speech_->Notified.Connect([&](const std::string& text) { notices.push_back(text); });
  Speak("x");
  ASSERT_TRUE(WaitForEvents(2));
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_THAT(notices[0], HasSubstr("missing/spoken.jsonl"));
}

TEST_F(SpeechOutputTest, WithoutASynthesizerSpeechGoesOnSilentlyAndSaysSo) {
  speech_.reset();
  speech_ = std::make_unique<SpeechOutput>(
      []() -> std::unique_ptr<Synthesizer> { throw RunTimeError(kErrDeviceIo, "", "No voice."); },
      [this](const Notice&) { return std::make_unique<RecordingAudio>(audio_); });
  std::vector<std::string> notices;
  const auto connection =
      speech_->Notified.Connect([&](const std::string& text) { notices.push_back(text); });
  Speak("word");
  ASSERT_TRUE(WaitForEvents(2));
  EXPECT_EQ(events_.back(), "word spoken");
  EXPECT_THAT(notices, ElementsAre("No voice."));
  EXPECT_GT(audio_->Count(), 0U);
  EXPECT_THAT(audio_->samples, testing::Each(0));
}

TEST_F(SpeechOutputTest, WithoutAnOutputSpeechGoesOnSilentlyAndSaysSo) {
  speech_.reset();
  speech_ = std::make_unique<SpeechOutput>(
      [this] { return std::make_unique<RecordingSynthesizer>(spoken_, kSamplesPerCharacter); },
      [](const Notice&) -> std::unique_ptr<AudioOutput> {
        throw RunTimeError(kErrPermissionDenied, "", "No file.");
      });
  std::vector<std::string> notices;
  const auto connection =
      speech_->Notified.Connect([&](const std::string& text) { notices.push_back(text); });
  Speak("word");
  ASSERT_TRUE(WaitForEvents(2));
  EXPECT_EQ(events_.back(), "word spoken");
  EXPECT_THAT(notices, ElementsAre(HasSubstr("No file.")));
}

TEST_F(SpeechOutputTest, TheQueueIsBoundedAndCutsTheOldest) {
  audio_->SetRoom(10);
  Speak("held");
  ASSERT_TRUE(WaitForEvents(1));
  for (std::size_t i = 0; i < SpeechOutput::kMostWaiting; ++i) Speak("x" + std::to_string(i));
  RunPending();
  EXPECT_EQ(events_.size(), 1U);
  Speak("one more");
  ASSERT_TRUE(WaitForEvents(2));
  EXPECT_EQ(events_.back(), "x0 cut");
}

TEST_F(SpeechOutputTest, AnEmptyTextIsSpokenAtOnceWithoutSound) {
  Speak("");
  ASSERT_TRUE(WaitForEvents(1));
  EXPECT_THAT(events_, ElementsAre(" spoken"));
  EXPECT_EQ(audio_->Count(), 0U);
}

TEST_F(SpeechOutputTest, GoingWhileSpeakingReportsNothingAndWritesTheCut) {
  const std::string file = folder_ / "spoken.jsonl";
  Make(file);
  audio_->SetRoom(10);
  const int id = Speak("long text");
  ASSERT_TRUE(WaitForEvents(1));
  speech_.reset();
  RunPending();
  EXPECT_THAT(events_, ElementsAre("long text begun"));
  EXPECT_EQ(Recorded(file).back(), "cut " + std::to_string(id));
}

TEST_F(SpeechOutputTest, MayGoInsideAReport) {
  bool ended = false;
  speech_->Speak(Plain("x"), nullptr, [&](SpeechEnd) {
    speech_.reset();
    ended = true;
  });
  ASSERT_TRUE(RunLoopUntil([&] { return ended; }));
  EXPECT_EQ(speech_, nullptr);
}

TEST(SpeechFlood, EveryRequestEndsOnceAndNothingIsKept) {
  SpeechOutput speech([] { return std::make_unique<EspeakSynthesizer>(); },
                      [](const Notice&) { return std::make_unique<SilentOutput>(); });
  constexpr int kRequests = 20'000;
  const auto kept = std::make_shared<int>(0);
  int spoken = 0;
  int ended = 0;
  for (int i = 0; i < kRequests; ++i) {
    speech.Stop();
    speech.Speak(
        Plain("Key number " + std::to_string(i)), [kept] {},
        [&, kept](SpeechEnd end) {
          ++ended;
          if (end == SpeechEnd::kSpoken) ++spoken;
        });
    if (i % 50 == 0) RunPending();
  }
  ASSERT_TRUE(RunLoopUntil([&] { return ended == kRequests; }));
  EXPECT_GE(spoken, 1);
  bool last = false;
  speech.Speak(Plain("a"), nullptr, [&](SpeechEnd) { last = true; });
  ASSERT_TRUE(RunLoopUntil([&] { return last; }));
  EXPECT_EQ(kept.use_count(), 1);
}

TEST(SpeechOfAMegabyte, BeginsAtOnceAndStopsAtOnce) {
  SpeechOutput speech([] { return std::make_unique<EspeakSynthesizer>(); },
                      [](const Notice&) { return std::make_unique<SilentOutput>(); });
  std::string text;
  while (text.size() < 1'000'000) text += "A sentence of a very long page. ";
  bool begun = false;
  bool cut = false;
  bool after = false;
  speech.Speak(
      Plain(text), [&] { begun = true; }, [&](SpeechEnd end) { cut = end == SpeechEnd::kCut; });
  ASSERT_TRUE(RunLoopUntil([&] { return begun; }));
  speech.Stop();
  speech.Speak(Plain("b"), nullptr, [&](SpeechEnd) { after = true; });
  // Spoken to its end the text would take nine hours: what follows comes only after a cut.
  ASSERT_TRUE(RunLoopUntil([&] { return after; }));
  EXPECT_TRUE(cut);
}

}  // namespace
}  // namespace corvane::desktop
