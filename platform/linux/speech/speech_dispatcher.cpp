#include "platform/linux/speech/speech_dispatcher.h"

#include <glib.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "platform/linux/speech/speech_text.h"
#include "platform/linux/speech/ssip_words.h"

namespace corvane::desktop {
namespace {

using std::chrono::milliseconds;

// Together below a second: a server that does not answer is lost.
constexpr milliseconds kReplyLimit{700};
constexpr milliseconds kAskAgain{250};
constexpr std::chrono::seconds kStartLimit{10};
// A server that answers may still have a module that hangs, or be busy with another program's
// words. So long nothing may be heard of a text; of a word beyond what it takes; and of the
// last one, which ends only when its sound has. The latter holds for a text, too, where words
// are not told.
constexpr milliseconds kBeginLimit{3000};
constexpr milliseconds kWordLimit{1500};
constexpr milliseconds kLastWordLimit{3000};

// While it makes the list of its voices it answers nobody, which takes a second when the
// machine is busy.
constexpr std::chrono::seconds kListLimit{3};
std::atomic<int> lists_made{0};

milliseconds ReplyLimit() { return lists_made > 0 ? milliseconds(kListLimit) : kReplyLimit; }

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

// About as long as it takes, rather longer. What is no letter is said by words.
milliseconds TimeOf(std::string_view words, int speed) {
  constexpr std::uint64_t kLettersPerWord = 6;
  std::uint64_t letters = 0;
  for (const char c : words) {
    const bool is_letter = (c >= 'a' && c <= 'z') || c == ' ' || static_cast<signed char>(c) < 0;
    letters += is_letter ? 1 : kLettersPerWord;
  }
  const auto least = static_cast<std::uint64_t>(std::clamp(speed, 50, 450));
  return milliseconds(2 * letters * 60'000 / (least * kLettersPerWord));
}

}  // namespace

/// A text at the server.
struct SpeechDispatcher::Message {
  std::string_view text;
  int speed = 0;
  int number = 0;
  const std::function<void()>* begun = nullptr;
  std::size_t heard = 0;  // where the word begins that is being said
  bool has_begun = false;
  bool paused = false;
  std::optional<Outcome> outcome = std::nullopt;
  Clock::time_point since = Clock::now();  // of what was heard of it last
};

DispatcherPlace UsualDispatcherPlace() {
  constexpr std::string_view kUnix = "unix_socket:";
  DispatcherPlace place;
  const std::string address = Environment("SPEECHD_ADDRESS");
  if (address.starts_with(kUnix)) {
    place.socket = address.substr(kUnix.size());
  } else if (address.empty()) {
    place.socket = std::string(g_get_user_runtime_dir()) + "/speech-dispatcher/speechd.sock";
  }
  place.command = Environment("SPEECHD_CMD");
  if (place.command.empty()) place.command = "speech-dispatcher";
  return place;
}

InstalledVoices DispatcherVoices(const std::string& socket) {
  const auto server = SsipConnection::Open(socket);
  if (!server) return {};
  ++lists_made;
  const auto list = server->Ask("LIST SYNTHESIS_VOICES", kListLimit);
  --lists_made;
  return list && list->Good() ? VoicesOfList(list->lines) : InstalledVoices();
}

SpeechDispatcher::SpeechDispatcher(DispatcherPlace place)
    : place_(std::move(place)), wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void SpeechDispatcher::Wake() {
  const std::uint64_t one = 1;
  // It can only fail when it has been woken already.
  [[maybe_unused]] const ssize_t written = write(wake_.Number(), &one, sizeof one);
}

SpeechServer::State SpeechDispatcher::Prepare() {
  if (server_) return State::kReady;
  server_ = SsipConnection::Open(place_.socket);
  if (!server_) return Start();
  if (Introduce()) return State::kReady;
  server_.reset();
  return State::kLost;
}

// The desktop starts it when somebody wants to speak; here that is this program.
SpeechServer::State SpeechDispatcher::Start() {
  if (place_.command.empty() || place_.socket.empty()) return State::kLost;
  if (started_) return Clock::now() - *started_ < kStartLimit ? State::kStarting : State::kLost;
  started_ = Clock::now();
  std::array<std::string, 6> words = {place_.command, "--spawn",       "--communication-method",
                                      "unix_socket",  "--socket-path", place_.socket};
  std::array<char*, 7> arguments{};
  std::transform(words.begin(), words.end(), arguments.begin(),
                 [](std::string& word) { return word.data(); });
  const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                              G_SPAWN_STDERR_TO_DEV_NULL);
  const bool runs = g_spawn_async(nullptr, arguments.data(), nullptr, flags, nullptr, nullptr,
                                  nullptr, nullptr) != FALSE;
  return runs ? State::kStarting : State::kLost;
}

bool SpeechDispatcher::Introduce() {
  const std::array<std::string, 4> commands = {
      "SET self CLIENT_NAME " + std::string(g_get_user_name()) + ":corvane:main",
      "SET self NOTIFICATION ALL ON", "SET self SSML_MODE ON", "SET self PRIORITY MESSAGE"};
  for (const std::string& command : commands) {
    const auto reply = server_->Ask(command, ReplyLimit());
    if (!reply || !reply->Good()) return false;
  }
  return true;
}

SpeechServer::Result SpeechDispatcher::Speak(const std::string& text, const VoiceStyle& style,
                                             const std::function<void()>& begun,
                                             const std::function<bool()>& cut) {
  const std::string_view silence = NameOfSilence(text);
  const std::string_view whole = silence.empty() ? std::string_view(text) : silence;
  Result result{Outcome::kSpoken};
  TextPieces pieces(whole);
  for (std::string piece; result.outcome == Outcome::kSpoken && pieces.Next(piece);) {
    // What is read is not what was given, so the place in it is known by the piece.
    const std::string said = style.manner.digits ? WithLoneDigits(piece) : piece;
    Message message{.text = said, .speed = style.speed, .begun = &begun};
    result.outcome = cut() ? Outcome::kCut : Outcome::kLost;
    if (result.outcome == Outcome::kLost && Set(style, said)) {
      if (const auto number = Queue(said)) {
        message.number = *number;
        message.since = Clock::now();
        result.outcome = SpeakPiece(message, cut);
      }
    }
    if (result.outcome == Outcome::kLost) result.rest = said.substr(message.heard);
  }
  if (result.outcome == Outcome::kLost) {
    for (std::string piece; pieces.Next(piece);) result.rest += " " + piece;
    server_.reset();
  }
  return result;
}

bool SpeechDispatcher::Set(const VoiceStyle& style, const std::string& text) {
  if (!server_) return false;
  for (const SsipSetting& setting : SsipSettings(style, text)) {
    std::string& present = set_[setting.name];
    if (present == setting.value) continue;
    // A module may refuse what it cannot do; it speaks all the same.
    if (!server_->Ask("SET self " + setting.name + " " + setting.value, ReplyLimit())) return false;
    present = setting.value;
    // Another language has a voice of its own.
    if (setting.name == "LANGUAGE") set_.erase("SYNTHESIS_VOICE");
  }
  return true;
}

std::optional<int> SpeechDispatcher::Queue(const std::string& text) {
  const auto ready = server_->Ask("SPEAK", ReplyLimit());
  if (!ready || !ready->Good()) return std::nullopt;
  const auto queued = server_->Ask(SsipText(text) + "\r\n.", ReplyLimit());
  if (!queued || !queued->Good() || queued->lines.empty()) return std::nullopt;
  int number = 0;
  const std::string& told = queued->lines.front();
  std::from_chars(told.data(), told.data() + told.size(), number);
  return number;
}

SpeechServer::Outcome SpeechDispatcher::SpeakPiece(Message& message,
                                                   const std::function<bool()>& cut) {
  Clock::time_point ask_at = Clock::now() + kAskAgain;
  for (;;) {
    while (const auto event = server_->TakeEvent()) Follow(message, *event);
    if (message.outcome) return *message.outcome;
    if (cut()) return Cancel() ? Outcome::kCut : Outcome::kLost;
    const auto until = message.since + Patience(message);
    if (!message.paused && Clock::now() >= until) return Outcome::kLost;
    if (Clock::now() >= ask_at) {
      if (!IsAlive()) return Outcome::kLost;
      ask_at = Clock::now() + kAskAgain;
      continue;
    }
    if (!server_->Wait(wake_.Number(), message.paused ? ask_at : std::min(until, ask_at))) {
      return Outcome::kLost;
    }
    std::uint64_t woken = 0;
    [[maybe_unused]] const ssize_t taken = read(wake_.Number(), &woken, sizeof woken);
  }
}

void SpeechDispatcher::Follow(Message& message, const SsipConnection::Event& event) {
  using Kind = SsipConnection::Event::Kind;
  if (event.message != message.number) return;
  message.since = Clock::now();
  if (!message.has_begun && event.kind != Kind::kCanceled) {
    message.has_begun = true;
    (*message.begun)();
  }
  switch (event.kind) {
    case Kind::kMark: {
      std::size_t place = 0;
      std::from_chars(event.mark.data(), event.mark.data() + event.mark.size(), place);
      if (place > message.heard && place < message.text.size()) message.heard = place;
      tells_words_ = true;
      break;
    }
    case Kind::kEnd:
      message.outcome = Outcome::kSpoken;
      break;
    case Kind::kCanceled:
      message.outcome = Outcome::kCut;
      break;
    case Kind::kPaused:
    case Kind::kResumed:
      message.paused = event.kind == Kind::kPaused;
      break;
    default:
      break;
  }
}

// How long nothing may be heard of it.
SpeechDispatcher::Clock::duration SpeechDispatcher::Patience(const Message& message) const {
  if (!message.has_begun) return kBeginLimit;
  const std::string_view rest = message.text.substr(message.heard);
  if (!tells_words_) return kLastWordLimit + TimeOf(rest, message.speed);
  // A mark between two sentences may not be told.
  const std::size_t next = EndOfWord(rest, EndOfWord(rest, 0));
  return (next < rest.size() ? kWordLimit : kLastWordLimit) +
         TimeOf(rest.substr(0, next), message.speed);
}

bool SpeechDispatcher::IsAlive() { return server_->Ask("GET RATE", ReplyLimit()).has_value(); }

bool SpeechDispatcher::Cancel() { return server_->Ask("CANCEL self", ReplyLimit()).has_value(); }

}  // namespace corvane::desktop
