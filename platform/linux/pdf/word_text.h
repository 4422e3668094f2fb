#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/pdf/page_words.h"

namespace corvane::pdf {

/// The letters, which lie from left to right, as text in the order in which they are
/// read, without what has no sound and no shape.
std::string WordText(const std::vector<char32_t>& letters);

/// The words of one line, which lie from left to right, in the order in which they are
/// read: lines of Hebrew or Arabic begin on the right.
void PutInReadingOrder(std::vector<Word>& words);

/// What text of the document's own (a title, words for a picture) says; `text` as it
/// stands in the file.
std::string TextOf(const std::string& text);
std::string TextOf(const char32_t* letters, int count);

/// What stands between two words that follow each other.
enum class Joint {
  Nothing,
  Blank,
  Broken,  ///< one word that a line's end has broken: the hyphen at its end goes
};
Joint JointOf(const Word& word, const Word& next);
void TakeHyphenAway(std::string& text);

/// How many dots the word is made of; 0 where there is anything else in it.
std::size_t DotsOf(const Word& word);
/// From so many on they are a line for the eye, between an entry and its page.
inline constexpr std::size_t kFewestDots = 4;

/// Letters and figures of the text only, in lower case: to compare headings.
std::string Essence(std::string_view text);

}  // namespace corvane::pdf
