#pragma once

namespace corvane {

/// The maker's home page, which the program serves itself.
inline constexpr const char* kMakerHomePage = "corvane://home/cv/";
/// The second start address of the address box.
inline constexpr const char* kVendorHomePage = "https://www.mozilla.org/";
/// What the escaped words of a search are appended to.
inline constexpr const char* kSearchEndpoint =
    "corvane://search/cgi-bin/query?pg=q&text=yes&kl=XX&q=";
inline constexpr const char* kBlankPage = "about:blank";

}  // namespace corvane
