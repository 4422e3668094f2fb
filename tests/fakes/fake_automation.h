#pragma once

#include <optional>
#include <vector>

#include "platform/automation.h"

namespace corvane::fakes {

/// The road from other programs; the test calls `server` in their place.
class FakeAutomation : public Automation {
 public:
  void Publish(AutomationServer& entry) override { server = &entry; }
  void Refuse(const RunTimeError& error) override { refused = error; }
  void Withdraw() override { server = nullptr; }
  void TellKeyboardEcho(bool on) override { echo.push_back(on); }

  AutomationServer* server = nullptr;
  std::optional<RunTimeError> refused;
  std::vector<bool> echo;  ///< all that was told
};

}  // namespace corvane::fakes
