#include "explorer/CPageElements.h"

#include <utility>

#include "base/error.h"

namespace corvane {
namespace {

[[noreturn]] void Refuse() {
  throw RunTimeError(kErrRefused, "IExplorerItem", "Unable to delete this object");
}

}  // namespace

std::shared_ptr<IExplorerItem> CPageElements::Branch(const std::string& name,
                                                     std::vector<Entry> entries, int picture,
                                                     int element_picture) {
  auto branch = std::make_shared<CPageElements>();
  branch->entry_.words = name + " " + std::to_string(entries.size());
  branch->entries_ = std::move(entries);
  branch->picture_ = picture;
  branch->element_picture_ = element_picture;
  return branch;
}

ExplorerItems CPageElements::IExplorerItem_GetChildren(CExplorer&, TreeNode&) {
  ExplorerItems items;
  items.reserve(entries_.size());
  for (const Entry& entry : entries_) {
    auto item = std::make_shared<CPageElements>();
    item->entry_ = entry;
    item->picture_ = element_picture_;
    items.push_back(std::move(item));
  }
  return items;
}

void CPageElements::IExplorerItem_SetText(const std::string&) { Refuse(); }

void CPageElements::IExplorerItem_Delete() { Refuse(); }

}  // namespace corvane
