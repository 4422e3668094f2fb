#include "platform/linux/store/engine_registry.h"

#include "base/text.h"

namespace corvane::desktop {
namespace {

constexpr std::uint32_t kLocalMachine = 0x80000002;
constexpr const char* kKey = "software\\microsoft\\internet explorer";

// The newest engine that the program's version table knows: the version must
// begin with another character than 4, and the build is matched exactly.
constexpr const char* kVersion = "5.00.2920.0000";
constexpr const char* kBuild = "52516.19";

}  // namespace

std::optional<std::string> EngineRegistry::QueryValue(std::uint32_t root, const std::string& key,
                                                      const std::string& value) const {
  auto path = text::lower(key);
  while (!path.empty() && path.back() == '\\') path.pop_back();
  if (root != kLocalMachine || path != kKey) return std::nullopt;
  const auto name = text::lower(value);
  if (name == "version") return kVersion;
  if (name == "build") return kBuild;
  return std::nullopt;
}

}  // namespace corvane::desktop
