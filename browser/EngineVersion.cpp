#include "browser/EngineVersion.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/number.h"

namespace corvane {
namespace {

struct Build {
  float number;  // compared for equality, so the constants are singles too
  const char* label;
};

constexpr std::array kVersion4 = {
    Build{4544.0F, "4.0 (PP1)"}, Build{41008.3F, "4.0 (PP2)"},  Build{41712.6F, "4.0"},
    Build{42106.8F, "4.01"},     Build{43110.8F, "4.01 (SP1)"}, Build{43612.1713F, "4.01 (SP2)"},
};
constexpr std::array kVersion5 = {
    Build{5518.1F, "5.0 (Beta 1)"},
    Build{5910.1309F, "5.0 (Beta 2)"},
    Build{52014.0216F, "5.0"},
    Build{52516.19F, "5.0 (Win 2000.2031)"},
};
constexpr std::array kVersion3 = {
    Build{1155.0F, "3.0"},
    Build{1158.0F, "3.0 (OSR2)"},
    Build{1215.0F, "3.01"},
    Build{1300.0F, "3.02"},
};

template <class Table>
const char* find(const Table& table, float build) {
  const auto entry = std::find_if(table.begin(), table.end(),
                                  [&](const Build& known) { return known.number == build; });
  return entry == table.end() ? nullptr : entry->label;
}

std::string label_or_empty(const char* label) { return label == nullptr ? "" : label; }

constexpr std::array kRoots = {"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER",     "HKEY_LOCAL_MACHINE",
                               "HKEY_USERS",        "HKEY_PERFORMANCE_DATA", "HKEY_CURRENT_CONFIG",
                               "HKEY_DYN_DATA"};
constexpr std::uint32_t kFirstRoot = 0x80000000U;

}  // namespace

std::string GetRegEntry(const Registry& registry, const std::string& root, const std::string& key,
                        const std::string& value) {
  const auto name = std::find(kRoots.begin(), kRoots.end(), root);
  if (name == kRoots.end()) return "";
  const auto handle = kFirstRoot + static_cast<std::uint32_t>(name - kRoots.begin());
  return registry.QueryValue(handle, key, value).value_or("");
}

std::string GetExplorerVersion(const Registry& registry) {
  const auto entry = [&](const char* value) {
    return GetRegEntry(registry, "HKEY_LOCAL_MACHINE", "SOFTWARE\\Microsoft\\Internet Explorer\\",
                       value);
  };
  const std::string version = entry("Version");
  const auto build = static_cast<float>(number::leading(entry("Build")));

  if (version.empty()) {
    if (build < 1000.0F) return "0";
    if (const char* label = find(kVersion3, build)) return label;
    return build > 1300.0F ? "3.02+" : "3.0x";
  }
  return label_or_empty(version.front() == '4' ? find(kVersion4, build) : find(kVersion5, build));
}

}  // namespace corvane
