#include "workbench/render/CheckBoxRenderer.h"

#include <QCheckBox>

#include "workbench/render/FormPage.h"

namespace ostrand {

CheckBoxRenderer::CheckBoxRenderer(FormPage& page, CheckBox& box) : ControlRenderer(page, box), mModel(box), mBox(new QCheckBox(&page)) {
  QObject::connect(mBox, &QCheckBox::clicked, mBox, [this] {
    act([this] { mModel.click(); }, {"click", {}});
    this->page().changed(mModel);
  });
}

std::vector<QWidget*> CheckBoxRenderer::widgets() const { return {mBox}; }

QWidget* CheckBoxRenderer::focusWidget() const { return mBox; }

void CheckBoxRenderer::restyle() { useFont(*mBox, theme().font()); }

void CheckBoxRenderer::sync() {
  const QString caption = toQt(mModel.Caption()).replace(QLatin1Char('&'), QStringLiteral("&&"));
  if (mBox->text() != caption) mBox->setText(caption);
  if (mBox->isChecked() != mModel.Value()) mBox->setChecked(mModel.Value());
  setEnabled(*mBox, mModel.Enabled());
}

Extent CheckBoxRenderer::extent() const { return {.field = mBox->sizeHint().width(), .height = fieldHeight()}; }

}  // namespace ostrand
