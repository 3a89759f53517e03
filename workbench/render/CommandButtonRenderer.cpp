#include "workbench/render/CommandButtonRenderer.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "workbench/render/FormPage.h"

namespace ostrand {

namespace {

constexpr double kLeastWidth = 120;
constexpr double kNoteGap = 12;

}  // namespace

CommandButtonRenderer::CommandButtonRenderer(FormPage& page, CommandButton& button)
    : ControlRenderer(page, button), mModel(button), mButton(new QPushButton(&page)), mNote(new QLabel(&page)) {
  mNote->setTextFormat(Qt::PlainText);
  mNote->setProperty("role", "note");
  QObject::connect(mButton, &QPushButton::clicked, mButton, [this] { act([this] { mModel.click(); }, {"click", {}}); });
}

std::vector<QWidget*> CommandButtonRenderer::widgets() const { return {mButton, mNote}; }

QWidget* CommandButtonRenderer::focusWidget() const { return mButton; }

void CommandButtonRenderer::restyle() {
  useFont(*mButton, theme().font(Theme::Text::Strong));
  useFont(*mNote, theme().font(Theme::Text::Small));
}

void CommandButtonRenderer::sync() {
  // An ampersand in a text is an ampersand.
  const QString caption = toQt(mModel.Caption()).replace(QLatin1Char('&'), QStringLiteral("&&"));
  if (mButton->text() != caption) mButton->setText(caption);
  // The tags of a button that follows the communication mode.
  const bool writes = mModel.Tag() == "accept" || mModel.Tag() == "download";
  setLook(*mButton, "role", writes ? QStringLiteral("primary") : QStringLiteral("plain"));
  setEnabled(*mButton, mModel.Enabled());
  const QString why = reason();
  if (mNote->text() != why) mNote->setText(why);
  if (mButton->accessibleDescription() != why) mButton->setAccessibleDescription(why);
}

int CommandButtonRenderer::buttonWidth() const { return std::max(mButton->sizeHint().width(), theme().px(kLeastWidth)); }

Extent CommandButtonRenderer::extent() const {
  const int note = mNote->text().isEmpty() ? 0 : theme().px(kNoteGap) + mNote->sizeHint().width();
  return {.field = buttonWidth(), .height = fieldHeight(), .tail = note};
}

void CommandButtonRenderer::arrange(const Position& position) {
  QRect button = position.field;
  button.setWidth(buttonWidth());
  QRect note = position.field;
  note.setLeft(button.right() + 1 + theme().px(kNoteGap));
  ControlRenderer::arrange({button, note, {}});
}

bool CommandButtonRenderer::key(QKeyEvent& event) {
  if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter) return false;
  if (!event.isAutoRepeat()) mButton->click();
  return true;
}

}  // namespace ostrand
