#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

/// The engine's registration, read like a registry: predefined root keys, a
/// path of keys below them, named text values.
class Registry {
 public:
  virtual ~Registry() = default;
  /// The text of a value; nothing when the key or the value is absent.
  virtual std::optional<std::string> QueryValue(std::uint32_t root, const std::string& key,
                                                const std::string& value) const = 0;
};

}  // namespace corvane
