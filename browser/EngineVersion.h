#pragma once

#include <string>

#include "platform/registry.h"

namespace corvane {

/// A registry value's text below a root key given by its name
/// ("HKEY_LOCAL_MACHINE" ...); empty when root, key or value is absent.
std::string GetRegEntry(const Registry& registry, const std::string& root, const std::string& key,
                        const std::string& value);

/// The label of the rendering engine's version, empty for an unknown build.
std::string GetExplorerVersion(const Registry& registry);

}  // namespace corvane
