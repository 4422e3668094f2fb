#pragma once

#include <functional>
#include <string>

#include "web/requests/Allowance.h"

namespace corvane {

/// Tells the user what a page has brought about ("A pop-up window was blocked.").
/// A page may bring it about a thousand times a second, so that each sentence is
/// told once a while and few are told in all: no page drives the speech.
class PageNotices {
 public:
  /// `say` speaks a sentence.
  explicit PageNotices(std::function<void(const std::string&)> say,
                       Allowance::Clock now = &Allowance::SteadyClock);

  /// The sentence must be the program's own. Left out when it comes too often.
  void Tell(const std::string& sentence);

 private:
  static constexpr int kMost = 6;
  static constexpr int kSeconds = 60;
  static constexpr int kSameAgain = 20;  ///< seconds until the same is told again

  std::function<void(const std::string&)> say_;
  Allowance::Clock now_;
  Allowance allowance_;
  std::string last_;
  double last_told_ = 0;
};

}  // namespace corvane
