#pragma once

#include <string>

#include "platform/linux/web/documents/document_process.h"
#include "platform/linux/web/problem.h"

namespace corvane::desktop {

/// Why there is no page of the document at that address.
Problem DocumentProblem(const std::string& address, DocumentProcess::End end);

/// What people call the document: the last part of its address.
std::string DocumentName(const std::string& address);

}  // namespace corvane::desktop
