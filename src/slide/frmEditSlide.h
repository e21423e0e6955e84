// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The slide editor: the one place where a slide's details are typed in. One
// class serves the three templates; the template table gives each its
// labels, layout and tab order, and its object name (frmEditSlide,
// frmEditSlideRE, frmEditSlideVEH), by which the help table gives its F1.
//
// Modeless and unloaded by OK, Cancel, Help or a closing F1. It holds no
// record number: it fills its boxes from the slide current when it opens
// and its OK writes to the slide current at the moment of OK.

#include <QDialog>
#include <array>
#include <memory>

#include "model/SlideTemplates.h"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace cb {

class UIEditSlideController;

class frmEditSlide : public QDialog {
  Q_OBJECT
 public:
  // The editor of template `slideTemplate`, loaded from the current slide.
  // It deletes itself when it closes.
  explicit frmEditSlide(std::int32_t slideTemplate, QWidget* parent = nullptr);
  ~frmEditSlide() override;

  QLineEdit* txtSlideNumber;
  QLineEdit* txtFilename;
  QLineEdit* txtEditText;
  QComboBox* cboCategory;
  QComboBox* cboLocation;
  QLineEdit* txtSerial;
  QLineEdit* txtMake;
  QLineEdit* txtModel;
  QLineEdit* txtValue;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;

  const SlideTemplateLayout& Template() const { return layout_; }

  void cmdOK_Click();
  void setVisible(bool visible) override;

 signals:
  // OK's line for the frame's status bar: the slide's number and text.
  void StatusTextChanged(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  void CreateControls();
  void LayOut();
  void Form_Load();
  void LoadCategoryList();
  void LoadLocationList();
  QWidget* Control(EditControl c) const { return controls_[static_cast<std::size_t>(c)]; }

  const SlideTemplateLayout& layout_;
  std::array<QWidget*, kEditControls> controls_{};
  std::unique_ptr<UIEditSlideController> controller_;
};

}  // namespace cb
