#pragma once

#include "platform/controls/TextBox.h"
#include "workbench/render/ControlRenderer.h"

namespace ostrand {

// A text that is shown and cannot be edited; it can be marked and copied.
class TextBoxRenderer : public ControlRenderer {
 public:
  TextBoxRenderer(FormPage& page, TextBox& box);

  std::vector<QWidget*> widgets() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;

 private:
  bool isTall() const;
  TextBox& mModel;
  QLabel* mText;
};

}  // namespace ostrand
