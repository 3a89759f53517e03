#include "workbench/render/ComboEditRenderer.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>

#include "workbench/render/FormPage.h"

namespace ostrand {

ChoiceBox::ChoiceBox(const Theme& theme, QWidget* parent) : QComboBox(parent), mTheme(theme) {}

// A list is made when it is opened for the first time; most never are.
void ChoiceBox::showPopup() {
  if (!mDelegate) setItemDelegate(mDelegate = new QStyledItemDelegate(this));  // the one that minds the style sheet's heights
  QComboBox::showPopup();
}

void ChoiceBox::restyle(const Theme& theme) {
  mTheme = theme;
  update();
}

void ChoiceBox::paintEvent(QPaintEvent* event) {
  QComboBox::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor color = isEnabled() ? mTheme.secondaryText : mTheme.disabledText;
  painter.setPen(QPen(color, mTheme.px(2), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const double x = width() - mTheme.px(16), y = height() / 2.0, half = mTheme.px(4);
  painter.drawPolyline(QPolygonF({{x - half, y - half / 2}, {x, y + half / 2}, {x + half, y - half / 2}}));
}

ComboEditRenderer::ComboEditRenderer(FormPage& page, CtrComboEdit& combo)
    : EditRenderer(page, combo), mModel(combo), mBox(new ChoiceBox(theme(), &page)) {
  mBox->setMaxVisibleItems(16);
  QObject::connect(mBox, &QComboBox::activated, mBox, [this](int index) {
    const std::string key = fromQt(mBox->itemData(index).toString());
    if (key == mModel.Text()) return;
    act([&] { mModel.choose(key); }, {"choose", inQuotes(key)});
    this->page().changed(mModel);  // also when it was refused: then the box goes back
  });
}

std::vector<QWidget*> ComboEditRenderer::widgets() const { return widgetsWith(mBox); }

QWidget* ComboEditRenderer::focusWidget() const { return mBox; }

void ComboEditRenderer::restyle() {
  EditRenderer::restyle();
  useFont(*mBox, theme().font());
  mBox->restyle(theme());
}

void ComboEditRenderer::sync() {
  EditRenderer::sync();
  const QSignalBlocker quiet(mBox);
  int row = 0;
  int chosen = -1;
  for (const Choice& choice : mModel.choices()) {
    if (!choice.offered) continue;
    const QString key = toQt(choice.key), text = toQt(mModel.label(choice.key));
    if (row >= mBox->count()) {
      mBox->addItem(text, key);
    } else {
      if (mBox->itemText(row) != text) mBox->setItemText(row, text);
      if (mBox->itemData(row).toString() != key) mBox->setItemData(row, key);
    }
    if (choice.key == mModel.Text()) chosen = row;
    ++row;
  }
  while (mBox->count() > row) mBox->removeItem(row);
  if (mBox->currentIndex() != chosen) mBox->setCurrentIndex(chosen);
  const QString other = chosen < 0 ? toQt(mModel.displayText()) : QString();
  if (mBox->placeholderText() != other) mBox->setPlaceholderText(other);

  const bool readOnly = mModel.ReadOnly();
  setLook(*mBox, "fixed", readOnly && mModel.Enabled() ? QStringLiteral("true") : QStringLiteral("false"));
  setLook(*mBox, "state", look());
  setEnabled(*mBox, mModel.Enabled() && !readOnly);
}

int ComboEditRenderer::fieldWidth() const {
  const QFontMetrics metrics(mBox->font());
  int widest = metrics.horizontalAdvance(QLatin1Char('0')) * 12;
  for (int row = 0; row < mBox->count(); ++row) widest = std::max(widest, metrics.horizontalAdvance(mBox->itemText(row)));
  widest = std::max(widest, metrics.horizontalAdvance(mBox->placeholderText()));
  return widest + theme().px(10 + 28) + 8;
}

}  // namespace ostrand
