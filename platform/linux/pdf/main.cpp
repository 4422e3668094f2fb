// corvane-pdf: reads a PDF document from its standard input, which is a file, and writes
// a page of it to its standard output. On the file with the number 3 it gets the
// document's address and its password, where nobody else sees them. It is started anew for each
// document and confines itself before it has read a byte of it.
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <new>
#include <string>
#include <string_view>

#include "platform/linux/pdf/confine.h"
#include "platform/linux/pdf/document.h"

namespace corvane::pdf {
namespace {

constexpr int kSource = 3;
constexpr std::size_t kLongestSource = 10000;
// Tables of letters that documents in Chinese, Japanese and Korean rely on.
constexpr const char* kTables = "/usr/share/poppler";

/// The address, a zero, the password.
Source ReadSource() {
  std::string both;
  char piece[256];
  for (;;) {
    const ssize_t count = read(kSource, piece, sizeof piece);
    if (count <= 0 || both.size() > kLongestSource) break;
    both.append(piece, static_cast<std::size_t>(count));
  }
  const auto end = std::min(both.find('\0'), both.size());
  return {both.substr(0, end), both.substr(std::min(end + 1, both.size()))};
}

std::string_view MapInput() {
  struct stat facts {};
  if (fstat(STDIN_FILENO, &facts) != 0 || facts.st_size <= 0) return {};
  const auto size = static_cast<std::size_t>(facts.st_size);
  void* at = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, STDIN_FILENO, 0);
  if (at == MAP_FAILED) throw std::bad_alloc();
  return {static_cast<const char*>(at), size};
}

bool WriteOut(std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(STDOUT_FILENO, text.data(), text.size());
    if (count <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

Outcome Run() {
  Prepare();
  if (!Confine({}, {kTables})) return Outcome::NotProtected;
  try {
    std::string page;
    const Outcome outcome = Convert(MapInput(), ReadSource(), {}, page);
    if (outcome != Outcome::Done) return outcome;
    return WriteOut(page) ? Outcome::Done : Outcome::Broken;
  } catch (const std::bad_alloc&) {
    return Outcome::TooBig;
  }
}

}  // namespace
}  // namespace corvane::pdf

// Nothing is tidied up: the process is over, and a document of hostile make gets no
// second chance.
int main() { _exit(static_cast<int>(corvane::pdf::Run())); }
