// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/HelpText.h"

namespace cb::help {
namespace {

constexpr char kParaOpen[] = "<p><font face='Verdana' size='2'>";
constexpr char kParaClose[] = "</font></p>";

}  // namespace

std::string PageLinks::Link(std::string_view page, std::string_view text) const {
  std::string s = "<a href='" + dir_ + "/help/";
  s += page;
  s += "'>";
  s += text;
  s += "</a>";
  return s;
}

std::string Para(std::string_view text) { return kParaOpen + std::string(text) + kParaClose; }

std::string SubHeading(std::string_view text) {
  return kParaOpen + ("<u>" + std::string(text) + "</u>") + kParaClose;
}

std::string Item(std::string_view name, std::string_view text) {
  return kParaOpen + ("<u>" + std::string(name) + "</u><br>") + std::string(text) + kParaClose;
}

std::string Bullets(std::initializer_list<std::string_view> lines) {
  std::string s = "<ul>";
  for (auto line : lines) s += "<li><font face='Verdana' size='2'>" + std::string(line) + "</font></li>";
  return s + "</ul>";
}

std::string Cell(std::string_view text) {
  return "<td><font face='Verdana' size='2'>" + std::string(text) + "</font></td>";
}

std::string Table(std::initializer_list<std::string_view> headings) {
  std::string s = "<table border='1' cellspacing='0' cellpadding='3' width='90%'><tr>";
  for (auto heading : headings) s += Cell("<b>" + std::string(heading) + "</b>");
  return s + "</tr>";
}

}  // namespace cb::help
