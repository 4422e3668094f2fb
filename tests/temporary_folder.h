#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace corvane::test {

/// All bytes of a file; none if there is no such file.
inline std::string ContentOf(const std::string& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

/// Replaces a file and makes its folder; false when that is not possible.
inline bool WriteFile(const std::string& file, const std::string& content) {
  std::error_code ignored;
  std::filesystem::create_directories(std::filesystem::path(file).parent_path(), ignored);
  return static_cast<bool>(std::ofstream(file, std::ios::binary) << content);
}

/// A folder of a test's own that goes with it, even while another process still
/// writes into it.
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

  /// Returns the path of the file written.
  std::string Write(const std::string& name, const std::string& content) const {
    const std::filesystem::path file(*this / name);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return file.string();
  }
  std::string Read(const std::string& name) const { return ContentOf(*this / name); }
  bool Has(const std::string& name) const { return std::filesystem::exists(*this / name); }

 private:
  std::string path_;
};

}  // namespace corvane::test
