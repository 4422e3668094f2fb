#pragma once

#include <string>

namespace corvane {

/// Why there is no page, in words for people: shown as a page of the program's
/// own that is read like any other.
struct Problem {
  std::string title;     ///< what happened, with the site's name
  std::string sentence;  ///< what it means
  std::string advice;    ///< what to do now
  std::string address;   ///< what could not be shown; an address or what was typed
};

/// Why something could not be loaded.
struct LoadFailure {
  enum class Kind {
    NoHost,         ///< nobody knows a server of that name
    NoConnection,   ///< there is none, or it broke at once
    Refused,        ///< the server takes no connections there
    TimedOut,       ///< no answer in time
    GivenUp,        ///< by the engine
    NoFile,         ///< on this computer
    ForbiddenFile,  ///< not to be read by this user
    NotSecure,      ///< no secure connection could be made
    ForbiddenPort,  ///< the port is none for pages
    NotShown,       ///< the engine opens nothing of that kind
    Other,
  };
  Kind kind = Kind::Other;
  std::string words;  ///< of whoever reported it
};

/// What is wrong with a server's certificate.
enum class CertificateFault { Unknown, Issuer, Site, Expired, NotYetValid, Withdrawn };

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
