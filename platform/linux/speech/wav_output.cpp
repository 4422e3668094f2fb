#include "platform/linux/speech/wav_output.h"

#include <array>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "base/error.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kHeaderBytes = 44;
constexpr std::uint32_t kMostSoundBytes = std::numeric_limits<std::uint32_t>::max() - kHeaderBytes;

void PutNumber(std::span<unsigned char> at, std::uint32_t value) {
  for (unsigned char& byte : at) {
    byte = static_cast<unsigned char>(value);
    value >>= 8;
  }
}

/// The header of a WAV file of uncompressed mono 16-bit samples.
std::array<unsigned char, kHeaderBytes> Header(std::uint32_t sound_bytes) {
  constexpr std::uint32_t kBytesPerSample = 2;
  std::array<unsigned char, kHeaderBytes> header{};
  const std::span all(header);
  std::memcpy(&header[0], "RIFF", 4);
  PutNumber(all.subspan(4, 4), sound_bytes + kHeaderBytes - 8);
  std::memcpy(&header[8], "WAVEfmt ", 8);
  PutNumber(all.subspan(16, 4), 16);  // length of what describes the format
  PutNumber(all.subspan(20, 2), 1);   // uncompressed
  PutNumber(all.subspan(22, 2), 1);   // channels
  PutNumber(all.subspan(24, 4), kSampleRate);
  PutNumber(all.subspan(28, 4), kSampleRate * kBytesPerSample);
  PutNumber(all.subspan(32, 2), kBytesPerSample);
  PutNumber(all.subspan(34, 2), 8 * kBytesPerSample);
  std::memcpy(&header[36], "data", 4);
  PutNumber(all.subspan(40, 4), sound_bytes);
  return header;
}

}  // namespace

WavOutput::WavOutput(const std::string& file, Notice notice, std::unique_ptr<PaceClock> clock)
    : pace_(std::move(clock)), notice_(std::move(notice)), file_(std::fopen(file.c_str(), "wb")) {
  if (file_ != nullptr && WriteHeader() && std::fflush(file_) == 0) return;
  if (file_ != nullptr) std::fclose(file_);
  throw RunTimeError(kErrPermissionDenied, "Speech",
                     "The sound file \"" + file + "\" cannot be written.");
}

WavOutput::~WavOutput() {
  if (file_ != nullptr) std::fclose(file_);
}

std::size_t WavOutput::Write(std::span<const std::int16_t> samples) {
  const std::size_t taken = pace_.Write(samples);
  if (taken > 0 && file_ != nullptr && !Append(samples.first(taken))) {
    std::fclose(file_);
    file_ = nullptr;
    if (notice_) notice_("The sound file can no longer be written. Speech goes on without it.");
  }
  return taken;
}

bool WavOutput::WriteHeader() {
  const auto header = Header(sound_bytes_);
  return std::fseek(file_, 0, SEEK_SET) == 0 &&
         std::fwrite(header.data(), 1, header.size(), file_) == header.size();
}

bool WavOutput::Append(std::span<const std::int16_t> samples) {
  const std::size_t bytes = samples.size() * 2;
  if (bytes > kMostSoundBytes - sound_bytes_) return false;
  std::vector<unsigned char> sound(bytes);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    PutNumber(std::span(sound).subspan(2 * i, 2), static_cast<std::uint16_t>(samples[i]));
  }
  if (std::fseek(file_, 0, SEEK_END) != 0) return false;
  if (std::fwrite(sound.data(), 1, bytes, file_) != bytes) return false;
  sound_bytes_ += static_cast<std::uint32_t>(bytes);
  return WriteHeader() && std::fflush(file_) == 0;
}

}  // namespace corvane::desktop
