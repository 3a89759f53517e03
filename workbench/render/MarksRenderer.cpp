#include "workbench/render/MarksRenderer.h"

#include <QHBoxLayout>
#include <QLabel>

#include "platform/controls/Component.h"
#include "workbench/render/FormPage.h"
#include "workbench/render/StateSymbol.h"
#include "workbench/render/ViewPanel.h"

namespace ostrand {

MarksRenderer::MarksRenderer(FormPage& page, NestedControl& control)
    : ControlRenderer(page, control), mComponent(control.nested()), mGround(new QWidget(&page)) {
  auto* const layout = new QHBoxLayout(mGround);
  layout->setContentsMargins(0, 0, 0, 0);
  if (!mComponent) return;
  for (Control* const each : mComponent->controls())
    if (auto* const model = dynamic_cast<Label*>(each)) {
      auto* const shown = new QLabel(mGround);
      shown->setTextFormat(Qt::PlainText);
      shown->setAlignment(Qt::AlignCenter);
      layout->addWidget(shown);
      mMarks.push_back({model, shown, model->changed.connect([this] { this->page().changed(this->control()); })});
    }
}

MarksRenderer::~MarksRenderer() {
  for (const Mark& mark : mMarks) mark.model->changed.disconnect(mark.listening);
}

std::vector<QWidget*> MarksRenderer::widgets() const { return {mGround}; }

void MarksRenderer::restyle() {
  for (const Mark& mark : mMarks) {
    useFont(*mark.shown, theme().font(Theme::Text::Strong));
    // The place of a mark that is hidden is kept.
    mark.shown->setFixedWidth(QFontMetrics(mark.shown->font()).horizontalAdvance(toQt(mark.model->Caption())) + theme().px(4));
    useInk(*mark.shown, mark.model->ForeColor());
  }
}

void MarksRenderer::sync() {
  for (const Mark& mark : mMarks) {
    const QString text = mark.model->Visible() ? toQt(mark.model->Caption()) : QString();
    if (mark.shown->text() != text) mark.shown->setText(text);
  }
}

Extent MarksRenderer::extent() const { return {.field = mGround->layout()->sizeHint().width(), .height = fieldHeight()}; }

QString MarksRenderer::explanation() const {
  QStringList words;
  for (const Mark& mark : mMarks) {
    if (!mark.model->Visible()) continue;
    const bool isError = mark.model->ForeColor().role == Color::Role::ErrorText;
    words << word(isError ? ValueState::Wrong : ValueState::Edited, panel().language());
  }
  return words.join(", ").toHtmlEscaped();
}

}  // namespace ostrand
