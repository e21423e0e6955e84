// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/UIHelpController.h"

#include <array>

#include "help/HelpText.h"

namespace cb {
namespace {

constexpr char kHelpDir[] = "/Help/";
constexpr char kLineEnd[] = "\r\n";

// The header every page opens with, up to its title.
constexpr const char* kHeadStart =
    "<html>"
    "<head>"
    "<meta http-equiv='Content-Language' content='en-us'>"
    "<meta http-equiv='Content-Type' content='text/html; charset=windows-1252'>"
    "<meta name='GENERATOR' content='Microsoft FrontPage 5.0'>"
    "<meta name='ProgId' content='FrontPage.Editor.Document'>";
// The yellow banner after the title.
constexpr const char* kBanner =
    "</head>"
    "<body>"
    "<table border='0' width='100%' cellspacing='0' cellpadding='0'>"
    "<tr>"
    "    <td width='100%' bgcolor='#FFFF00'>"
    "    <p align='center'><b><font face='Verdana' size='5'>Chattelbook Help</font></b></td>"
    "  </tr>"
    "</table>";

struct HelpPage {
  const char* file;
  const char* title;  // several pages carry the title of another
  std::string (*body)(const help::PageLinks&);
};

constexpr std::array<HelpPage, 15> kPages{{
    {"help001.htm", "Contents", help::ContentsBody},
    {"help002.htm", "Chattelworks Help - Quick Start", help::QuickStartBody},
    {"help003.htm", "Menu Options - (File Menu)", help::FileMenuBody},
    {"help004.htm", "Remove Slide", help::PasswordBody},
    {"help005.htm", "Menu Options (View Menu)", help::ViewMenuBody},
    {"help006.htm", "Menu Options (Slides Menu)", help::SupportBody},
    {"help007.htm", "Menu Options (Web Menu)", help::WebMenuBody},
    {"help008.htm", "Menu Options (Window Menu)", help::WindowMenuBody},
    {"help009.htm", "Toolbar", help::SlidesMenuBody},
    {"help010.htm", "Slide Information File", help::StoringBody},
    {"help011.htm", "Editing Slide Details", help::EditingBody},
    {"help012.htm", "Editing Slide Details", help::ReportsBody},
    {"help014.htm", "Toolbar", help::ToolbarBody},
    {"help015.htm", "Toolbar", help::TemplatesBody},
    {"help016.htm", "System Requirements", help::RequirementsBody},
}};

}  // namespace

UIHelpController::UIHelpController(std::string appPath, Env& env) : appPath_(std::move(appPath)), env_(env) {}

bool UIHelpController::GenerateHelp() {
  const help::PageLinks links(appPath_);
  bool result = true;
  for (const HelpPage& page : kPages) {
    std::string text;
    WritePageHeader(page.title, text);
    text += page.body(links);
    WritePageFooter(text);
    if (!WriteHelpFile(page.file, text)) result = false;
  }
  return result;
}

bool UIHelpController::WriteHelpFile(const std::string& fileName, const std::string& pageText) {
  const std::string path = appPath_ + kHelpDir + fileName;
  std::unique_ptr<WritableFile> out;
  RtError e = env_.NewWritableFile(path, 0666, out);
  if (e == RtError::None) {
    e = out->Append(pageText + kLineEnd);
    if (const RtError closed = out->Close(); e == RtError::None) e = closed;
  }
  if (e == RtError::None) return true;
  lastError_ = e;
  lastErrorDescription_ = std::string(Description(e));
  return false;
}

void UIHelpController::WritePageHeader(const std::string& title, std::string& pageText) const {
  pageText += kHeadStart;
  pageText += "<title>" + title + "</title>";
  pageText += kBanner;
}

void UIHelpController::WritePageFooter(std::string& pageText) const {
  pageText += "</body>";
  pageText += "</html>";
}

}  // namespace cb
