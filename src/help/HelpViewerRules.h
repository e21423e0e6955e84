// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The help viewer's rules without a screen: its toolbar, its history of
// pages behind Previous and Next, the page it shows for a missing file and
// its print messages.

#include <array>
#include <string>
#include <string_view>

#include "model/WBStack.h"

namespace cb {

struct HelpButtonRow {
  std::string_view key;  // also the caption
  std::string_view tooltip;
};

// Print's tip is the report viewer's.
inline constexpr std::array<HelpButtonRow, 3> kHelpToolbar{{
    {"Print", "Print Report"},
    {"Previous", "Go Back"},
    {"Next", "Go Forward"},
}};

// Every navigation the browser makes is recorded, the load's own included,
// so the first page stands twice; only those that Previous and Next start
// are not. A link followed after Previous drops the forward history.
class HelpHistory {
 public:
  // The load on `path`: the history starts there and both buttons are off,
  // even though the load's navigation (recorded here) has put the page in twice.
  // Returns the file to show.
  std::string Load(const std::string& path);
  // Before the browser goes to `url`, whoever started it.
  void BeforeNavigate(const std::string& url);
  // The toolbar buttons; each returns the file to navigate to.
  std::string Previous();
  std::string Next();

  bool PreviousEnabled() const { return previous_; }
  bool NextEnabled() const { return next_; }
  const WBStack& Stack() const { return stack_; }

 private:
  WBStack stack_;
  std::string navigationMode_;  // "Previous" or "Next" while the toolbar's navigation is under way
  bool previous_ = false, next_ = false;
};

// The viewer's own page for a file it cannot read (UTF-8 HTML); `path` is shown escaped.
std::string MissingHelpPage(std::string_view path);

}  // namespace cb
