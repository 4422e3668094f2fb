#include "platform/linux/web/documents/document_problem.h"

#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestName = 100;
constexpr const char* kReturn = "Press Back to return, or type another address.";

}  // namespace

std::string DocumentName(const std::string& address) {
  std::string path = address.substr(0, address.find_first_of("?#"));
  while (path.ends_with('/')) path.pop_back();
  const GText plain(g_uri_unescape_string(path.substr(path.rfind('/') + 1).c_str(), "/"));
  const std::string name = Text(plain.get());
  const bool is_text = g_utf8_validate(name.c_str(), -1, nullptr) != 0;
  return name.empty() || !is_text ? SiteOf(address) : Shorten(name, kLongestName);
}

Problem DocumentProblem(const std::string& address, DocumentProcess::End end) {
  const std::string name = DocumentName(address);
  switch (end) {
    case DocumentProcess::End::Locked:
      return {"The document is locked: " + name,
              "The document " + name + " can be read only with its password.",
              "Press Refresh to be asked for the password again, or Back to return.", address};
    case DocumentProcess::End::TooBig:
      return {"The document is too big: " + name,
              "The document " + name + " takes more memory than there is for one document.",
              kReturn, address};
    case DocumentProcess::End::TooLong:
      return {"The document takes too long: " + name,
              "The document " + name + " could not be read in the time that there is for it.",
              kReturn, address};
    case DocumentProcess::End::NotProtected:
      return {"The document is not read: " + name,
              "Documents are read in a part of the program that is shut off from everything "
              "else. That is not possible on this computer, so the document " +
                  name + " has not been read.",
              kReturn, address};
    case DocumentProcess::End::Done:
    case DocumentProcess::End::Broken:
      break;
  }
  return {"The document cannot be read: " + name,
          "The document " + name + " is damaged, or it is no PDF document.", kReturn, address};
}

}  // namespace corvane::desktop
