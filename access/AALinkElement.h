#pragma once

#include <string>

#include "access/AAElement.h"

namespace corvane {

/// What a link is called: its text, else what stands for it, else its address.
const std::string& WordsOfLink(const HTMLElement& link);

/// Announces a link of the page by its text when it gets the focus.
class AALinkElement : public AAElement {
 protected:
  void Listen() override;

 private:
  void AALink_onfocus();
};

}  // namespace corvane
