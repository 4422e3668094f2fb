#pragma once

namespace corvane {

/// The program's version, as the about box shows it; the same as the project's in
/// CMakeLists.txt.
inline constexpr int kVersionMajor = 0;
inline constexpr int kVersionMinor = 1;
inline constexpr int kVersionRevision = 0;

}  // namespace corvane
