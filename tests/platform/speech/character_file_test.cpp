#include "platform/linux/speech/character_file.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/error.h"
#include "platform/linux/speech/missing_voices.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::HasSubstr;

const std::string kWhole =
    "Corvane character 1\n[Character]\nName=Genie\nVoice=en-gb\nPitchShift=-10\nSpeedShift=20\n"
    "[Pictures]\nIdle=idle.svg\nSpeaking=speaking.svg\n";

class CharacterFileTest : public testing::Test {
 protected:
  CharacterFile Read(const std::string& contents) {
    return ReadCharacterFile("Genie", folder_.Write("talker.acf", contents));
  }

  /// The error that the contents raise; its text names the file.
  RunTimeError Failure(const std::string& contents) {
    return FailureOf(folder_.Write("talker.acf", contents));
  }

  RunTimeError FailureOf(const std::string& file) {
    try {
      ReadCharacterFile("Genie", file);
    } catch (const RunTimeError& error) {
      EXPECT_THAT(error.Description(), HasSubstr(file));
      return error;
    }
    ADD_FAILURE() << "was accepted: " << file;
    return {0, "", ""};
  }

  test::TemporaryFolder folder_;
};

TEST_F(CharacterFileTest, HoldsNameVoiceAdjustmentsAndPictures) {
  const CharacterFile character = Read(kWhole);
  EXPECT_EQ(character.name, "Genie");
  EXPECT_EQ(character.voice, "en-gb");
  EXPECT_EQ(character.pitch_shift, -10);
  EXPECT_EQ(character.speed_shift, 20);
  EXPECT_EQ(character.idle, folder_ / "idle.svg");
  EXPECT_EQ(character.speaking, folder_ / "speaking.svg");
}

TEST_F(CharacterFileTest, LanguagesHaveVoicesOfTheirOwn) {
  const CharacterFile character = Read(kWhole + "[Languages]\nde=de+Annie\npt = pt-br\n");
  EXPECT_THAT(character.languages,
              testing::ElementsAre(testing::Pair("de", "de+Annie"), testing::Pair("pt", "pt-br")));
  EXPECT_THAT(Read(kWhole).languages, testing::IsEmpty());
}

TEST_F(CharacterFileTest, WhatIsNoLanguageOrNoVoiceIsRefused) {
  EXPECT_THAT(Failure(kWhole + "[Languages]\n../x=de\n").Description(), HasSubstr("line 11"));
  EXPECT_THAT(Failure(kWhole + "[Languages]\npt-br=pt\n").Description(), HasSubstr("language"));
  EXPECT_THAT(Failure(kWhole + "[Languages]\nde=../../x\n").Description(), HasSubstr("voice"));
}

TEST_F(CharacterFileTest, AMissingVoiceIsToldWithItsPackage) {
  folder_.Write("data/lang/gmw/de", "name German\nlanguage de\n");
  folder_.Write("data/lang/gmw/en", "name English\nlanguage en-gb 2\n");
  folder_.Write("data/voices/mb/mb-de2", "name german-mbrola-2\nlanguage de\n");
  CharacterFile character;
  character.voice = "en-gb+f2";
  character.languages = {{"de", "de+Annie"}};
  EXPECT_THAT(MissingVoices(character, folder_ / "data", folder_ / "mbrola"), testing::IsEmpty());
  EXPECT_THAT(MissingVoices(character, "", folder_ / "mbrola"), testing::IsEmpty());
  character.languages = {{"de", "mb-de2"}, {"fr", "fr"}};
  EXPECT_THAT(MissingVoices(character, folder_ / "data", folder_ / "mbrola"),
              testing::ElementsAre(
                  "The voice mb-de2 for German is not installed. Its package is mbrola-de2.",
                  "The voice fr for French is not installed. Its package is espeak-ng-data."));
  folder_.Write("mbrola/de2/de2", "");
  character.languages = {{"de", "mb-de2"}};
  EXPECT_THAT(MissingVoices(character, folder_ / "data", folder_ / "mbrola"), testing::IsEmpty());
}

TEST_F(CharacterFileTest, PicturesAndAdjustmentsMayBeLeftOut) {
  const CharacterFile character =
      Read("Corvane character 1\r\n# a comment\r\n\r\n[Character]\r\n Name = Genie \r\nVoice=en");
  EXPECT_EQ(character.name, "Genie");
  EXPECT_EQ(character.pitch_shift, 0);
  EXPECT_EQ(character.idle, "");
}

TEST_F(CharacterFileTest, UnknownSectionsAndKeysAreForLaterVersions) {
  EXPECT_EQ(Read(kWhole + "[Gestures]\nWave=wave.svg\n[Character]\nHat=red\n").voice, "en-gb");
}

TEST_F(CharacterFileTest, AMissingFileIsSaidSo) {
  const RunTimeError error = FailureOf(folder_ / "nowhere.acf");
  EXPECT_EQ(error.Number(), kErrFileNotFound);
  EXPECT_THAT(error.Description(), HasSubstr("not found"));
}

TEST_F(CharacterFileTest, OtherFilesAreNoCharacterFiles) {
  EXPECT_THAT(Failure("").Description(), HasSubstr("is not a character file"));
  EXPECT_THAT(Failure("[Character]\nName=Genie\n").Description(),
              HasSubstr("is not a character file"));
  EXPECT_THAT(Failure("Corvane character 2\n").Description(), HasSubstr("is not a character file"));
  std::string rubbish;
  for (int i = 0; i < 4096; ++i) rubbish += static_cast<char>(i * 131);
  EXPECT_THAT(Failure(rubbish).Description(), HasSubstr("is not a character file"));
  EXPECT_THAT(FailureOf(folder_.Path()).Description(), HasSubstr("is not a character file"));
}

TEST_F(CharacterFileTest, APipeDoesNotKeepTheProgramWaiting) {
  const std::string pipe = folder_ / "pipe.acf";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_THAT(FailureOf(pipe).Description(), HasSubstr("is not a character file"));
}

TEST_F(CharacterFileTest, AHugeFileIsRefused) {
  EXPECT_THAT(Failure(kWhole + std::string(10'000'000, '#')).Description(), HasSubstr("too large"));
}

TEST_F(CharacterFileTest, RubbishBehindTheFirstLineIsRefusedWithItsLine) {
  const RunTimeError error =
      Failure("Corvane character 1\n[Character]\n\xFF\xFE\x00garbage\nName=Genie\n");
  EXPECT_THAT(error.Description(), HasSubstr("broken in line 3"));
}

TEST_F(CharacterFileTest, AnotherCharacterIsRefusedByName) {
  EXPECT_THAT(Failure("Corvane character 1\n[Character]\nName=Robot\nVoice=en\n").Description(),
              HasSubstr("\"Robot\", not \"Genie\""));
}

TEST_F(CharacterFileTest, NameAndVoiceAreNeeded) {
  EXPECT_THAT(Failure("Corvane character 1\n[Character]\nVoice=en\n").Description(),
              HasSubstr("names no character"));
  EXPECT_THAT(Failure("Corvane character 1\n[Character]\nName=Genie\n").Description(),
              HasSubstr("names no voice"));
  EXPECT_THAT(Failure("Corvane character 1\nName=Genie\nVoice=en\n").Description(),
              HasSubstr("names no character"));
}

TEST_F(CharacterFileTest, ValuesAreChecked) {
  const std::string start = "Corvane character 1\n[Character]\nName=Genie\nVoice=en\n";
  for (const std::string number : {"", "x", "1x", "81", "-81", "99999999999999999999", "1.5"}) {
    EXPECT_THAT(Failure(start + "PitchShift=" + number).Description(), HasSubstr("line 5"))
        << number;
  }
  EXPECT_THAT(Failure(start + "SpeedShift=201").Description(), HasSubstr("whole number"));
  EXPECT_THAT(Failure(start + "Voice=../../etc/passwd").Description(), HasSubstr("voice name"));
  EXPECT_THAT(Failure(start + "Name=" + std::string(65, 'n')).Description(), HasSubstr("too long"));
  for (const std::string picture : {"../secret.svg", "/etc/passwd", "a/b.svg", ".hidden"}) {
    EXPECT_THAT(Failure(start + "[Pictures]\nIdle=" + picture).Description(), HasSubstr("beside"));
  }
}

TEST_F(CharacterFileTest, AnyCutOfAGoodFileIsReadOrRefusedInWords) {
  for (std::size_t length = 0; length < kWhole.size(); ++length) {
    const std::string file = folder_.Write("cut.acf", kWhole.substr(0, length));
    try {
      EXPECT_EQ(ReadCharacterFile("Genie", file).name, "Genie");
    } catch (const RunTimeError& error) {
      EXPECT_FALSE(error.Description().empty());
    }
  }
}

TEST_F(CharacterFileTest, TheProgramsOwnCharacterIsWhole) {
  const CharacterFile character =
      ReadCharacterFile("Genie", std::string(CORVANE_DATA) + "/talker.acf");
  EXPECT_EQ(character.name, "Genie");
  EXPECT_TRUE(std::filesystem::exists(character.idle));
  EXPECT_TRUE(std::filesystem::exists(character.speaking));
}

}  // namespace
}  // namespace corvane::desktop
