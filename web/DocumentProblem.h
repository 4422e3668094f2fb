#pragma once

#include <string>
#include <string_view>

#include "web/Problem.h"

namespace corvane {

/// How the making of a page of a document ended.
enum class DocumentEnd {
  Done,
  Locked,        ///< a password is wanted, another one than that given
  Broken,        ///< is no document, or one that cannot be read
  TooBig,        ///< takes too much memory or makes too long a page
  TooLong,       ///< takes too much time
  NotProtected,  ///< cannot be read safely here, so that it has not been
};

/// Whether answers of that kind are documents.
bool IsDocumentKind(std::string_view mime_type);

/// Why there is no page of the document at that address.
Problem DocumentProblem(const std::string& address, DocumentEnd end);

/// What people call the document: the last part of its address.
std::string DocumentName(const std::string& address);

}  // namespace corvane
