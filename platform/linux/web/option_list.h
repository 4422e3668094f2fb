#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/html_document.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

/// The list that a select of the page opens. The engine's own takes all keys and tells
/// nobody where its user is; this one is walked with the same keys and tells of each
/// option. The page keeps the focus meanwhile.
class OptionList {
 public:
  /// `tell`: the list has opened, another option is reached, it has closed.
  OptionList(WebKitWebView* view, std::function<void(const OpenList&)> tell);
  ~OptionList();
  OptionList(const OptionList&) = delete;
  OptionList& operator=(const OptionList&) = delete;

  /// Opens over the select, which lies at `area` of the view, in place of a list that is
  /// open already.
  void Open(WebKitOptionMenu* menu, const GdkRectangle& area);
  /// Closes it; what was chosen before stays so.
  void Close() { Finish(false); }

 private:
  struct Option {
    guint item = 0;  ///< of the engine's menu
    std::string text;
    std::string group;
    bool enabled = true;
  };
  void Read();
  void Build(const GdkRectangle& area);
  GtkTreeModel* MakeModel();
  void PlaceAt(const GdkRectangle& area);
  gboolean Key(const GdkEventKey& event);
  void Look(gunichar letter, guint32 time);
  void Step(int from, int step);
  void Reach(int option);
  void Finish(bool choose);
  void Tell(bool open);

  WebKitWebView* view_;
  const std::function<void(const OpenList&)> tell_;
  ObjectPtr<WebKitOptionMenu> menu_;
  GtkWidget* window_ = nullptr;
  GtkTreeView* tree_ = nullptr;
  std::vector<Option> options_;
  std::vector<int> rows_;  // of the options in the tree, which has groups, too
  int at_ = -1;            // the option that is reached
  int chosen_ = -1;        // when it opened
  std::string typed_;      // the letters by which an option is looked for
  guint32 typed_at_ = 0;   // milliseconds
};

}  // namespace corvane::desktop
