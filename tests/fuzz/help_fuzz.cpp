#include "browser/HelpOutline.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fuzz/fuzz.h"

using namespace corvane;

// The help outline, cut into lines as the file system hands them over.
void FuzzOne(const std::string& input) {
  fakes::FakeDesktop desktop;
  PaneContext pane(desktop);
  auto& lines = desktop.files.files[desktop.files.program_folder + "/cvhelp.txt"];
  for (std::size_t start = 0; start <= input.size();) {
    const std::size_t end = std::min(input.find('\n', start), input.size());
    lines.push_back(input.substr(start, end - start));
    start = end + 1;
  }
  HelpOutline(pane).GetHelp("cvhelp.txt");
}
