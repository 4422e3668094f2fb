#include "web/Problem.h"

#include "base/safe_name.h"
#include "web/address/Address.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestShown = 500;
constexpr const char* kTryAgain = "Press Refresh to try again, or type another address.";

Problem TimedOut(const std::string& address) {
  return {"No answer: " + SiteOf(address),
          "The server " + SiteOf(address) + " did not answer in time.", kTryAgain, address};
}

Problem NotFound(const std::string& address) {
  return {"Page not found: " + SiteOf(address),
          "There is no server named " + SiteOf(address) +
              ", or there is no connection to the internet.",
          "Check the spelling of the address and your connection. To look for words instead, type "
          "Search and the words into the address box.",
          address};
}

Problem Refused(const std::string& address) {
  return {"Connection refused: " + SiteOf(address),
          "The server " + SiteOf(address) +
              " is there but does not accept connections at this "
              "address.",
          kTryAgain, address};
}

Problem MissingFile(const std::string& address) {
  return {"File not found", "There is no file at " + Shorten(address, kLongestShown) + ".",
          "Check the spelling of the path.", address};
}

Problem ForbiddenFile(const std::string& address) {
  return {"File cannot be read",
          "You are not allowed to read the file at " + Shorten(address, kLongestShown) + ".",
          "Ask its owner for the right to read it, or type another address.", address};
}

}  // namespace

bool IsConnectionFailure(LoadFailure::Kind kind) {
  return kind == LoadFailure::Kind::Refused || kind == LoadFailure::Kind::TimedOut ||
         kind == LoadFailure::Kind::NoConnection;
}

Problem LoadProblem(const std::string& address, const LoadFailure& failure) {
  switch (failure.kind) {
    case LoadFailure::Kind::NoHost:
      return NotFound(address);
    case LoadFailure::Kind::Refused:
      return Refused(address);
    case LoadFailure::Kind::TimedOut:
    case LoadFailure::Kind::GivenUp:
      return TimedOut(address);
    case LoadFailure::Kind::NoFile:
      return MissingFile(address);
    case LoadFailure::Kind::ForbiddenFile:
      return ForbiddenFile(address);
    case LoadFailure::Kind::NotSecure:
      return {"No secure connection: " + SiteOf(address),
              "A secure connection to " + SiteOf(address) +
                  " could not be made: " + Shorten(failure.words, kLongestShown) + ".",
              kTryAgain, address};
    case LoadFailure::Kind::ForbiddenPort:
      return {"Address not allowed: " + SiteOf(address),
              "The number after the host's name belongs to a service that is not for pages.",
              "Check the number in the address.", address};
    case LoadFailure::Kind::NotShown:
      return {"Cannot be shown", "Corvane cannot open this kind of address or file.",
              "Press Back to return, or type another address.", address};
    case LoadFailure::Kind::NoConnection:
    case LoadFailure::Kind::Other:
      break;
  }
  return {"The page could not be loaded: " + SiteOf(address),
          "The connection to " + SiteOf(address) +
              " failed: " + Shorten(failure.words, kLongestShown) + ".",
          kTryAgain, address};
}

Problem CertificateProblem(const std::string& address, CertificateFault fault) {
  const auto why = [&]() -> std::string {
    switch (fault) {
      case CertificateFault::Issuer:
        return "its certificate was not issued by an authority that is known here";
      case CertificateFault::Site:
        return "its certificate belongs to another site";
      case CertificateFault::Expired:
        return "its certificate has expired";
      case CertificateFault::NotYetValid:
        return "its certificate is not valid yet";
      case CertificateFault::Withdrawn:
        return "its certificate has been withdrawn";
      case CertificateFault::Unknown:
        break;
    }
    return "its certificate cannot be trusted";
  };
  return {"No secure connection: " + SiteOf(address),
          "Corvane cannot be sure that it is really talking to " + SiteOf(address) + ": " + why() +
              ". Someone could read or change what is sent.",
          "Check the date of this computer. Otherwise tell the site's owner, and do not enter "
          "anything private.",
          address};
}

Problem CrashProblem(const std::string& address, bool memory) {
  return {"The page has crashed: " + SiteOf(address),
          memory ? "The page used too much memory and was closed."
                 : "The part of the program that shows this page has stopped working.",
          "Press Refresh to load the page again, or type another address.", address};
}

Problem HangProblem(const std::string& address) {
  return {"The page does not answer: " + SiteOf(address),
          "The page " + SiteOf(address) + " does not answer and was closed.",
          "Press Refresh to load the page again, or type another address.", address};
}

}  // namespace corvane
