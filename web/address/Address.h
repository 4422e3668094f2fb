#pragma once

#include <string>
#include <string_view>

/// What addresses are made of. They are UTF-8 and may come from pages.
namespace corvane {

/// The scheme of an address in small letters; empty without one.
std::string SchemeOf(std::string_view address);

/// Whether addresses of this kind belong to other programs ("mailto:"), and not
/// to pages.
bool IsOutside(std::string_view address);

/// What people call the site of an address: its host, or the address itself.
std::string SiteOf(std::string_view address);

/// Whether that is the number of a computer in the network, "127.0.0.1" or "::1".
bool IsNetworkNumber(std::string_view host);

/// The address of the file with that whole path.
std::string FileAddress(std::string_view path);

/// The text as it may stand within a part of an address.
std::string Escaped(std::string_view text);

/// The text without its escapes; what only looks like an escape stays as it is. May be
/// anything but valid UTF-8.
std::string Unescaped(std::string_view text);

}  // namespace corvane
