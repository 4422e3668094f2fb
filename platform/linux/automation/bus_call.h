#pragma once

#include <gio/gio.h>

#include <string>
#include <utility>
#include <vector>

namespace corvane::desktop {

/// One call of another program. It is answered exactly once; a call that is let
/// go of unanswered tells its caller that the program ends.
class BusCall {
 public:
  explicit BusCall(GDBusMethodInvocation* invocation) : invocation_(invocation) {}
  ~BusCall();
  BusCall(const BusCall&) = delete;
  BusCall& operator=(const BusCall&) = delete;

  std::string Caller() const;
  std::string Path() const;
  std::string Interface() const;
  std::string Method() const;
  /// The arguments; their types are those of the description.
  std::string Text(gsize index) const;
  bool Flag(gsize index) const;
  std::vector<std::string> Texts(gsize index) const;

  /// Answers with nothing, or with the path of an object.
  void Return();
  void ReturnObject(const std::string& path);
  void Fail(int number, const std::string& description);
  void Deny();

 private:
  GVariant* Arguments() const;
  GDBusMethodInvocation* Taken() { return std::exchange(invocation_, nullptr); }

  GDBusMethodInvocation* invocation_;  // answering it gives it away
};

}  // namespace corvane::desktop
