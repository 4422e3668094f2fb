#pragma once

#include <string>

#include "access/AAElement.h"

namespace corvane {

/// Announces a selection list: what it is and its choice on focus, the new
/// choice alone when it changes.
class AASelectElement : public AAElement {
 protected:
  void Listen() override;

 private:
  void AASelect_onfocus();
  void AASelect_onchange();
  /// The text of the chosen option; empty while nothing is chosen.
  std::string Choice() const;
};

}  // namespace corvane
