#pragma once

#include <webkit2/webkit2.h>

#include <string>

namespace corvane::desktop {

/// What becomes of something a page, or the program, wants to load.
struct Verdict {
  enum class Kind {
    Use,       ///< goes on
    Ignore,    ///< does not happen
    LoadHere,  ///< loads in this view instead of a new window
    NotAPage,  ///< would be a page but cannot be shown
  };
  Kind kind = Kind::Ignore;
  std::string address;
  std::string content_type;
  bool from_history = false;  ///< the user goes back or forward
};

/// What the judgement depends on beside the decision itself.
struct PolicyContext {
  std::string present;    ///< address of the page shown
  std::string requested;  ///< address that the program itself asked for and waits for
};

/// Judges a navigation, a new window or an answer. Pages of the network never
/// lead to files or to the program's own pages; a new window opens only when the
/// user asked, and then in place.
Verdict Judge(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type,
              const PolicyContext& context);

}  // namespace corvane::desktop
