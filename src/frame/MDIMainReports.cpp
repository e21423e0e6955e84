// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's reports: the chooser behind the Report button, and the
// viewer it makes, whose slide links come up through the gallery.
#include <QMdiSubWindow>

#include "frame/MDIMain.h"
#include "gallery/frmGallery.h"
#include "qt/OpenForms.h"
#include "qt/Twips.h"
#include "reports/frmReport.h"
#include "reports/frmSelectReport.h"
#include "slide/frmSlide.h"

namespace cb {
namespace {

// The slide of a sub-report's link comes up in the gallery's slide window.
class GallerySlideWindows final : public ReportSlideWindows {
 public:
  explicit GallerySlideWindows(MDIMain& main) : main_(main) {}

  void UnloadSlideWindow() override {
    if (!FindOpenForm("frmSlide")) return;
    frmGallery* gallery = main_.fGallery();
    if (!gallery || !gallery->fSlide) return;
    // Gone at once, so that the slide comes up in a new window.
    QWidget* slide = gallery->fSlide.data();
    delete (slide->parentWidget() ? slide->parentWidget() : slide);
  }

  RtError ShowReportSlide(std::int32_t record) override {
    frmGallery* gallery = main_.fGallery();
    if (!gallery) return RtError::ObjectNotSet;
    gallery->ShowReportSlide(record);
    return RtError::None;
  }

  void SetStatusText(const std::string& text) override { main_.SetStatusText(ToQ(text)); }

 private:
  MDIMain& main_;
};

}  // namespace

void MDIMain::ShowSelectReport() {
  frmSelectReport dialog(this);
  if (dialog.exec() == QDialog::Accepted) OpenReport(dialog.ChosenKind(), dialog.ChosenFont());
}

void MDIMain::OpenReport(ReportKind kind, const std::string& font) {
  auto* report = new frmReport();
  report->ReportKind = kind;
  report->ReportFont = font;
  report->SlideWindows(std::make_unique<GallerySlideWindows>(*this));
  connect(report, &frmReport::Activated, this, [this] { ApplyToolbar(ToolbarEvent::ReportActivated); });
  report->Show(*area_);
}

}  // namespace cb
