#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace corvane::pdf {

/// How much the process may use.
struct Bounds {
  std::size_t memory = std::size_t{1} << 30U;  ///< bytes of addresses
  unsigned seconds = 40;                       ///< of processor
};

/// Takes from this process, for good, whatever the reading of a document does not need:
/// it can open no file any more but those in the `readable` folders, and these only to
/// read them; it makes no connection, starts no program and no process, reaches no other
/// one, and runs no code that is not there yet. What is open stays open. It ends with
/// the process that has started it. False when the kernel does not allow all of that.
bool Confine(const Bounds& bounds, const std::vector<std::string>& readable);

}  // namespace corvane::pdf
