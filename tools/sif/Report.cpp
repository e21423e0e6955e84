#include "Report.h"

#include <QDateTime>
#include <QLocale>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/Cp1252.h"
#include "app/UIMainController.h"
#include "app/modGlobal.h"
#include "reports/UIReportController.h"

namespace cb::sif {
namespace {

namespace fs = std::filesystem;

// A private application directory for the generator, removed on every path.
class ScratchDir {
 public:
  ScratchDir() {
    std::string name = (fs::temp_directory_path() / "chattelbook-sif-XXXXXX").string();
    if (::mkdtemp(name.data())) path_ = name;
  }
  ~ScratchDir() {
    std::error_code ec;
    if (!path_.empty()) fs::remove_all(path_, ec);
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// The one page the generator left in the reports directory.
bool ReadPage(const std::string& reports, std::string& page) {
  std::error_code ec;
  for (fs::directory_iterator it(reports, ec), end; !ec && it != end; it.increment(ec)) {
    std::ifstream in(it->path(), std::ios::binary);
    page.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return static_cast<bool>(in) || in.eof();
  }
  return false;
}

std::string FileText(const QString& q) { return Utf8ToCp1252Lossy(q.toStdString()); }

// Locales that group digits with a thin or narrow blank get the no-break
// space, the nearest that Windows-1252 holds.
std::string SeparatorText(const QString& q) {
  if (auto t = Utf8ToCp1252(q.toStdString())) return *t;
  return q.size() == 1 && q[0].isSpace() ? std::string("\xA0") : FileText(q);
}

// The general date: short date, a blank, then the long time without a zone.
QString GeneralDate() {
  const QLocale loc = QLocale::system();
  const QDateTime now = QDateTime::currentDateTime();
  QString time = loc.timeFormat(QLocale::LongFormat);
  time.remove('t');
  return loc.toString(now.date(), QLocale::ShortFormat) + " " + loc.toString(now.time(), time.trimmed());
}

}  // namespace

bool MakeReport(const ReportRequest& request, const SifDocument& doc, const ReportLocale& locale, std::string& page,
                std::string& message) {
  ScratchDir dir;
  if (dir.path().empty()) {
    message = "no private directory for the report could be made";
    return false;
  }
  ModGlobal globals;
  MemorySettings store;
  UIMainController mc(dir.path(), store, globals);
  mc.SlideInformationFilePath(request.filePath);
  const auto t = TemplateOf(doc);
  mc.SlideTemplate(t && *t >= 1 && *t <= 3 ? *t : 1);

  SlideArray slides = doc.Slides;
  ErrorArray errors;
  UIReportController reports(mc, slides, errors, locale);
  reports.ReportFont(request.font.value_or(doc.Header.ReportFont));
  const bool byCategory = request.kind == ReportKind::ByCategory;
  const bool ok = !request.key ? (byCategory ? reports.CreateReportByCategory() : reports.CreateReportByLocation())
                  : byCategory ? reports.CreateSubReportByCategory(*request.key)
                               : reports.CreateSubReportByLocation(*request.key);
  if (!ok) {
    message = "the report could not be made: " + errors[2];
    return false;
  }
  if (!ReadPage(dir.path() + "/Reports", page)) {
    message = "the report page could not be read back";
    return false;
  }
  return true;
}

ReportLocale SystemReportLocale() {
  const QLocale loc = QLocale::system();
  ReportLocale l;
  l.thousandsSeparator = SeparatorText(loc.groupSeparator());
  l.decimalPoint = FileText(loc.decimalPoint());
  l.currencySymbol = FileText(loc.currencySymbol());
  l.generalDate = [] { return FileText(GeneralDate()); };
  return l;
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
