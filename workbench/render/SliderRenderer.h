#pragma once

#include "platform/controls/Slider.h"
#include "workbench/render/ControlRenderer.h"

class QSlider;

namespace ostrand {

class SliderRenderer : public ControlRenderer {
 public:
  SliderRenderer(FormPage& page, Slider& slider);

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void sync() override;
  Extent extent() const override;

 private:
  Slider& mModel;
  QSlider* mSlider;
};

}  // namespace ostrand
