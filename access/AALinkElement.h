#pragma once

#include "access/AAElement.h"

namespace corvane {

/// Announces a link of the page by its text when it gets the focus.
class AALinkElement : public AAElement {
 protected:
  void Listen() override;

 private:
  void AALink_onfocus();
};

}  // namespace corvane
