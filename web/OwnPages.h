#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "web/Problem.h"

/// The pages that the program makes itself. `layout` is a page in which {{name}} stands
/// where a value goes.
namespace corvane {

/// A favourite or a page of the history that fits the words searched.
struct SearchMatch {
  std::string title;
  std::string address;
};

/// Tells of a problem: {{title}}, {{sentence}}, {{advice}}, {{address}}.
std::string RenderProblem(std::string_view layout, const Problem& problem);

/// Answers a search here: {{words}}, {{why}}, {{matches}}. `service_failed` tells whether
/// a service is set (and could not be reached).
std::string RenderSearch(std::string_view layout, const std::string& words,
                         const std::vector<SearchMatch>& matches, bool service_failed);

}  // namespace corvane
