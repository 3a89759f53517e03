#pragma once

#include "platform/controls/CheckBox.h"
#include "workbench/render/ControlRenderer.h"

class QCheckBox;

namespace ostrand {

class CheckBoxRenderer : public ControlRenderer {
 public:
  CheckBoxRenderer(FormPage& page, CheckBox& box);

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;

 private:
  CheckBox& mModel;
  QCheckBox* mBox;
};

}  // namespace ostrand
