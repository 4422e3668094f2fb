#pragma once

#include <functional>

namespace corvane {

/// Keeps account of where a navigation stands, from what the engine reports in
/// whatever order, and raises `begin` and `complete` in pairs: `begin` when the
/// engine starts, `complete` when the page has been read. A navigation that
/// another one overtakes is completed before the other begins.
class LoadState {
 public:
  LoadState(std::function<void()> begin, std::function<void()> complete);

  /// The program asked the engine for another page.
  void Requested();
  /// The program replaces the page that could not be loaded, within the same
  /// navigation.
  void Replaced();
  /// The engine has started to load, and shows the first of the new page.
  void Started();
  void Committed();
  /// The engine has finished, well or not, and whether the page is now to be
  /// read. What a replaced page still reports is ignored.
  bool Finished();
  /// The engine shows what was asked for without loading it: a page's scripts do
  /// that when the user goes back within it. False when it has been loading after all.
  bool MovedInPlace();
  /// Nothing is loading any more, also when the engine never started (back within
  /// the page); true when the page is now to be read.
  bool Idle();
  /// The page has been read, or there is nothing to read.
  void Read();

  bool Busy() const { return phase_ != Phase::Idle; }
  /// The page on the screen is not the one asked for yet.
  bool Waiting() const { return phase_ == Phase::Requested || phase_ == Phase::Started; }
  bool Loading() const { return Waiting() || phase_ == Phase::Committed; }
  bool Reading() const { return phase_ == Phase::Reading; }

 private:
  enum class Phase { Idle, Requested, Started, Committed, Reading };

  std::function<void()> begin_;
  std::function<void()> complete_;
  Phase phase_ = Phase::Idle;
  bool open_ = false;      // begin was raised, complete was not
  bool replaced_ = false;  // the request belongs to the navigation that is open
};

}  // namespace corvane
