#pragma once

#include "platform/controls/OptionButton.h"
#include "workbench/render/ControlRenderer.h"

class QRadioButton;

namespace ostrand {

// A radio button. Which of a group is on is the model's affair; the arrow keys go to the neighbour and switch it on.
class OptionButtonRenderer : public ControlRenderer {
 public:
  OptionButtonRenderer(FormPage& page, OptionButton& button);

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;
  bool key(QKeyEvent& event) override;

 private:
  void choose();
  OptionButtonRenderer* neighbour(int step) const;
  OptionButton& mModel;
  QRadioButton* mButton;
};

}  // namespace ostrand
