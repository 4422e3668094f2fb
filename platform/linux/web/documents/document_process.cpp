#include "platform/linux/web/documents/document_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace corvane::desktop {
namespace {

constexpr double kMostSeconds = 60;
constexpr std::size_t kLongestPage = std::size_t{64} << 20U;  // bytes
constexpr gsize kPiece = gsize{256} << 10U;
constexpr int kSourceFile = 3;
// What the process is told has room in a pipe, and is as long as it reads at most.
constexpr std::size_t kLongestBase = 8000;  // of an address; links of longer ones stay parts
constexpr std::size_t kLongestPassword = 1000;

// Which numbers the program ends with: platform/linux/pdf/document.h.
DocumentEnd EndOf(int code) {
  switch (code) {
    case 0:
      return DocumentEnd::Done;
    case 3:
      return DocumentEnd::NotProtected;
    case 4:
      return DocumentEnd::Locked;
    case 6:
      return DocumentEnd::TooBig;
    default:
      return DocumentEnd::Broken;
  }
}

/// A pipe's end from which the text, which is not long, can be read. Nobody else sees it
/// there, as in arguments or the environment.
int PipeWith(const std::string& text) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return -1;  // nobody waits for room in it
  const ssize_t written = write(ends[1], text.data(), text.size());
  close(ends[1]);
  if (written == static_cast<ssize_t>(text.size())) return ends[0];
  close(ends[0]);
  return -1;
}

using LauncherPtr = ObjectPtr<GSubprocessLauncher>;

}  // namespace

DocumentProcess::DocumentProcess(const std::string& program, const Source& source, Ready ready)
    : ready_(std::move(ready)) {
  const LauncherPtr launcher(g_subprocess_launcher_new(static_cast<GSubprocessFlags>(
      G_SUBPROCESS_FLAGS_STDOUT_PIPE | G_SUBPROCESS_FLAGS_STDERR_SILENCE)));
  const char* const environment[] = {"LC_ALL=C.UTF-8", nullptr};
  g_subprocess_launcher_set_environ(launcher.get(), const_cast<char**>(environment));
  g_subprocess_launcher_set_cwd(launcher.get(), "/");
  g_subprocess_launcher_take_stdin_fd(launcher.get(), fcntl(source.file, F_DUPFD_CLOEXEC, 0));
  const std::string base = source.address.size() <= kLongestBase ? source.address : "";
  const std::string password = source.password.substr(0, kLongestPassword);
  const int facts = PipeWith(base + std::string(1, '\0') + password);
  if (facts >= 0) g_subprocess_launcher_take_fd(launcher.get(), facts, kSourceFile);
  GError* failure = nullptr;
  process_.reset(g_subprocess_launcher_spawn(launcher.get(), &failure, program.c_str(), nullptr));
  const ErrorPtr owner(failure);
  if (!process_) {
    limit_.Start(0, [this] { Finish({DocumentEnd::NotProtected}); });
    return;
  }
  limit_.Start(kMostSeconds, [this] { Finish({DocumentEnd::TooLong}); });
  Read();
}

DocumentProcess::~DocumentProcess() {
  if (process_) g_subprocess_force_exit(process_.get());
}

/// Waits with the library for an answer to a process that may go meanwhile.
struct DocumentProcess::Asked {
  DocumentProcess& process;
  Life::Watch wanted;

  static gpointer By(DocumentProcess& process) { return new Asked{process, process.life_.Look()}; }
};

void DocumentProcess::Read() {
  g_input_stream_read_bytes_async(
      g_subprocess_get_stdout_pipe(process_.get()), kPiece, G_PRIORITY_DEFAULT, nullptr,
      [](GObject* stream, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Asked> asked(static_cast<Asked*>(data));
        const BytesPtr piece(
            g_input_stream_read_bytes_finish(G_INPUT_STREAM(stream), result, nullptr));
        if (asked->wanted) asked->process.TakePiece(piece.get());
      },
      Asked::By(*this));
}

void DocumentProcess::TakePiece(GBytes* piece) {
  gsize size = 0;
  const auto* bytes =
      piece == nullptr ? nullptr : static_cast<const char*>(g_bytes_get_data(piece, &size));
  if (size == 0) return WaitForEnd();
  page_.append(bytes, size);
  if (page_.size() > kLongestPage) return Finish({DocumentEnd::TooBig});
  Read();
}

void DocumentProcess::WaitForEnd() {
  g_subprocess_wait_async(
      process_.get(), nullptr,
      [](GObject* process, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Asked> asked(static_cast<Asked*>(data));
        g_subprocess_wait_finish(G_SUBPROCESS(process), result, nullptr);
        if (asked->wanted) asked->process.Finish(asked->process.ResultOf());
      },
      Asked::By(*this));
}

DocumentProcess::Result DocumentProcess::ResultOf() const {
  if (g_subprocess_get_if_exited(process_.get())) {
    return {EndOf(g_subprocess_get_exit_status(process_.get())), page_};
  }
  const int signal = g_subprocess_get_term_sig(process_.get());
  if (signal == SIGXCPU) return {DocumentEnd::TooLong};
  return {signal == SIGABRT ? DocumentEnd::TooBig
                            : DocumentEnd::Broken};  // poppler ends so without memory
}

// Whoever is told lets go of this.
void DocumentProcess::Finish(const Result& result) {
  limit_.Cancel();
  const Ready ready = std::exchange(ready_, nullptr);
  if (ready) ready(result);
}

}  // namespace corvane::desktop
