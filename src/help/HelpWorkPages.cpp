// SPDX-License-Identifier: GPL-3.0-or-later
// The pages about the work itself: files, details, reports, templates.

#include "help/HelpText.h"

namespace cb::help {
namespace {

struct GroupingRow {
  std::string_view templateName, category, grouping;
};

constexpr GroupingRow kGroupings[] = {
    {"Home Security", "Furniture, Jewellery, Electrical", "Location: Lounge, Bedroom, Garage"},
    {"Real Estate", "House, Unit, Land", "Suburb: the suburbs you sell in"},
    {"Car Yard", "Sedan, Wagon, Utility", "Year: 1998, 1999, 2000"},
};

}  // namespace

std::string StoringBody(const PageLinks& l) {
  std::string s = "<p><font face='Verdana' size='2'></font><u><font face='Verdana'>Storing Slide Information</font></u><p>";
  s += Para(
      "A Slide Information File (a file ending in &#39;.sif&#39;) holds one inventory: the details of each slide, "
      "the template, and the frame, wallpaper and report font chosen for it.&nbsp; The pictures are kept in the "
      "Gallery folder and shared by all files; a slide only names its picture.&nbsp; Files are made with New on "
      "the File menu and are kept in the Files folder of Chattelbook.");
  s += Para(
      "Use one file for each group of things you want to keep apart, such as one for each property.&nbsp; Within "
      "a file the slides are grouped by category and by a second grouping that depends on the " +
      l.Link("help015.htm", "template") + ":");
  s += Table({"Template", "Category", "Second grouping"});
  for (const auto& row : kGroupings)
    s += "<tr>" + Cell(row.templateName) + Cell(row.category) + Cell(row.grouping) + "</tr>";
  s += "</table>";
  s += Para(
      "Categories and locations need no setting up: see " + l.Link("help011.htm", "Editing Slide Details") +
      ".&nbsp; Each change is written to the file as soon as you confirm it.");
  return s;
}

std::string EditingBody(const PageLinks& l) {
  std::string s = "<p><u><font face='Verdana'>Editing Slide Details</font></u></p>";
  s += Para(
      "Click a slide in the gallery to open it, then click the Edit button on the toolbar.&nbsp; The editor shows "
      "the number of the slide and its picture file, which cannot be changed here, and the details, which can.");
  s += "<p><font face='Verdana' size='2'>The labels follow the template of the file.&nbsp; There are three " +
       l.Link("help015.htm", "templates") +
       " available with Chattelbook v1.01; Home Security, Real Estate and Car Yard.</font></p>";
  s += SubHeading("Common Items");
  s += Para(
      "Every template has Slide Text, a description of up to 100 characters that also shows when the mouse rests "
      "on the slide; a Category; a second grouping; and a value.&nbsp; The value is read as a number from its "
      "first character: type digits only, as in 1500 or 1499.95, without a currency sign or thousands "
      "separators.");
  s += SubHeading("Unique Items");
  s += Para(
      "Home Security: Location, Serial #, Make, Model and Total Value.&nbsp; Real Estate: Suburb, Street, "
      "Bedrooms, Extras and Ask Price.&nbsp; Car Yard: Year, Regn #, Colour, Extras and Price.");
  s += SubHeading("Categories and Locations");
  s += Para(
      "Categories (and Locations) are created dynamically when you enter text into the fields.&nbsp; The lists "
      "offer every category and location that a slide of the file already holds; pick one or type a new "
      "one.&nbsp; Blanks inside are saved as underscores, and capitals count: &#39;Lounge&#39; and "
      "&#39;lounge&#39; are two locations.&nbsp; A category that no slide holds any more leaves the lists.");
  s += Para(
      "Click OK to save the details at once, or Cancel to leave the slide as it was.&nbsp; A new category appears "
      "in the lists the next time the editor opens.");
  return s;
}

std::string ReportsBody(const PageLinks& l) {
  std::string s = "<p><u><font face='Verdana'>Running and Printing Reports</font></u></p>";
  s += Para(
      "Click the Report button on the toolbar.&nbsp; Choose Report By Category, or the report by the second "
      "grouping of the " +
      l.Link("help015.htm", "template") +
      " (Report By Location, Report By Suburb or Report By Year), and click OK.&nbsp; To change the typeface of "
      "the report, click Font &gt;&gt; first and pick a font.");
  s += Para(
      "The report covers all slides that have had slide information added to them: every slide with both a "
      "category and a second grouping counts.&nbsp; For each group it lists the sum of the values of each entry, "
      "with the group&#39;s total on its last line, and the total of the whole inventory at the foot.");
  s += Para(
      "Click a group on the report to see a second level report of its slides, with their text, serial number "
      "and value.&nbsp; Clicking a link on the second level report will display that particular slide.");
  s += Para(
      "Previous and Next on the toolbar of the report move between the pages you have seen, and Print prints the "
      "page on show.&nbsp; The pages are kept in the Reports folder of Chattelbook and can be opened in any web "
      "browser.&nbsp; For how slides are grouped, see " +
      l.Link("help010.htm", "Storing Slide Information") + ".");
  return s;
}

std::string TemplatesBody(const PageLinks&) {
  std::string s = "<p><u><font face='Verdana'>Templates</font></u></p>";
  s += Item("Home Security",
            "For the contents of a home or an office.&nbsp; Slides are grouped by Category (furniture, jewellery, "
            "electrical goods) and by Location, the room or place where the item is kept.&nbsp; Record the serial "
            "number, make, model and value of each item: the details an insurer or the police ask for.");
  s += Item("Real Estate",
            "For an agent&#39;s listings or a portfolio of property.&nbsp; Slides are grouped by Category (house, "
            "unit, land) and by Suburb, and hold the street, the number of bedrooms, the extras and the asking "
            "price.");
  s += Item("Car Yard",
            "For the vehicles of a car yard.&nbsp; Slides are grouped by Category (sedan, wagon, utility) and by "
            "Year, and hold the registration number, colour, extras and price.");
  s += Para(
      "The template of a file is chosen with Set Slide Template on the Slides menu when the file is started.&nbsp; "
      "It cannot be altered for an existing gallery.");
  return s;
}

}  // namespace cb::help
