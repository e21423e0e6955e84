// A summary of the largest collection the format allows, every category and
// location distinct, made within 1 GiB of address space; and the same report
// with almost no memory to spare, which must fail through ErrorInfo rather
// than end the program. Exit status 0 when both hold.
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "reports/UIReportController.h"
#include "state/SettingsStore.h"
#include "state/UIMainController.h"
#include "state/modGlobal.h"
#include "support/TempDir.h"

namespace {

constexpr rlim_t kLimit = rlim_t{1} << 30;
constexpr int kSlides = 32767;

bool SetSoftLimit(rlim_t soft) {
  const rlimit limit{soft, kLimit};
  return setrlimit(RLIMIT_AS, &limit) == 0;
}

// The address space in use now, in bytes.
rlim_t AddressSpaceInUse() {
  std::ifstream statm("/proc/self/statm");
  unsigned long pages = 0;
  statm >> pages;
  return static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

int Fail(const char* what) {
  std::fprintf(stderr, "large_summary: %s\n", what);
  return 1;
}

}  // namespace

int main() {
  using namespace cb;
  if (!SetSoftLimit(kLimit)) return Fail("cannot set the address-space limit");
  testing::TempDir app;
  MemorySettings settings;
  ModGlobal g;
  UIMainController mc(app.str(), settings, g);
  mc.SlideInformationFilePath("/home/ann/Files/Big.sif");
  mc.SlideTemplate(1);
  g.Slides.assign(1, SlideRecord());
  for (int i = 1; i <= kSlides; ++i) {
    SlideRecord r;
    r.Set(Field::Category, "Category " + std::to_string(i));
    r.Set(Field::Location, "Room " + std::to_string(kSlides + 1 - i));
    r.Set(Field::Value, "1");
    g.Slides.push_back(r);
  }
  ReportLocale locale;
  locale.generalDate = [] { return std::string("22/11/2026 20:07:34"); };
  UIReportController reports(mc, g.Slides, g.ErrorInfo, locale);

  // Barely any room left: the report fails and says why.
  if (!SetSoftLimit(AddressSpaceInUse() + (rlim_t{4} << 20))) return Fail("cannot lower the limit");
  const bool tight = reports.CreateReportByCategory();
  if (!SetSoftLimit(kLimit)) return Fail("cannot restore the limit");
  if (tight) return Fail("a report with 4 MiB to spare succeeded");
  if (g.ErrorInfo[0] != "7") return Fail(("wrong error number " + g.ErrorInfo[0]).c_str());

  for (const bool byCategory : {true, false}) {
    g.ErrorInfo = {};
    if (!(byCategory ? reports.CreateReportByCategory() : reports.CreateReportByLocation()))
      return Fail(("the report failed: " + g.ErrorInfo[0] + " " + g.ErrorInfo[2]).c_str());
    std::ifstream in(app / "Reports/Report1.htm", std::ios::binary);
    const std::string page((std::istreambuf_iterator<char>(in)), {});
    // One group link per slide, and every slide's 1 in the grand total.
    std::size_t links = 0;
    for (auto at = page.find("<a href="); at != std::string::npos; at = page.find("<a href=", at + 1)) ++links;
    if (links != kSlides) return Fail("not one group per slide");
    if (page.find(">32,767</b></td></tr></table></body></html>\r\n") == std::string::npos)
      return Fail("the grand total is not 32,767");
  }
  return 0;
}
