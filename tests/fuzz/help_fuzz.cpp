#include "browser/ctlWebBrowser.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fuzz/fuzz.h"

using namespace corvane;

// The help outline, cut into lines as the file system hands them over.
void FuzzOne(const std::string& input) {
  static fakes::FakeDesktop desktop;
  static ctlWebBrowser pane(desktop);
  const std::string path = desktop.files.program_folder + "/cvhelp.txt";
  auto& lines = desktop.files.files[path];
  lines.clear();
  for (std::size_t start = 0; start <= input.size();) {
    const std::size_t end = std::min(input.find('\n', start), input.size());
    lines.push_back(input.substr(start, end - start));
    start = end + 1;
  }
  pane.GetHelp(path);
}
