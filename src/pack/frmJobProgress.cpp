// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/frmJobProgress.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>

#include <limits>
#include <memory>

#include "qt/Twips.h"

namespace cb {
namespace {

// Often enough that the count reads as moving, rarely enough to cost nothing.
constexpr int kPollMs = 50;
constexpr char kStarting[] = "Starting...";
constexpr char kCancelling[] = "Cancelling...";

}  // namespace

frmJobProgress::frmJobProgress(const QString& caption, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
  setObjectName("frmJobProgress");
  setWindowTitle(caption);
  setModal(true);
  lblStep = new QLabel(kStarting, this);
  lblStep->setObjectName("lblStep");
  pbJob = new QProgressBar(this);
  pbJob->setObjectName("pbJob");
  pbJob->setAccessibleName("Progress");
  pbJob->setTextVisible(false);
  pbJob->setRange(0, 0);  // busy until the job gives its count
  cmdCancel = new QPushButton("Cancel", this);
  cmdCancel->setObjectName("cmdCancel");
  cmdCancel->setAccessibleName("Cancel");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblStep);
  layout->addWidget(pbJob);
  layout->addWidget(cmdCancel, 0, Qt::AlignRight);
  setFixedSize(TwipsToPixelsX(4500), TwipsToPixelsY(1500));
  connect(cmdCancel, &QPushButton::clicked, this, &frmJobProgress::reject);
  poll_.setInterval(kPollMs);
  connect(&poll_, &QTimer::timeout, this, &frmJobProgress::ShowStep);
}

bool frmJobProgress::Report(const pack::JobStep& step) {
  {
    const std::lock_guard lock(mutex_);
    unit_.assign(step.unit);
    index_ = step.index;
    count_ = step.count;
  }
  return !cancelled_;
}

void frmJobProgress::ShowStep() {
  if (cancelled_) return;
  pack::JobStep step;
  std::string unit;
  {
    const std::lock_guard lock(mutex_);
    if (unit_.empty()) return;
    unit = unit_;
    step = {unit, index_, count_};
  }
  lblStep->setText(QString::fromStdString(pack::StepText(step)));
  constexpr std::size_t kMax = std::numeric_limits<int>::max();
  pbJob->setRange(0, static_cast<int>(std::min(step.count, kMax)));
  pbJob->setValue(static_cast<int>(std::min(step.index, kMax)));
}

Status frmJobProgress::Run(const Job& job) {
  Status outcome;
  std::unique_ptr<QThread> worker(
      QThread::create([&] { outcome = job([this](const pack::JobStep& s) { return Report(s); }); }));
  connect(worker.get(), &QThread::finished, this, &QDialog::accept, Qt::QueuedConnection);
  worker->start();
  poll_.start();
  exec();
  poll_.stop();
  worker->wait();
  return outcome;
}

void frmJobProgress::reject() {
  if (cancelled_.exchange(true)) return;
  lblStep->setText(kCancelling);
  cmdCancel->setEnabled(false);
}

}  // namespace cb
