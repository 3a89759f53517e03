#include "workbench/render/TextInputRenderer.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "workbench/render/FormPage.h"

namespace ostrand {

namespace {

constexpr int kCharacters = 24;

}  // namespace

TextInputRenderer::TextInputRenderer(FormPage& page, TextBox& box) : ControlRenderer(page, box), mModel(box), mField(new QLineEdit(&page)) {
  mField->setClearButtonEnabled(true);
  QObject::connect(mField, &QLineEdit::textEdited, mField, [this](const QString& text) { tell(text); });
}

std::vector<QWidget*> TextInputRenderer::widgets() const { return {mField}; }

QWidget* TextInputRenderer::focusWidget() const { return mField; }

void TextInputRenderer::restyle() { useFont(*mField, theme().font()); }

void TextInputRenderer::sync() {
  const QString text = toQt(mModel.Text());
  if (mField->text() != text) mField->setText(text);
  setEnabled(*mField, mModel.Enabled());
}

Extent TextInputRenderer::extent() const {
  return {.field = QFontMetrics(mField->font()).horizontalAdvance(QLatin1Char('0')) * kCharacters, .height = fieldHeight()};
}

bool TextInputRenderer::key(QKeyEvent& event) {
  if (event.key() != Qt::Key_Escape || mField->text().isEmpty()) return false;
  tell({});
  return true;
}

void TextInputRenderer::tell(const QString& text) {
  const std::string typed = fromQt(text);
  act([&] { mModel.type(typed); }, {"type", inQuotes(typed)});
  page().changed(mModel);  // also when it was refused: then the field goes back
}

}  // namespace ostrand
