#include "platform/linux/pdf/word_text.h"

#include <gmock/gmock.h>

namespace corvane::pdf {
namespace {

using testing::ElementsAre;

std::vector<std::string> Order(const std::vector<std::string>& shown) {
  std::vector<Word> words;
  for (const auto& text : shown) words.emplace_back().text = text;
  PutInReadingOrder(words);
  std::vector<std::string> read;
  for (const Word& word : words) read.push_back(word.text);
  return read;
}

TEST(WordTextTest, LigaturesAreLetters) {
  EXPECT_EQ(WordText({U'o', U'\uFB03', U'c', U'e'}), "office");
}

TEST(WordTextTest, WhatHasNoSoundIsLeftOut) {
  EXPECT_EQ(WordText({U'a', U'\uE001', 0x7, 0xD800, 0x110000, U'b'}), "ab");
}

TEST(WordTextTest, HebrewIsReadFromTheRight) {
  EXPECT_EQ(WordText({U'ם', U'ו', U'ל', U'ש'}), "שלום");
}

TEST(WordTextTest, ALineOfHebrewBeginsOnTheRight) {
  EXPECT_THAT(Order({"עולם", "שלום"}), ElementsAre("שלום", "עולם"));
}

TEST(WordTextTest, LatinWordsInItStandAsTheyAre) {
  EXPECT_THAT(Order({"אחת", "Corvane", "Two", "שתיים", "שלוש"}),
              ElementsAre("שלוש", "שתיים", "Corvane", "Two", "אחת"));
}

TEST(WordTextTest, HebrewInALatinLineStandsAsItIsRead) {
  EXPECT_THAT(Order({"one", "two", "עולם", "שלום", "three"}),
              ElementsAre("one", "two", "שלום", "עולם", "three"));
}

TEST(WordTextTest, HeadingsAreComparedByTheirLetters) {
  EXPECT_EQ(Essence("1.2  The End!"), "12theend");
}

}  // namespace
}  // namespace corvane::pdf
