#include "platform/linux/web/documents/document_address.h"

#include <string_view>

namespace corvane::desktop {
namespace {

// The document's own address follows as it is, so that the engine finds a place named
// behind it ("#page=3") and compares addresses as for any other page.
constexpr std::string_view kStart = "corvane://document/";

}  // namespace

std::string DocumentPage(const std::string& address) { return std::string(kStart) + address; }

bool IsDocumentPage(const std::string& address) { return address.starts_with(kStart); }

std::string ShownAddress(const std::string& address) {
  return IsDocumentPage(address) ? address.substr(kStart.size()) : address;
}

std::string WithoutPlace(const std::string& address) {
  return address.substr(0, address.find('#'));
}

}  // namespace corvane::desktop
