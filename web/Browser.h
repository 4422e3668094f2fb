#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "base/event.h"
#include "base/life.h"
#include "platform/engine.h"
#include "platform/html_document.h"
#include "platform/later.h"
#include "platform/web_browser.h"
#include "web/BrowserOptions.h"
#include "web/PageClosing.h"
#include "web/PageLoader.h"
#include "web/Preferences.h"
#include "web/page/DocumentReader.h"
#include "web/page/FindInPage.h"
#include "web/page/LiveRegions.h"
#include "web/page/PageChanges.h"
#include "web/page/PageMedia.h"
#include "web/page/TextReader.h"
#include "web/requests/PageRequests.h"

namespace corvane {

/// What a browser makes of one view of an engine: all that a WebBrowser does, without
/// being a control. The functions are as WebBrowser's.
class Browser {
 public:
  /// What all browsers of the program share; outlives them.
  struct Shared {
    const BrowserOptions& options;
    Preferences& preferences;
    Schedule schedule;
    PageRequests::Desks desks;
  };

  /// `look` may be empty. `opened_by_page`: the page comes by itself.
  Browser(Engine& engine, const Shared& shared, ElementEvents::Look look, bool opened_by_page);
  ~Browser();
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;

  /// From now on these events are raised. Of a view that has been at work already, what it
  /// has reported so far is reported again.
  void TellTo(WebEvents& events);

  void Navigate(const std::string& typed);
  bool GoToPlace(const std::string& address);
  void GoBack() { loader_.GoStep(Engine::Direction::Back); }
  void GoForward() { loader_.GoStep(Engine::Direction::Forward); }
  void GoHome();
  void Stop() { loader_.Stop(); }
  void Refresh();
  void Save();
  void Print();
  bool MayClose();
  void Do(WebBrowser::PageCommand command);

  std::string LocationURL() const { return loader_.Address(); }
  std::string LocationName() const;
  bool Busy() const { return loader_.Busy(); }
  bool StayedOnPage() const { return stayed_; }
  bool OpenedByPage() const { return opened_by_page_; }
  HTMLDocumentPtr Document() const { return read_.document; }
  Connection Describe(std::function<void(const HTMLDocumentPtr&)> described);
  Connection DescribeText(std::function<void(const PageTextPtr&)> described);
  void TellFocus() { reader_.TellFocus(); }
  HTMLElementPtr FocusedElement() const { return reader_.Events().Focused(); }
  void UseElement(const PageElement& element, WebBrowser::ElementUse use);
  void ShowWords(const PageElement& near, const std::string& words) {
    text_.ShowWords(near, words);
  }
  bool EnterDialog(std::function<void()> gone) { return live_.EnterDialog(std::move(gone)); }
  /// Whether keys that are typed now go into a field whose text is hidden.
  bool InPassword() const { return engine_.HasFocus() && reader_.Events().InPassword(); }

  /// What the pages want from the user, and where they come from.
  PageRequests& Requests() { return *requests_; }
  PageLoader& Loader() { return loader_; }
  DocumentReader& Reader() { return reader_; }
  /// Whether a dialog holds the page, which then does not answer.
  bool IsHeld() const { return held_; }
  /// A sentence of the program's own that the user is to hear.
  void Say(const std::string& sentence) { events_->Announcement.Raise(sentence); }
  /// The page opens a window, for which there is a view now.
  void TellNewWindow() { events_->NewWindow.Raise(); }
  /// The user is asked for files.
  void AskForFiles(const FileRequest& request) { events_->FilesWanted.Raise(request); }

 private:
  PageLoader::Host LoaderHost();
  PageRequests::Host RequestsHost();
  PageChanges::Host ChangesHost();
  TextReader::Host TextHost();
  void Used(Engine::Input input);
  void PageChanged();
  void ReadAgain();
  void FinishReading(const HTMLDocumentPtr& document);
  void TellWithoutPage(const Problem& problem);
  void ShowStatus(const std::string& text);
  void PageSays(const PageWords& words);
  void StayOnPage();
  void SayZoom(int percent);
  void MarkVisited(PageText& text) const;
  std::function<void()> TakeKeys();

  /// What has been read.
  struct Read {
    HTMLDocumentPtr document;
    bool present = false;   ///< it is of the page shown
    bool in_place = false;  ///< what is read next has come without being loaded
    bool again = false;     ///< it is read because the user has asked for that
  };

  Engine& engine_;
  const Shared shared_;
  WebEvents nobody_;
  WebEvents* events_ = &nobody_;
  const bool opened_by_page_;
  bool held_ = false;
  bool stayed_ = false;  // since before the last navigation
  Read read_;
  std::unique_ptr<PageRequests> requests_;
  PageLoader loader_;
  DocumentReader reader_;
  TextReader text_;
  PageChanges changes_;
  LiveRegions live_;
  PageMedia media_;
  FindInPage find_;
  PageClosing closing_;
  Connections connections_;
  Life life_;  // answers that come after it find it gone
};

}  // namespace corvane
