#include "web/DocumentProblem.h"

#include "base/safe_name.h"
#include "base/text.h"
#include "web/address/Address.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestName = 100;
constexpr const char* kReturn = "Press Back to return, or type another address.";

}  // namespace

bool IsDocumentKind(std::string_view mime_type) {
  return text::same_ignoring_case(mime_type, "application/pdf") ||
         text::same_ignoring_case(mime_type, "application/x-pdf");
}

std::string DocumentName(const std::string& address) {
  std::string path = address.substr(0, address.find_first_of("?#"));
  while (path.ends_with('/')) path.pop_back();
  const std::string name = Unescaped(path.substr(path.rfind('/') + 1));
  const bool is_text = text::valid(name) == name &&
                       name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
  return name.empty() || !is_text ? SiteOf(address) : Shorten(name, kLongestName);
}

Problem DocumentProblem(const std::string& address, DocumentEnd end) {
  const std::string name = DocumentName(address);
  switch (end) {
    case DocumentEnd::Locked:
      return {"The document is locked: " + name,
              "The document " + name + " can be read only with its password.",
              "Press Refresh to be asked for the password again, or Back to return.", address};
    case DocumentEnd::TooBig:
      return {"The document is too big: " + name,
              "The document " + name + " takes more memory than there is for one document.",
              kReturn, address};
    case DocumentEnd::TooLong:
      return {"The document takes too long: " + name,
              "The document " + name + " could not be read in the time that there is for it.",
              kReturn, address};
    case DocumentEnd::NotProtected:
      return {"The document is not read: " + name,
              "Documents are read in a part of the program that is shut off from everything "
              "else. That is not possible on this computer, so the document " +
                  name + " has not been read.",
              kReturn, address};
    case DocumentEnd::Done:
    case DocumentEnd::Broken:
      break;
  }
  return {"The document cannot be read: " + name,
          "The document " + name + " is damaged, or it is no PDF document.", kReturn, address};
}

}  // namespace corvane
