#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/other_programs.h"
#include "web/requests/QuestionDesk.h"

namespace corvane {

/// Hands addresses that are none of pages over to the desktop, after a question.
class OutsideLinks {
 public:
  /// `say` tells the user what came of it.
  OutsideLinks(QuestionDesk& desk, std::shared_ptr<OtherPrograms> programs,
               std::function<void(const std::string&)> say);

  /// Only for what the user has asked for.
  void Offer(const std::string& address);

 private:
  QuestionDesk& desk_;
  std::shared_ptr<OtherPrograms> programs_;
  std::function<void(const std::string&)> say_;
};

}  // namespace corvane
