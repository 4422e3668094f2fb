#pragma once

#include <string>

namespace corvane::desktop {

/// The address under which the engine loads and remembers a document of the network or
/// the disk that the program itself makes a page of.
std::string DocumentPage(const std::string& address);
bool IsDocumentPage(const std::string& address);

/// The address as the user knows it: that of the document for such a page of it, and any
/// other as it is.
std::string ShownAddress(const std::string& address);

/// The address without the place in the document that is named behind "#".
std::string WithoutPlace(const std::string& address);

}  // namespace corvane::desktop
