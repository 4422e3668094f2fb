#include "browser/HelpOutline.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"
#include "platform/errors_shown.h"

namespace corvane {
namespace {

constexpr std::size_t kDepths = 5;  // 0 to 4 leading tabs

std::string trimmed(const std::string& text) { return std::string(text::trimmed(text, " \t")); }

// The tabs that the line begins with; more than 4 count as 4.
std::size_t depth_of(const std::string& line) {
  return std::min(line.find_first_not_of('\t'), kDepths - 1);
}

}  // namespace

void HelpOutline::GetHelp(const std::string& file) {
  ErrorsShown(pane_.desktop.GetMessageBox(), "GetHelp Error: ", [&] {
    const FileSystem& files = pane_.desktop.GetFileSystem();
    if (!files.Exists(file)) return;
    const auto lines = files.ReadLines(file);
    // An empty tree would be silent.
    if (std::all_of(lines.begin(), lines.end(),
                    [](const auto& line) { return trimmed(line).empty(); })) {
      throw RunTimeError(kErrFileNotFound, "", "There is nothing in the help text " + file);
    }
    TreeView& tree = side_bar_.ClearForOutline();
    std::array<TreeNode*, kDepths> last{};
    for (const auto& line : lines) {
      if (trimmed(line).empty()) continue;
      const std::size_t depth = depth_of(line);
      TreeNode* parent = nullptr;
      for (std::size_t above = depth; above > 0 && parent == nullptr; --above)
        parent = last[above - 1];
      const auto colon = line.find(':');
      TreeNode& node = tree.Add(parent, trimmed(line.substr(0, colon)));
      if (colon != std::string::npos) node.SetTag(trimmed(line.substr(colon + 1)));
      last[depth] = &node;
      std::fill(last.begin() + static_cast<std::ptrdiff_t>(depth) + 1, last.end(), nullptr);
    }
    if (pane_.menu.mnuSideBarContent(kSideBarNone).Checked()) {
      pane_.announcer.AddAndSay("The help is in the side bar, which is not shown");
    } else {
      tree.SetFocus();
      if (tree.SelectedItem() == nullptr) side_bar_.SelectFirst();  // the focus was there
    }
  });
}

}  // namespace corvane
