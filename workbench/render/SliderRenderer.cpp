#include "workbench/render/SliderRenderer.h"

#include <QSignalBlocker>
#include <QSlider>

#include "workbench/render/FormPage.h"

namespace ostrand {

SliderRenderer::SliderRenderer(FormPage& page, Slider& slider)
    : ControlRenderer(page, slider), mModel(slider), mSlider(new QSlider(Qt::Horizontal, &page)) {
  QObject::connect(mSlider, &QSlider::valueChanged, mSlider, [this](int value) {
    act([&] { mModel.slide(value); }, {"slide", std::to_string(value)});
    this->page().changed(mModel);
  });
}

std::vector<QWidget*> SliderRenderer::widgets() const { return {mSlider}; }

QWidget* SliderRenderer::focusWidget() const { return mSlider; }

void SliderRenderer::sync() {
  const QSignalBlocker quiet(mSlider);
  if (mSlider->minimum() != mModel.Min() || mSlider->maximum() != mModel.Max()) mSlider->setRange(mModel.Min(), mModel.Max());
  mSlider->setSingleStep(mModel.SmallChange());
  mSlider->setPageStep(mModel.LargeChange());
  if (mSlider->value() != mModel.Value()) mSlider->setValue(mModel.Value());
  setEnabled(*mSlider, mModel.Enabled());
}

Extent SliderRenderer::extent() const { return {.field = theme().px(220), .height = fieldHeight()}; }

}  // namespace ostrand
