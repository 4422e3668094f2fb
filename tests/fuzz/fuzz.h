#pragma once

#include <cstdlib>
#include <string>

/// Gives one input to the code that is fuzzed. Defined by each fuzzer; whatever
/// it throws, and every broken promise (Promise), is a finding.
void FuzzOne(const std::string& input);

/// Something that must hold for every input.
inline void Promise(bool kept) {
  if (!kept) std::abort();
}
