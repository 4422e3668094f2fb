#include "platform/linux/pdf/confine.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <memory>

namespace corvane::pdf {
namespace {

bool SetLimit(__rlimit_resource what, rlim_t value, rlim_t last = 0) {
  const rlimit limit{value, std::max(value, last)};
  return setrlimit(what, &limit) == 0;
}

bool Bound(const Bounds& bounds) {
  return SetLimit(RLIMIT_AS, bounds.memory) &&
         SetLimit(RLIMIT_CPU, bounds.seconds, bounds.seconds + 1) && SetLimit(RLIMIT_CORE, 0) &&
         SetLimit(RLIMIT_FSIZE, 0) && SetLimit(RLIMIT_NPROC, 0);
}

/// Leaves of the file system only the reading of the folders. False where the kernel
/// knows no such rule; then no file at all is opened.
bool LeaveFolders(const std::vector<std::string>& readable) {
  const auto call = [](auto... arguments) { return static_cast<int>(syscall(arguments...)); };
  landlock_ruleset_attr rules{};
  // All that the first version of this interface knows.
  rules.handled_access_fs = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1U) - 1;
  const int set = call(__NR_landlock_create_ruleset, &rules, sizeof rules.handled_access_fs, 0);
  if (set < 0) return false;
  for (const std::string& folder : readable) {
    const int at = open(folder.c_str(), O_PATH | O_CLOEXEC);
    if (at < 0) continue;
    landlock_path_beneath_attr rule{};
    rule.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
    rule.parent_fd = at;
    call(__NR_landlock_add_rule, set, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
    close(at);
  }
  const bool is_left = call(__NR_landlock_restrict_self, set, 0) == 0;
  close(set);
  return is_left;
}

struct FilterRelease {
  void operator()(scmp_filter_ctx filter) const { seccomp_release(filter); }
};

class Filter {
 public:
  // What is not named fails, and reading goes on without it.
  Filter() : filter_(seccomp_init(SCMP_ACT_ERRNO(EPERM))) {}

  bool Load() { return ok_ && filter_ && seccomp_load(filter_.get()) == 0; }
  void Allow(std::initializer_list<int> calls) {
    for (const int call : calls) Rule(SCMP_ACT_ALLOW, call, {});
  }
  /// Allows the call when of that argument (from 0 on) none of the bits is set.
  void AllowWithout(int call, unsigned argument, scmp_datum_t bits) {
    Rule(SCMP_ACT_ALLOW, call, {{argument, SCMP_CMP_MASKED_EQ, bits, 0}});
  }
  void AllowWith(int call, unsigned argument, scmp_datum_t value) {
    Rule(SCMP_ACT_ALLOW, call, {{argument, SCMP_CMP_EQ, value, 0}});
  }

 private:
  void Rule(std::uint32_t action, int call, const std::vector<scmp_arg_cmp>& conditions) {
    if (!filter_) return;
    ok_ =
        seccomp_rule_add_array(filter_.get(), action, call,
                               static_cast<unsigned>(conditions.size()), conditions.data()) == 0 &&
        ok_;
  }

  std::unique_ptr<void, FilterRelease> filter_;
  bool ok_ = true;
};

bool LeaveCalls(bool files) {
  Filter filter;
  filter.Allow({SCMP_SYS(read),
                SCMP_SYS(pread64),
                SCMP_SYS(readv),
                SCMP_SYS(write),
                SCMP_SYS(writev),
                SCMP_SYS(lseek),
                SCMP_SYS(close),
                SCMP_SYS(fstat),
                SCMP_SYS(brk),
                SCMP_SYS(munmap),
                SCMP_SYS(mremap),
                SCMP_SYS(madvise),
                SCMP_SYS(futex),
                SCMP_SYS(getrandom),
                SCMP_SYS(clock_gettime),
                SCMP_SYS(gettimeofday),
                SCMP_SYS(time),
                SCMP_SYS(nanosleep),
                SCMP_SYS(clock_nanosleep),
                SCMP_SYS(sched_yield),
                SCMP_SYS(getpid),
                SCMP_SYS(gettid),
                SCMP_SYS(rt_sigaction),
                SCMP_SYS(rt_sigprocmask),
                SCMP_SYS(rt_sigreturn),
                SCMP_SYS(sigaltstack),
                SCMP_SYS(sysinfo),
                SCMP_SYS(uname),
                SCMP_SYS(restart_syscall),
                SCMP_SYS(exit),
                SCMP_SYS(exit_group)});
  filter.AllowWithout(SCMP_SYS(mmap), 2, PROT_EXEC);
  filter.AllowWithout(SCMP_SYS(mprotect), 2, PROT_EXEC);
  // To end itself, and nobody else.
  filter.AllowWith(SCMP_SYS(tgkill), 0, static_cast<scmp_datum_t>(getpid()));
  if (files) {
    filter.Allow({SCMP_SYS(newfstatat), SCMP_SYS(statx), SCMP_SYS(stat), SCMP_SYS(lstat),
                  SCMP_SYS(access), SCMP_SYS(faccessat), SCMP_SYS(getdents64), SCMP_SYS(readlink),
                  SCMP_SYS(fadvise64)});
    const scmp_datum_t writing = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC | O_APPEND;
    filter.AllowWithout(SCMP_SYS(open), 1, writing);
    filter.AllowWithout(SCMP_SYS(openat), 2, writing);
  } else {
    // Of what is open, by its number: the empty path.
    filter.AllowWith(SCMP_SYS(newfstatat), 0, STDIN_FILENO);
    filter.AllowWith(SCMP_SYS(newfstatat), 0, STDOUT_FILENO);
  }
  return filter.Load();
}

}  // namespace

bool Confine(const Bounds& bounds, const std::vector<std::string>& readable) {
  const pid_t parent = getppid();
  if (prctl(PR_SET_PDEATHSIG, SIGKILL) != 0 || getppid() != parent) return false;
  if (prctl(PR_SET_DUMPABLE, 0) != 0 || prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return false;
  return Bound(bounds) && LeaveCalls(LeaveFolders(readable));
}

}  // namespace corvane::pdf
