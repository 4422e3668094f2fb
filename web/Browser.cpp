#include "web/Browser.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "base/safe_name.h"
#include "base/text.h"
#include "platform/file_request.h"
#include "web/address/Address.h"
#include "web/address/OwnAddress.h"
#include "web/address/TypedAddress.h"
#include "web/page/RecordJson.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestStatus = 300;

/// Whether the address names a place in a page; behind "#!" and "#/" stand pages that
/// scripts show.
bool NamesPlace(const std::string& address) {
  const std::size_t sign = address.find('#');
  if (sign == std::string::npos) return false;
  const std::string name = address.substr(sign + 1, 1);
  return name != "!" && name != "/";
}

bool HasLink(const HTMLDocument& document, const std::string& address) {
  const auto& links = document.links;
  if (std::any_of(links.begin(), links.end(),
                  [&](const auto& link) { return link->href == address; })) {
    return true;
  }
  return std::any_of(document.frames.begin(), document.frames.end(),
                     [&](const auto& frame) { return HasLink(*frame, address); });
}

}  // namespace

Browser::Browser(Engine& engine, const Shared& shared, ElementEvents::Look look,
                 bool opened_by_page)
    : engine_(engine),
      shared_(shared),
      opened_by_page_(opened_by_page),
      requests_(std::make_unique<PageRequests>(shared.desks, engine.Asker(), RequestsHost())),
      loader_(engine, shared.options, shared.schedule, opened_by_page, LoaderHost()),
      reader_(engine, shared.schedule, std::move(look)),
      text_(engine, shared.schedule, TextHost()),
      changes_(engine, requests_->Notices(), ChangesHost()),
      live_(engine, [this](const PageWords& words) { PageSays(words); }),
      media_(engine, requests_->Notices(),
             {shared.options.holds_back_sound, shared.options.page_sounds,
              [this](const std::string& text) { Say(text); }}),
      find_(
          engine, requests_->Desk(), [this](const std::string& text) { Say(text); },
          [this] { events_->Found.Raise(); }),
      closing_(shared.schedule.later,
               {[this] { engine_.TryClose(); }, [this] { events_->WindowClosing.Raise(); },
                [this] { return held_; }}) {
  const auto zoom = [this] { engine_.SetZoom(shared_.preferences.Now().zoom); };
  zoom();
  connections_ += shared_.preferences.Changed.Connect(zoom);
  connections_ += engine_.Used.Connect([this](Engine::Input input) { Used(input); });
  connections_ += engine_.CloseWanted.Connect([this] { closing_.Agreed(opened_by_page_); });
  connections_ += engine_.WindowWanted.Connect([this](const LoadWish& wish, bool& granted) {
    const Verdict verdict = JudgeNewWindow(wish, {loader_.Address(), ""});
    if (verdict.kind == Verdict::Kind::Outside) {
      requests_->OpenOutside(verdict.address, verdict.user_gesture);
    }
    granted = verdict.kind == Verdict::Kind::Use && requests_->MayOpenWindow(verdict.user_gesture);
  });
  connections_ += reader_.Events().LinkFocused.Connect(
      [this](const std::string& address) { ShowStatus(address); });
  connections_ += reader_.Events().FocusMoved.Connect(
      [this](const PageElement& element) { events_->FocusMoved.Raise(element); });
}

// What is asked is taken back while there is everything that its answers need.
Browser::~Browser() {
  life_.End();
  requests_.reset();
}

PageLoader::Host Browser::LoaderHost() {
  PageLoader::Host host;
  host.begin = [this] { events_->DownloadBegin.Raise(); };
  host.end = [this] { events_->DownloadComplete.Raise(); };
  host.status = [this](const std::string& text) { ShowStatus(text); };
  host.leaves = [this] {
    reader_.Cancel();
    read_.in_place = read_.again = false;
  };
  host.page_changed = [this] { PageChanged(); };
  host.process_gone = [this] { requests_->PageChanged(); };
  host.read = [this] {
    reader_.Read([this](const HTMLDocumentPtr& document) {
      if (loader_.Reading()) FinishReading(document);
    });
  };
  host.stay = [this] {
    if (!read_.present || !read_.document) return false;
    return stayed_ = true;
  };
  host.tell = [this](const Problem& problem) { TellWithoutPage(problem); };
  host.outside = [this](const std::string& address, bool user_gesture) {
    requests_->OpenOutside(address, user_gesture);
  };
  host.leaves_for_document = [this](bool leaves) { requests_->LetLeave(leaves); };
  host.held = [this] { return held_; };
  return host;
}

PageRequests::Host Browser::RequestsHost() {
  return {[this] { return loader_.Address(); },
          [this](const std::string& text) { ShowStatus(text); },
          [this](const std::string& sentence) { Say(sentence); },
          [this](bool open) {
            held_ = open;
            loader_.Held(open);
          },
          [this] { StayOnPage(); },
          [this] { Print(); }};
}

PageChanges::Host Browser::ChangesHost() {
  return {[this] {
            read_.in_place = !Busy();
            ReadAgain();
          },
          [this](const std::string& text) { Say(text); },
          [this](const std::string& text, PageWords::Opened opened) {
            PageWords words;
            words.words = text;
            words.opened = opened;
            PageSays(words);
          },
          [this](const PagePlace& place) { events_->PlaceReached.Raise(place); }};
}

TextReader::Host Browser::TextHost() {
  return {[this](const PageElement& element) { events_->LeftElement.Raise(element); },
          [this] { events_->ElementGone.Raise(); }, [this] { events_->TextChanged.Raise(); }};
}

void Browser::TellTo(WebEvents& events) {
  events_ = &events;
  if (Busy()) return events.DownloadBegin.Raise();
  // Read already, or a page without an address that its opener fills.
  if (opened_by_page_ && !engine_.IsLoading()) ReadAgain();
}

// --- going somewhere ---------------------------------------------------------

void Browser::Navigate(const std::string& typed) {
  requests_->UserAskedForPage();
  // A link that runs a script of its page is followed there; typed out of the
  // blue, the same text is refused.
  if (text::starts_ignoring_case(typed, "javascript:") && read_.present &&
      HasLink(*read_.document, typed)) {
    return engine_.Act("corvane.follow(" + record::Quoted(typed) + ")", [](const auto&) {});
  }
  const TypedAddress target = ResolveTyped(typed, shared_.options.home_directory);
  if (!target.outside.empty() && shared_.options.programs &&
      shared_.options.programs->CanOpen(SchemeOf(target.outside))) {
    return requests_->OpenOutside(target.outside, true);
  }
  if (target.problem) return loader_.GoToProblem(*target.problem);
  if (const std::string saved = SavedFile(target.uri); !saved.empty()) return Navigate(saved);
  if (!loader_.GoWithin(target.uri)) loader_.Go(target.uri, target.fallback);
}

bool Browser::GoToPlace(const std::string& address) {
  const bool is_here =
      NamesPlace(address) && WithoutPlace(address) == WithoutPlace(loader_.Address());
  if (!is_here || Busy() || loader_.OnProblem() || !read_.present) return false;
  requests_->UserActed();
  loader_.Watch();
  changes_.Jump(loader_.EngineAddress(address), [this, alive = life_.Look(), address] {
    if (!alive) return;
    Navigate(address);
    ReadAgain();  // what cannot tell of the place is read instead
  });
  return true;
}

void Browser::GoHome() {
  Navigate(shared_.options.start_page ? shared_.options.start_page() : kHomePage);
}

void Browser::Refresh() {
  requests_->UserAskedForPage();
  loader_.GoAgain();
}

void Browser::StayOnPage() {
  if (!closing_.Stay()) loader_.Stay();  // else nothing was to be loaded
}

// --- reading -----------------------------------------------------------------

void Browser::PageChanged() {
  reader_.Forget();
  requests_->PageChanged();
  find_.PageChanged();
  live_.PageChanged();
  media_.PageChanged();
  closing_.PageChanged();
  read_.present = false;
}

// The page as it is now, without loading anything.
void Browser::ReadAgain() { loader_.ReadAgain(); }

void Browser::FinishReading(const HTMLDocumentPtr& document) {
  read_.document = document;
  const bool in_place = std::exchange(read_.in_place, false);
  const bool again = std::exchange(read_.again, false);
  if (document) {
    document->in_place = in_place;
    document->read_again = again;
  }
  read_.present = true;
  stayed_ = false;
  loader_.Settled();
  const std::string& address = loader_.Address();
  const bool is_page = !loader_.OnProblem() && !address.empty() && !address.starts_with("about:") &&
                       !IsOwnPage(address);
  if (is_page && shared_.options.page_visited) {
    shared_.options.page_visited(address, LocationName());
  }
  loader_.End();
}

void Browser::TellWithoutPage(const Problem& problem) {
  reader_.Forget();
  auto document = std::make_shared<HTMLDocument>();
  document->Title = document->nameProp = problem.title;
  document->location = problem.address;
  document->has_body = true;
  document->body_innerText = problem.title + "\n" + problem.sentence + "\n" + problem.advice;
  FinishReading(document);
}

Connection Browser::Describe(std::function<void(const HTMLDocumentPtr&)> described) {
  if (Busy() || !read_.document) {
    described(read_.document);
    return {};
  }
  auto wanted = std::make_shared<bool>(true);
  reader_.Describe(
      [this, wanted, described = std::move(described)](const HTMLDocumentPtr& document) {
        if (*wanted) described(document ? document : read_.document);
      });
  return Connection([wanted] { *wanted = false; });
}

Connection Browser::DescribeText(std::function<void(const PageTextPtr&)> described) {
  auto wanted = std::make_shared<bool>(true);
  text_.Read([this, wanted, described = std::move(described)](const auto& text) {
    if (!*wanted) return;
    if (text) MarkVisited(*text);
    described(text);
  });
  return Connection([wanted] { *wanted = false; });
}

// The engine keeps from scripts which links have been followed, and rightly so: a page
// could tell from it where its reader has been. The program knows what it has shown.
void Browser::MarkVisited(PageText& text) const {
  if (!shared_.options.was_visited) return;
  for (PageSpan& span : text.spans) {
    if (span.kind != PageSpan::Kind::Link) continue;
    const HTMLElementPtr link = reader_.Known(text.ElementOf(span));
    span.visited = link && shared_.options.was_visited(link->href);
  }
}

// --- the user in the page ------------------------------------------------------

// Who goes on working after having stayed is asked again; who only reaches for the
// keys that close the window is not.
void Browser::Used(Engine::Input input) {
  if (input == Engine::Input::FocusCame) return reader_.AskFocus(DocumentReader::Moved::Here);
  if (input == Engine::Input::Key) closing_.Worked();
  requests_->UserActed();
  closing_.Touched();
  if (!held_) loader_.Watch();
  if (input != Engine::Input::Button) reader_.AskFocus(DocumentReader::Moved::ByKey);
}

std::function<void()> Browser::TakeKeys() {
  return [this, alive = life_.Look()] {
    if (!alive) return;
    engine_.TakeFocus();
    reader_.AskFocus(DocumentReader::Moved::Here);
  };
}

void Browser::UseElement(const PageElement& element, WebBrowser::ElementUse use) {
  switch (use) {
    case WebBrowser::ElementUse::Use:
      requests_->UserActed();
      loader_.Watch();
      return text_.Use(element);
    case WebBrowser::ElementUse::Enter:
      loader_.Watch();
      return text_.Focus(element, TakeKeys());
    case WebBrowser::ElementUse::Follow:
      return reader_.FollowFocus(TakeKeys());
    case WebBrowser::ElementUse::Show:
      return text_.Show(element);
  }
}

void Browser::PageSays(const PageWords& words) {
  if (engine_.IsInFront()) events_->PageSays.Raise(words);
}

std::string Browser::LocationName() const {
  std::string title;
  if (read_.present && read_.document) title = read_.document->Title;
  if (title.empty()) title = engine_.Title();
  return title.empty() ? loader_.Address() : title;
}

void Browser::ShowStatus(const std::string& text) {
  events_->StatusTextChange.Raise(Shorten(text, kLongestStatus));
}

// --- saving, printing, closing -----------------------------------------------------

void Browser::Save() {
  const std::string& address = loader_.Address();
  if (address.empty()) return;
  const bool is_document = IsDocumentPage(engine_.Address());
  if (is_document && !loader_.OnProblem() && address.starts_with("http")) {
    return engine_.Download(address);  // the document itself, not the page made of it
  }
  FileRequest request = engine_.SaveRequest(LocationName());
  request.chosen = [this, alive = life_.Look()](const std::vector<std::string>& paths) {
    if (!alive || paths.empty()) return;
    engine_.Save(paths.front(), [this, alive](const std::string& outcome) {
      if (!alive) return;
      ShowStatus(outcome);
      Say(outcome);
    });
  };
  AskForFiles(request);
}

void Browser::Print() {
  engine_.Print([this, alive = life_.Look()](const std::string& outcome) {
    if (alive) Say(outcome);
  });
}

bool Browser::MayClose() { return loader_.OnProblem() || loader_.Hangs() || closing_.May(); }

// --- finding and zooming -------------------------------------------------------

void Browser::SayZoom(int percent) { Say(std::to_string(percent) + " percent"); }

void Browser::Do(WebBrowser::PageCommand command) {
  switch (command) {
    case WebBrowser::PageCommand::Find:
      return find_.Ask();
    case WebBrowser::PageCommand::FindNext:
      return find_.Step(true);
    case WebBrowser::PageCommand::FindPrevious:
      return find_.Step(false);
    case WebBrowser::PageCommand::ZoomIn:
      return SayZoom(shared_.preferences.ZoomBy(1));
    case WebBrowser::PageCommand::ZoomOut:
      return SayZoom(shared_.preferences.ZoomBy(-1));
    case WebBrowser::PageCommand::ZoomReset:
      return SayZoom(shared_.preferences.ZoomReset());
    case WebBrowser::PageCommand::Mute:
      return media_.SwitchMuted();
    case WebBrowser::PageCommand::ReadAgain:
      read_.again = !Busy();
      return ReadAgain();
  }
}

}  // namespace corvane
