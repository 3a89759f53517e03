#include "workbench/dialogs/TextDialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace ostrand {

void TextDialog::show(QWidget& window, const QString& title, const QString& note, const QString& text) {
  auto* const dialog = new QDialog(&window);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(title);
  auto* const noteLabel = new QLabel(note);
  noteLabel->setWordWrap(true);
  auto* const edit = new QPlainTextEdit(text);
  edit->setReadOnly(true);
  edit->setLineWrapMode(QPlainTextEdit::NoWrap);
  edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  auto* const layout = new QVBoxLayout(dialog);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addWidget(noteLabel);
  layout->addWidget(edit, 1);
  layout->addWidget(buttons);
  dialog->resize(900, 600);
  dialog->show();
}

}  // namespace ostrand
