#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>

#include "web/requests/QuestionDesk.h"

namespace corvane {

/// What a server wants to know before it lets a user in.
struct SignInWish {
  std::string server;  ///< with its port
  std::string realm;   ///< what the server calls it
  bool proxy = false;  ///< it is not the page's server that asks
  bool again = false;  ///< what was answered last was not right
};

struct Credentials {
  std::string user;
  std::string password;
};

/// Asks the user for the name and the password that a server wants. What the user
/// does not want to answer is not asked again by the same page.
class SignIn {
 public:
  /// Nothing: the server is to go on without.
  using Answer = std::function<void(const std::optional<Credentials>&)>;

  explicit SignIn(QuestionDesk& desk) : desk_(desk) {}

  void Ask(const SignInWish& wish, Answer answer);
  /// Another page is asked for.
  void Reset() { given_up_.clear(); }

 private:
  QuestionDesk& desk_;
  std::set<std::string> given_up_;  // servers and their realms
};

}  // namespace corvane
