#pragma once

#include "platform/other_programs.h"

namespace corvane::desktop {

/// Those that the desktop starts for an address.
class DesktopPrograms : public OtherPrograms {
 public:
  bool CanOpen(const std::string& scheme) const override;
  void Open(const std::string& address, std::function<void(const std::string&)> done) override;
};

}  // namespace corvane::desktop
