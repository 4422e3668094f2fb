#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/event.h"
#include "platform/file_request.h"
#include "platform/load_failure.h"

namespace corvane {

/// Something that is to be loaded.
struct LoadWish {
  enum class Way { Ahead, History, Reload };
  enum class Where { InPlace, NewWindow };
  std::string address;
  Way way = Way::Ahead;
  bool redirect = false;      ///< a server leads there
  bool user_gesture = false;  ///< the user has just done something in the page
  Where where = Where::InPlace;
};

/// Something that a server answers with.
struct LoadAnswer {
  std::string address;
  std::string mime_type = {};
  bool can_be_shown = false;  ///< the engine has a way to show that kind
  bool is_page = false;       ///< and not a part of one
  bool to_be_saved = false;   ///< the server wants it saved
};

/// What becomes of what is to be loaded.
struct LoadDecision {
  enum class Kind {
    Use,       ///< goes on
    Ignore,    ///< does not happen
    Download,  ///< is a file to be saved
    Document,  ///< is one that a page is made of; that page is loaded next
  };
  Kind kind = Kind::Use;
  bool holds_back_sound = false;         ///< the page does not sound before the user does something
  std::function<void()> then = nullptr;  ///< done when the engine has been told
};

/// A load that has failed before anything of it was shown, or halfway.
struct LoadFault {
  std::string address;
  LoadFailure failure;
  std::optional<CertificateFault> certificate = std::nullopt;  ///< it is not to be trusted
  bool halfway = false;                                        ///< what has come is shown
};

/// One view of an engine that renders pages, and nothing of what a browser makes of it:
/// what is to be loaded, asked, refused, said is decided by whoever uses it.
///
/// Addresses are the engine's own: a page that is made of a document has one of the
/// program's. Nothing is called back, and no event raised, once the view has gone.
class Engine {
 public:
  Engine() = default;
  virtual ~Engine() = default;
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  virtual void Load(const std::string& address) = 0;
  /// Shows a page of the program's own under that address, in place of one that could not
  /// be loaded; under kProblemAddress (web_browser.h) where that is no address.
  virtual void LoadInstead(const std::string& html, const std::string& address) = 0;
  virtual void Reload() = 0;
  virtual void StopLoading() = 0;
  enum class Direction { Back, Forward };
  virtual bool CanGo(Direction direction) const = 0;
  virtual void Go(Direction direction) = 0;
  /// Of what is shown or, once its load has begun, of what is to be shown.
  virtual std::string Address() const = 0;
  virtual std::string Title() const = 0;
  virtual bool IsLoading() const = 0;

  /// The text of an answer (bytes that are UTF-8 if the page's text is): nothing when the
  /// script fails or the page's process is gone.
  using Answer = std::function<void(std::optional<std::string>)>;
  /// Runs the expression in the page's main frame, in the world of the program's scripts,
  /// which pages cannot see. Works in documents that run no scripts, too; there only a part
  /// of those scripts is. The page is not given, and does not lose, the rights that follow a
  /// user's key or click. A page that hangs never answers; no answer comes before this
  /// returns.
  virtual void Evaluate(const std::string& expression, Answer answer) = 0;
  /// The same of something that the user does: what follows in the page has the rights
  /// that a click gives.
  virtual void Act(const std::string& expression, Answer answer) = 0;
  /// The same of an expression that promises its text, once that is there. None in
  /// documents that run no scripts; the page loses the rights that it has from a key: for
  /// pages that are only just coming.
  virtual void Await(const std::string& expression, Answer answer) = 0;

  /// Selects the first place with these words behind what is selected, from the page's
  /// beginning when it is at its end; upper and lower case are the same. SearchDone tells.
  virtual void Search(const std::string& words) = 0;
  /// The next place, or the one before.
  virtual void SearchOn(Direction direction) = 0;

  /// Takes all sound from the view's pages, or gives it back.
  virtual void SetMuted(bool muted) = 0;
  virtual bool IsMuted() const = 0;

  /// 1: the page's own size.
  virtual void SetZoom(double zoom) = 0;
  /// A request for a file that a page of that title may be saved in.
  virtual FileRequest SaveRequest(const std::string& title) = 0;
  /// Saves the page into one file; `done` gets a sentence that tells how it went.
  virtual void Save(const std::string& path,
                    std::function<void(const std::string& outcome)> done) = 0;
  /// Has the desktop print the page; `done` gets a sentence that tells how it went, and
  /// nothing when the user has changed his mind.
  virtual void Print(std::function<void(const std::string& outcome)> done) = 0;
  /// Fetches what lies at the address as a file to be saved.
  virtual void Download(const std::string& address) = 0;
  /// Gives up the document that is being fetched or made a page of.
  virtual void StopDocument() = 0;

  /// Asks the page whether it may be closed. CloseWanted follows when it may.
  virtual void TryClose() = 0;
  /// Ends the page's process; Gone follows.
  virtual void EndProcess() = 0;

  virtual void TakeFocus() = 0;
  virtual bool HasFocus() const = 0;
  /// Whether the user is in the window that shows the page.
  virtual bool IsInFront() const = 0;
  /// The view as the platform knows it; see DialogQuestion::asker.
  virtual void* Asker() = 0;

  /// How far a load is. What another load overtakes may report its end late.
  enum class Step { Started, Committed, Finished };
  Event<Step> Stepped;
  Event<const LoadFault&> Failed;
  Event<> AddressChanged;
  /// IsLoading has changed.
  Event<> LoadingChanged;
  /// Something is to be loaded; something has come. The last handler decides; nobody: Use.
  Event<const LoadWish&, LoadDecision&> LoadWanted;
  Event<const LoadAnswer&, LoadDecision&> AnswerCame;
  /// The page wants a window of its own; whether it gets one.
  Event<const LoadWish&, bool&> WindowWanted;
  /// The page is done with its window, or agrees to be closed.
  Event<> CloseWanted;
  /// The page's process has gone.
  enum class End { Crashed, TooMuchMemory, Ended };
  Event<End> Gone;
  /// The pointer has come to a link, or has left it (empty).
  Event<const std::string&> LinkPointed;
  /// The user has pressed a key for the page, one that commands at most, or a button in
  /// it; the page's focus is now the user's.
  enum class Input { Key, CommandKey, Button, FocusCame };
  Event<Input> Used;
  /// One of the program's scripts in the page has posted something: where, what, the text.
  Event<const std::string&, const std::string&, const std::string&> Message;
  /// A page begins to sound.
  Event<> SoundBegins;
  /// How many places there are, 0 for none. Counted at the beginning of a search only.
  Event<unsigned> SearchDone;
};

}  // namespace corvane
