#include "web/requests/OutsideLinks.h"

#include <utility>

#include "base/safe_name.h"
#include "web/address/Address.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestShown = 200;

}  // namespace

OutsideLinks::OutsideLinks(QuestionDesk& desk, std::shared_ptr<OtherPrograms> programs,
                           std::function<void(const std::string&)> say)
    : desk_(desk), programs_(std::move(programs)), say_(std::move(say)) {}

void OutsideLinks::Offer(const std::string& address) {
  const std::string scheme = SchemeOf(address);
  if (!programs_->CanOpen(scheme)) {
    return say_("There is no program for addresses that begin with " + scheme + ":");
  }
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Open with another program?",
             "This address belongs to another program: " + Shorten(address, kLongestShown),
             {},
             {"&Open", "&Cancel"}},
            [address, scheme, programs = programs_, say = say_](const auto& reply) {
              if (!reply || reply->button != 0) return;
              programs->Open(address, [scheme, say](const std::string& error) {
                if (!error.empty()) say("No program could open the " + scheme + " address.");
              });
            });
}

}  // namespace corvane
