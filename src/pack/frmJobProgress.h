// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The modal progress window of a long job: the step and the count, a bar and
// Cancel. The job runs on a thread of its own so that the window repaints
// and Cancel answers while it works.

#include <QDialog>
#include <QTimer>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>

#include "base/Status.h"
#include "pack/JobProgress.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace cb {

class frmJobProgress : public QDialog {
  Q_OBJECT
 public:
  explicit frmJobProgress(const QString& caption, QWidget* parent = nullptr);

  QLabel* lblStep;
  QProgressBar* pbJob;
  QPushButton* cmdCancel;

  using Job = std::function<Status(const pack::JobProgress&)>;
  // Shows the window until `job` has ended, and gives its outcome.
  Status Run(const Job& job);
  // True once Cancel was chosen; the job's own outcome then says "cancelled".
  bool Cancelled() const { return cancelled_; }

  // Cancel, Esc and the window's close ask the job to stop; the window goes
  // when the job has.
  void reject() override;

 private:
  bool Report(const pack::JobStep& step);
  void ShowStep();

  std::atomic<bool> cancelled_{false};
  std::mutex mutex_;  // guards the step the job last reported
  std::string unit_;
  std::size_t index_ = 0, count_ = 0;
  QTimer poll_;
};

}  // namespace cb
