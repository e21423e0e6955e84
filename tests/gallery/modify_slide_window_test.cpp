// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "dialogs/frmDirectory.h"
#include "dialogs/frmLoading.h"
#include "gallery/frmModifySlide.h"
#include "qt/OpenForms.h"
#include "support/GalleryFixture.h"

namespace cb {
namespace {

using testing::WhenShown;

QStringList Items(const QListWidget& list) {
  QStringList names;
  for (int i = 0; i < list.count(); ++i) names << list.item(i)->text();
  return names;
}

class ModifySlideWindowTest : public testing::GalleryFixture {
 protected:
  // A camera folder of `n` pictures: IMG_1.JPG, IMG_2.JPG, ...
  void Camera(int n) {
    QImage picture(8, 6, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    std::filesystem::create_directories(app / "Camera");
    for (int i = 1; i <= n; ++i)
      picture.save(QString::fromStdString(app / ("Camera/IMG_" + std::to_string(i) + ".JPG")));
  }

  // Slides > Modify Slide Collection: picks `folder` in the chooser (none cancels), then plays `act` on the editor.
  void Modify(const std::string& folder, std::function<void(frmModifySlide&)> act) {
    bool asked = false;
    WhenShown("frmDirectory", [this, folder, act, &asked](QWidget& w) {
      asked = true;
      auto& chooser = static_cast<frmDirectory&>(w);
      if (folder.empty()) return chooser.cmdCancel->click();
      chooser.Dir1->Path(QString::fromStdString(app / folder));
      WhenShown("frmModifySlide", [act](QWidget& e) {
        auto& editor = static_cast<frmModifySlide&>(e);
        act(editor);
        if (editor.isVisible()) editor.cmdCancel->click();
      });
      chooser.cmdOK->click();
    });
    // The editor opens once the menu's click is over, when events next run:
    // its OK replaces the gallery, and the menu with it.
    Gallery().Item(MenuId::SlidesModify)->trigger();
    EXPECT_FALSE(asked);
    QCoreApplication::processEvents();
    EXPECT_TRUE(asked);
  }

  std::string OnDisk() {
    ErrorArray errors;
    EXPECT_TRUE(Report(Mc().LoadSettings(), errors));
    std::string names;
    for (std::size_t i = 1; i < Globals().Slides.size(); ++i)
      names += Trim(Globals().Slides[i].Get(Field::PictureFile)) + " ";
    return names;
  }
};

// Moves that cancel out, or no folder chosen, leave the gallery alone; all of
// a camera folder joins the collection, the gallery is rebuilt and the editor stays.
TEST_F(ModifySlideWindowTest, NothingToApplyThenAllOfACameraFolder) {
  Start(2);
  Camera(3);
  std::filesystem::create_directories(app / "Empty");
  QPointer<frmGallery> before = &Gallery();  // null once that gallery is gone
  before->parentWidget()->showMaximized();
  Modify("Empty", [&](frmModifySlide& editor) {
    EXPECT_EQ(editor.lstAvailable->count(), 0);
    EXPECT_EQ(Items(*editor.lstSelected), QStringList({"p1.png", "p2.png"}));
    editor.lstSelected->item(1)->setSelected(true);
    editor.cmdRemoveOne->click();
    editor.lstAvailable->item(0)->setSelected(true);
    editor.cmdAddOne->click();
    editor.cmdRemoveAll->click();
    EXPECT_EQ(Items(*editor.lstAvailable), QStringList({"p1.png", "p2.png"}));
    EXPECT_EQ(editor.lstSelected->count(), 0);
    editor.cmdAddAll->click();
    editor.cmdOK->click();
  });
  EXPECT_EQ(TheMDIMain().fGallery(), before.data());
  Modify("", [](frmModifySlide&) { ADD_FAILURE() << "the editor showed without a folder"; });
  EXPECT_EQ(TheMDIMain().fGallery(), before.data());
  Modify("Camera", [&](frmModifySlide& editor) {
    EXPECT_EQ(Items(*editor.lstAvailable), QStringList({"IMG_1.JPG", "IMG_2.JPG", "IMG_3.JPG"}));
    EXPECT_EQ(Items(*editor.lstSelected), QStringList({"p1.png", "p2.png"}));
    editor.cmdAddAll->click();
    editor.cmdOK->click();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_TRUE(before.isNull());                                         // built anew...
    EXPECT_TRUE(TheMDIMain().fGallery()->parentWidget()->isMaximized());  // ...in the state it had
  });
  EXPECT_TRUE(messages.isEmpty()) << messages.join("; ").toStdString();
  for (int i = 1; i <= 15; ++i) EXPECT_EQ(Gallery().Image1(i)->HasPicture(), i <= 5) << i;
  EXPECT_EQ(OnDisk(), "p1.png p2.png IMG_1.JPG IMG_2.JPG IMG_3.JPG ");
}

TEST_F(ModifySlideWindowTest, OkShowsProgressAndKeepsEventsRunningWhileItCopies) {
  Start(2);
  Camera(4);
  bool timerRan = false;
  Modify("Camera", [&](frmModifySlide& editor) {
    editor.cmdAddAll->click();
    std::filesystem::remove(app / "Camera/IMG_2.JPG");  // its copy fails, and is told
    // A timer due at once runs only if OK lets events through while it works.
    QTimer::singleShot(0, [&] {
      timerRan = true;
      EXPECT_TRUE(TheLoading().isVisible());
      EXPECT_EQ(TheLoading().lblText->text(), "Updating the slide collection...");
      EXPECT_EQ(TheLoading().ProgressBar1->maximum(), 4);
      EXPECT_FALSE(editor.isEnabled());
      editor.cmdCancel->click();  // refused while the changes are applied
    });
    editor.cmdOK->click();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_TRUE(editor.isEnabled());
    EXPECT_FALSE(FindOpenForm("frmLoading") && FindOpenForm("frmLoading")->isVisible());
  });
  EXPECT_TRUE(timerRan);
  // Told once while copying; the new gallery then offers to drop the slide whose picture is missing.
  EXPECT_EQ(messages.value(0), "Error: Couldn't add record.");
  EXPECT_EQ(messages.filter("Couldn't add").size(), 1);
  EXPECT_EQ(OnDisk(), "p1.png p2.png IMG_1.JPG IMG_3.JPG IMG_4.JPG ");
}

}  // namespace
}  // namespace cb
