#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "base/event.h"
#include "base/number.h"
#include "base/text.h"

namespace corvane::tests {
namespace {

TEST(Text, CountsAndCutsCharacters) {
  const std::string s = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z";
  EXPECT_EQ(text::length(s), 5U);
  EXPECT_EQ(text::mid(s, 2, 2), "\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(text::mid(s, 4), "\xF0\x9F\x98\x80z");
  EXPECT_EQ(text::mid(s, 9), "");
  EXPECT_EQ(text::left(s, 1), "a");
  EXPECT_EQ(text::left(s, 99), s);
}

TEST(Text, InvalidBytesBecomeTheReplacementCharacter) {
  const std::string bad = "\xEF\xBF\xBD";
  EXPECT_EQ(text::valid("ok\xFFok"), "ok" + bad + "ok");
  EXPECT_EQ(text::valid("\xC0\xAF"), bad + bad);            // overlong
  EXPECT_EQ(text::valid("\xED\xA0\x80"), bad + bad + bad);  // half a surrogate pair
  EXPECT_EQ(text::valid("\xE2\x82"), bad + bad);            // cut short
  EXPECT_EQ(text::valid("\xF4\x90\x80\x80"), bad + bad + bad + bad);
  EXPECT_EQ(text::valid("\xF0\x9F\x98\x80"), "\xF0\x9F\x98\x80");
}

TEST(Text, CharactersAreTakenOffOneByOne) {
  std::string_view rest = "a\xC3\xA9\xFF\xF0\x9F\x98\x80\xE2\x82";
  std::u32string taken;
  while (!rest.empty()) taken += text::take_character(rest);
  EXPECT_EQ(taken, U"a\u00E9\uFFFD\U0001F600\uFFFD\uFFFD");
}

TEST(Text, TrimsAndComparesWithoutRegardToCase) {
  EXPECT_EQ(text::trimmed(" \ta b\r\n"), "a b");
  EXPECT_EQ(text::trimmed(". a .", " ."), "a");
  EXPECT_EQ(text::trimmed(" \n"), "");
  EXPECT_TRUE(text::same_ignoring_case("PDF", "pdf"));
  EXPECT_FALSE(text::same_ignoring_case("pdfs", "pdf"));
  EXPECT_TRUE(text::starts_ignoring_case("Search words", "search"));
  EXPECT_FALSE(text::starts_ignoring_case("Sea", "search"));
}

TEST(Number, SinglesAreReadWholeOrRefused) {
  EXPECT_EQ(number::to_single("500"), 500);
  EXPECT_EQ(number::to_single(" -1.5 "), -1.5F);
  EXPECT_EQ(number::to_single("1e-60"), 0);
  for (const char* bad : {"", " ", "x", "1x", "1,5", "nan", "inf", "--1", "+-1"}) {
    EXPECT_THROW(number::to_single(bad), RunTimeError) << bad;
  }
  EXPECT_THROW(number::to_single("1e99"), RunTimeError);
}

TEST(Number, IntegersRoundHalfToEvenAndKeepToSixteenBits) {
  EXPECT_EQ(number::to_integer("5"), 5);
  EXPECT_EQ(number::to_integer("2.5"), 2);
  EXPECT_EQ(number::to_integer("3.5"), 4);
  EXPECT_THROW(number::to_integer("32768"), RunTimeError);
  EXPECT_THROW(number::to_integer("five"), RunTimeError);
}

TEST(Number, TwoDecimalsAsTheFormatWritesThem) {
  EXPECT_EQ(number::two_decimals(0.3), ".3");
  EXPECT_EQ(number::two_decimals(0.304), ".3");
  EXPECT_EQ(number::two_decimals(0.31), ".31");
  EXPECT_EQ(number::two_decimals(0.05), ".05");
  EXPECT_EQ(number::two_decimals(1), "1.");
  EXPECT_EQ(number::two_decimals(0), ".");
  EXPECT_EQ(number::two_decimals(-1.25), "-1.25");
}

TEST(Number, SinglesAreWrittenSoThatTheyComeBack) {
  for (const float value : {500.0F, 0.25F, 1.1F, -30000.0F, 8500.5F, 0.1234567F}) {
    EXPECT_EQ(number::to_single(number::from_single(value)), value);
  }
  EXPECT_EQ(number::from_single(500), "500");
}

TEST(Number, DigitsLeaveZeroOut) {
  EXPECT_EQ(number::digits(0), "");
  EXPECT_EQ(number::digits(150), "150");
}

TEST(EventTest, HandlerMayDisconnectItselfOthersAndDestroyTheEvent) {
  auto event = std::make_unique<Event<int>>();
  std::vector<std::string> calls;
  Connection second;
  Connection first = event->Connect([&](int) {
    calls.emplace_back("first");
    second.Disconnect();
    event.reset();
  });
  second = event->Connect([&](int) { calls.emplace_back("second"); });
  event->Raise(1);
  EXPECT_THAT(calls, ::testing::ElementsAre("first"));
  first.Disconnect();  // after the event is gone
}

}  // namespace
}  // namespace corvane::tests
