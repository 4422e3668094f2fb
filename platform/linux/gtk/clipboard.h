#pragma once

#include <string>

#include "platform/clipboard.h"

namespace corvane::desktop {

/// The display's clipboard.
class SystemClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text) override;
  std::string GetText() const override;
};

}  // namespace corvane::desktop
