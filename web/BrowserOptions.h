#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/other_programs.h"
#include "web/Watchdog.h"

namespace corvane {

/// How the browser controls work together with the rest of the program. Whatever is left
/// empty has a sensible default.
struct BrowserOptions {
  /// The user's home folder, for "~" in typed paths.
  std::string home_directory;
  /// Where GoHome goes; default: the program's home page.
  std::function<std::string()> start_page;
  /// The web search service's address with "%s" for the words; empty: none.
  std::function<std::string()> search_service;
  /// Called for each page that was loaded, for the history; not for problems.
  std::function<void(const std::string& address, const std::string& title)> page_visited;
  /// Whether the page with that address has been loaded before; without it that is
  /// not known of any.
  std::function<bool(const std::string& address)> was_visited;
  /// Open the addresses that are none of pages; default: the desktop's.
  std::shared_ptr<OtherPrograms> programs;
  /// What the page of a problem looks like, for RenderProblem.
  std::string problem_page;
  /// Whether a page that is loaded now may not begin to sound by itself; without it each
  /// may.
  std::function<bool()> holds_back_sound;
  /// A page begins to sound.
  std::function<void()> page_sounds;
  Watchdog::Limits hang;

  /// The address at the web search service for a search of the fixed form; empty
  /// for other addresses and without a service.
  std::string SearchAddress(const std::string& address) const;
};

}  // namespace corvane
