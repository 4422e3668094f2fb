#pragma once

#include <functional>
#include <string>

#include "base/event.h"
#include "base/life.h"
#include "platform/engine.h"
#include "web/requests/QuestionDesk.h"

namespace corvane {

/// Finds words in the page that a view shows, tells which of how many places it
/// is at and what stands there, and selects it, so that Tab goes on from there.
class FindInPage {
 public:
  /// `say`: what has come of it. `found`: something is selected, and has just been said.
  FindInPage(Engine& engine, QuestionDesk& desk, std::function<void(const std::string&)> say,
             std::function<void()> found);
  FindInPage(const FindInPage&) = delete;
  FindInPage& operator=(const FindInPage&) = delete;

  /// Asks for the words and goes to the first place.
  void Ask();
  /// Goes to the next place, or the one before; asks when nothing was looked for.
  void Step(bool forward);
  /// Another page is shown: the same words are looked for from its beginning.
  void PageChanged() { place_ = 0; }

 private:
  void Start();
  void Found(unsigned counted);
  void Failed();
  void Tell(const std::string& where);

  Engine& engine_;
  QuestionDesk& desk_;
  std::function<void(const std::string&)> say_;
  std::function<void()> found_;
  std::string words_;
  unsigned place_ = 0;  // 0: not looked for in this page
  unsigned count_ = 0;  // places in this page
  enum class Going { Nowhere, Start, Forward, Back } going_ = Going::Nowhere;
  Connection searches_;
  Life life_;
};

}  // namespace corvane
