#include "explorer/CDirectory.h"

#include <utility>

#include "base/error.h"
#include "base/handling.h"
#include "base/text.h"
#include "explorer/mIShellFolder.h"

namespace corvane {
namespace {

constexpr std::uint32_t kRootAttributes = kAttributeHasSubFolder;
constexpr std::size_t kTypeNameField = 80;  // characters, its end included
constexpr int kPathField = 512;             // characters of a chosen folder's path
constexpr int kAllContents = kContentsFolders | kContentsNonFolders | kContentsHidden;

}  // namespace

void CDirectory::Initialize(const std::shared_ptr<ImageList>& ImageLarge,
                            const std::shared_ptr<ImageList>& ImageSmall) {
  icons_ = std::make_shared<IconCache>(desktop_, ImageLarge, ImageSmall);
}

// A root can always be opened, whatever the system says of it. Its label keeps a
// zero character at its end, which no tree shows.
void CDirectory::SetPath(const std::string& Path) {
  Shell& shell = desktop_.GetShell();
  path_ = Path;
  position_ = {};
  position_.TVID_ulAttrs = kRootAttributes;
  const auto place = mIShellFolder::PlaceOf(shell, Path);
  placed_ = place.has_value();
  if (!place) return;
  position_.TVID_pidlFQ = *place;
  icon_index_ = ComputeIconIndex();
  position_.TVID_isfParent = mIShellFolder::ParentFolder(shell, *place);
  if (mIShellFolder::IsDesktop(*place)) {
    position_.TVID_pidlRel = *place;
  } else {
    position_.TVID_pidlRel = {mIShellFolder::LastItem(*place)};
  }
  display_name_ =
      position_.TVID_isfParent->GetDisplayNameOf(mIShellFolder::LastItem(*place)) + '\0';
}

void CDirectory::Filters(std::uint32_t ulAttrs1, std::uint32_t ulAttrs2) {
  ulAttrs1_ = ulAttrs1;
  ulAttrs2_ = ulAttrs2 == 0 ? ulAttrs1 : ulAttrs2;
}

std::string CDirectory::FilePath() const {
  return placed_ ? desktop_.GetShell().GetPathFromIdList(position_.TVID_pidlFQ) : std::string();
}

std::string CDirectory::name() const {
  const auto last = path_.rfind(desktop_.GetFileSystem().Separator());
  if (last == std::string::npos || last + 1 == path_.size()) return path_;
  return path_.substr(last + 1);
}

std::vector<std::shared_ptr<CDirectory>> CDirectory::Subdirs() const {
  std::vector<std::shared_ptr<CDirectory>> found;
  if (!placed_) return found;
  const auto folder = desktop_.GetShell().BindToFolder(position_.TVID_pidlFQ);
  const auto each = folder->EnumObjects(kAllContents);
  while (each->Read()) desktop_.DoEvents();
  for (std::string item; each->Next(item); desktop_.DoEvents()) {
    const auto attributes = folder->GetAttributesOf(item, ulAttrs1_);
    if (!attributes || (*attributes & ulAttrs1_) == 0 || (*attributes & ulAttrs2_) == 0) continue;
    found.push_back(Child(folder, item, *attributes));
  }
  return found;
}

std::shared_ptr<CDirectory> CDirectory::Child(const std::shared_ptr<ShellFolder>& folder,
                                              const std::string& item,
                                              std::uint32_t attributes) const {
  auto child = std::make_shared<CDirectory>(desktop_);
  child->position_ = {
      folder, {item}, mIShellFolder::Concatenated(position_.TVID_pidlFQ, item), attributes};
  child->placed_ = true;
  child->display_name_ = folder->GetDisplayNameOf(item);
  child->path_ = folder->GetPathOf(item);
  child->icons_ = icons_;
  child->Filters(ulAttrs1_, ulAttrs2_);
  child->icon_index_ = child->ComputeIconIndex();
  return child;
}

std::vector<std::string> CDirectory::Files() const {
  std::vector<std::string> names;
  Shell& shell = desktop_.GetShell();
  const char separator = desktop_.GetFileSystem().Separator();
  const std::string path = path_.ends_with(separator) ? path_ : path_ + separator;
  const auto place = shell.ParseDisplayName(path);
  if (!place) return names;
  const auto each = shell.BindToFolder(*place)->EnumObjects(kContentsNonFolders);
  while (each->Read()) desktop_.DoEvents();
  for (std::string name; each->Next(name);) names.push_back(name);
  return names;
}

void CDirectory::GetFolder(WindowHandle hwndOwner, const std::string& sTitle,
                           std::function<void(const std::string& path)> chosen) {
  OpenFileName record;
  record.owner = hwndOwner;
  record.title = sTitle;
  record.max_file = kPathField;
  folder_dialog_ = desktop_.CreateFileDialog();
  folder_dialog_->Show(FileDialog::Kind::Folder, record, nullptr,
                       [this, chosen = std::move(chosen)](const FileDialog::Result& result) {
                         const auto dialog = std::move(folder_dialog_);
                         const std::string& path = result.record.file;
                         chosen(result.chosen ? path.substr(0, path.find('\0')) : "");
                       });
}

std::shared_ptr<Picture> CDirectory::GetIcon(const std::string& sFile, EIconType type) const {
  return desktop_.GetShell().GetIcon(sFile, type);
}

std::string CDirectory::GetFileTypeName(const std::string& sFile) const {
  return text::left(desktop_.GetShell().TypeName(sFile), kTypeNameField - 1);
}

int CDirectory::ComputeIconIndex() const {
  int index = 0;
  ErrorsIgnored([&] {
    if (placed_ && icons_) index = icons_->IndexOf(position_.TVID_pidlFQ);
  });
  return index;
}

int CDirectory::IExplorerItem_IconIndex() const {
  if (icon_index_ == 0) icon_index_ = ComputeIconIndex();
  return icon_index_;
}

bool CDirectory::IExplorerItem_HasChildren() const {
  return (position_.TVID_ulAttrs & kAttributeHasSubFolder) != 0;
}

ExplorerItems CDirectory::IExplorerItem_GetChildren(CExplorer&, TreeNode&) {
  const auto found = Subdirs();
  return {found.begin(), found.end()};
}

void CDirectory::IExplorerItem_SetText(const std::string&) {
  throw RunTimeError(kErrRefused, "CDirectory", "Unable to delete this object");
}

void CDirectory::IExplorerItem_Delete() {
  throw RunTimeError(kErrRefused, "CDirectory", "Unable to delete this object");
}

}  // namespace corvane
