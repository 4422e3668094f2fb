#pragma once

#include <optional>
#include <string>
#include <vector>

#include "access/AAElement.h"

namespace corvane {

/// Announces a selection list: what it is and its choice on focus, the new
/// choice alone when it changes; of a list of many choices those that have been
/// chosen, else those that have been let go. Where the manner wants full sentences, the
/// list that it opens is heard as it is walked.
class AASelectElement : public AAElement {
 protected:
  void Listen() override;

 private:
  void AASelect_onfocus();
  void AASelect_onchange();
  void AASelect_onlist();
  /// The text of the chosen option; empty while nothing is chosen.
  std::string Choice() const;
  std::string Option(int index) const;
  struct Change {
    std::vector<int> options;
    bool let_go = false;
  };
  /// The options chosen since it was asked last; where there are none, those let go.
  Change Changed();
  std::string Named(const Change& change) const;

  std::vector<int> chosen_;                 // when announced last
  OpenList list_;                           // what was last said of it
  std::optional<std::string> out_of_list_;  // the option that was chosen there and said
};

}  // namespace corvane
