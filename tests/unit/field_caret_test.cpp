#include "access/FieldCaret.h"

#include <gtest/gtest.h>

#include "base/language.h"
#include "base/text.h"

namespace corvane {
namespace {

using Step = ElementCaret::Step;
using Edit = ElementCaret::Edit;

/// A field that is used as its user would.
class FieldCaretTest : public testing::Test {
 protected:
  explicit FieldCaretTest(const std::string& value = "") { Holds(value, 0); }
  void Holds(const std::string& value, std::size_t caret) {
    Put(value, caret, caret, Edit::None);
    caret_.Follow(field_);
  }
  void Put(const std::string& value, std::size_t start, std::size_t end, Edit edit) {
    field_.value = value;
    field_.caret.selection_length = static_cast<int>(end - start);
    field_.caret.text_after = static_cast<int>(text::length(value) - end);
    field_.caret.edit = edit;
  }
  std::string MovesTo(std::size_t place, Step step) {
    Put(field_.value, place, place, Edit::None);
    field_.caret.step = step;
    field_.caret.extends = false;
    return caret_.Reached(field_);
  }
  std::string Selects(std::size_t start, std::size_t end) {
    Put(field_.value, start, end, Edit::None);
    field_.caret.extends = true;
    return caret_.Reached(field_);
  }
  std::string Becomes(const std::string& value, std::size_t place, Edit edit) {
    Put(value, place, place, edit);
    return caret_.Reached(field_);
  }

  HTMLElement field_;
  FieldCaret caret_;
};

TEST_F(FieldCaretTest, ByCharactersItIsTheCharacterThatTheCaretReaches) {
  Holds("abc", 0);
  EXPECT_EQ(MovesTo(1, Step::Character), "b");
  EXPECT_EQ(MovesTo(2, Step::Character), "c");
  EXPECT_EQ(MovesTo(3, Step::Character), "end");
  EXPECT_EQ(MovesTo(2, Step::Character), "c");
}

TEST_F(FieldCaretTest, HomeAndEndSayTheCharacterThere) {
  Holds("first\nsecond", 8);
  EXPECT_EQ(MovesTo(6, Step::Character), "s");
  EXPECT_EQ(MovesTo(5, Step::Character), "end of line");
}

TEST_F(FieldCaretTest, ByWordsItIsTheWord) {
  Holds("one two three", 0);
  EXPECT_EQ(MovesTo(3, Step::Word), "one");
  EXPECT_EQ(MovesTo(7, Step::Word), "two");
  EXPECT_EQ(MovesTo(4, Step::Word), "two");
  EXPECT_EQ(MovesTo(13, Step::Word), "three");
}

TEST_F(FieldCaretTest, WhatTheFieldHoldsIsInItsLanguageAndTheRestOurs) {
  auto facts = std::make_shared<ElementFacts>();
  facts->language = "de";
  field_.facts = facts;
  const auto german = [](const char* words) { return language::Marked(words, "de"); };
  Holds("Das Haus.\n", 0);
  EXPECT_EQ(MovesTo(4, Step::Word), german("Haus."));
  EXPECT_EQ(MovesTo(5, Step::Character), german("a"));
  EXPECT_EQ(MovesTo(8, Step::Character), ".");
  EXPECT_EQ(MovesTo(9, Step::Character), "end of line");
  EXPECT_EQ(MovesTo(10, Step::Line), "blank");
  EXPECT_EQ(MovesTo(0, Step::Paragraph), german("Das Haus."));
  EXPECT_EQ(Selects(0, 3), german("Das") + " selected");
  EXPECT_EQ(Becomes("Haus.\n", 0, Edit::Removed), german("Das "));
}

TEST_F(FieldCaretTest, ByLinesItIsTheLineAsItIsShown) {
  Holds("first\n\nthird line", 0);
  EXPECT_EQ(MovesTo(6, Step::Line), "blank");
  EXPECT_EQ(MovesTo(7, Step::Line), "third line");
  field_.caret.line = "line";
  EXPECT_EQ(MovesTo(13, Step::Line), "line");
}

TEST_F(FieldCaretTest, AKeyThatMovesNothingIsSilent) {
  Holds("only", 2);
  EXPECT_EQ(MovesTo(2, Step::Character), "");
  EXPECT_EQ(MovesTo(2, Step::Line), "");
}

TEST_F(FieldCaretTest, WhatIsTypedIsSaid) {
  Holds("aa", 1);
  EXPECT_EQ(Becomes("aaa", 2, Edit::Typed), "a");
  EXPECT_EQ(Becomes("aaxa", 3, Edit::Typed), "x");
  Holds("replace me", 0);
  EXPECT_EQ(Selects(0, 10), "replace me selected");
  EXPECT_EQ(Becomes("y", 1, Edit::Typed), "y");
}

TEST_F(FieldCaretTest, WhatIsTypedOverASelectionIsSaidEvenWhereItReadsLikeAPartOfIt) {
  Holds("The village", 0);
  EXPECT_EQ(Selects(0, 11), "The village selected");
  EXPECT_EQ(Becomes("T", 1, Edit::Typed), "T");
  Holds("one two", 4);
  EXPECT_EQ(Selects(4, 7), "two selected");
  EXPECT_EQ(Becomes("one o", 5, Edit::Typed), "o");
  EXPECT_EQ(Selects(4, 5), "o selected");
  EXPECT_EQ(Becomes("one ", 4, Edit::Removed), "o");
}

TEST_F(FieldCaretTest, WhatIsRemovedIsSaid) {
  Holds("abc", 3);
  EXPECT_EQ(Becomes("ab", 2, Edit::Removed), "c");
  EXPECT_EQ(Becomes("b", 0, Edit::Removed), "a");
  Holds("one two", 7);
  EXPECT_EQ(Becomes("one ", 4, Edit::Removed), "two");
}

TEST_F(FieldCaretTest, WhatThePageFillsInIsSaidUnlessItWasToldAsAChange) {
  Holds("b", 1);
  EXPECT_EQ(Becomes("Bilbao", 6, Edit::None), "Bilbao");
  auto facts = std::make_shared<ElementFacts>();
  facts->value = language::Marked("Bergen", "nb");
  field_.facts = facts;
  EXPECT_EQ(Becomes("Bergen", 6, Edit::None), "");
  EXPECT_EQ(Becomes("", 0, Edit::None), "blank");
}

TEST_F(FieldCaretTest, OfMuchThatIsPastedTheCharactersAreCounted) {
  EXPECT_EQ(Becomes(std::string(500, 'x'), 500, Edit::Typed), "500 characters inserted");
  EXPECT_EQ(Becomes("", 0, Edit::Removed), "500 characters removed");
}

TEST_F(FieldCaretTest, CharactersAreWhole) {
  Holds("a😀é", 0);
  EXPECT_EQ(MovesTo(1, Step::Character), "😀");
  EXPECT_EQ(Becomes("aé", 1, Edit::Removed), "😀");
}

TEST_F(FieldCaretTest, SelectingSaysWhatWasAddedOrLetGo) {
  Holds("abcd", 0);
  EXPECT_EQ(Selects(0, 1), "a selected");
  EXPECT_EQ(Selects(0, 3), "bc selected");
  EXPECT_EQ(Selects(0, 2), "c unselected");
  EXPECT_EQ(Selects(0, 0), "ab unselected");
}

TEST_F(FieldCaretTest, OfALongSelectionTheCharactersAreCounted) {
  Holds(std::string(1000, 'x'), 0);
  EXPECT_EQ(Selects(0, 1000), "1000 characters selected");
}

}  // namespace
}  // namespace corvane
