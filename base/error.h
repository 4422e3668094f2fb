#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace corvane {

/// Numbers of the run-time errors that the program raises or reports itself.
enum ErrorNumber : int {
  kErrOverflow = 6,
  kErrSubscriptOutOfRange = 9,
  kErrTypeMismatch = 13,
  kErrFileNotFound = 53,
  kErrDeviceIo = 57,
  kErrPermissionDenied = 70,
  kErrObjectNotSet = 91,
  kErrControlArrayElement = 340,
  kErrCannotCreateObject = 429,
  kErrNoSuchMethod = 438,
  kErrAutomation = 440,
  kErrRefused = 999,
  /// Object errors of the program itself count upward from this base.
  kObjectError = static_cast<int>(0x80040000),
};

/// The product's one exception type: a number, where it came from and a
/// description in words that can be shown and spoken.
class RunTimeError : public std::runtime_error {
 public:
  RunTimeError(int number, std::string source, const std::string& description)
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}

  int Number() const { return number_; }
  const std::string& Source() const { return source_; }
  std::string Description() const { return what(); }

 private:
  int number_;
  std::string source_;
};

/// Raised when something is asked of an object that is not there.
[[noreturn]] inline void RaiseObjectNotSet() {
  throw RunTimeError(kErrObjectNotSet, "", "Object variable or With block variable not set");
}

/// The pointed-to object, or the object-not-set error.
template <class Pointer>
auto& Required(const Pointer& pointer) {
  if (!pointer) RaiseObjectNotSet();
  return *pointer;
}

}  // namespace corvane
