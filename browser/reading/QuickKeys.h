#pragma once

#include <optional>
#include <string>

#include "browser/PaneContext.h"
#include "browser/reading/ActingInText.h"
#include "browser/reading/PageInPane.h"
#include "browser/reading/TableKeys.h"

namespace corvane {

/// The keys that lead from one heading, link, field ... of the page to the next while its
/// text is read in the text pane, and that act on what is reached. While they are on
/// nothing is typed into the pane.
class QuickKeys {
 public:
  QuickKeys(PaneContext& pane, PageInPane& page, ActingInText& acting);

  /// Lets letters be letters, or keys; says so.
  void Switch();
  /// What the key does in the text pane while letters lead, in a few words as they follow
  /// its name; nothing where it is none of these keys.
  std::optional<std::string> WhatDoes(const KeyEvent& key) const;

 private:
  bool AreOn() const { return switched_.value_or(pane_.manner.quick_keys); }
  void KeyDown(KeyEvent& key);
  void KeyPress(int& character);
  bool CarryInTable(int code);
  bool Carry(int code, TextMap::Way way);
  bool IsReady(int code, TextMap::Way way);
  void Go(TextMap::Way way, const TextMap::Wanted& wanted, const std::string& name);
  void GoBehindLinks(TextMap::Way way);
  void Act();

  PaneContext& pane_;
  PageInPane& page_;
  ActingInText& acting_;
  TableKeys tables_;
  struct Pressed {
    int code;
    TextMap::Way way;
  };
  std::optional<bool> switched_;  // in this window, by its user
  std::optional<Pressed> early_;  // the last key while the page was still to come
  Connections connections_;
};

}  // namespace corvane
