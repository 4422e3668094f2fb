#pragma once

#include <initializer_list>
#include <string>

namespace corvane {

/// The parts joined as they are spoken, empty ones too.
inline std::string Sentence(std::initializer_list<std::string> parts) {
  std::string sentence;
  for (const auto& part : parts) {
    if (&part != parts.begin()) sentence += ", ";
    sentence += part;
  }
  return sentence;
}

}  // namespace corvane
