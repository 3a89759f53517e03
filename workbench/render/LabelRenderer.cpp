#include "workbench/render/LabelRenderer.h"

#include <QLabel>

#include "platform/controls/Label.h"
#include "workbench/render/FormPage.h"

namespace ostrand {

LabelRenderer::LabelRenderer(FormPage& page, CaptionedControl& label) : ControlRenderer(page, label), mModel(label), mLabel(new QLabel(&page)) {
  mLabel->setTextFormat(Qt::PlainText);
  mLabel->setProperty("role", isHeading() ? "title" : "label");
}

std::vector<QWidget*> LabelRenderer::widgets() const { return {mLabel}; }

bool LabelRenderer::isHeading() const { return page().isHeading(mModel); }

void LabelRenderer::restyle() {
  useFont(*mLabel, theme().font(isHeading() ? Theme::Text::Title : Theme::Text::Body));
  if (const auto* const label = dynamic_cast<const Label*>(&mModel)) useInk(*mLabel, label->ForeColor());
}

void LabelRenderer::sync() {
  const QString caption = toQt(mModel.Caption());
  if (mLabel->text() != caption) mLabel->setText(caption);
  setEnabled(*mLabel, mModel.Enabled());
}

Extent LabelRenderer::extent() const {
  if (mLabel->text().isEmpty()) return {};
  const QSize size = mLabel->sizeHint();
  return {.field = size.width(), .height = isHeading() ? size.height() : fieldHeight()};
}

QString LabelRenderer::text() const { return mLabel->text(); }

}  // namespace ostrand
