#include "platform/linux/web/engine_view.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <utility>

#include "base/safe_name.h"
#include "platform/linux/web/files/print_page.h"
#include "platform/linux/web/files/save_page.h"
#include "platform/linux/web/web_resource.h"
#include "web/OwnPages.h"
#include "web/address/Address.h"
#include "web/address/OwnAddress.h"
#include "web/address/TypedAddress.h"
#include "web/page/RecordJson.h"

namespace corvane::desktop {
namespace {

constexpr int kMostCrashes = 3;
constexpr std::size_t kLongestStatus = 300;

std::string WithoutFragment(const std::string& address) {
  return address.substr(0, address.find('#'));
}

/// Whether the address names a place in a page; behind "#!" and "#/" stand pages that
/// scripts show.
bool NamesPlace(const std::string& address) {
  const std::size_t sign = address.find('#');
  if (sign == std::string::npos) return false;
  const std::string name = address.substr(sign + 1, 1);
  return name != "!" && name != "/";
}

bool IsScript(const std::string& address) {
  return g_ascii_strncasecmp(address.c_str(), "javascript:", 11) == 0;
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

// The engine lets Tab stop at a hidden field to which a page gives any other display: a
// place where nothing is and nothing can be said.
constexpr const char* kOwnStyle = "input[type=hidden i] { display: none !important }";

void AddStyle(WebKitUserContentManager* content) {
  WebKitUserStyleSheet* style =
      webkit_user_style_sheet_new(kOwnStyle, WEBKIT_USER_CONTENT_INJECT_ALL_FRAMES,
                                  WEBKIT_USER_STYLE_LEVEL_USER, nullptr, nullptr);
  webkit_user_content_manager_add_style_sheet(content, style);
  webkit_user_style_sheet_unref(style);
}

/// `opener`: the view whose page opens this one, or null.
WebKitWebView* MakeView(WebEngine& engine, WebKitWebView* opener) {
  const ObjectPtr<WebKitUserContentManager> content(webkit_user_content_manager_new());
  AddStyle(content.get());
  const auto make = [&](const char* property, gpointer value) {
    return WEBKIT_WEB_VIEW(g_object_ref_sink(
        g_object_new(WEBKIT_TYPE_WEB_VIEW, property, value, "settings", engine.Settings(),
                     "user-content-manager", content.get(), nullptr)));
  };
  if (opener != nullptr) return make("related-view", opener);
  return make("web-context", engine.Context());
}

}  // namespace

EngineView::EngineView(WebEngine& engine, Listener listener, EngineView* opener)
    : engine_(engine),
      listener_(std::move(listener)),
      view_(MakeView(engine, opener == nullptr ? nullptr : opener->View())),
      navigation_([this] { listener_.begin(); }, [this] { listener_.complete(); }),
      reader_(std::make_unique<PageReader>(
          view_.get(), [this](const std::string& href) { ShowStatus(href); },
          engine.Options().look_at_focus)),
      requests_(std::make_unique<PageRequests>(engine.Desks(), view_.get(), RequestsHost())),
      request_signals_(std::make_unique<RequestSignals>(
          view_.get(), *requests_,
          [this](const FileRequest& request) { listener_.files(request); })),
      find_(std::make_unique<FindInPage>(
          view_.get(), requests_->Desk(), [this](const std::string& text) { listener_.say(text); },
          [this] { listener_.found(); })),
      changes_(std::make_unique<PageChanges>(
          view_.get(), requests_->Notices(),
          PageChanges::Host{[this] {
                              moved_ = !Busy();
                              ReadAgain();
                            },
                            [this](const std::string& text) { listener_.say(text); },
                            [this](const std::string& text, PageWords::Opened opened) {
                              PageWords words;
                              words.words = text;
                              words.opened = opened;
                              listener_.page_says(words);
                            },
                            [this](const PagePlace& place) { listener_.place(place); }})),
      live_(std::make_unique<LiveRegions>(
          view_.get(), [this](const PageWords& words) { listener_.page_says(words); })),
      media_(std::make_unique<PageMedia>(
          view_.get(), requests_->Notices(),
          PageMedia::Host{engine.Options().holds_back_sound, engine.Options().page_sounds,
                          [this](const std::string& text) { listener_.say(text); }})),
      text_(std::make_unique<TextReader>(
          view_.get(),
          TextReader::Host{[this](const PageElement& element) { listener_.left(element); },
                           [this] { listener_.gone(); }, [this] { listener_.text_changed(); }})),
      keys_(std::make_unique<PageKeys>(view_.get(), KeysHost(), engine.Options().hang.keys)),
      list_(std::make_unique<OptionList>(
          view_.get(), [this](const OpenList& list) { reader_->TellList(list); })),
      documents_(std::make_unique<Documents>(view_.get(), requests_->Desk(),
                                             engine.Options().document_program, DocumentsHost())),
      closing_(&After, {[this] { webkit_web_view_try_close(view_.get()); },
                        [this] { listener_.close(); }, [this] { return dialog_open_; }}),
      watchdog_(
          engine.Options().hang, &After,
          [this](Watchdog::Answer answer) {
            Evaluate(view_.get(), "1", nullptr,
                     [answer = std::move(answer)](const auto&) { answer(); });
          },
          [this] { return Busy() && !dialog_open_; },
          [this] {
            if (stopping_) return leaving_.EndPage();
            ShowStatus("The page does not answer. Press Stop to close it.");
          },
          [this] { leaving_.EndPage(); }),
      leaving_(watchdog_, [this] { webkit_web_view_terminate_web_process(view_.get()); }),
      self_(std::make_shared<EngineView*>(this)),
      opened_by_page_(opener != nullptr) {
  ConnectView();
  ApplyPreferences();
  connections_ += engine_.PreferencesChanged.Connect([this] { ApplyPreferences(); });
  connections_ += reader_->FocusMoved.Connect(
      [this](const PageElement& element) { listener_.focus_moved(element); });
  ConnectEngine();
}

void EngineView::ConnectEngine() {
  connections_ += engine_.FileBegins.Connect([this](WebKitDownload* download, bool& taken) {
    taken = taken || documents_->TakesDownload(download);
  });
  connections_ +=
      engine_.DocumentWanted.Connect([this](WebKitURISchemeRequest* request, bool& taken) {
        if (webkit_uri_scheme_request_get_web_view(request) != view_.get()) return;
        taken = true;
        documents_->Answer(request);
      });
  connections_ +=
      engine_.Say.Connect([this](WebKitWebView* view, const std::string& sentence, bool& said) {
        if (view == view_.get() || (view == nullptr && !std::exchange(said, true))) {
          listener_.say(sentence);
        }
      });
}

EngineView::~EngineView() {
  g_signal_handlers_disconnect_by_data(view_.get(), this);
  changes_.reset();
  live_.reset();
  text_.reset();
  keys_.reset();
  list_.reset();
  documents_.reset();
  request_signals_.reset();
  requests_.reset();  // takes back what is asked
  find_.reset();
  reader_.reset();
  gtk_widget_destroy(GTK_WIDGET(view_.get()));
}

PageRequests::Host EngineView::RequestsHost() {
  return {[this] { return address_; },
          [this](const std::string& text) { ShowStatus(text); },
          [this](const std::string& sentence) { listener_.say(sentence); },
          [this](bool open) {
            dialog_open_ = open;  // a page that waits for the user does not hang
            watchdog_.Reset();
            if (!open) watchdog_.Watch();
          },
          [this] { StayOnPage(); },
          [this] { Print(); }};
}

Documents::Host EngineView::DocumentsHost() {
  return {[this](const Problem& problem) { ShowProblem(problem, DocumentPage(problem.address)); },
          [this](const std::string& address) {
            navigation_.Replaced();
            Load(address);
          }};
}

void EngineView::StopDocument() {
  opening_document_.Cancel();
  requests_->LetLeave(false);
  documents_->Stop();
}

// The page of a document is known to the engine by an address of the program's own.
std::string EngineView::EngineAddress(const std::string& address) const {
  return IsDocumentPage(Text(webkit_web_view_get_uri(view_.get()))) ? DocumentPage(address)
                                                                    : address;
}

PageKeys::Host EngineView::KeysHost() {
  return {[this](const GdkEventKey& event) { OnKey(event); },
          [this] { return watchdog_.Warned(); },
          [this] { return dialog_open_; },
          [this](std::function<void()> answered) {
            Evaluate(view_.get(), "1", nullptr,
                     [weak = std::weak_ptr(self_), answered = std::move(answered)](const auto&) {
                       if (!weak.expired()) answered();
                     });
          },
          [this] { return reader_->OnList(); },
          [this](bool left) { reader_->IgnoreEvents(left); }};
}

void EngineView::TakeOver(Listener listener) {
  listener_ = std::move(listener);
  if (Busy()) return listener_.begin();
  if (webkit_web_view_is_loading(view_.get())) return;
  // Read already, or a page without an address that its opener fills.
  ReadAgain();
}

void EngineView::StayOnPage() {
  if (closing_.Stay()) return;  // nothing was to be loaded
  requested_.clear();
  asked_for_.clear();
  fallback_.clear();
  stays_ = true;
  if (navigation_.Idle()) Settle();
}

void EngineView::ApplyPreferences() {
  webkit_web_view_set_zoom_level(view_.get(), engine_.Preferences().zoom);
}

// --- going somewhere ---------------------------------------------------------

void EngineView::Navigate(const std::string& typed) {
  requests_->UserAskedForPage();
  // A link that runs a script of its page is followed there; typed out of the
  // blue, the same text is refused.
  if (IsScript(typed) && document_is_present_ && HasLink(*document_, typed)) {
    const std::string call = "corvane.follow(" + record::Quoted(typed) + ")";
    return ActForUser(view_.get(), call);
  }
  const TypedAddress target = ResolveTyped(typed, engine_.Options().home_directory);
  if (!target.outside.empty() && engine_.Options().programs->CanOpen(SchemeOf(target.outside))) {
    return requests_->OpenOutside(target.outside, true);
  }
  if (target.problem) {
    navigation_.Requested();
    return ShowProblem(*target.problem);
  }
  if (!engine_.SearchAddress(target.uri).empty()) return LoadSearch(target.uri);
  if (const std::string saved = SavedFile(target.uri); !saved.empty()) return Navigate(saved);

  const bool jumps = target.uri.find('#') != std::string::npos && target.uri != address_ &&
                     WithoutFragment(target.uri) == WithoutFragment(address_);
  if (jumps && !Busy() && !problem_) {
    requested_ = target.uri;
    const std::string place = EngineAddress(target.uri);
    return webkit_web_view_load_uri(view_.get(), place.c_str());
  }
  navigation_.Requested();
  fallback_ = target.fallback;
  Load(target.uri);
}

bool EngineView::GoToPlace(const std::string& address) {
  const bool is_here = NamesPlace(address) && WithoutFragment(address) == WithoutFragment(address_);
  if (!is_here || Busy() || problem_ || !document_is_present_) return false;
  requests_->UserActed();
  watchdog_.WatchSoon();
  changes_->Jump(EngineAddress(address), [weak = std::weak_ptr(self_), address] {
    const auto alive = weak.lock();
    if (!alive) return;
    (*alive)->Navigate(address);
    (*alive)->ReadAgain();  // what cannot tell of the place is read instead
  });
  return true;
}

void EngineView::LoadSearch(const std::string& search) {
  navigation_.Requested();
  fallback_ = search;  // answered here when the service cannot be reached
  Load(engine_.SearchAddress(search));
}

void EngineView::Load(const std::string& address) {
  stopping_ = false;
  coming_problem_.reset();
  requested_ = asked_for_ = address;
  reader_->Cancel();
  leaving_.Leave([this, address] { webkit_web_view_load_uri(view_.get(), address.c_str()); });
}

// True when the user wanted something else meanwhile and goes there now.
bool EngineView::ProblemIsThere() {
  const auto next = leaving_.ProblemIsThere();
  if (!next) return false;
  navigation_.Requested();
  leaving_.Leave(next);
  return true;
}

void EngineView::GoBack() {
  if (!webkit_web_view_can_go_back(view_.get())) return;
  navigation_.Requested();
  coming_problem_.reset();
  leaving_.Leave([this] { webkit_web_view_go_back(view_.get()); });
}

void EngineView::GoForward() {
  if (!webkit_web_view_can_go_forward(view_.get())) return;
  navigation_.Requested();
  coming_problem_.reset();
  leaving_.Leave([this] { webkit_web_view_go_forward(view_.get()); });
}

void EngineView::GoHome() { Navigate(engine_.Options().start_page()); }

void EngineView::Refresh() {
  if (address_.empty() && requested_.empty()) return;
  requests_->UserAskedForPage();
  navigation_.Requested();
  if (problem_) {
    const TypedAddress target = ResolveTyped(problem_->address, engine_.Options().home_directory);
    if (target.problem) return ShowProblem(Problem(*problem_));
    return Load(problem_->address);
  }
  stopping_ = false;
  coming_problem_.reset();
  leaving_.Leave([this] { webkit_web_view_reload(view_.get()); });
}

void EngineView::Stop() {
  StopDocument();
  webkit_web_view_stop_loading(view_.get());
  if (watchdog_.Warned()) return leaving_.EndPage();
  if (!Busy()) return;
  stopping_ = true;
  // The engine may go on naming the page that does not come any more.
  stays_ = stays_ || navigation_.Waiting();
  coming_problem_.reset();
  if (navigation_.Idle()) StartReading();
}

// --- problems ----------------------------------------------------------------

void EngineView::ShowProblem(const Problem& problem) {
  // What is not an address stands under one that no list of addresses takes.
  const bool is_address =
      g_uri_is_valid(problem.address.c_str(), G_URI_FLAGS_PARSE_RELAXED, nullptr);
  ShowProblem(problem, is_address ? problem.address : kProblemAddress);
}

void EngineView::ShowProblem(const Problem& problem, const std::string& under) {
  stopping_ = false;
  fallback_.clear();
  reader_->Cancel();
  navigation_.Replaced();
  leaving_.Leave([this, problem, under] {
    leaving_.ProblemLoads();
    coming_problem_ = problem;
    webkit_web_view_load_alternate_html(view_.get(),
                                        RenderProblem(WebResource("problem.html"), problem).c_str(),
                                        under.c_str(), nullptr);
  });
}

void EngineView::OnProcessGone(WebKitWebProcessTerminationReason reason) {
  watchdog_.Reset();
  requests_->PageChanged();
  const auto [hung, next] = leaving_.ProcessGone(navigation_.Waiting());
  if (next) return next();
  const std::string address = navigation_.Waiting() || address_.empty() ? requested_ : address_;
  const Problem problem =
      hung ? HangProblem(address)
           : CrashProblem(address, reason == WEBKIT_WEB_PROCESS_EXCEEDED_MEMORY_LIMIT);
  if (++crashes_ <= kMostCrashes) {
    if (!Busy()) navigation_.Requested();
    return ShowProblem(problem);
  }
  // No process stays alive, not even for the problem's page: say it without one.
  navigation_.Replaced();
  navigation_.Started();
  reader_->Forget();
  problem_ = problem;
  address_ = address;
  auto document = std::make_shared<HTMLDocument>();
  document->Title = document->nameProp = problem.title;
  document->location = address;
  document->has_body = true;
  document->body_innerText = problem.title + "\n" + problem.sentence + "\n" + problem.advice;
  FinishReading(std::move(document));
}

// --- reading -----------------------------------------------------------------

// The page as it is now, without loading anything.
void EngineView::ReadAgain() {
  if (Busy()) return;
  navigation_.Requested();
  navigation_.Started();
  if (navigation_.Idle()) StartReading();
}

void EngineView::StartReading() {
  leaving_.Arrived();
  watchdog_.Watch();
  reader_->Read([this](HTMLDocumentPtr document) {
    if (navigation_.Reading()) FinishReading(std::move(document));
  });
}

// Nothing loads any more. Where no other page has come, the one that is there has
// been read.
void EngineView::Settle() {
  if (!document_is_present_ || !document_) return StartReading();
  stayed_ = true;
  ShowSettled();
  navigation_.Read();
}

Connection EngineView::Describe(std::function<void(const HTMLDocumentPtr&)> described) {
  if (Busy() || !document_) {
    described(document_);
    return {};
  }
  auto wanted = std::make_shared<bool>(true);
  reader_->Describe([this, wanted, described](const HTMLDocumentPtr& document) {
    if (*wanted) described(document ? document : document_);
  });
  return Connection([wanted] { *wanted = false; });
}

Connection EngineView::DescribeText(std::function<void(const PageTextPtr&)> described) {
  auto wanted = std::make_shared<bool>(true);
  text_->Read([this, wanted, described = std::move(described)](const auto& text) {
    if (!*wanted) return;
    if (text) MarkVisited(*text);
    described(text);
  });
  return Connection([wanted] { *wanted = false; });
}

// The engine keeps from scripts which links have been followed, and rightly so: a page
// could tell from it where its reader has been. The program knows what it has shown.
void EngineView::MarkVisited(PageText& text) const {
  if (!engine_.Options().was_visited) return;
  for (PageSpan& span : text.spans) {
    if (span.kind != PageSpan::Kind::Link) continue;
    const PageElement element = text.ElementOf(span);
    const HTMLElementPtr link = reader_->Known(element.document, element.number);
    span.visited = link && engine_.Options().was_visited(link->href);
  }
}

std::function<void()> EngineView::TakeKeys() {
  return [weak = std::weak_ptr(self_)] {
    const auto alive = weak.lock();
    if (!alive) return;
    gtk_widget_grab_focus(GTK_WIDGET((*alive)->View()));
    (*alive)->reader_->AskFocus(PageReader::Moved::Here);
  };
}

void EngineView::UseElement(const PageElement& element, WebBrowser::ElementUse use) {
  switch (use) {
    case WebBrowser::ElementUse::Use:
      requests_->UserActed();
      watchdog_.WatchSoon();
      return text_->Use(element);
    case WebBrowser::ElementUse::Enter:
      watchdog_.WatchSoon();
      return text_->Focus(element, TakeKeys());
    case WebBrowser::ElementUse::Follow:
      return reader_->FollowFocus(TakeKeys());
    case WebBrowser::ElementUse::Show:
      return text_->Show(element);
  }
}

void EngineView::FinishReading(HTMLDocumentPtr document) {
  document_ = std::move(document);
  const bool in_place = std::exchange(moved_, false);
  const bool again = std::exchange(again_, false);
  if (document_) {
    document_->in_place = in_place;
    document_->read_again = again;
  }
  document_is_present_ = true;
  stayed_ = false;
  ShowSettled();
  const bool is_page = !problem_ && !address_.empty() && !address_.starts_with("about:") &&
                       !address_.starts_with("corvane:");
  if (is_page && engine_.Options().page_visited) {
    engine_.Options().page_visited(address_, LocationName());
  }
  navigation_.Read();
}

void EngineView::ShowSettled() {
  stopping_ = false;
  // Back within the page, or stopped before the next one. Where the user has
  // stayed, the engine still names the page that was refused.
  if (!std::exchange(stays_, false)) OnAddressChanged();
  if (!problem_) crashes_ = 0;
  if (!problem_ && address_.starts_with("https:")) {
    ShowStatus("Secure connection");
  } else if (!problem_ && address_.starts_with("http:")) {
    ShowStatus("Not secure");
  }
  base_status_ = "Done";
  ShowStatus(base_status_);
}

std::string EngineView::LocationName() const {
  std::string title;
  if (document_is_present_ && document_) title = document_->Title;
  if (title.empty()) title = Text(webkit_web_view_get_title(view_.get()));
  return title.empty() ? address_ : title;
}

void EngineView::ShowStatus(const std::string& text) {
  listener_.status(Shorten(text, kLongestStatus));
}

// --- saving, printing, closing -----------------------------------------------------

void EngineView::Save() {
  if (address_.empty()) return;
  const bool is_document = IsDocumentPage(Text(webkit_web_view_get_uri(view_.get())));
  if (is_document && !problem_ && address_.starts_with("http")) {
    // The document itself, not the page made of it.
    ObjectPtr<WebKitDownload>(webkit_web_view_download_uri(view_.get(), address_.c_str()));
    return;
  }
  FileRequest request = SaveRequest(LocationName());
  request.chosen = [this, weak = std::weak_ptr(self_)](const std::vector<std::string>& paths) {
    if (weak.expired() || paths.empty()) return;
    SavePage(view_.get(), paths.front(), [this, weak](const std::string& outcome) {
      if (weak.expired()) return;
      ShowStatus(outcome);
      listener_.say(outcome);
    });
  };
  listener_.files(request);
}

void EngineView::Print() {
  PrintPage(view_.get(), [weak = std::weak_ptr(self_)](const std::string& outcome) {
    if (const auto alive = weak.lock()) (*alive)->listener_.say(outcome);
  });
}

bool EngineView::MayClose() { return problem_ || watchdog_.Warned() || closing_.May(); }

bool EngineView::InPassword() const {
  return gtk_widget_has_focus(GTK_WIDGET(view_.get())) && reader_->InPassword();
}

// --- finding and zooming -------------------------------------------------------

void EngineView::SayZoom(int percent) { listener_.say(std::to_string(percent) + " percent"); }

void EngineView::Do(WebBrowser::PageCommand command) {
  switch (command) {
    case WebBrowser::PageCommand::Find:
      return find_->Ask();
    case WebBrowser::PageCommand::FindNext:
      return find_->Step(true);
    case WebBrowser::PageCommand::FindPrevious:
      return find_->Step(false);
    case WebBrowser::PageCommand::ZoomIn:
      return SayZoom(engine_.ZoomBy(1));
    case WebBrowser::PageCommand::ZoomOut:
      return SayZoom(engine_.ZoomBy(-1));
    case WebBrowser::PageCommand::ZoomReset:
      return SayZoom(engine_.ZoomReset());
    case WebBrowser::PageCommand::Mute:
      return media_->SwitchMuted();
    case WebBrowser::PageCommand::ReadAgain:
      again_ = !Busy();
      return ReadAgain();
  }
}

}  // namespace corvane::desktop
