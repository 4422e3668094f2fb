#include "web/requests/Permissions.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "web/address/Address.h"

namespace corvane {
namespace {

// More requests of a kind that is being asked about than any page needs.
constexpr std::size_t kMostAtOnce = 10;

enum Choice : int { kRefuse, kAllowOnce, kAllowSite, kRefuseSite };

struct Row {
  std::string_view kind;
  std::string_view words;  // what a site does that wants it
};

constexpr std::array<Row, 10> kKinds = {
    {{"location", "wants to know where you are"},
     {"notifications", "wants to show you notifications"},
     {"screen", "wants to see what is on your screen"},
     {"camera", "wants to use your camera"},
     {"microphone", "wants to use your microphone"},
     {"camera and microphone", "wants to use your camera and microphone"},
     {"devices", "wants to know the names of your cameras and microphones"},
     {"pointer", "wants to keep the mouse pointer to itself"},
     {"clipboard", "wants to read your clipboard"},
     {"protected media", "wants to play protected media"}}};

/// Empty for what is never allowed.
std::string WordsOf(const PermissionWish& wish) {
  if (wish.kind == "data") return "wants to let " + wish.of + " use what it has stored here";
  const auto* row = std::find_if(kKinds.begin(), kKinds.end(),
                                 [&](const Row& each) { return each.kind == wish.kind; });
  return row == kKinds.end() ? "" : std::string(row->words);
}

}  // namespace

Permissions::Permissions(PermissionBook& book, QuestionDesk& desk, PageNotices& notices)
    : book_(book), desk_(desk), notices_(notices) {}

void Permissions::Decide(const PermissionWish& wish, const std::string& address, Answer answer) {
  const std::string words = WordsOf(wish);
  if (wish.site.empty() || words.empty()) return answer(false);
  const Key key{wish.site, wish.kind == "data" ? "data of " + wish.of : wish.kind};
  if (const auto stored = book_.Find(key.first, key.second)) return answer(*stored);

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
             SiteOf(address) + " " + words + ".",
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
