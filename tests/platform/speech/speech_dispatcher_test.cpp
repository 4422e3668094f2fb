#include "platform/linux/speech/speech_dispatcher.h"

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "platform/linux/speech/recording_synthesizer.h"
#include "platform/linux/speech/silent_output.h"
#include "platform/linux/speech/speech_output.h"
#include "platform/linux/speech/ssip_words.h"
#include "tests/platform/speech/loop_wait.h"
#include "tests/platform/speech/private_speech_server.h"
#include "tests/platform/speech/recording_audio.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kLong =
    "One little word after another goes by. Nobody knows how many more there will be until the "
    "very last of them has been said aloud.";

Utterance Plain(const std::string& text) {
  Utterance utterance;
  utterance.text = text;
  return utterance;
}

/// Speech with a server, and a synthesizer that records what is left to it.
class ServerSpeech : public testing::Test {
 protected:
  void Make() {
    speech_ = std::make_unique<SpeechOutput>(
        [this] { return std::make_unique<RecordingSynthesizer>(own_, 100); },
        [this](const Notice&) { return std::make_unique<RecordingAudio>(audio_); },
        folder_ / "transcript");
    states_connection_ =
        speech_->ServerIs.Connect([this](SpeechServer::State state) { states_.push_back(state); });
  }
  void Use(const DispatcherPlace& place) {
    speech_->SpeakThrough(std::make_unique<SpeechDispatcher>(place));
  }
  void Speak(const Utterance& utterance) {
    const std::string text = utterance.text;
    speech_->Speak(
        utterance, [this, text] { events_.push_back(text + " begun"); },
        [this, text](SpeechEnd end) {
          events_.push_back(text + (end == SpeechEnd::kSpoken ? " spoken" : " cut"));
        });
  }
  bool WaitForEvents(std::size_t count) {
    return RunLoopUntil([&] { return events_.size() >= count; });
  }
  bool WaitForState(SpeechServer::State state) {
    return RunLoopUntil([&] { return !states_.empty() && states_.back() == state; });
  }
  std::vector<std::string> SaidByOwn() const {
    std::vector<std::string> texts;
    for (const auto& entry : own_->Entries()) texts.push_back(entry.text);
    return texts;
  }
  /// The first line of the transcript with an event.
  nlohmann::json Line(const std::string& event) const {
    std::istringstream stream(test::ContentOf(folder_ / "transcript"));
    for (std::string line; std::getline(stream, line);) {
      auto json = nlohmann::json::parse(line);
      if (json["event"] == event) return json;
    }
    return {};
  }

  test::TemporaryFolder folder_;
  std::shared_ptr<SynthesisRecord> own_ = std::make_shared<SynthesisRecord>();
  std::shared_ptr<AudioRecord> audio_ = std::make_shared<AudioRecord>();
  std::vector<std::string> events_;
  std::vector<SpeechServer::State> states_;
  std::unique_ptr<SpeechOutput> speech_;
  Connection states_connection_;
};

class RealServer : public ServerSpeech {
 protected:
  void SetUp() override {
    if (!server_.Start()) GTEST_SKIP() << "Speech Dispatcher does not run here";
    Make();
    Use(Place());
    ASSERT_TRUE(WaitForState(SpeechServer::State::kReady));
  }
  DispatcherPlace Place() const { return {server_.Socket(), ""}; }
  /// Waits until the server is some words into its text.
  void WaitForWords() {
    ASSERT_TRUE(WaitForEvents(1));
    const auto since = std::chrono::steady_clock::now();
    RunLoopUntil(
        [&] { return std::chrono::steady_clock::now() - since > std::chrono::seconds(2); });
  }
  /// The synthesizer has said the end of the text from the beginning of a word on.
  void ExpectTheRest(const std::string& text) {
    ASSERT_EQ(SaidByOwn().size(), 1U);
    const std::string rest = SaidByOwn()[0];
    EXPECT_TRUE(text.ends_with(" " + rest)) << rest;
    EXPECT_EQ(Line("rest")["text"], rest);
    EXPECT_THAT(events_, ElementsAre(text + " begun", text + " spoken"));
    EXPECT_EQ(states_.back(), SpeechServer::State::kLost);
  }

  PrivateSpeechServer server_;
};

TEST_F(RealServer, SpeaksAndTellsBeginAndEnd) {
  Speak(Plain("Hello <there> & hello"));
  Speak(Plain("again."));
  ASSERT_TRUE(WaitForEvents(4));
  EXPECT_THAT(events_, ElementsAre("Hello <there> & hello begun", "Hello <there> & hello spoken",
                                   "again. begun", "again. spoken"));
  EXPECT_THAT(SaidByOwn(), IsEmpty());
  EXPECT_EQ(Line("begin")["by"], "server");
  EXPECT_EQ(audio_->Count(), 0U);
}

TEST_F(RealServer, AnyTextComesToItsEnd) {
  const std::vector<std::string> texts = {" ",    "",  ",", ".",   "\r\n.\r\n", "\x01\x02",
                                          "\xff", "a", "7", "...", "</speak>",  "日本語 Москва"};
  for (const auto& text : texts) Speak(Plain(text));
  Speak(Plain("end"));
  ASSERT_TRUE(RunLoopUntil([&] { return !events_.empty() && events_.back() == "end spoken"; }));
  EXPECT_THAT(SaidByOwn(), IsEmpty());
  for (const auto& text : texts) {
    EXPECT_EQ(std::count(events_.begin(), events_.end(), text + " spoken"), 1) << text;
  }
}

TEST_F(RealServer, IsSilentAtOnceAndSpeaksTheNextText) {
  Speak(Plain(kLong));
  ASSERT_TRUE(WaitForEvents(1));
  speech_->Stop();
  Speak(Plain("next"));
  ASSERT_TRUE(WaitForEvents(4));
  EXPECT_THAT(events_, ElementsAre(std::string(kLong) + " begun", std::string(kLong) + " cut",
                                   "next begun", "next spoken"));
}

TEST_F(RealServer, ManyCutsInQuickSuccessionLoseNothing) {
  for (int i = 0; i < 40; ++i) {
    Speak(Plain("number " + std::to_string(i)));
    speech_->Stop();
  }
  Speak(Plain("the last one"));
  ASSERT_TRUE(
      RunLoopUntil([&] { return !events_.empty() && events_.back() == "the last one spoken"; }));
  EXPECT_THAT(SaidByOwn(), IsEmpty());
  EXPECT_EQ(states_.size(), 1U);
}

TEST_F(RealServer, GoesOnInItsOwnVoiceWithTheVeryWordsWhenTheServerIsKilled) {
  Speak(Plain(kLong));
  WaitForWords();
  server_.Kill();
  ASSERT_TRUE(WaitForEvents(2));
  ExpectTheRest(kLong);
  EXPECT_FALSE(std::string(kLong).starts_with(SaidByOwn()[0]));
  Speak(Plain("afterwards"));
  ASSERT_TRUE(WaitForEvents(4));
  EXPECT_THAT(SaidByOwn(), testing::Contains("afterwards"));
}

TEST_F(RealServer, GoesOnInItsOwnVoiceWhenTheServerHangs) {
  Speak(Plain(kLong));
  WaitForWords();
  server_.Hang();
  ASSERT_TRUE(WaitForEvents(2));
  ExpectTheRest(kLong);
}

TEST_F(RealServer, ServesAgainWhenItIsChosenAgain) {
  server_.Kill();
  Speak(Plain("alone"));
  ASSERT_TRUE(WaitForState(SpeechServer::State::kLost));
  ASSERT_TRUE(WaitForEvents(2));
  EXPECT_THAT(SaidByOwn(), ElementsAre("alone"));
  ASSERT_TRUE(server_.Start());
  Use(Place());
  ASSERT_TRUE(WaitForState(SpeechServer::State::kReady));
  Speak(Plain("together"));
  ASSERT_TRUE(WaitForEvents(4));
  EXPECT_THAT(SaidByOwn(), ElementsAre("alone"));
}

TEST_F(RealServer, EachLanguageHasItsVoices) {
  const InstalledVoices voices = DispatcherVoices(server_.Socket());
  const auto german = std::find_if(voices.voices.begin(), voices.voices.end(),
                                   [](const auto& voice) { return voice.language == "de"; });
  ASSERT_NE(german, voices.voices.end());
  EXPECT_EQ(german->label, "German");
  EXPECT_GT(voices.voices.size(), 100U);
  const auto american =
      std::find_if(voices.voices.begin(), voices.voices.end(),
                   [](const auto& voice) { return voice.label == "English (America)"; });
  ASSERT_NE(american, voices.voices.end());
  EXPECT_EQ(SsipNameOf(american->name), "English (America)");
}

TEST_F(RealServer, SoundsInTheLanguageSpeedAndVolumeOfTheWords) {
  std::mutex mutex;
  std::size_t loud = 0;
  SinkListener listener(server_.Sound().Address(), [&](const std::vector<std::int16_t>& samples) {
    const std::lock_guard lock(mutex);
    for (const int sample : samples) loud += std::abs(sample) > 300 ? 1 : 0;
  });
  ASSERT_TRUE(listener.WaitReady());
  const auto heard = [&](const Utterance& utterance) {
    const std::size_t events = events_.size();
    {
      const std::lock_guard lock(mutex);
      loud = 0;
    }
    Speak(utterance);
    EXPECT_TRUE(WaitForEvents(events + 2));
    const std::lock_guard lock(mutex);
    return loud;
  };
  Utterance utterance = Plain("Wir gehen heute nach Hause und morgen wieder fort.");
  utterance.runs = {{utterance.text}};
  const auto english = static_cast<double>(heard(utterance));
  utterance.runs = {{utterance.text, "de"}};
  const auto german = static_cast<double>(heard(utterance));
  EXPECT_GT(std::abs(english - german), 0.02 * german);
  utterance.speed = 400;
  EXPECT_LT(static_cast<double>(heard(utterance)), german / 2);
  utterance.speed = 150;
  utterance.manner.volume = 10;
  EXPECT_LT(static_cast<double>(heard(utterance)), german * 0.9);
}

TEST_F(ServerSpeech, AServerThatIsMissingIsToldAndItsWordsAreSaid) {
  Make();
  Use({folder_ / "nowhere", folder_ / "no-program"});
  Speak(Plain("Hello"));
  ASSERT_TRUE(WaitForState(SpeechServer::State::kLost));
  ASSERT_TRUE(WaitForEvents(2));
  EXPECT_THAT(SaidByOwn(), ElementsAre("Hello"));
  EXPECT_EQ(states_.size(), 1U);
}

TEST_F(ServerSpeech, AServerThatNeverAnswersIsGivenUp) {
  Make();
  const std::string path = folder_ / "deaf";
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  const Descriptor deaf(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  ASSERT_EQ(bind(deaf.Number(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(listen(deaf.Number(), 5), 0);
  Use({path, ""});
  Speak(Plain("Hello"));
  ASSERT_TRUE(WaitForEvents(2));
  EXPECT_THAT(SaidByOwn(), ElementsAre("Hello"));
  EXPECT_THAT(states_, ElementsAre(SpeechServer::State::kLost));
}

TEST_F(ServerSpeech, AServerThatIsNotThereYetIsStartedAndSpeaksFromThenOn) {
  PrivateSpeechServer server;
  const std::string starter = server.Starter();
  if (starter.empty()) GTEST_SKIP() << "There is no sound server here";
  Make();
  Use({server.Socket(), starter});
  Speak(Plain("first"));
  ASSERT_TRUE(WaitForEvents(2));
  EXPECT_THAT(SaidByOwn(), ElementsAre("first"));
  ASSERT_TRUE(WaitForState(SpeechServer::State::kReady));
  Speak(Plain("second"));
  ASSERT_TRUE(WaitForEvents(4));
  EXPECT_THAT(SaidByOwn(), ElementsAre("first"));
  EXPECT_THAT(states_, ElementsAre(SpeechServer::State::kReady));
}

TEST(SsipWords, EachWordButTheFirstHasAMark) {
  EXPECT_EQ(SsipText("a <b>  c"),
            "<speak>a <mark name=\"2\"/>&lt;b&gt;  <mark name=\"7\"/>c</speak>");
  EXPECT_EQ(SsipText(""), "<speak></speak>");
}

TEST(SsipWords, AVoicesNameCanBeASetting) {
  EXPECT_EQ(VoiceNameOf("English (America)+Ann"), "English_20_28America_29_2bAnn");
  EXPECT_EQ(SsipNameOf("English_20_28America_29_2bAnn"), "English (America)+Ann");
  EXPECT_EQ(SsipNameOf("x_0aQUIT"), "");
  EXPECT_EQ(SsipNameOf("x_2"), "");
}

TEST(SsipWords, WhoAsksForAVariantIsHeardAtAPitchOfItsOwn) {
  const auto pitch = [](const std::string& chosen) {
    return SsipSettings({.voice = "en", .pitch = 90, .speed = 150, .chosen = chosen}, "a")[3].value;
  };
  EXPECT_EQ(pitch(""), "0");
  EXPECT_EQ(pitch("German"), "0");
  EXPECT_EQ(pitch("+f4"), "40");
}

}  // namespace
}  // namespace corvane::desktop
