// What a process can still do when it has been confined: each thing is tried in one of
// its own.
#include "platform/linux/pdf/confine.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>

#include "tests/temporary_folder.h"

namespace corvane::pdf {
namespace {

class ConfineTest : public testing::Test {
 protected:
  /// Whether it works in a confined process; the number of the signal that ends that,
  /// as a negative number, or -1000 when it cannot be confined.
  int Tried(const std::function<bool()>& act, const Bounds& bounds = {}) {
    const pid_t child = fork();
    if (child == 0) {
      kernel_();
      if (!Confine(bounds, {folder_ / "allowed"})) _exit(99);
      _exit(act() ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) return -WTERMSIG(status);
    return WEXITSTATUS(status) == 99 ? -1000 : WEXITSTATUS(status);
  }
  bool Opens(const std::string& path, int flags) { return open(path.c_str(), flags, 0600) >= 0; }

  ConfineTest() {
    folder_.Write("allowed/table", "words");
    folder_.Write("home/secret", "words");
  }

  /// As if the kernel did not know that call.
  void WithoutCall(int call) {
    kernel_ = [call] {
      scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
      seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), call, 0);
      seccomp_load(filter);
      seccomp_release(filter);
    };
  }

  const test::TemporaryFolder folder_;
  std::function<void()> kernel_ = [] {};
};

TEST_F(ConfineTest, ItGoesOnWorking) {
  EXPECT_EQ(Tried([] {
              const std::string text(1U << 20U, 'a');
              return text.size() == 1U << 20U && getpid() > 0;
            }),
            1);
}

TEST_F(ConfineTest, OfFilesOnlyTheFoldersNamedAreRead) {
  EXPECT_EQ(Tried([&] { return Opens(folder_ / "allowed/table", O_RDONLY); }), 1);
  EXPECT_EQ(Tried([&] { return Opens(folder_ / "home/secret", O_RDONLY); }), 0);
  EXPECT_EQ(Tried([&] { return Opens("/etc/passwd", O_RDONLY); }), 0);
  EXPECT_EQ(Tried([&] { return Opens("/proc/self/environ", O_RDONLY); }), 0);
}

TEST_F(ConfineTest, NothingIsWritten) {
  EXPECT_EQ(Tried([&] { return Opens(folder_ / "allowed/table", O_WRONLY); }), 0);
  EXPECT_EQ(Tried([&] { return Opens(folder_ / "allowed/new", O_RDWR | O_CREAT); }), 0);
  EXPECT_EQ(Tried([&] { return unlink((folder_ / "allowed/table").c_str()) == 0; }), 0);
  EXPECT_EQ(Tried([&] { return mkdir((folder_ / "allowed/new").c_str(), 0700) == 0; }), 0);
}

TEST_F(ConfineTest, NoConnectionAndNoOtherProcess) {
  EXPECT_EQ(Tried([] { return socket(AF_INET, SOCK_STREAM, 0) >= 0; }), 0);
  EXPECT_EQ(Tried([] { return socket(AF_UNIX, SOCK_STREAM, 0) >= 0; }), 0);
  EXPECT_EQ(Tried([] { return fork() >= 0; }), 0);
  EXPECT_EQ(Tried([] { return execl("/bin/true", "true", nullptr) == 0; }), 0);
  EXPECT_EQ(Tried([] { return kill(getppid(), 0) == 0; }), 0);
}

TEST_F(ConfineTest, NoCodeThatIsNotThereYet) {
  EXPECT_EQ(Tried([] {
              return mmap(nullptr, 4096, PROT_READ | PROT_WRITE | PROT_EXEC,
                          MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) != MAP_FAILED;
            }),
            0);
  EXPECT_EQ(Tried([] {
              void* at =
                  mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
              return at != MAP_FAILED && mprotect(at, 4096, PROT_READ | PROT_EXEC) == 0;
            }),
            0);
}

TEST_F(ConfineTest, AKernelThatCannotTellFoldersApartOpensNoFile) {
  WithoutCall(SCMP_SYS(landlock_create_ruleset));
  EXPECT_EQ(Tried([&] { return Opens(folder_ / "allowed/table", O_RDONLY); }), 0);
  EXPECT_EQ(Tried([] { return socket(AF_INET, SOCK_STREAM, 0) >= 0; }), 0);
  EXPECT_EQ(Tried([] { return std::string(1U << 20U, 'a').size() == 1U << 20U; }), 1);
}

TEST_F(ConfineTest, WhereCallsCannotBeTakenAwayNothingIsRead) {
  WithoutCall(SCMP_SYS(prctl));
  EXPECT_EQ(Tried([] { return true; }), -1000);
}

TEST_F(ConfineTest, MemoryAndTimeEnd) {
  EXPECT_EQ(Tried([] { return malloc(std::size_t{2} << 30U) != nullptr; }), 0);
  EXPECT_EQ(Tried(
                [] {
                  std::atomic<bool> goes_on = true;
                  while (goes_on) {
                  }
                  return true;
                },
                {.seconds = 1}),
            -SIGXCPU);
}

/// The program itself, as it is started for each document.
class ProgramTest : public testing::Test {
 protected:
  /// Its exit code for that document.
  int Run(const std::string& document, const std::string& rest = "") {
    const std::string call = std::string("exec 3</dev/null; { '") + CORVANE_PDF + "' < '" +
                             document + "'; echo $? > '" + (folder_ / "code") + "'; } " + rest +
                             " | cat > '" + (folder_ / "page") + "'";
    EXPECT_EQ(system(call.c_str()), 0);
    return std::stoi(folder_.Read("code"));
  }
  std::string Made(const std::string& name) {
    return std::string(CORVANE_DOCUMENTS) + "/" + name + ".pdf";
  }

  const test::TemporaryFolder folder_;
};

TEST_F(ProgramTest, ItMakesAPageWhileItIsConfined) {
  EXPECT_EQ(Run(Made("tagged")), 0);
  EXPECT_NE(folder_.Read("page").find("<h1>Opening hours</h1>"), std::string::npos);
}

TEST_F(ProgramTest, TablesOfLettersAreStillRead) {
  EXPECT_EQ(Run(Made("japanese")), 0);
  EXPECT_NE(folder_.Read("page").find("日本語"), std::string::npos) << folder_.Read("page");
}

TEST_F(ProgramTest, ItsExitCodeTellsWhatIsTheMatter) {
  EXPECT_EQ(Run(Made("locked")), 4);
  EXPECT_EQ(Run(Made("broken")), 5);
  EXPECT_EQ(Run("/dev/null"), 5);
}

}  // namespace
}  // namespace corvane::pdf
