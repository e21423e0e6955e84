// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/HelpViewerRules.h"

namespace cb {
namespace {

constexpr std::int32_t kStart = 1, kBack = 2, kPush = 3, kForward = 4;
constexpr char kPrevious[] = "Previous", kNext[] = "Next";

std::string Escaped(std::string_view text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

}  // namespace

std::string HelpHistory::Load(const std::string& path) {
  const std::string file = stack_.GetStackFile(kStart, path);
  BeforeNavigate(file);
  previous_ = next_ = false;
  return file;
}

void HelpHistory::BeforeNavigate(const std::string& url) {
  if (navigationMode_ != kNext && navigationMode_ != kPrevious) {
    stack_.GetStackFile(kPush, url);
    previous_ = true;
    if (stack_.CurrentItem() == stack_.TotalItems()) next_ = false;
  }
  navigationMode_.clear();
}

std::string HelpHistory::Previous() {
  const std::string file = stack_.GetStackFile(kBack, {});
  if (stack_.CurrentItem() == 1) previous_ = false;
  next_ = true;
  navigationMode_ = kPrevious;
  return file;
}

std::string HelpHistory::Next() {
  const std::string file = stack_.GetStackFile(kForward, {});
  if (stack_.CurrentItem() == stack_.TotalItems()) next_ = false;
  previous_ = true;
  navigationMode_ = kNext;
  return file;
}

std::string MissingHelpPage(std::string_view path) {
  return "<html><head><title>Page not found</title></head><body>"
         "<p><font face='Verdana' size='4'><b>Page not found</b></font></p>"
         "<p><font face='Verdana' size='2'>The help page <b>" +
         Escaped(path) +
         "</b> could not be read.</font></p>"
         "<p><font face='Verdana' size='2'>Use Previous to go back. The help pages are written when the program "
         "starts for the first time.</font></p></body></html>";
}

}  // namespace cb
