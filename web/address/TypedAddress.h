#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "web/Problem.h"

namespace corvane {

/// Where a typed text leads: to `uri`, or to `problem`. With a problem there may
/// be `outside`, an address that another program of the desktop might open.
struct TypedAddress {
  std::string uri;
  /// To be tried when no connection can be made to `uri`; often empty.
  std::string fallback;
  std::optional<Problem> problem;
  std::string outside = {};
};

/// What a person means by a text typed into the address box. Blanks around it
/// and line breaks in it do not count.
/// - With a scheme: http, https, file, about, data and corvane go as typed;
///   javascript is a problem, and so are all others, which are also `outside`.
/// - The path of a file that is there is that file, whatever stands in its name;
///   a name that is not UTF-8 is a problem.
/// - Another path ("/home/x.html", "~/x.html", `home` standing for "~") is a file.
/// - Otherwise a host with or without port and path. A plain name with a dot is
///   tried with https first and with http when there is no connection; a host
///   with a port, an IP address, a name without a dot and localhost go by http.
TypedAddress ResolveTyped(std::string_view text, const std::string& home);

}  // namespace corvane
