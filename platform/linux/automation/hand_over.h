#pragma once

#include <string>

namespace corvane::desktop {

/// What was given on the command line as the running program must understand it:
/// the path of an existing file becomes absolute, anything else stays.
std::string GivenAddress(const std::string& argument);

/// Gives the address to the Corvane that runs in this session, which opens a
/// window for it. False when none runs or it does not take it.
bool HandOver(const std::string& address);

}  // namespace corvane::desktop
