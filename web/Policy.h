#pragma once

#include <string>

#include "platform/engine.h"

namespace corvane {

/// What becomes of something a page, or the program, wants to load.
struct Verdict {
  enum class Kind {
    Use,       ///< goes on
    Ignore,    ///< does not happen
    Outside,   ///< is for another program of the desktop
    Download,  ///< is a file to be saved
    Document,  ///< is one that the program makes a page of
  };
  Kind kind = Kind::Ignore;
  std::string address;
  bool from_history = false;  ///< the user goes back or forward
  bool user_gesture = false;  ///< the user has just done something in the page
};

/// What the judgement depends on beside what is judged.
struct PolicyContext {
  std::string present;    ///< address of the page shown
  std::string requested;  ///< address that the program itself asked for and waits for
  /// Address under which the engine knows the page shown, where that is of a document.
  std::string document = {};
};

/// Judges what is to be loaded in place. Pages of the network never lead to files or to
/// the program's own pages, neither so nor in a new window.
Verdict Judge(const LoadWish& wish, const PolicyContext& context);
/// Judges what a page wants to load in a new window.
Verdict JudgeNewWindow(const LoadWish& wish, const PolicyContext& context);
/// Judges what has come.
Verdict Judge(const LoadAnswer& answer);

}  // namespace corvane
