#include "base/read_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace corvane {

std::optional<std::string> ReadFile(const std::string& path, std::size_t most) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::string content;
  std::array<char, 65536> piece{};
  while (content.size() < most && (file.read(piece.data(), piece.size()) || file.gcount() > 0)) {
    const auto came = static_cast<std::size_t>(file.gcount());
    content.append(piece.data(), std::min(came, most - content.size()));
  }
  if (file.bad()) return std::nullopt;
  return content;
}

}  // namespace corvane
