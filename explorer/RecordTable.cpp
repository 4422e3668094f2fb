#include "explorer/RecordTable.h"

#include <algorithm>
#include <utility>

namespace corvane {

bool IsEmpty(const ExplorerData& data) {
  if (const auto* item = std::get_if<std::shared_ptr<IExplorerItem>>(&data)) return !*item;
  return std::holds_alternative<std::monostate>(data);
}

std::shared_ptr<IExplorerItem> ItemOf(const ExplorerData& data) {
  const auto* item = std::get_if<std::shared_ptr<IExplorerItem>>(&data);
  return item != nullptr ? *item : nullptr;
}

void RecordTable::Add(TreeNodeId node, ExplorerData data) {
  ++count_;
  if (count_ >= records_.size()) {
    // Doubling what is reserved keeps a table of a hundred thousand from being
    // moved for every fifty.
    if (records_.capacity() < records_.size() + kStep)
      records_.reserve(2 * records_.size() + kStep);
    records_.resize(records_.size() + kStep);
  }
  records_[count_] = {node, std::move(data)};
  Index(count_);
}

void RecordTable::SetData(std::size_t index, ExplorerData data) {
  Unindex(index);
  records_[index].data = std::move(data);
  Index(index);
}

void RecordTable::Remove(std::size_t index) {
  Unindex(index);
  if (index != count_) {
    Unindex(count_);
    records_[index] = std::move(records_[count_]);
    Index(index);
  }
  records_[count_] = {};
  --count_;
}

void RecordTable::Clear() {
  // What the items hold is let go only when the table is empty already.
  const auto records = std::exchange(records_, std::vector<Record>(1));
  const auto by_data = std::exchange(by_data_, {});
  by_node_.clear();
  count_ = 0;
}

std::size_t RecordTable::FindByNode(TreeNodeId node) const {
  const auto at = by_node_.find(node);
  return at == by_node_.end() ? 0 : at->second;
}

std::size_t RecordTable::FindByData(const ExplorerData& data) const {
  if (IsEmpty(data)) return 0;
  const auto at = by_data_.find(data);
  return at == by_data_.end() ? 0 : at->second.front();
}

void RecordTable::Index(std::size_t index) {
  const Record& record = records_[index];
  by_node_[record.node] = index;
  if (IsEmpty(record.data)) return;
  auto& all = by_data_[record.data];
  all.insert(std::upper_bound(all.begin(), all.end(), index), index);
}

void RecordTable::Unindex(std::size_t index) {
  const Record& record = records_[index];
  by_node_.erase(record.node);
  const auto at = by_data_.find(record.data);
  if (at == by_data_.end()) return;
  auto& all = at->second;
  all.erase(std::lower_bound(all.begin(), all.end(), index));
  if (all.empty()) by_data_.erase(at);
}

}  // namespace corvane
