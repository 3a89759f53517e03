#include "workbench/render/OptionButtonRenderer.h"

#include <QKeyEvent>
#include <QRadioButton>

#include "workbench/render/FormPage.h"

namespace ostrand {

OptionButtonRenderer::OptionButtonRenderer(FormPage& page, OptionButton& button)
    : ControlRenderer(page, button), mModel(button), mButton(new QRadioButton(&page)) {
  mButton->setAutoExclusive(false);
  QObject::connect(mButton, &QRadioButton::clicked, mButton, [this] { choose(); });
}

std::vector<QWidget*> OptionButtonRenderer::widgets() const { return {mButton}; }

QWidget* OptionButtonRenderer::focusWidget() const { return mButton; }

void OptionButtonRenderer::restyle() { useFont(*mButton, theme().font()); }

void OptionButtonRenderer::sync() {
  const QString caption = toQt(mModel.Caption()).replace(QLatin1Char('&'), QStringLiteral("&&"));
  if (mButton->text() != caption) mButton->setText(caption);
  if (mButton->isChecked() != mModel.Value()) mButton->setChecked(mModel.Value());
  setEnabled(*mButton, mModel.Enabled());
}

Extent OptionButtonRenderer::extent() const { return {.field = mButton->sizeHint().width(), .height = fieldHeight()}; }

void OptionButtonRenderer::choose() {
  act([this] { mModel.click(); }, {"click", {}});
  page().changed(mModel);
}

OptionButtonRenderer* OptionButtonRenderer::neighbour(int step) const {
  const std::vector<ControlRenderer*> all = page().renderers();
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (all[i] != this) continue;
    const std::size_t next = i + static_cast<std::size_t>(step);
    auto* button = next < all.size() ? dynamic_cast<OptionButtonRenderer*>(all[next]) : nullptr;
    return button && button->mButton->isEnabled() && button->mButton->isVisible() ? button : nullptr;
  }
  return nullptr;
}

bool OptionButtonRenderer::key(QKeyEvent& event) {
  const bool up = event.key() == Qt::Key_Up || event.key() == Qt::Key_Left;
  const bool down = event.key() == Qt::Key_Down || event.key() == Qt::Key_Right;
  if (!up && !down) return false;
  if (OptionButtonRenderer* next = neighbour(down ? 1 : -1)) {
    next->mButton->setFocus(Qt::OtherFocusReason);
    next->choose();
  }
  return true;
}

}  // namespace ostrand
