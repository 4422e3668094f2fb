#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace corvane::tests {
namespace {

namespace fs = std::filesystem;

// Includes of `file` that a file of the product, or of the ports, may not have:
// only product headers, ports and the standard library (which has no slash and
// no ".h") are allowed.
std::vector<std::string> forbidden_includes(const fs::path& file, const std::regex& allowed) {
  static const std::regex include(R"re(^\s*#\s*include\s*[<"]([^>"]+)[>"])re");
  std::vector<std::string> found;
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);) {
    std::smatch match;
    if (std::regex_search(line, match, include) && !std::regex_match(match[1].str(), allowed)) {
      found.push_back(file.string() + ": " + match[1].str());
    }
  }
  return found;
}

std::vector<std::string> offences(const std::vector<std::string>& folders,
                                  const std::regex& allowed, bool recursive) {
  std::vector<std::string> all;
  int files = 0;
  const auto look = [&](const fs::path& path) {
    if (path.extension() != ".h" && path.extension() != ".cpp") return;
    ++files;
    for (auto& offence : forbidden_includes(path, allowed)) all.push_back(offence);
  };
  for (const auto& folder : folders) {
    const fs::path root = fs::path(CORVANE_SOURCE_DIR) / folder;
    if (recursive) {
      for (const auto& entry : fs::recursive_directory_iterator(root)) look(entry.path());
    } else {
      for (const auto& entry : fs::directory_iterator(root)) look(entry.path());
    }
  }
  EXPECT_GT(files, 5);
  return all;
}

TEST(Layers, ProductKnowsNoToolkit) {
  const std::regex allowed(
      R"(((app|speech|browser|explorer|access|controls|web|base|platform)/|browser/reading/|web/[a-z]+/)[A-Za-z0-9_]+\.h|nlohmann/json(_fwd)?\.hpp|[a-z_]+)");
  EXPECT_THAT(offences({"app", "speech", "browser", "explorer", "access", "controls", "web"},
                       allowed, true),
              ::testing::IsEmpty());
}

TEST(Layers, PortsKnowNeitherProductNorToolkit) {
  const std::regex allowed(R"((base|platform)/[A-Za-z0-9_]+\.h|[a-z_]+)");
  EXPECT_THAT(offences({"platform"}, allowed, false), ::testing::IsEmpty());
}

TEST(Layers, WebDoesNotKnowThePaneThatShowsIt) {
  const std::regex allowed(
      R"((web/([a-z]+/)?|access/|base/|platform/)[A-Za-z0-9_]+\.h|nlohmann/json(_fwd)?\.hpp|[a-z_]+)");
  EXPECT_THAT(offences({"web"}, allowed, true), ::testing::IsEmpty());
}

TEST(Layers, SpeechDoesNotKnowTheWindowsThatUseIt) {
  const std::regex allowed(R"((speech|base|platform)/[A-Za-z0-9_]+\.h|[a-z_]+)");
  EXPECT_THAT(offences({"speech"}, allowed, true), ::testing::IsEmpty());
}

TEST(Layers, HelpersKnowNothingAboveThem) {
  const std::regex allowed(R"(base/[A-Za-z0-9_]+\.h|[a-z_]+)");
  EXPECT_THAT(offences({"base"}, allowed, true), ::testing::IsEmpty());
}

/// Which other folders the files of a folder include; all below a certain depth count as
/// one folder.
using Graph = std::map<std::string, std::set<std::string>>;

std::string folder_of(const std::string& path, std::size_t depth) {
  std::size_t end = 0;
  for (std::size_t i = 0; i < depth; ++i) {
    const auto next = path.find('/', end);
    if (next == std::string::npos) break;
    end = next + 1;
  }
  return path.substr(0, end);
}

Graph includes_between(const std::vector<std::string>& roots, std::size_t depth) {
  static const std::regex include(R"re(^\s*#\s*include\s*"([^"]+)")re");
  Graph graph;
  const fs::path source(CORVANE_SOURCE_DIR);
  for (const auto& root : roots) {
    for (const auto& entry : fs::recursive_directory_iterator(source / root)) {
      const auto extension = entry.path().extension();
      if (extension != ".h" && extension != ".cpp") continue;
      const std::string here = folder_of(fs::relative(entry.path(), source).string(), depth);
      std::ifstream in(entry.path());
      for (std::string line; std::getline(in, line);) {
        std::smatch match;
        if (!std::regex_search(line, match, include)) continue;
        const std::string there = folder_of(match[1].str(), depth);
        if (there != here) graph[here].insert(there);
      }
    }
  }
  return graph;
}

/// The folders of a circle, in their order; none when there is no circle.
std::vector<std::string> circle_in(const Graph& graph) {
  std::set<std::string> done;
  std::vector<std::string> way;
  std::vector<std::string> found;
  const std::function<void(const std::string&)> walk = [&](const std::string& folder) {
    if (!found.empty() || done.contains(folder)) return;
    const auto begin = std::find(way.begin(), way.end(), folder);
    if (begin != way.end()) {
      found.assign(begin, way.end());
      return;
    }
    way.push_back(folder);
    if (const auto next = graph.find(folder); next != graph.end()) {
      for (const auto& each : next->second) walk(each);
    }
    way.pop_back();
    done.insert(folder);
  };
  for (const auto& [folder, others] : graph) walk(folder);
  return found;
}

TEST(Layers, ACircleIsFound) {
  EXPECT_THAT(circle_in({{"a/", {"b/"}}, {"b/", {"c/"}}, {"c/", {"b/"}}}),
              ::testing::ElementsAre("b/", "c/"));
  EXPECT_THAT(circle_in({{"a/", {"b/", "c/"}}, {"b/", {"c/"}}}), ::testing::IsEmpty());
}

TEST(Layers, NoTwoFoldersOfTheProductNeedEachOther) {
  const Graph graph = includes_between(
      {"app", "speech", "browser", "explorer", "access", "controls", "web", "base"}, 1);
  EXPECT_GE(graph.size(), 7U);
  EXPECT_THAT(circle_in(graph), ::testing::IsEmpty());
}

TEST(Layers, NoTwoFoldersOfTheLinuxDesktopNeedEachOther) {
  const Graph graph = includes_between({"platform/linux"}, 3);
  EXPECT_GE(graph.size(), 8U);
  EXPECT_THAT(circle_in(graph), ::testing::IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
