#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace corvane::test {

/// The tables of the document that lists all settings: each setting's row, its cells
/// as they are written but without the quotes of code.
class SettingsDocument {
 public:
  enum class Table { Manner, Others };

  explicit SettingsDocument(const std::string& source_folder) {
    std::ifstream in(source_folder + "/docs/settings.md");
    for (std::string line; std::getline(in, line);) {
      const std::vector<std::string> cells = Cells(line);
      if (cells.size() != 5) continue;
      EXPECT_TRUE(rows_.emplace(cells[0], cells).second) << cells[0] << " stands there twice";
    }
    EXPECT_GT(rows_.size(), 10U);
  }

  /// Expects a row for the setting: its file, and both defaults.
  void Expect(Table table, const std::string& application, const std::string& key,
              const std::string& established, const std::string& installed) const {
    const auto row = rows_.find(key);
    ASSERT_NE(row, rows_.end()) << key << " has no row";
    const std::size_t defaults = table == Table::Manner ? 2 : 3;
    EXPECT_EQ(row->second[1], application + ".ini") << key;
    EXPECT_EQ(row->second[defaults], established) << key;
    EXPECT_EQ(row->second[defaults + 1], installed) << key;
  }

 private:
  static std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    if (!line.starts_with("| `")) return cells;
    std::istringstream in(line.substr(1));
    for (std::string cell; std::getline(in, cell, '|');) {
      const auto first = cell.find_first_not_of(" `");
      const auto last = cell.find_last_not_of(" `");
      cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
    }
    return cells;
  }

  std::map<std::string, std::vector<std::string>> rows_;
};

}  // namespace corvane::test
