#pragma once

#include <string>
#include <string_view>

namespace corvane::pdf {

/// How the work ended; the numbers are the program's exit codes.
enum class Outcome {
  Done = 0,
  NotProtected = 3,  ///< the process could not be confined, so nothing was read
  Locked = 4,        ///< a password is wanted, another one than that given
  Broken = 5,        ///< is no document, or one that cannot be read
  TooBig = 6,        ///< does not fit into the memory that there is for it
};

/// What is known of a document beside its bytes.
struct Source {
  std::string address = {};  ///< where it comes from, for links that are parts of addresses
  std::string password = {};
};

struct Limits {
  std::size_t longest = std::size_t{48} << 20U;    ///< bytes of the page that is made
  std::size_t most_words = std::size_t{3} << 20U;  ///< of the document
  double most_seconds = 20;                        ///< of work on its pages
};

/// Makes a page (HTML) of the PDF document in `data`. What exceeds the limits is left
/// out, and the page says so. Throws std::bad_alloc.
Outcome Convert(std::string_view data, const Source& source, const Limits& limits,
                std::string& page);

/// To be called once before, while files can still be opened.
void Prepare();

}  // namespace corvane::pdf
