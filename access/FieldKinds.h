#pragma once

#include <string>

#include "base/manner.h"
#include "platform/html_document.h"

namespace corvane {

/// What a field is called aloud: its type, or plain words for an input of a kind
/// that came later and is no text to its user ("slider").
std::string WordFor(const HTMLElement& field);

/// Whether the field's value changes in steps that nothing is typed for, such as a
/// slider's.
bool IsStepped(const HTMLElement& field);

/// Whether an input holds a line of text that is typed.
bool IsTyped(const HTMLElement& input);

/// Whether the field takes characters that others are not to see.
bool IsSecret(const HTMLElement& field);

/// Words of a field as they may be heard: characters of a secret one are stars where
/// the manner hides them.
std::string Heard(const HTMLElement& field, const std::string& words, const Manner& manner);

/// What stands beside the field in its sentence: its text, else, where the manner
/// allows, what its author calls it.
std::string Beside(const std::string& text, const HTMLElement& field, const Manner& manner);

}  // namespace corvane
