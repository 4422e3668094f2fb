// A small fuzzer: mutates inputs, keeps those that reach code that no earlier one
// has reached, and leaves the input that ends the process in a file.
//
//   NAME_fuzz [--seeds FOLDER] [--runs N | --seconds N] [--seed N]   mutate
//   NAME_fuzz FILE...                                                run these
//
// The same seeds, runs and seed give the same inputs.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <unistd.h>

#include "tests/fuzz/fuzz.h"

extern "C" {
void __sanitizer_set_death_callback(void (*callback)());
void __sanitizer_cov_trace_pc();
const char* __asan_default_options();
}

namespace {

constexpr std::size_t kMapSize = 1U << 16U;
constexpr std::size_t kLongest = 1U << 16U;
constexpr unsigned kMostSecondsAnInput = 20;

bool seen[kMapSize];  // code reached by any input
bool reached_more;    // by the present one, for the first time
std::string input;    // the present one

void LeaveInput() {
  const char path[] = "crash-input";
  std::ofstream(path, std::ios::binary) << input;
  std::fprintf(stderr, "The input is in %s (%zu bytes)\n", path, input.size());
}

// For an input that takes far too long; ends like a crash.
void TooLong(int) { std::abort(); }

void Run() {
  reached_more = false;
  alarm(kMostSecondsAnInput);
  FuzzOne(input);
  alarm(0);
}

class Mutator {
 public:
  explicit Mutator(std::uint64_t seed) : random_(seed) {}

  std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

  void Mutate(std::string& text, const std::vector<std::string>& corpus) {
    for (std::size_t times = 1 + Below(4); times > 0; --times)
      Once(text, corpus[Below(corpus.size())]);
    if (text.size() > kLongest) text.resize(kLongest);
  }

 private:
  void Once(std::string& text, const std::string& other) {
    const std::size_t at = Below(text.size() + 1);
    switch (Below(7)) {
      case 0:
        if (at < text.size()) text[at] = static_cast<char>(Below(256));
        break;
      case 1:
        if (at < text.size()) text[at] = static_cast<char>(text[at] ^ (1 << Below(8)));
        break;
      case 2:
        text.insert(at, 1 + Below(3), kTelling[Below(sizeof kTelling - 1)]);
        break;
      case 3:
        text.erase(at, 1 + Below(Below(2) == 0 ? 3 : text.size() + 1));
        break;
      case 4: {  // a piece again, elsewhere
        const std::string piece = text.substr(at, Below(64));
        text.insert(Below(text.size() + 1), piece);
        break;
      }
      case 5: {  // a piece of another input
        const std::size_t from = Below(other.size() + 1);
        text.insert(at, other, from, Below(128));
        break;
      }
      default: {
        static const char* const numbers[] = {
            "-1", "0", "2147483648", "99999999999999999999", "\xff\xfe", "\xed\xa0\x80", "1e999"};
        text.insert(at, numbers[Below(std::size(numbers))]);
      }
    }
  }

  // Characters that mean something to one reader or another.
  static constexpr char kTelling[] = "{}[]\\\"':,;=<>&#\n\r\t /%*u-0";
  std::mt19937_64 random_;
};

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

struct Options {
  std::string seeds;
  std::uint64_t runs = 0;
  double seconds = 0;
  std::uint64_t seed = 1;
  std::vector<std::string> files;
};

Options ReadOptions(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string name = argv[i];
    const char* value = i + 1 < argc ? argv[i + 1] : "";
    if (name == "--seeds") {
      options.seeds = value;
    } else if (name == "--runs") {
      options.runs = std::strtoull(value, nullptr, 10);
    } else if (name == "--seconds") {
      options.seconds = std::strtod(value, nullptr);
    } else if (name == "--seed") {
      options.seed = std::strtoull(value, nullptr, 10);
    } else {
      options.files.push_back(name);
      continue;
    }
    ++i;
  }
  return options;
}

}  // namespace

// Called at every branch of the code that is fuzzed.
void __sanitizer_cov_trace_pc() {
  const auto place = reinterpret_cast<std::uintptr_t>(__builtin_return_address(0));
  bool& known = seen[(place ^ (place >> 16U)) % kMapSize];
  reached_more = reached_more || !known;
  known = true;
}

// An exception that nobody takes is a finding like any other.
const char* __asan_default_options() { return "handle_abort=1:detect_leaks=1"; }

int main(int argc, char** argv) {
  const Options options = ReadOptions(argc, argv);
  __sanitizer_set_death_callback(&LeaveInput);
  std::signal(SIGALRM, &TooLong);
  for (const auto& file : options.files) {
    input = ReadFile(file);
    Run();
  }
  if (!options.files.empty()) return 0;

  std::vector<std::string> corpus = {""};
  if (!options.seeds.empty()) {
    std::vector<std::filesystem::path> paths(std::filesystem::directory_iterator(options.seeds),
                                             {});
    std::sort(paths.begin(), paths.end());
    for (const auto& path : paths) corpus.push_back(ReadFile(path));
  }
  for (const auto& seed : corpus) {
    input = seed;
    Run();
  }
  Mutator mutator(options.seed);
  const auto start = std::chrono::steady_clock::now();
  const auto go_on = [&](std::uint64_t done) {
    if (options.runs != 0) return done < options.runs;
    return std::chrono::steady_clock::now() - start <
           std::chrono::duration<double>(options.seconds);
  };
  std::uint64_t done = 0;
  for (; go_on(done); ++done) {
    input = corpus[mutator.Below(corpus.size())];
    mutator.Mutate(input, corpus);
    Run();
    if (reached_more) corpus.push_back(input);
  }
  std::printf("%llu inputs, %zu kept, no finding\n", static_cast<unsigned long long>(done),
              corpus.size());
  return 0;
}
