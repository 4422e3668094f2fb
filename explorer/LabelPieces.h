#pragma once

#include <string>
#include <vector>

namespace corvane {

/// A label as the nodes of a tree show it. Up to 125 characters it stays whole.
/// A longer one becomes several pieces, broken at a blank where one lies late
/// enough; a piece begins with the character that ended the piece before.
/// What lies beyond the 12,700th character is not shown.
std::vector<std::string> LabelPieces(const std::string& label);

}  // namespace corvane
