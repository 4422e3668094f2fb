#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "explorer/IExplorerItem.h"
#include "explorer/IconCache.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"
#include "platform/shell_folder.h"

namespace corvane {

/// An item that shows a folder of the shell, or something in one, with the
/// system's own names and icons. It is set up once and never reads again.
class CDirectory : public IExplorerItem {
 public:
  explicit CDirectory(Desktop& desktop) : desktop_(desktop) {}

  /// The image lists that the whole tree shares; the tree shows the large one.
  void Initialize(const std::shared_ptr<ImageList>& ImageLarge,
                  const std::shared_ptr<ImageList>& ImageSmall);
  /// Makes it a root: a special folder's number, or a path. What cannot be found
  /// leaves it without a name.
  void SetPath(const std::string& Path);
  /// Only items that share an attribute with each of the masks are shown. A
  /// second mask of 0 is the same as the first.
  void Filters(std::uint32_t ulAttrs1, std::uint32_t ulAttrs2 = 0);

  /// Where it lies on the file system; empty when it could not be found.
  std::string FilePath() const;
  /// The last name of the path; the whole path when it has none.
  std::string name() const;
  /// What the folder holds, made now; waiting events run meanwhile.
  std::vector<std::shared_ptr<CDirectory>> Subdirs() const;
  /// The names of the files in the folder, hidden ones left out.
  std::vector<std::string> Files() const;
  /// Lets the user choose a folder of the file system; `chosen` gets its path, or
  /// nothing when the user cancels. Returns at once; letting go of this item closes
  /// the dialog.
  void GetFolder(WindowHandle hwndOwner, const std::string& sTitle,
                 std::function<void(const std::string& path)> chosen);
  std::shared_ptr<Picture> GetIcon(const std::string& sFile, EIconType type) const;
  std::string GetFileTypeName(const std::string& sFile) const;

 private:
  /// Where the item lies.
  struct Position {
    std::shared_ptr<ShellFolder> TVID_isfParent;
    ItemIdList TVID_pidlRel;  ///< below the parent
    ItemIdList TVID_pidlFQ;   ///< from the desktop down
    std::uint32_t TVID_ulAttrs = 0;
  };

  std::string IExplorerItem_Text() const override { return display_name_; }
  [[noreturn]] void IExplorerItem_SetText(const std::string& Value) override;
  std::string IExplorerItem_ItemData() const override { return path_; }
  void IExplorerItem_SetItemData(const std::string&) override {}
  int IExplorerItem_IconIndex() const override;
  void IExplorerItem_SetIconIndex(int) override {}
  bool IExplorerItem_HasChildren() const override;
  ExplorerItems IExplorerItem_GetChildren(CExplorer& Explorer, TreeNode& Parent) override;
  void IExplorerItem_ShowItems(CExplorer&) override {}
  [[noreturn]] void IExplorerItem_Delete() override;

  std::shared_ptr<CDirectory> Child(const std::shared_ptr<ShellFolder>& folder,
                                    const std::string& item, std::uint32_t attributes) const;
  int ComputeIconIndex() const;

  Desktop& desktop_;
  Position position_;
  bool placed_ = false;  // the position means something
  std::string path_;
  std::string display_name_;
  mutable int icon_index_ = 0;
  std::uint32_t ulAttrs1_ = 0;
  std::uint32_t ulAttrs2_ = 0;
  std::shared_ptr<IconCache> icons_;
  std::unique_ptr<FileDialog> folder_dialog_;
};

}  // namespace corvane
