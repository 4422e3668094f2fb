#include "web/BrowserOptions.h"

#include "web/address/OwnAddress.h"

namespace corvane {

std::string BrowserOptions::SearchAddress(const std::string& address) const {
  if (!IsSearch(address) || !search_service) return {};
  return ServiceAddress(search_service(), SearchedWords(address));
}

}  // namespace corvane
