#include "web/address/OwnAddress.h"

#include <algorithm>

#include "base/text.h"
#include "web/address/Address.h"

namespace corvane {
namespace {

constexpr std::string_view kSearchPath = "corvane://search/cgi-bin/query?";
constexpr std::string_view kFile = "file://";
// What follows is the path as in a file's address.
constexpr std::string_view kSavedPage = "corvane://saved";
// The document's own address follows as it is, so that the engine finds a place named
// behind it ("#page=3") and compares addresses as for any other page.
constexpr std::string_view kDocument = "corvane://document/";

}  // namespace

bool IsOwnPage(std::string_view address) { return address.starts_with("corvane:"); }

std::string LinkTo(const std::string& address) {
  if (!address.starts_with(kFile)) return address;
  return std::string(kSavedPage) + address.substr(kFile.size());
}

std::string SavedFile(const std::string& address) {
  if (!address.starts_with(std::string(kSavedPage) + "/")) return {};
  return std::string(kFile) + address.substr(kSavedPage.size());
}

bool IsSearch(const std::string& address) { return address.starts_with(kSearchPath); }

std::string SearchedWords(const std::string& address) {
  if (!IsSearch(address)) return {};
  const std::string query = "&" + address.substr(kSearchPath.size());
  const auto at = query.find("&q=");
  if (at == std::string::npos) return {};
  std::string words = query.substr(at + 3);
  std::replace(words.begin(), words.end(), '+', ' ');
  return std::string(text::trimmed(text::valid(Unescaped(words))));
}

std::string ServiceAddress(const std::string& service, const std::string& words) {
  const auto place = service.find("%s");
  if (place == std::string::npos) return {};
  if (!service.starts_with("https://") && !service.starts_with("http://")) return {};
  return service.substr(0, place) + Escaped(words) + service.substr(place + 2);
}

std::string DocumentPage(const std::string& address) { return std::string(kDocument) + address; }

bool IsDocumentPage(const std::string& address) { return address.starts_with(kDocument); }

std::string ShownAddress(const std::string& address) {
  return IsDocumentPage(address) ? address.substr(kDocument.size()) : address;
}

std::string WithoutPlace(const std::string& address) {
  return address.substr(0, address.find('#'));
}

}  // namespace corvane
