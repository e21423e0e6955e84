// SPDX-License-Identifier: GPL-3.0-or-later
// The pages that guide a newcomer: contents, quick start, passwords,
// support and what the program needs.

#include "help/HelpText.h"

namespace cb::help {
namespace {

constexpr char kEntryOpen[] = "<li><font face='Verdana' size='2'>";
constexpr char kEntryGap[] = "<br>&nbsp;&nbsp;&nbsp; </font></li>";
constexpr char kSubEntryClose[] = "</font></li>";

struct ContentsEntry {
  std::string_view page;
  std::string_view text;
};

// The sub-entries under "Menu Options".
constexpr ContentsEntry kMenuEntries[] = {
    {"help003.htm", "File"},   {"help005.htm", "View"}, {"help009.htm", "Slides"},
    {"help008.htm", "Window"}, {"help001.htm", "Help"},
};

constexpr ContentsEntry kLaterEntries[] = {
    {"help010.htm", "Storing Slide Information"},
    {"help011.htm", "Editing Slide Details"},
    {"help012.htm", "Running and Printing Reports"},
    {"help014.htm", "Toolbar"},
    {"help006.htm", "Support"},
    {"help016.htm", "System Requirements"},
};

std::string Entry(const PageLinks& l, const ContentsEntry& e) { return kEntryOpen + l.Link(e.page, e.text) + kEntryGap; }

}  // namespace

std::string ContentsBody(const PageLinks& l) {
  std::string s = "<p><font face='Verdana' size='2'></font><u><font face='Verdana'>Contents</font></u><p>";
  s += Para("Choose a topic below.&nbsp; Press F1 in any window of Chattelbook to open the help for that window.");
  s += "<ul>";
  s += Entry(l, {"help002.htm", "Getting Started - Quick Start"});
  s += kEntryOpen + l.Link("help003.htm", "Menu Options") + "<br>&nbsp;&nbsp;&nbsp; </font>";
  s += "<ul>";
  for (const auto& e : kMenuEntries) s += kEntryOpen + l.Link(e.page, e.text) + kSubEntryClose;
  s += "</ul></li>";
  for (const auto& e : kLaterEntries) s += Entry(l, e);
  s += "</ul>";
  return s;
}

std::string QuickStartBody(const PageLinks& l) {
  std::string s = "<p><font face='Verdana' size='2'></font><u><font face='Verdana'>Quick Start</font></u><p>";
  s += SubHeading("What is Chattelbook?");
  s += Para(
      "Chattelbook allows you to establish a pictorial inventory of your property and possessions.&nbsp; In "
      "addition it enables you to save important details about each inventory item such as serial number, make, "
      "model etc.&nbsp; Each item is kept as a slide: a picture of the item together with its details.&nbsp; The "
      "slides of one inventory are stored in a Slide Information File and shown in the gallery, five slides "
      "across and three down.");
  s += Para(
      "Should the worst happen, a report of your possessions with their values, backed by the pictures, makes an "
      "insurance claim or a police report far easier to prepare.&nbsp; Keep a printed report and a copy of your "
      "files away from home.");
  s += SubHeading("Open Existing Template Files");
  s += Para(
      "Three sample files come with Chattelbook, one for each template: &#39;HomeSecurity.sif&#39;, "
      "&#39;CarYard.sif&#39; and &#39;RealEstate.sif&#39;.&nbsp; To open one, choose Open from the File menu or "
      "click the Open button on the toolbar, select the file in the Files folder and click OK.&nbsp; The gallery "
      "then shows its slides.&nbsp; Use the scroll bar under the gallery to move through the collection one "
      "column at a time.");
  s += SubHeading("Add a Slide");
  s += Para(
      "Take a photograph of the item with a digital camera, or scan a print, and copy the picture to your "
      "computer.&nbsp; With the gallery open, choose Add Slide from the " +
      l.Link("help009.htm", "Slides menu") +
      ", pick the picture (a JPEG file) and click OK.&nbsp; The picture is copied into the Gallery folder of "
      "Chattelbook and the new slide appears at the end of the collection.");
  s += SubHeading("Delete a Slide");
  s += Para(
      "Right-click the slide in the gallery and choose Remove Slide from the menu that appears, then click OK to "
      "confirm.&nbsp; The slide leaves the collection.&nbsp; Its picture stays in the Gallery folder, so it can be "
      "added again later.");
  s += SubHeading("Edit a Slide&#39;s Details");
  s += Para(
      "Click a slide in the gallery to open it in a window of its own, then click the Edit button on the "
      "toolbar.&nbsp; Type a description, choose or type a category and a location, and fill in the serial "
      "number, make, model and value.&nbsp; Click OK and the details are saved at once.&nbsp; See " +
      l.Link("help011.htm", "Editing Slide Details") + " for more information.");
  s += SubHeading("Run a Report");
  s += Para(
      "Click the Report button on the toolbar, choose a report by category or by location and click OK.&nbsp; The "
      "report totals the values of your slides.&nbsp; Click a category or a location on it to list its slides, "
      "and click a slide there to see its picture.&nbsp; See " +
      l.Link("help012.htm", "Running and Printing Reports") + ".");
  s += SubHeading("Save Changes to a New Slide Information File");
  s += Para(
      "Every change you confirm is written to the open file straight away, so there is no Save command.&nbsp; To "
      "keep the collection under a new name, choose Save As from the File menu, type the new name and click "
      "OK.&nbsp; From then on your changes go to the new file, and the old one stays as it was.&nbsp; For more "
      "information click " +
      l.Link("help012.htm", "here") + ".");
  s += SubHeading("Change the Slide Frame Pattern");
  s += Para(
      "Each slide in the gallery sits in a frame.&nbsp; To choose another pattern, click the Back button on the " +
      l.Link("help014.htm", "toolbar") +
      ", or right-click a frame in the gallery and choose Set Background, then click the frame you like.&nbsp; The "
      "gallery is drawn again with the new frame, and the choice is saved with the file.");
  s += Para("For news, updates and more information visit the Chattelbook web site at <a href='" +
            std::string(kWebSite) + "'>" + std::string(kWebSite) + "</a>.");
  return s;
}

std::string PasswordBody(const PageLinks&) {
  std::string s = "<p><u><font face='Verdana'>Passwords</font></u></p>";
  s += Para(
      "A password keeps others from opening your inventory.&nbsp; To set one, choose Password from the File menu, "
      "type the password in both boxes and click OK.&nbsp; From then on Chattelbook asks for it each time it "
      "starts, and closes when the password typed is wrong.");
  s += Para(
      "Capitals count, and only the first eight characters of a password are kept.&nbsp; The password belongs to "
      "your user account on this computer and guards every Slide Information File you open.&nbsp; Setting a new "
      "password does not ask for the old one.");
  s += Para(
      "<b>Warning:</b> do not forget your password.&nbsp; Chattelbook cannot show it to you again, so write it "
      "down and keep it in a safe place.");
  s += Para(
      "To remove the password, choose Password from the File menu, leave both boxes empty and click OK.&nbsp; "
      "Setting the password to a blank field will cancel password protection.");
  return s;
}

std::string SupportBody(const PageLinks&) {
  const std::string site = "<a href='" + std::string(kWebSite) + "'>" + std::string(kWebSite) + "</a>";
  const std::string mail =
      "<a href='mailto:" + std::string(kSupportMail) + "'>" + std::string(kSupportMail) + "</a>";
  std::string s = "<p><font face='Verdana'>";
  s += "<u>Support</u></font><p><font face='Verdana' size='2'>Before requesting support, ";
  s += "please look for the answer in these help pages, which F1 opens in every window, and on the Chattelbook "
       "web site at " +
       site + ", which lists known problems and their solutions.</font></p>";
  s += Para("If you still need help, send an e-mail to " + mail + " with these details:");
  s += Bullets({"your name and e-mail address;", "the version of Chattelbook (v1.01) and of your operating system;",
                "the template of the file you were working on;",
                "what you were doing when the problem arose, step by step;",
                "the exact text of any message that appeared."});
  s += Para("You will receive a reply addressing any problem within 48 hours (usually 24 hours).");
  return s;
}

std::string RequirementsBody(const PageLinks&) {
  std::string s = "<p><u><font face='Verdana'>Hardware Requirements</font></u></p>";
  s += Para(
      "A digital camera, or a scanner, to take the pictures of your possessions.&nbsp; Pictures in JPEG format, "
      "as most cameras make them, work best.");
  s += "<p><u><font face='Verdana'>System Requirements</font></u></p>";
  s += Para("<b>Minimum</b>");
  s += Bullets({"233 MHz Processor", "32 MB RAM", "15 MB Free Disk Space", "High Color (16 Bit) 800 * 600 Pixels"});
  s += Para("<b>Recommended</b>");
  s += Bullets({"733 MHz or above Processor", "64 MB RAM", "20 MB (or above) Free Disk Space"});
  s += Para(
      "Allow further disk space for your pictures: every picture added to a gallery is copied into the Gallery "
      "folder of Chattelbook.");
  return s;
}

}  // namespace cb::help
