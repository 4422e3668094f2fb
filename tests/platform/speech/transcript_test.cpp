#include "platform/linux/speech/transcript.h"

#include <gmock/gmock.h>

#include <clocale>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "base/error.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

Utterance Asked(const std::string& text, std::vector<SpokenRun> runs = {}) {
  return {.text = text, .runs = std::move(runs)};
}

class TranscriptTest : public testing::Test {
 protected:
  test::TemporaryFolder folder_;
  std::string file_ = folder_ / "spoken.jsonl";
};

TEST_F(TranscriptTest, WritesEachLineAtOnceInItsFixedForm) {
  Transcript transcript(file_);
  transcript.Speak(3, Asked("Hello"));
  const std::string first = test::ContentOf(file_);
  EXPECT_TRUE(std::regex_match(
      first, std::regex(R"(\{"t": \d+\.\d{6}, "event": "speak", "id": 3, "text": "Hello", )"
                        R"("pitch": 90, "speed": 150, "urgent": false\}\n)")))
      << first;
  transcript.Begin(3);
  transcript.End(3);
  transcript.Cut(4);
  const auto lines = Lines(test::ContentOf(file_));
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_TRUE(
      std::regex_match(lines[1], std::regex(R"(\{"t": \d+\.\d{6}, "event": "begin", "id": 3\})")));
  EXPECT_EQ(nlohmann::json::parse(lines[2])["event"], "end");
  EXPECT_EQ(nlohmann::json::parse(lines[3])["event"], "cut");
  EXPECT_EQ(nlohmann::json::parse(lines[3])["id"], 4);
}

TEST_F(TranscriptTest, TellsTheLanguageAndWhereThereAreSeveralEachPartsOwn) {
  Transcript transcript(file_);
  transcript.Speak(1, Asked("Hello", {{"Hello", ""}}), "en");
  transcript.Speak(2, Asked("Preise", {{"Preise", "de"}}), "en");
  transcript.Speak(3, Asked("link, Preise", {{"link, ", ""}, {"Preise", "de"}}), "en");
  const auto lines = Lines(test::ContentOf(file_));
  ASSERT_EQ(lines.size(), 3U);
  const auto hello = nlohmann::json::parse(lines[0]);
  EXPECT_EQ(hello["language"], "en");
  EXPECT_FALSE(hello.contains("runs"));
  EXPECT_EQ(nlohmann::json::parse(lines[1])["language"], "de");
  const auto both = nlohmann::json::parse(lines[2]);
  EXPECT_EQ(both["language"], "en");
  EXPECT_EQ(both["runs"].dump(),
            R"([{"language":"en","text":"link, "},{"language":"de","text":"Preise"}])");
}

TEST_F(TranscriptTest, TellsTheMannerOnlyWhereItIsChosen) {
  Transcript transcript(file_);
  Utterance utterance = Asked("Done", {{"Done", "", "+f4"}});
  transcript.Speak(1, utterance, "en");
  utterance.manner = {.range = 10, .volume = 80, .punctuation = 3, .capitals = 2, .digits = true};
  utterance.sound = 2;
  transcript.Speak(2, utterance, "en");
  const auto lines = Lines(test::ContentOf(file_));
  const auto plain = nlohmann::json::parse(lines.at(0));
  EXPECT_EQ(plain["voice"], "+f4");
  EXPECT_FALSE(plain.contains("volume"));
  const auto chosen = nlohmann::json::parse(lines.at(1));
  EXPECT_EQ(chosen["range"], 10);
  EXPECT_EQ(chosen["volume"], 80);
  EXPECT_EQ(chosen["punctuation"], 3);
  EXPECT_EQ(chosen["capitals"], 2);
  EXPECT_EQ(chosen["digits"], 1);
  EXPECT_EQ(chosen["sound"], 2);
}

TEST_F(TranscriptTest, AnyTextComesBackAsItWas) {
  const std::string text = "\"quoted\" \\ back\nline\ttab \x01 \xC3\xA4 \xF0\x9F\x98\x80 </script>";
  Transcript transcript(file_);
  transcript.Speak(1, {.text = text, .pitch = 50, .speed = 250, .urgent = true});
  const auto lines = Lines(test::ContentOf(file_));
  ASSERT_EQ(lines.size(), 1U);
  const auto json = nlohmann::json::parse(lines[0]);
  EXPECT_EQ(json["text"], text);
  EXPECT_EQ(json["urgent"], true);
  EXPECT_EQ(json["pitch"], 50);
  EXPECT_EQ(json["speed"], 250);
}

TEST_F(TranscriptTest, InvalidTextStillMakesAValidLine) {
  Transcript transcript(file_);
  transcript.Speak(1, Asked("a\xFF"
                            "b"));
  EXPECT_EQ(nlohmann::json::parse(test::ContentOf(file_))["text"],
            "a\xEF\xBF\xBD"
            "b");
}

TEST_F(TranscriptTest, TimesNeverRunBackward) {
  Transcript transcript(file_);
  for (int i = 0; i < 100; ++i) transcript.Begin(i);
  double last = 0;
  for (const std::string& line : Lines(test::ContentOf(file_))) {
    const double now = nlohmann::json::parse(line)["t"];
    EXPECT_GE(now, last);
    last = now;
  }
  EXPECT_GT(last, 0);
}

TEST_F(TranscriptTest, GoesOnWhereAnEarlierOneEnded) {
  Transcript(file_).Begin(1);
  Transcript(file_).Begin(2);
  EXPECT_EQ(Lines(test::ContentOf(file_)).size(), 2U);
}

TEST_F(TranscriptTest, ADashIsStandardOutput) {
  testing::internal::CaptureStdout();
  Transcript("-").Begin(7);
  EXPECT_EQ(nlohmann::json::parse(testing::internal::GetCapturedStdout())["id"], 7);
}

TEST_F(TranscriptTest, IsOffWithoutAName) {
  testing::internal::CaptureStdout();
  Transcript transcript;
  transcript.Speak(1, Asked("secret"));
  transcript.Begin(1);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(TranscriptTest, AFileThatCannotBeOpenedIsAnError) {
  EXPECT_THROW(Transcript(folder_ / "missing/spoken.jsonl"), RunTimeError);
}

}  // namespace
}  // namespace corvane::desktop
