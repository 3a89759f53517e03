#include "workbench/conversation/ConversationPanel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "workbench/conversation/ConversationFilter.h"
#include "workbench/words/Spoken.h"

namespace ostrand {

namespace {

QToolButton* button(const char* text, const char* hint) {
  auto* const made = new QToolButton;
  speak(*made, "text", text);
  speak(*made, "toolTip", hint);
  made->setFocusPolicy(Qt::TabFocus);
  return made;
}

}  // namespace

ConversationPanel::ConversationPanel(ConversationLog& log, QWidget* parent)
    : QWidget(parent), mLog(log), mFilter(new ConversationFilter(this)), mList(new QTreeView), mSearch(new QLineEdit) {
  setObjectName(QStringLiteral("conversation"));
  mFilter->setSourceModel(&mLog);

  auto* const title = new QLabel;
  speak(*title, "text", "Conversation");
  title->setProperty("role", QStringLiteral("heading"));
  speak(*mSearch, "placeholderText", "Search");
  mSearch->setClearButtonEnabled(true);
  mSearch->setMaximumWidth(260);
  QObject::connect(mSearch, &QLineEdit::textChanged, this, [this](const QString& text) { mFilter->setSearch(text); });

  mKinds = button("Kinds", "Which lines are shown");
  mKinds->setPopupMode(QToolButton::InstantPopup);
  auto* const menu = new QMenu(mKinds);
  for (int i = 0; i < ConversationLog::kKinds; ++i) {
    const auto kind = static_cast<ConversationLog::Kind>(i);
    QAction* const action = menu->addAction(QString());
    speak(*action, "text", ConversationLog::word(kind));
    action->setCheckable(true);
    action->setChecked(true);
    QObject::connect(action, &QAction::toggled, this, [this, kind](bool on) { mFilter->setKind(kind, on); });
    mKindActions[static_cast<std::size_t>(i)] = action;
  }
  mKinds->setMenu(menu);

  QToolButton* const copyButton = button("Copy", "Copy the chosen lines with their documents, or all");
  QObject::connect(copyButton, &QToolButton::clicked, this, [this] { copy(); });
  QToolButton* const clear = button("Clear", "Empty the list; a recording goes on");
  QObject::connect(clear, &QToolButton::clicked, this, [this] { mLog.clear(); });
  QToolButton* const save = button("Save as transcript…", "Save the conversation of this view so that it can be replayed");
  QObject::connect(save, &QToolButton::clicked, this, [this] {
    if (onSave) onSave();
  });
  mRecord = button("Record…", "Write what follows into a transcript");
  mRecord->setCheckable(true);
  QObject::connect(mRecord, &QToolButton::clicked, this, [this](bool on) {
    if (onRecord) onRecord(on);
  });

  QHBoxLayout* const bar = mBar = new QHBoxLayout;
  mDispensable = {copyButton, save, clear, mRecord, mKinds};
  bar->setContentsMargins(12, 6, 12, 4);
  bar->setSpacing(8);
  bar->addWidget(title);
  bar->addStretch(1);
  bar->addWidget(mSearch);
  for (QToolButton* const each : {mKinds, copyButton, clear, save, mRecord}) bar->addWidget(each);

  mList->setModel(mFilter);
  mList->setUniformRowHeights(true);
  mList->setAllColumnsShowFocus(true);
  mList->setSelectionMode(QAbstractItemView::ExtendedSelection);
  mList->setFrameShape(QFrame::NoFrame);
  mList->setExpandsOnDoubleClick(true);
  mList->header()->setStretchLastSection(true);
  mList->header()->setSectionsMovable(false);
  restyle();

  // The last line stays in sight as long as the user has not scrolled away from it.
  auto* const atEnd = new bool(true);
  QObject::connect(mList, &QObject::destroyed, [atEnd] { delete atEnd; });
  QScrollBar* const scroll = mList->verticalScrollBar();
  QObject::connect(scroll, &QScrollBar::valueChanged, mList, [atEnd, scroll](int value) { *atEnd = value >= scroll->maximum(); });
  QObject::connect(scroll, &QScrollBar::rangeChanged, mList, [atEnd, scroll](int, int most) {
    if (*atEnd) scroll->setValue(most);
  });

  auto* const copyKeys = new QShortcut(QKeySequence::Copy, mList);
  copyKeys->setContext(Qt::WidgetShortcut);
  QObject::connect(copyKeys, &QShortcut::activated, this, [this] { copy(); });
  auto* const searchKeys = new QShortcut(QKeySequence::Find, this);
  searchKeys->setContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(searchKeys, &QShortcut::activated, mSearch, [this] { mSearch->setFocus(); });

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(bar);
  layout->addWidget(mList, 1);
  setFocusProxy(mList);
}

QSize ConversationPanel::minimumSizeHint() const { return {mList->fontMetrics().averageCharWidth() * 40, QWidget::minimumSizeHint().height()}; }

void ConversationPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fit();
}

// In a narrow window some of the commands go; the keys and the File menu have them too.
void ConversationPanel::fit() {
  for (QToolButton* const each : mDispensable) each->show();
  for (QToolButton* const each : mDispensable) {
    mBar->invalidate();
    if (mBar->minimumSize().width() <= width()) break;
    each->hide();
  }
}

void ConversationPanel::setTheme(const Theme& theme) {
  mFilter->setTheme(theme);
  restyle();
}

void ConversationPanel::setTexts(const Texts& texts) {
  mTexts = texts;
  mLog.setTexts(texts);
  restyle();
}

void ConversationPanel::restyle() {
  const QFontMetrics metrics(mList->font());
  fit();
  mList->header()->resizeSection(ConversationLog::Time, metrics.horizontalAdvance(QStringLiteral("00:00:00.000")) + 56);
  int widest = 0;
  for (int i = 0; i < ConversationLog::kKinds; ++i)
    widest = std::max(widest, metrics.horizontalAdvance(mLog.shownWord(static_cast<ConversationLog::Kind>(i))));
  mList->header()->resizeSection(ConversationLog::What, widest + 24);
}

void ConversationPanel::setRecording(bool on) {
  mRecord->setChecked(on);
  speak(*mRecord, "text", on ? "● Stop recording" : "Record…");
  mRecord->setText(mTexts.say(on ? "● Stop recording" : "Record…"));
}

void ConversationPanel::setKindShown(ConversationLog::Kind kind, bool shown) { mKindActions[static_cast<std::size_t>(kind)]->setChecked(shown); }

bool ConversationPanel::isKindShown(ConversationLog::Kind kind) const { return mFilter->shows(kind); }

void ConversationPanel::search(const QString& text) { mSearch->setText(text); }

int ConversationPanel::shownLines() const { return mFilter->rowCount(); }

QString ConversationPanel::chosenText() const {
  QModelIndexList rows = mList->selectionModel()->selectedRows();
  if (rows.isEmpty())
    for (int row = 0; row < mFilter->rowCount(); ++row) rows << mFilter->index(row, 0);
  std::sort(rows.begin(), rows.end(), [](const QModelIndex& a, const QModelIndex& b) {
    const auto place = [](const QModelIndex& index) {
      return index.parent().isValid() ? std::pair(index.parent().row(), index.row() + 1) : std::pair(index.row(), 0);
    };
    return place(a) < place(b);
  });
  QStringList lines;
  for (const QModelIndex& row : rows) {
    // A line brings its document along.
    if (row.parent().isValid() && rows.contains(row.parent())) continue;
    lines << (row.parent().isValid() ? row.siblingAtColumn(ConversationLog::Text) : row).data(ConversationLog::PlainRole).toString();
  }
  return lines.join(QLatin1Char('\n'));
}

void ConversationPanel::copy() { QApplication::clipboard()->setText(chosenText()); }

}  // namespace ostrand
