#include "access/ElementWords.h"

#include "access/FocusWords.h"
#include "access/FullSentence.h"
#include "base/text.h"
#include "tests/fuzz/fuzz.h"
#include "web/page/ElementEvent.h"
#include "web/page/WordsRecord.h"

using namespace corvane;

namespace {

constexpr std::size_t kLongestWords = 12'000;      // bytes, of one text of a page
constexpr std::size_t kLongestSentence = 200'000;  // and of all that one element is

bool IsSayable(const std::string& words) {
  return words.size() <= kLongestSentence && words.find('\0') == std::string::npos;
}

void SayElement(const std::string& input) {
  const auto event = ParseElementEvent(input);
  if (!event || !event->facts) return;
  HTMLElement element;
  if (event->described) element.type_name = event->described->type_name;
  Apply(*event, element);
  Promise(IsSayable(FullSentence(element, TodaysManner())));
  Promise(IsSayable(ElementSentence(*element.facts)));
  const Manner manner = TodaysManner();
  FocusWords focus(manner);
  const std::string entering = focus.Of(element, "");
  Promise(IsSayable(entering));
  Promise(focus.Of(element, "").size() <= entering.size());  // no group is entered twice
  // Nothing changes from what it is to what it is.
  Promise(ChangeWords(*element.facts, *element.facts).empty());
  Promise(EstablishedChangeWords(*element.facts, *element.facts).empty());
  Promise(IsSayable(ChangeWords(ElementFacts(), *element.facts)));
}

void SayLiveWords(const std::string& input) {
  const auto words = ParsePageWords(input);
  if (!words) return;
  Promise(words->words.size() <= kLongestWords && words->name.size() <= kLongestWords);
  Promise(IsSayable(words->words) && IsSayable(words->name) && words->more >= 0);
  // A page never speaks with the program's own words.
  Promise(words->opened == corvane::PageWords::Opened::Nothing);
  Promise(words->more > 0 || !words->words.empty() || !words->dialog.empty());
}

}  // namespace

// What a page's process tells of elements and of words that the page says by itself; a
// hostile page may have taken it over.
void FuzzOne(const std::string& input) {
  SayElement(input);
  SayLiveWords(input);
}
