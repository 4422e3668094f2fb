#pragma once

#include <concepts>
#include <string>
#include <string_view>

namespace corvane {

/// So many of something, in words for people: "1 link", "2 links".
template <std::integral Number>
std::string Counted(Number count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

}  // namespace corvane
