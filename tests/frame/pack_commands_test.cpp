// SPDX-License-Identifier: GPL-3.0-or-later
// The claim pack, backup and restore from the File menu, played as a user
// would, against what chattelbook-sif writes for the same file.
#include <gtest/gtest.h>

#include <QAction>
#include <QDate>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>

#include <filesystem>
#include <sstream>

#include "Commands.h"
#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "pack/Backup.h"
#include "pack/ClaimPack.h"
#include "pack/frmClaimPack.h"
#include "pack/frmJobProgress.h"
#include "support/GalleryFixture.h"

namespace cb {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::WhenShown;

class PackCommandsTest : public testing::GalleryFixture {
 protected:
  std::string Files(const std::string& name) const { return app / ("Files/" + name); }
  const QString backupName = "t-" + QDate::currentDate().toString("yyyy-MM-dd") + ".tar.gz";

  // chattelbook-sif with `args` after its name; its exit status.
  int Sif(const QStringList& args) {
    std::ostringstream out, err;
    std::istringstream in;
    return sif::RunSif(QStringList{"chattelbook-sif"} + args, out, err, in);
  }

  // Plays the file dialog: checks its caption and offered name, then OK.
  void AcceptFileDialog(const QString& caption, const QString& offered) {
    WhenShown("frmCommonDialog", [this, caption, offered](QWidget& w) {
      auto& d = static_cast<frmCommonDialog&>(w);
      EXPECT_EQ(d.windowTitle(), caption);
      EXPECT_EQ(d.txtFilename->text(), offered);
      EXPECT_EQ(d.FileListBox1->Path(), QString::fromStdString(app / "Files"));
      QTest::keyClick(d.txtFilename, Qt::Key_Return);
    });
  }

  // The gallery hands its File items to the main window through a queued signal.
  void Choose(MenuId item) {
    Gallery().Item(item)->trigger();
    QCoreApplication::sendPostedEvents();
  }

  pack::Manifest ManifestOf(const std::string& archive) {
    pack::RestorePlan plan;
    EXPECT_TRUE(pack::PlanRestore(archive, app.str(), pack::Unwatched, plan).ok()) << archive;
    return plan.manifest;
  }
};

// A PDF with its dates blanked: two runs differ in nothing else.
QByteArray Undated(const std::string& pdf) {
  static const QRegularExpression date(R"(\(D:[0-9+\-Z']+\))");
  return QString::fromLatin1(QByteArrayView(pdf)).replace(date, "(D:)").toLatin1();
}

TEST_F(PackCommandsTest, ItemsFollowSaveAsAndTakeF1) {
  Start(3);
  for (const auto& [item, caption] : {std::pair{MenuId::FileClaim, "&Claim Pack..."},
                                      {MenuId::FileBackup, "&Back Up..."},
                                      {MenuId::FileRestore, "&Restore..."}}) {
    EXPECT_EQ(Gallery().Item(item)->text(), caption);
    EXPECT_TRUE(Gallery().Item(item)->isEnabled()) << caption;
    EXPECT_EQ(TheMDIMain().Item(item)->isEnabled(), item == MenuId::FileRestore) << caption;
  }
  QMenu* menu = Gallery().Menu(MenuId::File);
  const auto at = [&](MenuId id) { return menu->actions().indexOf(Gallery().Item(id)); };
  EXPECT_EQ(at(MenuId::FileClaim), at(MenuId::Bar2) + 1);
  EXPECT_EQ(at(MenuId::FileGallery), at(MenuId::FileRestore) + 1);
  menu->popup({0, 0});
  menu->setActiveAction(Gallery().Item(MenuId::FileBackup));
  QKeyEvent f1(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
  QApplication::sendEvent(menu, &f1);
  EXPECT_EQ(HelpPage(), "help003.htm");
  EXPECT_FALSE(menu->isVisible());
}

TEST_F(PackCommandsTest, ClaimAndBackupFromTheMenuAreTheCommands) {
  Start(20);
  fs::remove(app / "Gallery/p7.png");  // gone since the gallery loaded
  WhenShown("frmClaimPack", [this](QWidget& w) {
    auto& d = static_cast<frmClaimPack&>(w);
    EXPECT_EQ(d.windowTitle(), "Claim Pack");
    EXPECT_TRUE(d.optCategory->isChecked());
    EXPECT_EQ(d.optLetter->isChecked(), pack::LocalePageSize() == QPageSize::Letter);
    d.optLocation->setChecked(true);
    d.optLetter->setChecked(true);
    AcceptFileDialog("Save Claim Pack", "t-claim.pdf");
    QTest::keyClick(&d, Qt::Key_Return);
  });
  Choose(MenuId::FileClaim);
  ASSERT_TRUE(fs::exists(Files("t-claim.pdf")));
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages[0].contains("slide 7: picture \"p7.png\" is missing")) << messages[0].toStdString();
  ASSERT_EQ(Sif({"claim", QString::fromStdString(Files("t.sif")), "--by", "location", "--page", "letter", "-o",
                 QString::fromStdString(app / "command.pdf")}),
            sif::kExitOk);
  EXPECT_EQ(Undated(ReadFile(Files("t-claim.pdf"))), Undated(ReadFile(app / "command.pdf")));

  AcceptFileDialog("Back Up", backupName);
  Choose(MenuId::FileBackup);
  const std::string made = Files(backupName.toStdString());
  ASSERT_TRUE(fs::exists(made));
  ASSERT_EQ(Sif({"backup", QString::fromStdString(Files("t.sif")), "-o", QString::fromStdString(app / "c.tar.gz")}),
            sif::kExitOk);
  const pack::Manifest ours = ManifestOf(made), theirs = ManifestOf(app / "c.tar.gz");
  EXPECT_EQ(ours.order, theirs.order);
  EXPECT_EQ(ours.hashes, theirs.hashes);
  EXPECT_EQ(ours.missing, std::vector<std::string>{"Gallery/p7.png"});
  EXPECT_EQ(ours.missing, theirs.missing);
}

// Cancel as soon as the progress shows: the job stops and leaves no file.
TEST_F(PackCommandsTest, CancelLeavesNoFileBehind) {
  Start(2);
  // A large picture keeps the backup busy well past the first cancel check.
  fs::resize_file(app / "Gallery/p1.png", std::uintmax_t{1} << 30);
  AcceptFileDialog("Back Up", backupName);
  WhenShown("frmJobProgress",
            [](QWidget& w) { QTest::mouseClick(static_cast<frmJobProgress&>(w).cmdCancel, Qt::LeftButton); });
  Choose(MenuId::FileBackup);
  std::vector<std::string> left;
  for (const auto& e : fs::directory_iterator(app / "Files")) left.push_back(e.path().filename().string());
  EXPECT_EQ(left, std::vector<std::string>{"t.sif"});
  EXPECT_TRUE(messages.isEmpty()) << messages.join("\n").toStdString();
}

TEST_F(PackCommandsTest, RestoreAsksBeforeReplacingAndReloads) {
  Start(20);
  pack::BackupResult result;
  ASSERT_TRUE(pack::MakeBackup({Files("t.sif"), app / "Gallery", Files("t.tar.gz")}, pack::Unwatched, result).ok());
  Start(3);  // the file now has three slides
  for (const int reply : {vbNo, vbYes}) {
    answer = reply;
    messages.clear();
    AcceptFileDialog("Restore", "t.tar.gz");
    Choose(MenuId::FileRestore);
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages[0].startsWith("Restore: These files in " + QString::fromStdString(app.str()) +
                                       " will be replaced:\n\nFiles/t.sif\nGallery/p1.png\n"))
        << messages[0].toStdString();
    EXPECT_EQ(Mc().NumberOfRecords(), reply == vbYes ? 20 : 3);
  }
  EXPECT_EQ(Shown()[14], 15);  // the gallery reloaded the restored file
}

}  // namespace
}  // namespace cb
