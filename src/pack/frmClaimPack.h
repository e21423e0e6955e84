// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The claim pack's choices: totals by category or by the template's location
// word, on A4 or Letter. OK accepts them; the caller then asks for the PDF's name.

#include <QDialog>
#include <QPageSize>

#include "reports/SummaryPage.h"

class QGroupBox;
class QPushButton;
class QRadioButton;

namespace cb {

// The dialog's caption, and the title of the job's progress and messages.
inline constexpr char kClaimPackTitle[] = "Claim Pack";

class frmClaimPack : public QDialog {
  Q_OBJECT
 public:
  explicit frmClaimPack(QWidget* parent = nullptr);

  QGroupBox* fraGroup;
  QRadioButton* optCategory;
  QRadioButton* optLocation;
  QGroupBox* fraPage;
  QRadioButton* optA4;
  QRadioButton* optLetter;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;

  ReportKind ChosenKind() const;
  QPageSize::PageSizeId ChosenPage() const;
};

}  // namespace cb
