#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/other_programs.h"

namespace corvane::fakes {

/// A desktop with a program for addresses of mail, and for no others.
class FakePrograms : public OtherPrograms {
 public:
  bool CanOpen(const std::string& scheme) const override { return scheme == "mailto"; }
  void Open(const std::string& address, std::function<void(const std::string&)> done) override {
    opened.push_back(address);
    done("");
  }
  std::vector<std::string> opened;
};

}  // namespace corvane::fakes
