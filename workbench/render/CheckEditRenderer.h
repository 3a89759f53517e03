#pragma once

#include "platform/controls/CtrCheckEdit.h"
#include "workbench/render/EditRenderer.h"

class QCheckBox;

namespace ostrand {

// A value of two choices as a box, with the name of the choice beside it.
class CheckEditRenderer : public EditRenderer {
 public:
  CheckEditRenderer(FormPage& page, CtrCheckEdit& check);

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void restyle() override;
  void sync() override;

 protected:
  int fieldWidth() const override;

 private:
  CtrCheckEdit& mModel;
  QCheckBox* mBox;
};

}  // namespace ostrand
