#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
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

}  // namespace
}  // namespace corvane::tests
