#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "explorer/IExplorerItem.h"
#include "platform/tree_view.h"

namespace corvane {

/// What a node stands for: nothing, a plain value, or an item.
using ExplorerData =
    std::variant<std::monostate, std::string, double, std::shared_ptr<IExplorerItem>>;

/// Nothing at all, or an item that is not there.
bool IsEmpty(const ExplorerData& data);

/// The item, or null when the data is none.
std::shared_ptr<IExplorerItem> ItemOf(const ExplorerData& data);

/// The records that map a tree's nodes to their data, numbered from 1; 0 means
/// no record. Where several records have the same data the lowest number is
/// found, as if all were looked through in order, but without looking.
class RecordTable {
 public:
  struct Record {
    TreeNodeId node = 0;
    ExplorerData data;
  };

  std::size_t Count() const { return count_; }
  /// The number of the last slot: so many records fit before the table grows.
  std::size_t UpperBound() const { return records_.size() - 1; }
  /// Record number `index`, 1 to Count.
  const Record& At(std::size_t index) const { return records_[index]; }

  void Add(TreeNodeId node, ExplorerData data);
  void SetData(std::size_t index, ExplorerData data);
  /// The last record takes the removed one's number.
  void Remove(std::size_t index);
  void Clear();

  std::size_t FindByNode(TreeNodeId node) const;
  /// An empty value is never found.
  std::size_t FindByData(const ExplorerData& data) const;

 private:
  void Index(std::size_t index);
  void Unindex(std::size_t index);

  static constexpr std::size_t kStep = 50;  // slots that the table grows by
  std::vector<Record> records_ = std::vector<Record>(1);
  std::size_t count_ = 0;
  std::unordered_map<TreeNodeId, std::size_t> by_node_;
  std::unordered_map<ExplorerData, std::vector<std::size_t>> by_data_;  // ascending
};

}  // namespace corvane
