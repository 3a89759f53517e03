#include "workbench/render/TextBoxRenderer.h"

#include <QLabel>
#include <algorithm>

#include "platform/controls/Form.h"
#include "workbench/render/FormPage.h"

namespace ostrand {

namespace {

constexpr int kLeastCharacters = 12;
constexpr int kLineCharacters = 56;  // of a text of several lines

}  // namespace

TextBoxRenderer::TextBoxRenderer(FormPage& page, TextBox& box) : ControlRenderer(page, box), mModel(box), mText(new QLabel(&page)) {
  mText->setTextFormat(Qt::PlainText);
  mText->setTextInteractionFlags(Qt::TextSelectableByMouse);
  mText->setFocusPolicy(Qt::NoFocus);
  mText->setProperty("role", "value");
  mText->setWordWrap(isTall());
  if (isTall()) mText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

std::vector<QWidget*> TextBoxRenderer::widgets() const { return {mText}; }

void TextBoxRenderer::restyle() { useFont(*mText, theme().font()); }

bool TextBoxRenderer::isTall() const { return mModel.Height() > Form::kRowHeight; }

void TextBoxRenderer::sync() {
  const QString text = toQt(mModel.Text());
  if (mText->text() != text) mText->setText(text);
  setEnabled(*mText, mModel.Enabled());
}

Extent TextBoxRenderer::extent() const {
  const int character = QFontMetrics(mText->font()).horizontalAdvance(QLatin1Char('0'));
  if (isTall()) {
    const int width = character * kLineCharacters;
    const int rows = mModel.Height() / Form::kRowHeight;
    return {.field = width, .height = std::max(mText->heightForWidth(width), rows * (fieldHeight() + theme().px(10)))};
  }
  return {.field = std::max(mText->sizeHint().width(), character * kLeastCharacters + theme().px(16) + 8), .height = fieldHeight()};
}

}  // namespace ostrand
