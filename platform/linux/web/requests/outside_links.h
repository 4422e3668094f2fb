#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/web/requests/question_desk.h"

namespace corvane::desktop {

/// The other programs of the desktop.
class OtherPrograms {
 public:
  virtual ~OtherPrograms() = default;
  /// Whether there is one for addresses of this scheme ("mailto").
  virtual bool CanOpen(const std::string& scheme) const;
  /// Opens the address; `done` gets what went wrong, or an empty text.
  virtual void Open(const std::string& address, std::function<void(const std::string&)> done);
};

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

}  // namespace corvane::desktop
