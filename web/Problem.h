#pragma once

#include <string>

#include "platform/load_failure.h"

namespace corvane {

/// Why there is no page, in words for people: shown as a page of the program's
/// own that is read like any other.
struct Problem {
  std::string title;     ///< what happened, with the site's name
  std::string sentence;  ///< what it means
  std::string advice;    ///< what to do now
  std::string address;   ///< what could not be shown; an address or what was typed
};

/// A load that failed.
Problem LoadProblem(const std::string& address, const LoadFailure& failure);
/// A server whose certificate cannot be trusted.
Problem CertificateProblem(const std::string& address, CertificateFault fault);
/// A page whose process ended by itself, or because it used too much memory.
Problem CrashProblem(const std::string& address, bool memory);
/// A page whose process was ended because it did not answer.
Problem HangProblem(const std::string& address);

/// Whether the failure means that no connection was made, so that another way to
/// the same host may be tried.
bool IsConnectionFailure(LoadFailure::Kind kind);

}  // namespace corvane
