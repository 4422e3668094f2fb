#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/event.h"
#include "platform/engine.h"
#include "platform/later.h"
#include "web/BrowserOptions.h"
#include "web/LoadState.h"
#include "web/PageLeaving.h"
#include "web/Policy.h"
#include "web/Problem.h"
#include "web/Watchdog.h"

namespace corvane {

/// Brings the pages of one view: from what is asked for, through whatever the engine
/// reports of it, to the moment when a page is to be read, be it the one asked for or the
/// one that tells why there is none.
class PageLoader {
 public:
  struct Host {
    /// A navigation begins, and has ended: in pairs.
    std::function<void()> begin;
    std::function<void()> end;
    /// A text for the status bar.
    std::function<void(const std::string&)> status;
    /// The page on the screen is being left: what is being read of it is no longer wanted.
    std::function<void()> leaves;
    /// Another page is shown; the page's process has gone.
    std::function<void()> page_changed;
    std::function<void()> process_gone;
    /// The page shown is to be read; Settled and End follow.
    std::function<void()> read;
    /// No page has come: whether the one that was there has been read, and stays.
    std::function<bool()> stay;
    /// The page of a problem that cannot be shown, for those who only listen.
    std::function<void(const Problem&)> tell;
    /// An address is for another program, and whether the user has just done something.
    std::function<void(const std::string& address, bool user_gesture)> outside;
    /// The page is being left for the document at its address, which it has been asked for
    /// already; that is over (false).
    std::function<void(bool)> leaves_for_document;
    /// Whether a dialog holds the page now, which then does not answer.
    std::function<bool()> held;
  };

  /// `opened_by_page`: the first page comes by itself.
  PageLoader(Engine& engine, const BrowserOptions& options, const Schedule& schedule,
             bool opened_by_page, Host host);
  PageLoader(const PageLoader&) = delete;
  PageLoader& operator=(const PageLoader&) = delete;

  /// Goes to an address of a page; `fallback` where there is no connection to it.
  void Go(const std::string& address, const std::string& fallback);
  /// Goes to the page that tells why what was asked for is none.
  void GoToProblem(const Problem& problem);
  /// Goes to a place in the page shown; false when the address is none.
  bool GoWithin(const std::string& address);
  void GoStep(Engine::Direction direction);
  /// Loads the page once more; nothing before the first.
  void GoAgain();
  /// In place of what was asked for.
  void GoInstead(const std::string& address);
  void Stop();
  void ShowProblem(const Problem& problem);
  /// There is no page of the document at the problem's address.
  void ShowDocumentProblem(const Problem& problem);
  /// Reads the page as it is now, without loading anything.
  void ReadAgain();
  /// The page has been read: takes its address and shows how it came; ends the navigation.
  void Settled();
  void End();
  /// The user was about to leave the page and stays.
  void Stay();
  /// The first page of a view that a page has opened.
  void Expect(const std::string& address) { wanted_.address = address; }
  /// The user does something in the page, which then has to answer.
  void Watch() { watchdog_.WatchSoon(); }
  /// A dialog holds the page, or does not any more.
  void Held(bool held);

  /// Of the page shown, as its user knows it; empty before the first.
  const std::string& Address() const { return shown_.address; }
  /// The address of a place in the page shown, as the engine knows it.
  std::string EngineAddress(const std::string& address) const;
  /// Whether the page shown tells of a problem.
  bool OnProblem() const { return shown_.problem.has_value(); }
  bool Busy() const { return state_.Busy(); }
  bool Reading() const { return state_.Reading(); }
  /// Whether the page is known not to answer.
  bool Hangs() const { return watchdog_.Warned(); }

 private:
  void Connect();
  void Load(const std::string& address);
  void LoadProblem(const Problem& problem, const std::string& under);
  void LoadSearch(const std::string& search);
  bool ProblemIsThere();
  void Settle();
  void StartReading();
  void StopDocument();
  void Stepped(Engine::Step step);
  void Started();
  void Committed();
  void Finished();
  void Failed(const LoadFault& fault);
  void AddressChanged();
  void LoadingChanged();
  void Gone(Engine::End end);
  void Judge(const LoadWish& wish, LoadDecision& decision);
  void Judge(const LoadAnswer& answer, LoadDecision& decision);
  void OpenDocument(const std::string& address);
  PolicyContext Context() const;

  /// What was asked for and has not come yet.
  struct Wanted {
    std::string address;             ///< by the program
    std::string by_user;             ///< until a page comes
    std::string fallback;            ///< tried when there is no connection to it
    std::optional<Problem> problem;  ///< whose page is on its way
    bool stopped = false;            ///< by the user
    bool stays = false;  ///< whatever the engine names: the user stays, or has stopped the load
  };
  struct Shown {
    std::string address;
    std::optional<Problem> problem;  ///< the page is this problem's
    std::string status;
  };

  Engine& engine_;
  const BrowserOptions& options_;
  const Host host_;
  const bool opened_by_page_;
  LoadState state_;
  Watchdog watchdog_;
  PageLeaving leaving_;
  Wanted wanted_;
  Shown shown_;
  int crashes_ = 0;           // since a page was last read
  Pending idle_;              // a look at whether anything still loads
  Pending opening_document_;  // the engine has to be done with its answer first
  Connections connections_;
};

}  // namespace corvane
