#include "web/library/LinkFile.h"

#include "base/profile_text.h"
#include "base/safe_name.h"
#include "base/text.h"
#include "tests/fuzz/fuzz.h"
#include "web/address/TypedAddress.h"

using namespace corvane;

namespace {

bool HasLineBreak(std::string_view text) { return text.find_first_of("\r\n") != std::string::npos; }

void PromisePlainName(const std::string& name) {
  constexpr std::size_t kLongestOnDisk = 255;
  constexpr std::size_t kPutBehind = std::string_view(" 1000.desktop").size();
  Promise(name.size() + kPutBehind <= kLongestOnDisk);
  Promise(!name.empty() && name != "." && name != "..");
  Promise(text::valid(name) == name);
  for (const char c : name) Promise(static_cast<unsigned char>(c) >= ' ' && c != '/' && c != 127);
}

}  // namespace

// Titles and addresses of pages, which become names and contents of files; and
// what is typed, dropped or handed over as an address.
void FuzzOne(const std::string& input) {
  const std::string address = input.substr(0, input.find('\n'));
  PromisePlainName(SafeFileName(input));
  Promise(PlainName(PlainName(input)) == PlainName(input));

  // Nothing in an address may end its line and start another one.
  const std::string shortcut = ShortcutContent(input);
  Promise(!HasLineBreak(profile::value(shortcut, "InternetShortcut", "URL")));
  Promise(profile::value(shortcut, "InternetShortcut", "IconFile").empty());
  const std::string link = DesktopLinkContent(input, input);
  Promise(profile::value(link, "Desktop Entry", "Exec").empty());
  Promise(profile::value(link, "Desktop Entry", "Type") == "Link");

  for (const char* name : {"a.url", "b.desktop", "c.html"}) {
    const LinkFile file = ReadLinkFile(name, input, {"de_DE", "de"});
    Promise(!HasLineBreak(file.name) && !HasLineBreak(file.address));
    Promise(text::valid(file.name) == file.name);
  }

  IsHostileAddress(input, "");
  IsHostileAddress(address, input);
  const TypedAddress typed = ResolveTyped(input, "/home/user");
  Promise(!HasLineBreak(typed.uri));
  Promise(typed.uri.empty() == typed.problem.has_value());
}
