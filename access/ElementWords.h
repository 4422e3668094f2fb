#pragma once

#include <string>
#include <vector>

#include "platform/element_facts.h"

namespace corvane {

/// What a role is called: "list box", "check menu item". The page's own word for it
/// comes first; empty for what is nothing in particular.
std::string RoleWords(const ElementFacts& facts);
/// The same of a group.
std::string RoleWords(const ElementGroup& group);

/// The states that hold, each in its words, in the order in which they are said:
/// checked, pressed, expanded, selected, required, invalid with its message,
/// unavailable, read only, what it opens, current, sorted, level.
std::vector<std::string> StateWords(const ElementFacts& facts);

/// "3 of 7"; of a cell "row 2, column 1"; empty where nothing is known.
std::string PlaceWords(const ElementFacts& facts);

/// "5 seconds of 3 minutes", of what plays; empty where nothing is known.
std::string PositionWords(const ElementFacts& facts);

/// All of it in one sentence: role, name, states, value, place, description.
std::string ElementSentence(const ElementFacts& facts);

/// What a sentence that names an element and its kind by itself lacks: states,
/// place, description. `with_checked`: whether checked or not is to be said, too.
std::vector<std::string> MoreWords(const ElementFacts& facts, bool with_checked);

/// What is said when the focus enters a group: its name and its kind, a table's
/// size, a dialog's text.
std::string GroupWords(const ElementGroup& group);

/// The groups of `now` that `before` is not in, from the outside, as they are said.
std::vector<std::string> EnteredWords(const std::vector<ElementGroup>& before,
                                      const std::vector<ElementGroup>& now);

/// What a change of an element's own states and value is called: the new states
/// alone. Empty when nothing changed that is said.
std::string ChangeWords(const ElementFacts& before, const ElementFacts& now);
/// The same where sentences are the established ones: the state that a button, a tab or
/// a part that opens has got, and nothing else.
std::string EstablishedChangeWords(const ElementFacts& before, const ElementFacts& now);

}  // namespace corvane
