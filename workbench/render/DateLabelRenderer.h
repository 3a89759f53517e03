#pragma once

#include "platform/controls/CaptionedControl.h"
#include "workbench/render/ControlRenderer.h"

namespace ostrand {

// The stamp of a group's last read, in the corner of a frame.
class DateLabelRenderer : public ControlRenderer {
 public:
  DateLabelRenderer(FormPage& page, CaptionedControl& label);

  std::vector<QWidget*> widgets() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;
  QString explanation() const override;

 private:
  CaptionedControl& mModel;
  QLabel* mLabel;
};

}  // namespace ostrand
