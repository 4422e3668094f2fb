#pragma once

#include <string>

namespace corvane {

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

}  // namespace corvane
