#pragma once

#include <QComboBox>

#include "platform/controls/CtrComboEdit.h"
#include "workbench/render/EditRenderer.h"

namespace ostrand {

// A combo box with its arrow painted in the theme's colours.
class ChoiceBox : public QComboBox {
 public:
  ChoiceBox(const Theme& theme, QWidget* parent);
  void restyle(const Theme& theme);
  void showPopup() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Theme mTheme;
  QAbstractItemDelegate* mDelegate = nullptr;
};

// One value from a list. A value that is not offered is shown all the same, but cannot be chosen.
class ComboEditRenderer : public EditRenderer {
 public:
  ComboEditRenderer(FormPage& page, CtrComboEdit& combo);

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void restyle() override;
  void sync() override;

 protected:
  int fieldWidth() const override;

 private:
  CtrComboEdit& mModel;
  ChoiceBox* mBox;
};

}  // namespace ostrand
