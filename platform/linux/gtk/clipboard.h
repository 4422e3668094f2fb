#pragma once

#include <sigc++/connection.h>

#include <memory>
#include <string>

#include "platform/clipboard.h"

namespace corvane::desktop {

/// The display's clipboard. What another program puts on it is fetched when it
/// changes: asking for it then takes no time and waits for nobody.
class SystemClipboard : public Clipboard {
 public:
  SystemClipboard();
  ~SystemClipboard() override;
  void Clear() override;
  void SetText(const std::string& text) override;
  std::string GetText() const override;

 private:
  struct State;
  void Fetch();

  std::shared_ptr<State> state_;
  sigc::connection changed_;
};

}  // namespace corvane::desktop
