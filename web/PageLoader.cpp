#include "web/PageLoader.h"

#include <utility>

#include "web/OwnPages.h"
#include "web/address/OwnAddress.h"
#include "web/address/TypedAddress.h"

namespace corvane {
namespace {

constexpr int kMostCrashes = 3;
constexpr double kMomentInPlace = 0.5;  // seconds

}  // namespace

PageLoader::PageLoader(Engine& engine, const BrowserOptions& options, const Schedule& schedule,
                       bool opened_by_page, Host host)
    : engine_(engine),
      options_(options),
      host_(std::move(host)),
      opened_by_page_(opened_by_page),
      state_(host_.begin, host_.end),
      watchdog_(
          options.hang, schedule.later,
          [this](Watchdog::Answer answer) {
            engine_.Evaluate("1", [answer = std::move(answer)](const auto&) { answer(); });
          },
          [this] { return Busy() && !host_.held(); },
          [this] {
            if (wanted_.stopped) return leaving_.EndPage();
            host_.status("The page does not answer. Press Stop to close it.");
          },
          [this] { leaving_.EndPage(); }),
      leaving_(watchdog_, [this] { engine_.EndProcess(); }),
      idle_(schedule.later),
      opening_document_(schedule.later) {
  Connect();
}

void PageLoader::Connect() {
  connections_ += engine_.Stepped.Connect([this](Engine::Step step) { Stepped(step); });
  connections_ += engine_.Failed.Connect([this](const LoadFault& fault) { Failed(fault); });
  connections_ += engine_.AddressChanged.Connect([this] { AddressChanged(); });
  connections_ += engine_.LoadingChanged.Connect([this] { LoadingChanged(); });
  connections_ += engine_.Gone.Connect([this](Engine::End end) { Gone(end); });
  connections_ += engine_.LoadWanted.Connect(
      [this](const LoadWish& wish, LoadDecision& decision) { Judge(wish, decision); });
  connections_ += engine_.AnswerCame.Connect(
      [this](const LoadAnswer& answer, LoadDecision& decision) { Judge(answer, decision); });
  connections_ += engine_.LinkPointed.Connect([this](const std::string& address) {
    if (!address.empty()) return host_.status(ShownAddress(address));
    if (!shown_.status.empty()) host_.status(shown_.status);
  });
}

// --- going somewhere ---------------------------------------------------------

void PageLoader::Go(const std::string& address, const std::string& fallback) {
  if (!options_.SearchAddress(address).empty()) return LoadSearch(address);
  state_.Requested();
  wanted_.fallback = fallback;
  Load(address);
}

bool PageLoader::GoWithin(const std::string& address) {
  const bool within = address.find('#') != std::string::npos && address != shown_.address &&
                      WithoutPlace(address) == WithoutPlace(shown_.address);
  if (!within || Busy() || OnProblem()) return false;
  wanted_.address = address;
  engine_.Load(EngineAddress(address));
  return true;
}

void PageLoader::GoInstead(const std::string& address) {
  state_.Replaced();
  Load(address);
}

// Answered here when the service cannot be reached.
void PageLoader::LoadSearch(const std::string& search) {
  state_.Requested();
  wanted_.fallback = search;
  Load(options_.SearchAddress(search));
}

void PageLoader::Load(const std::string& address) {
  wanted_.stopped = false;
  wanted_.problem.reset();
  wanted_.address = wanted_.by_user = address;
  host_.leaves();
  leaving_.Leave([this, address] { engine_.Load(address); });
}

// True when the user wanted something else meanwhile and goes there now.
bool PageLoader::ProblemIsThere() {
  const auto next = leaving_.ProblemIsThere();
  if (!next) return false;
  state_.Requested();
  leaving_.Leave(next);
  return true;
}

void PageLoader::GoStep(Engine::Direction direction) {
  if (!engine_.CanGo(direction)) return;
  state_.Requested();
  wanted_.problem.reset();
  leaving_.Leave([this, direction] { engine_.Go(direction); });
}

void PageLoader::GoAgain() {
  if (shown_.address.empty() && wanted_.address.empty()) return;
  state_.Requested();
  if (shown_.problem) {
    const TypedAddress target = ResolveTyped(shown_.problem->address, options_.home_directory);
    if (target.problem) return ShowProblem(Problem(*shown_.problem));
    return Load(shown_.problem->address);
  }
  wanted_.stopped = false;
  wanted_.problem.reset();
  leaving_.Leave([this] { engine_.Reload(); });
}

void PageLoader::Stop() {
  StopDocument();
  engine_.StopLoading();
  if (watchdog_.Warned()) return leaving_.EndPage();
  if (!Busy()) return;
  wanted_.stopped = true;
  // The engine may go on naming the page that does not come any more.
  wanted_.stays = wanted_.stays || state_.Waiting();
  wanted_.problem.reset();
  if (state_.Idle()) StartReading();
}

void PageLoader::Stay() {
  wanted_.address.clear();
  wanted_.by_user.clear();
  wanted_.fallback.clear();
  wanted_.stays = true;
  if (state_.Idle()) Settle();
}

// A page that waits for the user does not hang.
void PageLoader::Held(bool held) {
  watchdog_.Reset();
  if (!held) watchdog_.Watch();
}

void PageLoader::StopDocument() {
  opening_document_.Cancel();
  host_.leaves_for_document(false);
  engine_.StopDocument();
}

// The page of a document is known to the engine by an address of the program's own.
std::string PageLoader::EngineAddress(const std::string& address) const {
  return IsDocumentPage(engine_.Address()) ? DocumentPage(address) : address;
}

// --- problems ----------------------------------------------------------------

void PageLoader::GoToProblem(const Problem& problem) {
  state_.Requested();
  ShowProblem(problem);
}

void PageLoader::ShowProblem(const Problem& problem) { LoadProblem(problem, problem.address); }

void PageLoader::ShowDocumentProblem(const Problem& problem) {
  LoadProblem(problem, DocumentPage(problem.address));
}

void PageLoader::LoadProblem(const Problem& problem, const std::string& under) {
  wanted_.stopped = false;
  wanted_.fallback.clear();
  host_.leaves();
  state_.Replaced();
  leaving_.Leave([this, problem, under] {
    leaving_.ProblemLoads();
    wanted_.problem = problem;
    engine_.LoadInstead(RenderProblem(options_.problem_page, problem), under);
  });
}

void PageLoader::Gone(Engine::End end) {
  watchdog_.Reset();
  host_.process_gone();
  const auto [hung, next] = leaving_.ProcessGone(state_.Waiting());
  if (next) return next();
  const std::string address =
      state_.Waiting() || shown_.address.empty() ? wanted_.address : shown_.address;
  const Problem problem =
      hung ? HangProblem(address) : CrashProblem(address, end == Engine::End::TooMuchMemory);
  if (++crashes_ <= kMostCrashes) {
    if (!Busy()) state_.Requested();
    return ShowProblem(problem);
  }
  // No process stays alive, not even for the problem's page: say it without one.
  state_.Replaced();
  state_.Started();
  shown_.problem = problem;
  shown_.address = address;
  host_.tell(problem);
}

// --- reading -----------------------------------------------------------------

void PageLoader::ReadAgain() {
  if (Busy()) return;
  state_.Requested();
  state_.Started();
  if (state_.Idle()) StartReading();
}

void PageLoader::StartReading() {
  leaving_.Arrived();
  watchdog_.Watch();
  host_.read();
}

void PageLoader::End() { state_.Read(); }

// Nothing loads any more. Where no other page has come, the one that is there has
// been read.
void PageLoader::Settle() {
  if (!host_.stay()) return StartReading();
  Settled();
  End();
}

void PageLoader::Settled() {
  wanted_.stopped = false;
  // Back within the page, or stopped before the next one. Where the user has
  // stayed, the engine still names the page that was refused.
  if (!std::exchange(wanted_.stays, false)) AddressChanged();
  if (!OnProblem()) {
    crashes_ = 0;
    if (shown_.address.starts_with("https:")) host_.status("Secure connection");
    if (shown_.address.starts_with("http:")) host_.status("Not secure");
  }
  shown_.status = "Done";
  host_.status(shown_.status);
}

// --- what the engine reports -------------------------------------------------

void PageLoader::Stepped(Engine::Step step) {
  switch (step) {
    case Engine::Step::Started:
      return Started();
    case Engine::Step::Committed:
      return Committed();
    case Engine::Step::Finished:
      return Finished();
  }
}

void PageLoader::Started() {
  if (!IsDocumentPage(engine_.Address())) StopDocument();
  watchdog_.Reset();
  watchdog_.Watch();
  host_.leaves();
  shown_.status = "Loading " + ShownAddress(engine_.Address());
  // Whoever is told may let events run, so that the page is there already when
  // this returns.
  state_.Started();
  if (state_.Loading()) host_.status(shown_.status);
}

void PageLoader::Committed() {
  leaving_.Arrived();
  state_.Committed();
  // Another page, often in another process: what was asked of the old one
  // may never be answered.
  watchdog_.Reset();
  watchdog_.Watch();
  host_.page_changed();
  shown_.problem = std::exchange(wanted_.problem, std::nullopt);
  shown_.address = ShownAddress(engine_.Address());
  // The engine says nothing when it refuses a port that other services use: it shows
  // an empty page instead of the one that was asked for.
  if (const std::string asked = std::exchange(wanted_.by_user, "");
      !shown_.problem && shown_.address == "about:blank" && asked.starts_with("http")) {
    ShowProblem(corvane::LoadProblem(asked, {LoadFailure::Kind::ForbiddenPort, "restricted port"}));
  }
  ProblemIsThere();
}

void PageLoader::Finished() {
  // Where more is loading, this was a load that has been overtaken.
  if (!engine_.IsLoading() && state_.Finished()) Settle();
}

void PageLoader::Failed(const LoadFault& fault) {
  if (fault.certificate) return ShowProblem(CertificateProblem(fault.address, *fault.certificate));
  if (fault.halfway) {
    return host_.status("The page is not complete: " + fault.failure.words);  // that is read
  }
  const std::string fallback = std::exchange(wanted_.fallback, "");
  if (!fallback.empty() && (IsSearch(fallback) || IsConnectionFailure(fault.failure.kind))) {
    return GoInstead(fallback);
  }
  ShowProblem(corvane::LoadProblem(ShownAddress(fault.address), fault.failure));
}

void PageLoader::AddressChanged() {
  // Not the page shown yet, or a jump within it that has not been made yet.
  if (state_.Waiting() || (!Busy() && engine_.IsLoading())) return;
  const std::string address = ShownAddress(engine_.Address());
  if (!address.empty() && !shown_.address.empty()) shown_.address = address;
}

void PageLoader::LoadingChanged() {
  if (engine_.IsLoading() || opening_document_.Running()) return idle_.Cancel();
  // Looks again once everything that is on its way has arrived: a load that
  // takes the place of another is idle for a moment between the two.
  idle_.Start(0, [this] {
    if (engine_.IsLoading() || ProblemIsThere()) return;
    if (ShownAddress(engine_.Address()) != shown_.address && state_.MovedInPlace()) {
      // The page's scripts have only just been told; what they show comes a moment later.
      return idle_.Start(kMomentInPlace, [this] {
        if (state_.Idle()) StartReading();
      });
    }
    if (state_.Idle()) return Settle();
    AddressChanged();
  });
}

// --- what may be loaded ------------------------------------------------------

PolicyContext PageLoader::Context() const {
  const bool waits = state_.Waiting() || (opened_by_page_ && shown_.address.empty());
  const std::string engine = engine_.Address();
  const bool on_document = IsDocumentPage(engine) && ShownAddress(engine) == shown_.address;
  return {shown_.address, waits ? wanted_.address : "", on_document ? engine : ""};
}

void PageLoader::Judge(const LoadWish& wish, LoadDecision& decision) {
  const bool in_place = wish.where == LoadWish::Where::InPlace;
  const PolicyContext context = Context();
  const Verdict verdict = in_place ? corvane::Judge(wish, context) : JudgeNewWindow(wish, context);
  const bool used = verdict.kind == Verdict::Kind::Use;
  // A search by one of our own pages goes to the service, unless that failed just now.
  const bool searches = used && in_place && !verdict.from_history && !IsSearch(context.requested) &&
                        !options_.SearchAddress(verdict.address).empty();
  const std::string saved = used ? SavedFile(verdict.address) : "";
  if (used && !searches && saved.empty()) return;
  decision.kind = LoadDecision::Kind::Ignore;
  decision.then = [this, verdict, searches, saved] {
    if (searches) return LoadSearch(verdict.address);
    if (!saved.empty()) return Go(saved, "");
    if (verdict.kind == Verdict::Kind::Outside) {
      host_.outside(verdict.address, verdict.user_gesture);
    }
  };
}

void PageLoader::Judge(const LoadAnswer& answer, LoadDecision& decision) {
  switch (corvane::Judge(answer).kind) {
    case Verdict::Kind::Use:
      return;
    case Verdict::Kind::Download:
      decision.kind = LoadDecision::Kind::Download;
      return;
    case Verdict::Kind::Document:
      decision.kind = LoadDecision::Kind::Ignore;
      // Where nothing is waited for any more, the user has stopped it meanwhile.
      if (!state_.Waiting()) return;
      decision.kind = LoadDecision::Kind::Document;
      return OpenDocument(answer.address);
    default:
      decision.kind = LoadDecision::Kind::Ignore;
  }
}

void PageLoader::OpenDocument(const std::string& address) {
  // The answer's own address has lost the place that it was asked for with.
  const std::string shown = engine_.Address();
  const std::string page = DocumentPage(shown.starts_with(address + "#") ? shown : address);
  opening_document_.Start(0, [this, page] {
    state_.Replaced();
    host_.leaves_for_document(true);
    Load(page);
  });
}

}  // namespace corvane
