#include "access/AASelectElement.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "access/AAFormCollection.h"
#include "access/ElementWords.h"
#include "access/FieldKinds.h"
#include "access/Sentence.h"
#include "base/text.h"
#include "platform/errors_shown.h"

namespace corvane {
namespace {

constexpr std::size_t kMostNamed = 5;  // options that are said one by one

// The option that the list's user has come to; its group where that is another one.
std::string Reached(const OpenList& now, const OpenList& before) {
  std::string words;
  const bool enters = now.group != before.group || !before.open;
  if (!now.group.empty() && enters) {
    ElementGroup group;
    group.role = "group";
    group.name = now.group;
    words = GroupWords(group) + ", ";
  }
  ElementFacts place;
  place.place = now.place;
  place.size = now.size;
  return words + now.option + ", " + PlaceWords(place);
}

}  // namespace

void AASelectElement::Listen() {
  chosen_ = Element().chosen;
  connections_ += Element().onfocus.Connect([this] { AASelect_onfocus(); });
  connections_ += Element().onchange.Connect([this] { AASelect_onchange(); });
  connections_ += Element().onlist.Connect([this] { AASelect_onlist(); });
}

std::string AASelectElement::Option(int index) const {
  const auto& options = Element().options;
  if (index < 0 || static_cast<std::size_t>(index) >= options.size()) return {};
  return options[static_cast<std::size_t>(index)];
}

std::string AASelectElement::Choice() const { return Option(Element().selectedIndex); }

AASelectElement::Change AASelectElement::Changed() {
  const std::vector<int>& now = Element().chosen;
  const std::vector<int> before = std::exchange(chosen_, now);
  Change change;
  std::set_difference(now.begin(), now.end(), before.begin(), before.end(),
                      std::back_inserter(change.options));
  change.let_go = change.options.empty();
  if (change.let_go) {
    std::set_difference(before.begin(), before.end(), now.begin(), now.end(),
                        std::back_inserter(change.options));
  }
  return change;
}

std::string AASelectElement::Named(const Change& change) const {
  const std::vector<int>& changed = change.options;
  if (changed.empty()) return {};
  std::string words = Option(changed.front());
  for (std::size_t i = 1; i < std::min(changed.size(), kMostNamed); ++i) {
    words = Sentence({words, Option(changed[i])});
  }
  if (changed.size() > kMostNamed) {
    words = Sentence({words, std::to_string(changed.size() - kMostNamed) + " more"});
  }
  return change.let_go ? Sentence({words, "unselected"}) : words;
}

void AASelectElement::AASelect_onfocus() {
  ErrorsShown(Collection().Box(), "AASelect_onfocus Error: ", [&] {
    const HTMLElement& select = Element();
    chosen_ = select.chosen;
    out_of_list_.reset();
    const std::string label = Beside("", select, Collection().HowToSay());
    Collection().SayFocused(select, label.empty()
                                        ? Sentence({select.type, select.name, Choice()})
                                        : Sentence({select.type, select.name, label, Choice()}));
  });
}

void AASelectElement::AASelect_onchange() {
  ErrorsShown(Collection().Box(), "AASelect_onchange Error: ", [&] {
    if (!text::same_ignoring_case(Element().type, "select-multiple")) {
      if (std::exchange(out_of_list_, std::nullopt) == Choice()) return;
      return Collection().SayChosen(Element(), Choice(), Element().selectedIndex);
    }
    const Change change = Changed();
    if (change.options.size() != 1) return Collection().Say(Named(change));
    Collection().SayChosen(Element(), Named(change), change.options.front());
  });
}

// What is chosen is said as the list closes; its change adds nothing.
void AASelectElement::AASelect_onlist() {
  ErrorsShown(Collection().Box(), "AASelect_onlist Error: ", [&] {
    const OpenList now = Element().list;
    const OpenList before = std::exchange(list_, now);
    if (!Collection().HowToSay().full_sentences) return;
    out_of_list_.reset();
    if (!now.open) {
      if (!before.open) return;
      if (now.option != Choice()) out_of_list_ = now.option;
      return Collection().Say(Sentence({"collapsed", now.option}));
    }
    const std::string option = now.place > 0 ? Reached(now, before) : "";
    if (before.open) return Collection().Say(option);
    Collection().Say(option.empty() ? "expanded" : Sentence({"expanded", option}));
  });
}

}  // namespace corvane
