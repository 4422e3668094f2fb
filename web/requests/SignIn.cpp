#include "web/requests/SignIn.h"

#include <utility>

#include "base/language.h"
#include "base/safe_name.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestRealm = 200;

std::string TextOf(const SignInWish& wish) {
  std::string text = wish.again ? "The name or the password was not right. " : "";
  text += wish.proxy ? "The proxy " : "The server ";
  text += wish.server + " asks for a user name and a password.";
  const std::string realm = Shorten(wish.realm, kLongestRealm);
  return realm.empty() ? text : text + " It says: " + language::Marked(realm, language::kOfAPage);
}

}  // namespace

void SignIn::Ask(const SignInWish& wish, Answer answer) {
  const std::string key = wish.server + "\n" + wish.realm;
  if (given_up_.contains(key)) return answer(std::nullopt);
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Sign in",
             TextOf(wish),
             {{.label = "User name"}, {.kind = DialogField::Kind::kPassword, .label = "Password"}},
             {"&Sign in", "&Cancel"}},
            [this, key, answer = std::move(answer)](const auto& reply) {
              if (reply && reply->button == 0) {
                return answer(Credentials{reply->values.at(0), reply->values.at(1)});
              }
              given_up_.insert(key);
              answer(std::nullopt);
            });
}

}  // namespace corvane
