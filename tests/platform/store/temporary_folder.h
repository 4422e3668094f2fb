#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace corvane::test {

/// A folder of a test's own that goes with it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "corvane-test.XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  const std::string& Path() const { return path_; }

  void Write(const std::string& name, const std::string& content) const {
    const std::filesystem::path file(*this / name);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
  }
  std::string Read(const std::string& name) const {
    std::ostringstream content;
    content << std::ifstream(*this / name, std::ios::binary).rdbuf();
    return content.str();
  }
  bool Has(const std::string& name) const { return std::filesystem::exists(*this / name); }

 private:
  std::string path_;
};

}  // namespace corvane::test
