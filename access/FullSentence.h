#pragma once

#include <string>

#include "base/manner.h"
#include "platform/html_document.h"

namespace corvane {

/// The full sentence about an element that has the focus and whose facts are known.
/// An element that there is an established sentence for keeps it: its name fills the
/// empty place, and what it lacks (a link's role, states, place, description) follows
/// behind. Everything else is said by its role, name, states, value, place and
/// description.
std::string FullSentence(const HTMLElement& element, const Manner& manner);

}  // namespace corvane
