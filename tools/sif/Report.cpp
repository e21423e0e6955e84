// SPDX-License-Identifier: GPL-3.0-or-later
#include "Report.h"

#include <cstdio>

#include "base/Cp1252.h"
#include "reports/ReportMaker.h"
#include "storage/DataAccess.h"

namespace cb::sif {
namespace {

using pack::SifDocument;
using pack::TemplateOf;

constexpr std::string_view kSource = "chattelbook-sif";

}  // namespace

bool MakeReport(const ReportRequest& request, const SifDocument& doc, const ReportLocale& locale, std::string& page,
                std::string& message) {
  const auto t = TemplateOf(doc);
  const ReportSource source{&doc.Slides, t && *t >= 1 && *t <= 3 ? *t : 1,
                            request.font.value_or(doc.Header.ReportFont), request.filePath, &locale};
  const Status made = !request.key ? MakeSummaryPage(source, request.kind, kSource, page)
                                   : MakeSubReportPage(source, request.kind, *request.key, kSource, page);
  if (!made.ok()) {
    message = "the report could not be made: " + std::string(made.description());
    return false;
  }
  page += kReportLineEnd;
  return true;
}

std::optional<std::string> Utf8ToFileText(const std::string& utf8, std::string& message) {
  char32_t bad = 0;
  auto text = Utf8ToCp1252(utf8, &bad);
  if (!text) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "U+%04X", static_cast<unsigned>(bad));
    message = std::string(buf) + " is a character Windows-1252 cannot hold";
  }
  return text;
}

}  // namespace cb::sif
