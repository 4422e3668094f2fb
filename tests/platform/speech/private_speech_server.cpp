#include "tests/platform/speech/private_speech_server.h"

#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;

bool Answers(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  const int number = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const bool answers = connect(number, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(number);
  return answers;
}

}  // namespace

// The server takes its sound from the environment and everything else from its folder.
std::string PrivateSpeechServer::CommandLine() const {
  const std::string folder = folder_.Path();
  return "env -i PATH=/usr/bin:/bin LC_ALL=C.UTF-8 HOME='" + folder + "' XDG_RUNTIME_DIR='" +
         folder + "' XDG_CONFIG_HOME='" + folder + "' PULSE_SERVER='" + sound_.Address() +
         "' setpriv --pdeathsig KILL speech-dispatcher --run-single --timeout 0"
         " --communication-method unix_socket --socket-path '" +
         Socket() + "' --pid-file '" + folder_ / "speechd.pid" + "' --config-dir '" +
         folder_ / "conf" + "' --log-dir '" + folder + "' >'" + folder_ / "out" + "' 2>&1 &\n";
}

bool PrivateSpeechServer::Configure() {
  if (!sound_.Start()) return false;
  fs::create_directories(folder_ / "conf/modules");
  fs::permissions(folder_.Path(), fs::perms::owner_all);
  std::ofstream(folder_ / "conf/modules/espeak-ng.conf") << "EspeakPunctuationList \"@+_\"\n";
  std::ofstream(folder_ / "conf/speechd.conf")
      << "LogLevel 2\nLogDir \"" << folder_.Path() << "\"\nAudioOutputMethod \"pulse\"\n"
      << "AudioPulseServer \"" << sound_.Address() << "\"\n"
      << "AddModule \"espeak-ng\" \"sd_espeak-ng\" \"espeak-ng.conf\"\nDefaultModule espeak-ng\n";
  return true;
}

bool PrivateSpeechServer::Start() {
  if (!Configure()) return false;
  return std::system(CommandLine().c_str()) == 0 && WaitUntilItAnswers();
}

std::string PrivateSpeechServer::Starter() {
  if (!Configure()) return "";
  std::string path = folder_ / "start";
  std::ofstream(path) << "#!/bin/sh\n" << CommandLine();
  fs::permissions(path, fs::perms::owner_all);
  return path;
}

bool PrivateSpeechServer::WaitUntilItAnswers() {
  for (int i = 0; i < 600; ++i) {
    if (Answers(Socket())) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return false;
}

pid_t PrivateSpeechServer::Process() const {
  pid_t process = 0;
  std::ifstream(folder_ / "speechd.pid") >> process;
  return process;
}

void PrivateSpeechServer::Hang() {
  if (const pid_t process = Process(); process > 0) kill(process, SIGSTOP);
}

void PrivateSpeechServer::Kill() {
  if (const pid_t process = Process(); process > 0) kill(process, SIGKILL);
  fs::remove(folder_ / "speechd.pid");
}

}  // namespace corvane::desktop
