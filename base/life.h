#pragma once

#include <memory>

namespace corvane {

/// Tells those who are called later whether they are still wanted. An object keeps one
/// for its own life, or one for each thing that it begins; what is called later takes a
/// watch along and asks it before anything else.
class Life {
 public:
  class Watch {
   public:
    explicit operator bool() const { return !life_.expired(); }

   private:
    friend class Life;
    explicit Watch(const std::shared_ptr<char>& life) : life_(life) {}
    std::weak_ptr<char> life_;
  };

  Life() = default;
  Life(const Life&) = delete;
  Life& operator=(const Life&) = delete;
  ~Life() = default;

  Watch Look() const { return Watch(life_); }
  /// Ends for all who watch.
  void End() { life_.reset(); }
  /// The same, and begins anew.
  Watch Renew() {
    life_ = std::make_shared<char>();
    return Look();
  }

 private:
  std::shared_ptr<char> life_ = std::make_shared<char>();
};

}  // namespace corvane
