#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "platform/control.h"
#include "platform/html_document.h"
#include "platform/page_text.h"
#include "platform/page_words.h"

namespace corvane {

struct FileRequest;

/// A place in the page shown that the user has been led to.
struct PagePlace {
  std::string words;       ///< the first ones there; empty where its focus tells of it
  std::size_t before = 0;  ///< characters of the page's text in front of it, blanks left out
};

/// LocationURL of the page that tells why there is none, where what was asked for is
/// no address.
inline constexpr const char* kProblemAddress = "about:problem";

/// What happens to the pages of a browser control.
struct WebEvents {
  Event<> DownloadBegin;
  Event<> DownloadComplete;
  /// What a status bar shows: the link under pointer or focus, loading, whether
  /// the connection is secure.
  Event<const std::string&> StatusTextChange;
  /// A sentence of the program's own about the page that the user is to hear now.
  /// However often pages give cause for it, it does not come often.
  Event<const std::string&> Announcement;
  /// The user has been led to another place in the page, also by a link in it.
  Event<const PagePlace&> PlaceReached;
  /// What the user looked for in the page has been found, and told; it is selected.
  Event<> Found;
  /// The user has pressed Escape in an element of the page (number 0: in none), and the
  /// page had no use for it.
  Event<const PageElement&> LeftElement;
  /// What the user wanted to use or to enter is in the page no more.
  Event<> ElementGone;
  /// The page's focus has come to an element, and the element's own event has told of it.
  Event<const PageElement&> FocusMoved;
  /// What DescribeText has handed on last is no longer how the page is. Once for each text,
  /// when the page stands still or has not for a while.
  Event<> TextChanged;
  /// The page says something by itself. Only while the user is in its window.
  Event<const PageWords&> PageSays;
  /// A page, and with it the user, opens a window. The next control that is made
  /// while this is raised shows the page; without one it never appears.
  Event<> NewWindow;
  /// The page that opened this control is done with it, or agrees to be closed:
  /// the window may close. Not raised from inside a call of the control.
  Event<> WindowClosing;
  /// The page, or saving it, wants files. The user is asked for them; without a
  /// listener none is chosen.
  Event<const FileRequest&> FilesWanted;
};

/// The control that renders pages. One navigation raises, in this order,
/// DownloadBegin, any number of StatusTextChange, DownloadComplete. A failed
/// load ends in a readable page of the program's own that is read like any
/// other; a page process that crashes or hangs does too, and Refresh then loads
/// the page again.
class WebBrowser : public Control, public WebEvents {
 public:
  /// Command identifiers and options of ExecWB.
  enum Command : int { OLECMDID_SAVEAS = 4, OLECMDID_PRINT = 6 };
  enum CommandOption : int { OLECMDEXECOPT_PROMPTUSER = 1, OLECMDEXECOPT_DONTPROMPTUSER = 2 };

  /// What a user does with the page shown. The result is announced. Mute takes all sound
  /// from the pages of this control, and gives it back.
  /// ReadAgain makes a new Document of the page as it is now and tells of it as of
  /// a navigation, but loads nothing.
  enum class PageCommand {
    Find,
    FindNext,
    FindPrevious,
    ZoomIn,
    ZoomOut,
    ZoomReset,
    ReadAgain,
    Mute
  };

  /// Goes to what a person typed: an address with or without scheme, a host with
  /// or without port, a file's path. Nothing usable leads to an error page.
  virtual void Navigate2(const std::string& url) = 0;
  /// Goes to a place in the page shown, as its link there would, when the address is
  /// one: then nothing is loaded and PlaceReached follows, or an Announcement where
  /// there is no such place. False, and nothing done, for any other address.
  virtual bool GoToPlace(const std::string& url) = 0;
  /// GoBack and GoForward do nothing where there is no such page.
  virtual void GoBack() = 0;
  virtual void GoForward() = 0;
  /// Goes to the start page of the engine's options.
  virtual void GoHome() = 0;
  virtual void Stop() = 0;
  virtual void Refresh() = 0;
  virtual void Do(PageCommand command) = 0;
  virtual void ExecWB(Command command, CommandOption option) = 0;

  /// The address of the present page; empty before the first.
  virtual std::string LocationURL() const = 0;
  /// The page's title or, without one, its address.
  virtual std::string LocationName() const = 0;
  /// True from a navigation's start until its page record has arrived: whoever
  /// sees false has a complete Document.
  virtual bool Busy() const = 0;
  /// Whether the last navigation has led to no other page, but to a download, another
  /// program or nowhere: Document is as it was.
  virtual bool StayedOnPage() const = 0;
  /// The present page's document; empty before the first page.
  virtual HTMLDocumentPtr Document() const = 0;
  /// Has the page described anew, as it is now, without keeping the caller
  /// waiting, and hands the description on; where nothing can be described, while
  /// Busy and without a page, that is Document, at once. A description is for
  /// whoever shows it: the elements that raise events are those of Document. It
  /// never comes when the page is left or hangs meanwhile, nor once the
  /// connection has been let go.
  [[nodiscard]] virtual Connection Describe(
      std::function<void(const HTMLDocumentPtr&)> described) = 0;

  /// Has the element of the page that has the focus, if the control has it, raise its
  /// event as if the focus had just come to it by itself. That comes later, and not at
  /// all when it has been told since the page was asked about first.
  virtual void TellFocus() = 0;

  /// The element of the page that has the page's focus, as its last event told it; null
  /// when there is none or nothing has been told of it.
  virtual HTMLElementPtr FocusedElement() const = 0;

  /// Has the present page's text put together as it is now, with its elements in it, and
  /// hands it on: null where there is none. Comes later, or never: when the page is left
  /// or hangs, when it is asked for again, once the connection has been let go.
  [[nodiscard]] virtual Connection DescribeText(
      std::function<void(const PageTextPtr&)> described) = 0;
  /// What the user does with an element that the page's text holds. Use is a click:
  /// whatever the page makes of it. Enter gives the page the focus, and in it the
  /// element. Follow gives the page the focus where it has the element in focus, which has
  /// been told of. Show scrolls the page there and moves no focus. Where it is gone nothing
  /// happens but that ElementGone tells of a use or an entering.
  enum class ElementUse { Use, Enter, Follow, Show };
  virtual void UseElement(const PageElement& element, ElementUse use) = 0;
  /// Scrolls the page so that the first of these words is seen that stand in the element
  /// or behind it; without an element, behind the page's beginning. Moves no focus, and
  /// does nothing where they are not found nearby.
  virtual void ShowWords(const PageElement& near, const std::string& words) = 0;
  /// Leads the focus into a dialog of the page that has opened without taking it, if
  /// nobody has been led there yet. False when there is none; `gone` is called, later,
  /// when it has closed meanwhile. The page may hang: then nothing happens, and the next
  /// call answers false.
  virtual bool EnterDialog(std::function<void()> gone) = 0;

  /// A page has opened this control for a page of its own, which comes by itself:
  /// the control is not to be sent anywhere at its start.
  virtual bool OpenedByPage() const = 0;

  /// Whether the window may close now. A page in which the user has done something
  /// is asked first: then it may not yet, and WindowClosing follows when the page,
  /// and the user whom it asks, agree or the page does not answer. A page cannot
  /// hold the user: the next call is answered with yes, unless the user has gone
  /// on working in the page.
  virtual bool MayClose() = 0;
};

}  // namespace corvane
