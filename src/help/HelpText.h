// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The pieces every help page is made of, and the bodies of the pages. A
// body is the text between the banner of WritePageHeader and the footer.

#include <initializer_list>
#include <string>
#include <string_view>

namespace cb::help {

// Links between pages are absolute: they name the directory the program
// stood in when it wrote them.
class PageLinks {
 public:
  explicit PageLinks(std::string appPath) : dir_(std::move(appPath)) {}
  const std::string& Dir() const { return dir_; }
  // "<a href='" dir "/help/" page "'>" text "</a>"
  std::string Link(std::string_view page, std::string_view text) const;

 private:
  std::string dir_;
};

// A paragraph of running text in Verdana at size 2.
std::string Para(std::string_view text);
// An underlined sub-heading in a paragraph of its own.
std::string SubHeading(std::string_view text);
// A paragraph that opens with an underlined name on a line of its own.
std::string Item(std::string_view name, std::string_view text);
// A bullet list of short lines.
std::string Bullets(std::initializer_list<std::string_view> lines);
// A cell of a table's row.
std::string Cell(std::string_view text);
// The opening of a bordered table and its row of headings; the caller adds
// the rows and "</table>".
std::string Table(std::initializer_list<std::string_view> headings);

// Where the program's maker is found; set by whoever ships the program.
inline constexpr std::string_view kWebSite = "http://www.chattelbook.example/";
inline constexpr std::string_view kSupportMail = "support@chattelbook.example";

std::string ContentsBody(const PageLinks& l);
std::string QuickStartBody(const PageLinks& l);
std::string FileMenuBody(const PageLinks& l);
std::string PasswordBody(const PageLinks& l);
std::string ViewMenuBody(const PageLinks& l);
std::string SupportBody(const PageLinks& l);
std::string WebMenuBody(const PageLinks& l);
std::string WindowMenuBody(const PageLinks& l);
std::string SlidesMenuBody(const PageLinks& l);
std::string StoringBody(const PageLinks& l);
std::string EditingBody(const PageLinks& l);
std::string ReportsBody(const PageLinks& l);
std::string ToolbarBody(const PageLinks& l);
std::string TemplatesBody(const PageLinks& l);
std::string RequirementsBody(const PageLinks& l);

}  // namespace cb::help
