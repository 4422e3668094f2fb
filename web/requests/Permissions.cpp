#include "web/requests/Permissions.h"

#include <utility>

#include "web/address/Address.h"

namespace corvane {
namespace {

// More requests of a kind that is being asked about than any page needs.
constexpr std::size_t kMostAtOnce = 10;

enum Choice : int { kRefuse, kAllowOnce, kAllowSite, kRefuseSite };

}  // namespace

Permissions::Permissions(PermissionBook& book, QuestionDesk& desk, PageNotices& notices)
    : book_(book), desk_(desk), notices_(notices) {}

void Permissions::Decide(const PermissionWish& wish, const std::string& address, Answer answer) {
  if (wish.site.empty() || wish.kind.empty()) return answer(false);
  if (const auto stored = book_.Find(wish.site, wish.kind)) return answer(*stored);

  const Key key{wish.site, wish.kind};
  if (const auto known = decided_.find(key); known != decided_.end()) {
    if (!known->second) {
      notices_.Tell("This page asks again for what was refused. It stays refused.");
    }
    return answer(known->second);
  }
  if (const auto open = asked_.find(key); open != asked_.end()) {
    if (open->second.size() >= kMostAtOnce) {
      notices_.Tell("This page asks for the same permission again and again.");
      return answer(false);
    }
    open->second.push_back(std::move(answer));
    return;
  }
  asked_[key].push_back(std::move(answer));
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Permission",
             SiteOf(address) + " " + wish.words + ".",
             {},
             {"&Refuse", "Allow &once", "&Always allow for this site", "&Never for this site"}},
            [this, key](const auto& reply) { Answered(key, reply); });
}

void Permissions::Answered(const Key& key, const std::optional<DialogAnswer>& reply) {
  const auto node = asked_.extract(key);
  const int choice = reply ? reply->button : kRefuse;
  const bool allowed = choice == kAllowOnce || choice == kAllowSite;
  const bool for_good = choice == kAllowSite || choice == kRefuseSite;
  if (for_good && !book_.Decide(key.first, key.second, allowed)) {
    notices_.Tell("The decision could not be stored. It holds until Corvane is closed.");
  }
  // What stands in the book may be taken back there.
  if (reply && !book_.Find(key.first, key.second)) decided_[key] = allowed;
  if (node.empty()) return;
  for (const Answer& each : node.mapped()) each(allowed);
}

// What was allowed once was allowed to that page.
void Permissions::Reset() {
  std::erase_if(decided_, [](const auto& entry) { return entry.second; });
}

}  // namespace corvane
