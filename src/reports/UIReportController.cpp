#include "reports/UIReportController.h"

#include <array>

#include "base/Text.h"
#include "app/UIMainController.h"
#include "reports/SubReportPage.h"
#include "reports/ValueMatrix.h"
#include "slide/Categories.h"
#include "storage/DataAccess.h"

namespace cb {
namespace {

constexpr std::string_view kSource = "UIReportController";
constexpr char kReportsDir[] = "/Reports/";
constexpr char kSummaryFile[] = "Report1.htm";
constexpr char kSummaryStem[] = "Report";
constexpr char kSummaryTail[] = "1.htm";

struct TemplateLabel {
  std::int32_t slideTemplate;
  std::string_view label;
};

constexpr std::array<TemplateLabel, 3> kGroupLabels{{{1, "Location"}, {2, "Suburb"}, {3, "Year"}}};

}  // namespace

std::optional<std::string_view> GroupLabel(std::int32_t slideTemplate) {
  for (const auto& row : kGroupLabels)
    if (row.slideTemplate == slideTemplate) return row.label;
  return std::nullopt;
}

UIReportController::UIReportController(UIMainController& mc, SlideArray& slides, ErrorArray& errorInfo,
                                       ReportLocale locale)
    : mc_(mc), slides_(slides), errorInfo_(errorInfo), locale_(std::move(locale)) {}

// The record loops count in 16 bits, and a collection needs its header.
RtError UIReportController::CheckSlides() const {
  if (slides_.empty()) return RtError::SubscriptOutOfRange;
  if (static_cast<long>(slides_.size()) - 1 > DataAccess::kMaxRecords) return RtError::Overflow;
  return RtError::None;
}

bool UIReportController::Fail(RtError e) {
  FillErrors(errorInfo_, e, kSource);
  return false;
}

std::string UIReportController::ReportsDirectory() const { return mc_.AppPath() + kReportsDir; }

bool UIReportController::CreateReportByCategory() { return CreateReport(ReportKind::ByCategory); }
bool UIReportController::CreateReportByLocation() { return CreateReport(ReportKind::ByLocation); }

bool UIReportController::CreateReport(ReportKind kind) {
  if (const RtError e = CheckSlides(); e != RtError::None) return Fail(e);
  KeyList categories(1), locations(1);
  GetCategories(slides_, categories);
  GetLocations(slides_, locations);
  const bool byCategory = kind == ReportKind::ByCategory;
  const KeyList& groups = byCategory ? categories : locations;
  const KeyList& entries = byCategory ? locations : categories;

  ValueMatrix matrix(static_cast<std::int32_t>(groups.size()) - 1, static_cast<std::int32_t>(entries.size()) - 1);
  const Field groupField = byCategory ? Field::Category : Field::Location;
  const Field entryField = byCategory ? Field::Location : Field::Category;
  if (const RtError e = SumValues(slides_, groupField, entryField, groups, entries, matrix); e != RtError::None)
    return Fail(e);

  std::string page;  // a template without a label makes no page
  if (const auto label = GroupLabel(mc_.SlideTemplate())) {
    SummaryPageInput in;
    in.kind = kind;
    in.matrix = &matrix;
    in.groups = &groups;
    in.entries = &entries;
    in.groupLabel = std::string(*label);
    in.font = reportFont_;
    in.filePath = mc_.SlideInformationFilePath();
    in.dateText = GeneralDateNow(locale_);
    in.locale = &locale_;
    page = WriteSummaryPage(in);
  }
  ReportStack(9, ReportsDirectory() + kSummaryStem + kSummaryTail);
  std::string fileName = kSummaryFile;
  return SaveReport(fileName, page, errorInfo_);
}

bool UIReportController::CreateSubReportByCategory(const std::string& key) {
  return CreateSubReport(ReportKind::ByCategory, key);
}
bool UIReportController::CreateSubReportByLocation(const std::string& key) {
  return CreateSubReport(ReportKind::ByLocation, key);
}

bool UIReportController::CreateSubReport(ReportKind kind, const std::string& key) {
  if (const RtError e = CheckSlides(); e != RtError::None) return Fail(e);
  const bool byCategory = kind == ReportKind::ByCategory;
  RtError e = RtError::None;
  const SlideArray subset = SelectSlides(slides_, byCategory ? Field::Category : Field::Location, key, e);
  if (e != RtError::None) return Fail(e);

  std::string page;
  if (const auto label = GroupLabel(mc_.SlideTemplate())) {
    SubReportPageInput in;
    in.kind = kind;
    in.subset = &subset;
    in.key = key;
    in.groupLabel = std::string(*label);
    in.font = reportFont_;
    in.filePath = mc_.SlideInformationFilePath();
    in.locale = &locale_;
    page = WriteSubReportPage(in);
  }
  std::string fileName = ReportStack(8, "");
  ReportStack(0, ReportsDirectory() + fileName);
  return SaveReport(fileName, page, errorInfo_);
}

std::string UIReportController::ReportStack(std::int32_t operation, const std::string& fileName) {
  return reportPages_.Stack(operation, fileName);
}

bool UIReportController::SaveReport(std::string& fileName, const std::string& text, ErrorArray& errors) {
  fileName = ReportsDirectory() + fileName;
  DataAccess data(mc_, slides_);
  return data.SaveReport(fileName, text, errors);
}

std::int32_t UIReportController::GetSlideIndex(const std::string& key) const {
  for (std::size_t i = 1; i < slides_.size(); ++i)
    if (Trim(slides_[i].Get(Field::PictureFile)) == key) return static_cast<std::int32_t>(i);
  return 0;
}

}  // namespace cb
