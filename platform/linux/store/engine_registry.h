#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/registry.h"

namespace corvane::desktop {

/// A Registry that holds what the program asks of the rendering engine's
/// registration: that the engine is there and current.
class EngineRegistry : public Registry {
 public:
  std::optional<std::string> QueryValue(std::uint32_t root, const std::string& key,
                                        const std::string& value) const override;
};

}  // namespace corvane::desktop
