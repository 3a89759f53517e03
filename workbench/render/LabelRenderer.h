#pragma once

#include "platform/controls/CaptionedControl.h"
#include "workbench/render/ControlRenderer.h"

namespace ostrand {

// A text before a field, or over a column; or the heading of a frame.
class LabelRenderer : public ControlRenderer {
 public:
  LabelRenderer(FormPage& page, CaptionedControl& label);

  std::vector<QWidget*> widgets() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;
  QString text() const;

 private:
  bool isHeading() const;
  CaptionedControl& mModel;
  QLabel* mLabel;
};

}  // namespace ostrand
