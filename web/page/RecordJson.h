#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

/// Reading what page scripts have written. It comes from a process that a hostile page may
/// have taken over: what does not have the right form reads as nothing, and nothing is ever
/// thrown. Safe on any thread.
namespace corvane::record {

using Json = nlohmann::json;

Json Parse(std::string_view text);
/// A member of an object, an item of a list; nothing (null) where there is none.
const Json& Member(const Json& object, const char* name);
const Json& At(const Json& list, std::size_t index);
/// A text of at most so many bytes; empty for everything else. What ends a text for the C
/// library is replaced.
std::string TextOf(const Json& json, std::size_t longest = std::string::npos);
/// A whole number of at least `least`; `least` for everything else.
int NumberOf(const Json& json, int least);
/// Whether it is the number 1, which stands for yes.
bool IsSet(const Json& json);
/// An expression of a page script: the text as its source has it.
std::string Quoted(const std::string& text);

}  // namespace corvane::record
