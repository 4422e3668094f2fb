#include "platform/linux/web/problem.h"

#include <webkit2/webkit2.h>

#include "platform/linux/glib/owner.h"
#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestShown = 500;
constexpr const char* kTryAgain = "Press Refresh to try again, or type another address.";

bool IsResolver(const GError& error) { return error.domain == G_RESOLVER_ERROR; }

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

std::string SiteOf(const std::string& address) {
  GUri* uri = g_uri_parse(address.c_str(), G_URI_FLAGS_PARSE_RELAXED, nullptr);
  if (uri == nullptr) return Shorten(address, 100);
  const std::string host = Text(g_uri_get_host(uri));
  g_uri_unref(uri);
  return host.empty() ? Shorten(address, 100) : host;
}

bool IsConnectionFailure(const GError& error) {
  if (error.domain != G_IO_ERROR) return false;
  switch (error.code) {
    case G_IO_ERROR_CONNECTION_REFUSED:
    case G_IO_ERROR_HOST_UNREACHABLE:
    case G_IO_ERROR_NETWORK_UNREACHABLE:
    case G_IO_ERROR_TIMED_OUT:
    case G_IO_ERROR_CONNECTION_CLOSED:
      return true;
    default:
      return false;
  }
}

Problem LoadProblem(const std::string& address, const GError& error) {
  if (IsResolver(error)) return NotFound(address);
  if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_HOST_NOT_FOUND)) return NotFound(address);
  if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_CONNECTION_REFUSED)) return Refused(address);
  if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT)) return TimedOut(address);
  if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_NOT_FOUND) ||
      g_error_matches(&error, WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_FILE_DOES_NOT_EXIST)) {
    return MissingFile(address);
  }
  if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_PERMISSION_DENIED)) {
    return ForbiddenFile(address);
  }
  if (error.domain == G_TLS_ERROR) {
    return {"No secure connection: " + SiteOf(address),
            "A secure connection to " + SiteOf(address) +
                " could not be made: " + Shorten(Text(error.message), kLongestShown) + ".",
            kTryAgain, address};
  }
  if (g_error_matches(&error, WEBKIT_POLICY_ERROR,
                      WEBKIT_POLICY_ERROR_CANNOT_USE_RESTRICTED_PORT)) {
    return {"Address not allowed: " + SiteOf(address),
            "The number after the host's name belongs to a service that is not for pages.",
            "Check the number in the address.", address};
  }
  if (error.domain == WEBKIT_POLICY_ERROR ||
      g_error_matches(&error, WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_UNKNOWN_PROTOCOL)) {
    return {"Cannot be shown", "Corvane cannot open this kind of address or file.",
            "Press Back to return, or type another address.", address};
  }
  if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_CANCELLED)) return TimedOut(address);
  return {"The page could not be loaded: " + SiteOf(address),
          "The connection to " + SiteOf(address) +
              " failed: " + Shorten(Text(error.message), kLongestShown) + ".",
          kTryAgain, address};
}

Problem CertificateProblem(const std::string& address, GTlsCertificateFlags faults) {
  std::string why = "its certificate cannot be trusted";
  if ((faults & G_TLS_CERTIFICATE_UNKNOWN_CA) != 0) {
    why = "its certificate was not issued by an authority that is known here";
  } else if ((faults & G_TLS_CERTIFICATE_BAD_IDENTITY) != 0) {
    why = "its certificate belongs to another site";
  } else if ((faults & G_TLS_CERTIFICATE_EXPIRED) != 0) {
    why = "its certificate has expired";
  } else if ((faults & G_TLS_CERTIFICATE_NOT_ACTIVATED) != 0) {
    why = "its certificate is not valid yet";
  } else if ((faults & G_TLS_CERTIFICATE_REVOKED) != 0) {
    why = "its certificate has been withdrawn";
  }
  return {"No secure connection: " + SiteOf(address),
          "Corvane cannot be sure that it is really talking to " + SiteOf(address) + ": " + why +
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

std::string RenderProblem(const Problem& problem) {
  return FillTemplate(WebResource("problem.html"),
                      {{"title", EscapeHtml(Shorten(problem.title, kLongestShown))},
                       {"sentence", EscapeHtml(problem.sentence)},
                       {"advice", EscapeHtml(problem.advice)},
                       {"address", EscapeHtml(Shorten(problem.address, kLongestShown))}});
}

}  // namespace corvane::desktop
