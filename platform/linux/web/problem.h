#pragma once

#include <gio/gio.h>

#include <string>

namespace corvane::desktop {

/// Why there is no page, in words for people: shown as a page of the program's
/// own that is read like any other.
struct Problem {
  std::string title;     ///< what happened, with the site's name
  std::string sentence;  ///< what it means
  std::string advice;    ///< what to do now
  std::string address;   ///< what could not be shown; an address or what was typed
};

/// A load that failed with the engine's error.
Problem LoadProblem(const std::string& address, const GError& error);
/// A server whose certificate cannot be trusted.
Problem CertificateProblem(const std::string& address, GTlsCertificateFlags faults);
/// A page whose process ended by itself, or because it used too much memory.
Problem CrashProblem(const std::string& address, bool memory);
/// A page whose process was ended because it did not answer.
Problem HangProblem(const std::string& address);

/// Whether the failure means that no connection was made, so that another way to
/// the same host may be tried.
bool IsConnectionFailure(const GError& error);

/// The problem's page.
std::string RenderProblem(const Problem& problem);

/// What people call the site of an address: its host, or the address itself.
std::string SiteOf(const std::string& address);

}  // namespace corvane::desktop
