#include "workbench/render/DateLabelRenderer.h"

#include <QLabel>

#include "workbench/render/FormPage.h"
#include "workbench/render/ViewPanel.h"
#include "workbench/render/Words.h"

namespace ostrand {

DateLabelRenderer::DateLabelRenderer(FormPage& page, CaptionedControl& label)
    : ControlRenderer(page, label), mModel(label), mLabel(new QLabel(&page)) {
  mLabel->setTextFormat(Qt::PlainText);
  mLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  mLabel->setProperty("role", "stamp");
}

std::vector<QWidget*> DateLabelRenderer::widgets() const { return {mLabel}; }

void DateLabelRenderer::restyle() { useFont(*mLabel, theme().font(Theme::Text::Small)); }

void DateLabelRenderer::sync() {
  const std::string& stamp = mModel.Caption();
  const QString shown = stamp.empty() ? QString() : word(PanelWord::LastRead, panel().language()) + QStringLiteral("  ") + toQt(stamp);
  if (mLabel->text() != shown) mLabel->setText(shown);
}

Extent DateLabelRenderer::extent() const {
  const QSize size = mLabel->sizeHint();
  return {.field = mLabel->text().isEmpty() ? 0 : size.width(), .height = size.height()};
}

QString DateLabelRenderer::explanation() const {
  constexpr std::size_t kPrefix = 5;  // of "date_"
  const std::string& tag = mModel.Tag();
  return tag.size() > kPrefix ? panel().label(tag.substr(kPrefix)).toHtmlEscaped() : QString();
}

}  // namespace ostrand
