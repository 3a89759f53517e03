#include "workbench/render/CheckEditRenderer.h"

#include <QCheckBox>

#include "workbench/render/FormPage.h"
#include "workbench/render/ViewPanel.h"
#include "workbench/render/Words.h"

namespace ostrand {

CheckEditRenderer::CheckEditRenderer(FormPage& page, CtrCheckEdit& check) : EditRenderer(page, check), mModel(check), mBox(new QCheckBox(&page)) {
  QObject::connect(mBox, &QCheckBox::clicked, mBox, [this] {
    act([this] { mModel.click(); }, {"click", {}});
    this->page().changed(mModel);
  });
}

std::vector<QWidget*> CheckEditRenderer::widgets() const { return widgetsWith(mBox); }

QWidget* CheckEditRenderer::focusWidget() const { return mBox; }

void CheckEditRenderer::restyle() {
  EditRenderer::restyle();
  useFont(*mBox, theme().font());
}

void CheckEditRenderer::sync() {
  EditRenderer::sync();
  const bool on = mModel.Value();
  if (mBox->isChecked() != on) mBox->setChecked(on);
  const QString text =
      mModel.choices().empty() ? word(on ? PanelWord::Checked : PanelWord::Unchecked, panel().language()) : toQt(mModel.displayText());
  if (mBox->text() != text) mBox->setText(text);
  setEnabled(*mBox, mModel.Enabled() && !mModel.ReadOnly());
}

int CheckEditRenderer::fieldWidth() const { return mBox->sizeHint().width(); }

}  // namespace ostrand
