// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The claim pack's choices: totals by category or by the template's location
// word, on A4 or Letter, and while the gallery's find bar has a query, whether
// only the slides it found go in. OK accepts them; the caller then asks for
// the PDF's name.

#include <QDialog>
#include <QPageSize>
#include <cstdint>
#include <optional>

#include "reports/SummaryPage.h"

class QCheckBox;
class QGroupBox;
class QPushButton;
class QRadioButton;

namespace cb {

// The dialog's caption, and the title of the job's progress and messages.
inline constexpr char kClaimPackTitle[] = "Claim Pack";

class frmClaimPack : public QDialog {
  Q_OBJECT
 public:
  // `found`: how many slides the gallery's query shows, when it has one.
  explicit frmClaimPack(QWidget* parent = nullptr, std::optional<std::int32_t> found = std::nullopt);

  QGroupBox* fraGroup;
  QRadioButton* optCategory;
  QRadioButton* optLocation;
  QGroupBox* fraPage;
  QRadioButton* optA4;
  QRadioButton* optLetter;
  QCheckBox* chkFound = nullptr;  // only with a query
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;

  ReportKind ChosenKind() const;
  QPageSize::PageSizeId ChosenPage() const;
  bool OnlyFound() const;
};

}  // namespace cb
