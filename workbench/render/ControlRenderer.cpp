#include "workbench/render/ControlRenderer.h"

#include <QFontMetrics>
#include <QStyle>

#include "workbench/render/FormPage.h"
#include "workbench/render/ViewPanel.h"

namespace ostrand {

QString toQt(const std::string& text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

std::string fromQt(const QString& text) { return text.toStdString(); }

ViewPanel& ControlRenderer::panel() const { return mPage.panel(); }

const Theme& ControlRenderer::theme() const { return mPage.panel().theme(); }

void ControlRenderer::arrange(const Position& position) {
  const QRect* const rects[] = {&position.field, &position.companion, &position.state};
  const std::vector<QWidget*> all = widgets();
  for (std::size_t i = 0; i < all.size() && i < std::size(rects); ++i)
    if (all[i] && all[i]->geometry() != *rects[i]) all[i]->setGeometry(*rects[i]);
}

QString ControlRenderer::explanation() const { return reason().toHtmlEscaped(); }

bool ControlRenderer::key(QKeyEvent&) { return false; }

bool ControlRenderer::act(const std::function<void()>& action, const UserInput& input) {
  if (!panel().act(mControl, action, input)) return false;
  mPage.changed(mControl);
  return true;
}

QString ControlRenderer::reason() const {
  if (mControl.Enabled() || !panel().whyDisabled) return {};
  return panel().whyDisabled(mControl);
}

void ControlRenderer::setLook(QWidget& widget, const char* property, const QString& value) {
  if (widget.property(property).toString() == value) return;
  widget.setProperty(property, value);
  // One that has not been on the screen yet takes its look when it comes there.
  if (!widget.testAttribute(Qt::WA_WState_Polished)) return;
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
}

void ControlRenderer::setEnabled(QWidget& widget, bool enabled) {
  if (widget.isEnabled() != enabled) widget.setEnabled(enabled);
}

// A font of its own costs a widget a walk over all that is in it, also when it is the one that it has already.
void ControlRenderer::useFont(QWidget& widget, const QFont& font) {
  if (widget.font() != font) widget.setFont(font);
}

void ControlRenderer::useInk(QWidget& widget, const Color& color) const {
  if (color == Color::text()) return;
  QPalette palette = widget.palette();
  palette.setColor(QPalette::WindowText, theme().color(color));
  widget.setPalette(palette);
}

int ControlRenderer::lineHeight() const { return QFontMetrics(theme().font()).height(); }

int ControlRenderer::fieldHeight() const { return lineHeight() + theme().px(16); }

}  // namespace ostrand
