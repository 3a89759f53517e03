#pragma once

#include "platform/controls/CommandButton.h"
#include "workbench/render/ControlRenderer.h"

class QPushButton;

namespace ostrand {

// A button, and beside it why it cannot be pressed. The one that writes to the device stands out.
class CommandButtonRenderer : public ControlRenderer {
 public:
  CommandButtonRenderer(FormPage& page, CommandButton& button);

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;
  void arrange(const Position& position) override;
  bool key(QKeyEvent& event) override;

 private:
  int buttonWidth() const;
  CommandButton& mModel;
  QPushButton* mButton;
  QLabel* mNote;
};

}  // namespace ostrand
