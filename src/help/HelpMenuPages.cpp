// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of the menus and of the toolbar.

#include "help/HelpText.h"

namespace cb::help {

std::string FileMenuBody(const PageLinks& l) {
  std::string s = "<p><b><u><font face='Verdana' size='2'>File Menu</font></u></b></p>";
  s += Item("New",
            "Starts a new, empty Slide Information File.&nbsp; Type a name for it in the New dialog; when the name "
            "has no extension, &#39;.sif&#39; is added.&nbsp; The new file takes over the template, frame, "
            "wallpaper and report font of the file that was open.");
  s += Item("Open",
            "Opens an existing Slide Information File and shows its slides in the gallery.&nbsp; The file you open "
            "is the one Chattelbook opens the next time it starts.");
  s += Item("Save As",
            "Writes the open collection under a new name, and goes on with the new file.&nbsp; Only the details "
            "are written: the pictures stay in the Gallery folder, shared by every file.&nbsp; No extension is "
            "added to the name you type, so type &#39;.sif&#39; yourself.");
  s += Item("Claim Pack",
            "Writes a PDF to hand to an insurer: a cover, the totals by category or by location, and every slide "
            "with its picture and details.&nbsp; Choose the totals and the page size, then a name for the "
            "PDF.&nbsp; A slide whose picture is missing is marked in the pack.&nbsp; Cancel stops it and leaves no "
            "file behind.");
  s += Item("Back Up",
            "Writes the open file, every picture it names, its frame and its wallpaper into one archive "
            "(&#39;.tar.gz&#39;), with a list of their checksums.&nbsp; The name offered holds the date.");
  s += Item("Restore",
            "Puts the files of a backup back into the Chattelbook folder.&nbsp; The whole archive is checked "
            "first, and you are asked before any file is replaced; if anything fails, nothing is.&nbsp; When the "
            "open file is replaced, the gallery shows it again.");
  s += Item("Gallery", "Shows the gallery of the open file again after it has been closed.");
  s += Item("Set Wallpaper",
            "Chooses the picture shown behind the windows of Chattelbook from the Wallpaper folder.&nbsp; The "
            "choice is saved with the file.&nbsp; Right-clicking the background of the main window offers the same "
            "command.");
  s += Item("Password",
            "Sets or removes the password asked for when Chattelbook starts.&nbsp; See " +
                l.Link("help004.htm", "Passwords") + ".");
  s += Item("Exit", "Closes Chattelbook.&nbsp; There is nothing to save: every change was written when you made it.");
  s += Para(
      "The last four files you opened are listed above Exit, the newest first.&nbsp; Click one to open it "
      "again.&nbsp; The list holds file names only: a file is looked for in the folder of the file open at the "
      "time.");
  return s;
}

std::string ViewMenuBody(const PageLinks& l) {
  std::string s = "<p><b><u><font face='Verdana' size='2'>View Menu</font></u></b></p>";
  // This link names the program's directory twice and leads nowhere.
  s += "<p><font face='Verdana' size='2'><u><a href='" + l.Dir() + "/help/" + l.Dir() +
       "/help/help014.htm'>Toolbar</a><br>";
  s += "</u>Shows or hides the toolbar, the row of buttons under the menu bar.&nbsp; A tick beside the item shows "
       "that the toolbar is on show.</font></p>";
  s += Item("Status Bar",
            "Shows or hides the status bar at the foot of the window.&nbsp; It tells which slides the gallery "
            "shows, out of how many, and the number of the slide last clicked.");
  s += Para("Both bars are shown again each time Chattelbook starts.");
  return s;
}

std::string WebMenuBody(const PageLinks&) {
  std::string s = "<p><u><b><font face='Lucida Sans Unicode' size='2'>Web Menu</font></b></u></p>";
  for (const char* heading :
       {"Upload Slides to Secure Web Server", "Download Slides from Secure Web Server", "View Web Slides"})
    s += "<p><b><font face='Lucida Sans Unicode' size='2'>" + std::string(heading) + "</font></b></p>";
  return s;
}

std::string WindowMenuBody(const PageLinks&) {
  std::string s = "<p><u><b><font face='Verdana' size='2'>Window Menu</font></b></u></p>";
  s += Para("The Window menu arranges the windows open inside Chattelbook: the gallery, a slide, a report or help.");
  s += Item("Tile Vertically", "Places the open windows side by side, each as tall as the main window.");
  s += Item("Tile Horizontally", "Stacks the open windows one above the other, each as wide as the main window.");
  s += Item("Cascade",
            "Overlaps the open windows from the top left corner, so that every title bar can be seen and clicked.");
  s += Para(
      "The names of the open windows are listed at the foot of the menu; choose one to bring it to the "
      "front.&nbsp; The Window button on the toolbar steps through the arrangements, one with each click.");
  return s;
}

namespace {

struct QueryRow {
  std::string_view typed, finds;
};

constexpr QueryRow kQueryRows[] = {
    {"garage drill", "slides holding both words, in any field and any order"},
    {"&quot;power drill&quot;", "the words together, as typed"},
    {"-tools", "slides without the word"},
    {"location:garage", "the word in one field: text, category, location, make, model, serial, file or value"},
    {"value&gt;500, value&lt;=100", "a value above 500, or of at most 100"},
    {"value:100..500", "a value from 100 to 500, both included"},
};

// The gallery's Edit menu and its find bar, on the page of its Slides menu.
std::string EditMenuBody() {
  std::string s = SubHeading("Edit Menu");
  s += Item("Undo",
            "Takes back the last change to the file (Ctrl+Z): an edit, an added or removed slide, a Modify Slide "
            "Collection, a new frame or wallpaper.&nbsp; The item names the change, as in Undo Edit Slide.&nbsp; "
            "The file is put back exactly as it was, and the gallery shows it; a picture that Add Slide or Modify "
            "Slide Collection copied over comes back too.&nbsp; The changes are kept beside "
            "the file, so they can still be undone after Chattelbook is closed and started again.&nbsp; If the "
            "file was changed by another program, the kept changes are set aside and the status bar says so.");
  s += Item("Redo",
            "Makes a change you undid again (Ctrl+Shift+Z or Ctrl+Y).&nbsp; A new change after an undo ends what "
            "can be redone.");
  s += Item("Find",
            "Opens the find bar at the foot of the gallery (Ctrl+F).&nbsp; As you type, the gallery shows only the "
            "slides that match, in the order of the file, from the first page, and the bar counts them.&nbsp; "
            "Capitals and accents make no difference: cafe finds Caf&eacute; and strasse finds "
            "Stra&szlig;e.&nbsp; A slide you click, edit or remove is the one shown.&nbsp; Close the bar, or press "
            "Esc in it, to see every slide again.");
  s += Table({"Type", "To find"});
  for (const auto& row : kQueryRows) s += "<tr>" + Cell(row.typed) + Cell(row.finds) + "</tr>";
  s += "</table>";
  s += Para(
      "A part that cannot be read, such as an unclosed quote or value&gt;abc, is looked for as plain words, and "
      "the bar says so.&nbsp; While the bar holds words, Claim Pack on the File menu can take only the slides "
      "found.");
  return s;
}

}  // namespace

std::string SlidesMenuBody(const PageLinks& l) {
  std::string s = "<p><font face='Verdana' size='2'><u><b>Slides Menu<br>";
  s += "</b></u>The Slides menu is on the menu bar while the gallery is the active window.</font></p>";
  s += Item("Add Slide",
            "Adds one picture to the collection as a new slide at its end.&nbsp; Choose a JPEG file and click "
            "OK.&nbsp; The picture is copied into the Gallery folder; a picture of the same name already there is "
            "replaced.");
  s += Item("Modify Slide Collection",
            "Adds and removes many slides at once.&nbsp; First choose a folder of pictures.&nbsp; Its pictures are "
            "listed under Available and the slides of the collection under Selected.&nbsp; Move names across with "
            "&gt; (the selected names) and &gt;&gt; (all of them), and back with &lt; and &lt;&lt;.&nbsp; With "
            "&#39;Exclude selected files.&#39; ticked, pictures that are already slides are kept out of the "
            "Available list.&nbsp; Nothing changes until you click OK.");
  s += Item("Set Slide Template",
            "Chooses the template of a new gallery: Home (Default), Real Estate or Car Yard.&nbsp; The template "
            "sets the labels of the slide details and the second grouping of the " +
                l.Link("help012.htm", "reports") + ".");
  s += Para(
      "<b>Note:</b> a template cannot be altered for an existing gallery.&nbsp; Clicking OK in Set Slide Template "
      "starts a new, empty Slide Information File under the template chosen; bring the pictures of the old gallery "
      "across with Modify Slide Collection.");
  s += Item("Removed Slides",
            "Lists the slides taken out of the collection, newest first: removed from the gallery, removed because "
            "their picture was not found, removed by Modify Slide Collection, or taken away by Undo.&nbsp; Each "
            "shows its picture, its text, its value, when it was removed and why.&nbsp; Select one or more and "
            "click Restore to put them back where they stood, or Forget to drop them from the list for "
            "good.&nbsp; The list is kept only while the program keeps the undo history of the file.");
  return s + EditMenuBody();
}

std::string ToolbarBody(const PageLinks& l) {
  std::string s = "<p><u><font face='Verdana'>Toolbar Buttons</font></u></p>";
  s += Item("New", "Starts a new Slide Information File.&nbsp; See " +
                       l.Link("help010.htm", "Storing Slide Information") + ".");
  s += Item("Open", "Opens an existing Slide Information File.&nbsp; See " +
                        l.Link("help010.htm", "Storing Slide Information") + ".");
  s += Item("Edit", "Edits the details of the slide on show; open a slide from the gallery first.&nbsp; See " +
                        l.Link("help011.htm", "Editing Slide Details") + ".");
  s += Item("Report", "Runs a report of the open file.&nbsp; See " +
                          l.Link("help012.htm", "Running and Printing Reports") +
                          ".&nbsp; One report window can be open at a time.");
  s += Item("Zoom",
            "With a slide open, each click on the picture brings the point clicked to the middle of the window and "
            "enlarges the picture.&nbsp; Right-click the picture and choose Reset to see all of it again.");
  s += Item("Unzoom", "With a slide open, each click on the picture makes it smaller again.");
  s += Item("Window", "Arranges the open windows, one arrangement with each click.&nbsp; See " +
                          l.Link("help008.htm", "Window Menu") + ".");
  s += Item("Back",
            "Changes the frame drawn around each slide of the gallery: click the frame you want in the window "
            "that appears.");
  return s;
}

}  // namespace cb::help
