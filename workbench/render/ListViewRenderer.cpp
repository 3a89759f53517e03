#include "workbench/render/ListViewRenderer.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <algorithm>

#include "workbench/render/FormPage.h"
#include "workbench/render/ViewPanel.h"

namespace ostrand {

namespace {

constexpr ushort kLowestBar = 0x2581;
constexpr ushort kHighestBar = 0x2588;
constexpr double kCellPadding = 10;
constexpr int kRowsAtLeast = 2;
constexpr int kRowsAtMost = 3;  // before a list scrolls by itself, if there is no more room

constexpr int kContent = Qt::UserRole;
constexpr int kState = Qt::UserRole + 1;
constexpr double kStateSize = 14;

// A table that tells when its width is another one: only then the spare room can be shared out.
class Table : public QTableView {
 public:
  using QTableView::QTableView;
  std::function<void()> onResized;

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QTableView::resizeEvent(event);
    if (onResized) onResized();
  }
};

// Paints a cell: no focus rectangle around single cells, distance at the sides, trends as lines.
class CellPainter : public QStyledItemDelegate {
 public:
  CellPainter(const Theme& theme, QObject* parent) : QStyledItemDelegate(parent), mTheme(theme) {}
  void restyle(const Theme& theme) { mTheme = theme; }
  std::function<void(int step)> onNext;  // from one edit in place to another

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem quiet = option;
    quiet.state &= ~QStyle::State_HasFocus;
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty() || index.data(kContent).toInt() != static_cast<int>(ListView::Content::Trend)) {
      QStyledItemDelegate::paint(painter, quiet, index);
      if (const QVariant state = index.data(kState); state.isValid()) {
        const double size = mTheme.px(kStateSize);
        const QRectF box(option.rect.right() - size - mTheme.px(4), option.rect.center().y() - size / 2, size, size);
        paintState(*painter, box, static_cast<ValueState>(state.toInt()), mTheme);
      }
      return;
    }
    painter->save();
    if (option.state & QStyle::State_Selected) painter->fillRect(option.rect, mTheme.selection);
    painter->setRenderHint(QPainter::Antialiasing);
    const int pad = mTheme.px(kCellPadding);
    const QRectF room = QRectF(option.rect).adjusted(pad, option.rect.height() * 0.25, -pad, -option.rect.height() * 0.25);
    const double width = std::min(room.width(), text.size() * double(mTheme.px(9)));
    QPolygonF line;
    for (qsizetype i = 0; i < text.size(); ++i) {
      const double share = double(text[i].unicode() - kLowestBar) / (kHighestBar - kLowestBar);
      line << QPointF(room.left() + width * static_cast<double>(i) / std::max<double>(1, static_cast<double>(text.size() - 1)),
                      room.bottom() - share * room.height());
    }
    painter->setPen(QPen(mTheme.accent, mTheme.px(2), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(line);
    painter->setPen(Qt::NoPen);
    painter->setBrush(mTheme.accent);
    painter->drawEllipse(line.back(), mTheme.px(3), mTheme.px(3));
    painter->restore();
  }

  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const int pad = mTheme.px(kCellPadding);
    option->rect.adjust(pad, 0, -pad, 0);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const editor = qobject_cast<QWidget*>(watched);
    const int key = editor && event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    const bool forward = key == Qt::Key_Tab || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!onNext || (!forward && key != Qt::Key_Backtab)) return QStyledItemDelegate::eventFilter(watched, event);
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor, NoHint);
    onNext(forward ? 1 : -1);
    return true;
  }

 private:
  Theme mTheme;
};

}  // namespace

// --- the snapshot

ListSnapshot::Row ListSnapshot::read(int row, const Theme& theme) const {
  Row made;
  made.checked = mList.Checked(row);
  const auto stateOf = [&](Color::Role role) -> std::optional<ValueState> {
    if (!mEditable || (role != Color::Role::EditedText && role != Color::Role::ErrorText)) return std::nullopt;
    return role == Color::Role::EditedText ? ValueState::Edited : ValueState::Wrong;
  };
  for (int column = 1; column <= columnCount(); ++column) {
    const Color color = mList.CellColor(row, column);
    made.cells.push_back({toQt(mList.Cell(row, column)), theme.color(color), stateOf(color.role)});
  }
  return made;
}

// Columns and boxes; true if the table is another one now.
bool ListSnapshot::followForm() {
  std::vector<QString> headers;
  for (int column = 1; column <= mList.ColumnCount(); ++column) headers.push_back(toQt(mList.Header(column)));
  const bool isNew = headers.size() != mHeaders.size() || mBoxes != mList.CheckBoxes() || mEditable != mList.LabelEdit();
  if (isNew) beginResetModel();
  if (isNew) mRows.clear();
  mHeaders = std::move(headers);
  mBoxes = mList.CheckBoxes();
  mEditable = mList.LabelEdit();
  mContents.clear();
  for (int column = 1; column <= mList.ColumnCount(); ++column) mContents.push_back(mList.ColumnContent(column));
  if (isNew)
    endResetModel();
  else if (!mHeaders.empty())
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  return isNew;
}

ListSnapshot::Followed ListSnapshot::follow(const Theme& theme) {
  Followed followed;
  if (mSeen == 0 || mList.changeOfForm() > mSeen) {
    followed.all = true;
    if (followForm()) mSeen = 0;
  }
  const int count = mList.Count();
  if (count < rowCount()) {
    beginRemoveRows({}, count, rowCount() - 1);
    mRows.resize(static_cast<std::size_t>(count));
    endRemoveRows();
  }
  for (int row = 1; row <= rowCount(); ++row) {
    if (mSeen > 0 && mList.changeOfRow(row) <= mSeen) continue;
    Row now = read(row, theme);
    Row& was = mRows[static_cast<std::size_t>(row) - 1];
    for (std::size_t column = 0; column < mHeaders.size(); ++column) {
      const bool sameBox = column > 0 || was.checked == now.checked;
      if (was.cells[column] == now.cells[column] && sameBox) continue;
      was.cells[column] = std::move(now.cells[column]);
      if (!sameBox) was.checked = now.checked;
      const QModelIndex cell = index(row - 1, static_cast<int>(column));
      Q_EMIT dataChanged(cell, cell);
    }
    followed.rows.push_back(row - 1);
  }
  if (count > rowCount()) {
    beginInsertRows({}, rowCount(), count - 1);
    for (int row = rowCount() + 1; row <= count; ++row) {
      mRows.push_back(read(row, theme));
      followed.rows.push_back(row - 1);
    }
    endInsertRows();
  }
  mSeen = mList.changeCount();
  return followed;
}

QVariant ListSnapshot::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Row& row = mRows[static_cast<std::size_t>(index.row())];
  const Cell& cell = row.cells[static_cast<std::size_t>(index.column())];
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return cell.text;
    case Qt::ForegroundRole: return QBrush(cell.color);
    case Qt::TextAlignmentRole:
      return int(Qt::AlignVCenter | (content(index.column()) == ListView::Content::Number ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::CheckStateRole: return mBoxes && index.column() == 0 ? QVariant(row.checked ? Qt::Checked : Qt::Unchecked) : QVariant();
    case kContent: return static_cast<int>(content(index.column()));
    case kState: return cell.state ? QVariant(static_cast<int>(*cell.state)) : QVariant();
    default: return {};
  }
}

QVariant ListSnapshot::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return mHeaders[static_cast<std::size_t>(section)];
  if (role == Qt::TextAlignmentRole) return int(Qt::AlignVCenter | (content(section) == ListView::Content::Number ? Qt::AlignRight : Qt::AlignLeft));
  return {};
}

Qt::ItemFlags ListSnapshot::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (index.column() == 0 && mBoxes) flags |= Qt::ItemIsUserCheckable;
  if (index.column() == 0 && mEditable) flags |= Qt::ItemIsEditable;
  return flags;
}

bool ListSnapshot::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role == Qt::CheckStateRole && onCheck) onCheck(index.row() + 1, value.toInt() == Qt::Checked);
  if (role == Qt::EditRole && onEdit) onEdit(index.row() + 1, value.toString());
  return false;  // what has come of it is seen when the model tells
}

// --- the renderer

ListViewRenderer::ListViewRenderer(FormPage& page, ListView& list)
    : ControlRenderer(page, list), mModel(list), mTable(new Table(&page)), mSnapshot(new ListSnapshot(list, mTable)) {
  mTable->setModel(mSnapshot);
  static_cast<Table*>(mTable)->onResized = [this] { shareWidth(); };
  auto* const painter = new CellPainter(theme(), mTable);
  painter->onNext = [this](int step) { editNext(step); };
  mTable->setItemDelegate(painter);
  mTable->setSelectionBehavior(QAbstractItemView::SelectRows);
  mTable->setSelectionMode(QAbstractItemView::SingleSelection);
  mTable->setTabKeyNavigation(false);
  mTable->setShowGrid(false);
  mTable->setWordWrap(false);
  // Who types a number into the selected row means that row's.
  mTable->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::AnyKeyPressed);
  mTable->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  mTable->verticalHeader()->hide();
  mTable->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  mTable->horizontalHeader()->setHighlightSections(false);
  mTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  mSnapshot->onCheck = [this](int row, bool on) { act([=, this] { mModel.check(row, on); }, {on ? "check" : "uncheck", std::to_string(row)}); };
  mSnapshot->onEdit = [this](int row, const QString& text) {
    act([&, row] { mModel.editRow(row, fromQt(text)); }, {"edit", std::to_string(row) + " " + inQuotes(fromQt(text))});
  };
  QObject::connect(mTable, &QTableView::clicked, mTable,
                   [this](const QModelIndex& index) { act([row = index.row() + 1, this] { mModel.clickRow(row); }); });
}

std::vector<QWidget*> ListViewRenderer::widgets() const { return {mTable}; }

QWidget* ListViewRenderer::focusWidget() const { return mTable; }

void ListViewRenderer::restyle() {
  useFont(*mTable, theme().font());
  mTable->horizontalHeader()->setFont(theme().font(Theme::Text::Small));
  mTable->verticalHeader()->setDefaultSectionSize(fieldHeight());
  static_cast<CellPainter*>(mTable->itemDelegate())->restyle(theme());
  mWidths.clear();
  mSnapshot->forget();
}

void ListViewRenderer::sync() {
  const ListSnapshot::Followed followed = mSnapshot->follow(theme());
  if (followed.all || !followed.rows.empty()) {
    mWidths.resize(static_cast<std::size_t>(mSnapshot->columnCount()));
    for (std::size_t i = 0; i < mWidths.size(); ++i) {
      const int column = static_cast<int>(i);
      if (followed.all) mWidths[i] = std::max(mWidths[i], headWidth(column));
      for (int row : followed.rows) mWidths[i] = std::max(mWidths[i], contentWidth(row, column));
    }
    shareWidth();
  }
  const int selected = mModel.SelectedRow() - 1;
  if (!mStrip) {
    mSelected = selected;
    showRow();
  } else if (mSelected != selected) {
    mStrip->row = mSelected = selected;
    for (ListViewRenderer* const table : mStrip->tables) table->showRow();
  }
  setEnabled(*mTable, mModel.Enabled());
}

void ListViewRenderer::showRow() {
  const int row = mStrip ? mStrip->row : mSelected;
  if (mTable->currentIndex().row() == row || mTable->isPersistentEditorOpen(mTable->currentIndex())) return;
  const QModelIndex at = row >= 0 ? mSnapshot->index(row, 0) : QModelIndex();
  mTable->selectionModel()->setCurrentIndex(at, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ListViewRenderer::join(const std::vector<ListViewRenderer*>& tables) {
  const auto strip = std::make_shared<Strip>();
  strip->tables = tables;
  for (ListViewRenderer* const each : tables) {
    each->mStrip = strip;
    // Bars of their own would part the rows.
    each->mTable->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if (each != tables.back()) each->mTable->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (ListViewRenderer* const other : tables)
      if (other != each)
        QObject::connect(each->mTable->verticalScrollBar(), &QScrollBar::valueChanged, other->mTable->verticalScrollBar(), &QScrollBar::setValue);
  }
}

void ListViewRenderer::editNext(int step) {
  const int row = mTable->currentIndex().row() + step;
  if (row < 0 || row >= mSnapshot->rowCount()) return;
  if (!act([row, this] { mModel.clickRow(row + 1); })) return;
  const QModelIndex next = mSnapshot->index(row, 0);
  mTable->selectionModel()->setCurrentIndex(next, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  mTable->edit(next);
}

int ListViewRenderer::headWidth(int column) const {
  const QFontMetrics head(mTable->horizontalHeader()->font());
  return head.horizontalAdvance(mSnapshot->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString()) + 2 * theme().px(kCellPadding) +
         theme().px(10);
}

int ListViewRenderer::contentWidth(int row, int column) const {
  const QString text = mSnapshot->index(row, column).data(Qt::DisplayRole).toString();
  const bool isTrend = mSnapshot->content(column) == ListView::Content::Trend;
  const int mark = mModel.LabelEdit() ? theme().px(kStateSize) : 0;
  const int width = isTrend ? static_cast<int>(text.size()) * theme().px(9) : QFontMetrics(mTable->font()).horizontalAdvance(text);
  const int box = column == 0 && mModel.CheckBoxes() ? theme().px(28) : 0;
  return width + mark + 2 * theme().px(kCellPadding) + box + theme().px(8);
}

// What is left over goes to the columns as the form shares its own width among them.
void ListViewRenderer::shareWidth() {
  int needed = 0, declared = 0;
  for (std::size_t i = 0; i < mWidths.size(); ++i) {
    needed += mWidths[i];
    declared += std::max(1, mModel.ColumnWidth(static_cast<int>(i) + 1));
  }
  const int spare = std::max(0, mTable->viewport()->width() - needed);
  int given = 0;
  for (std::size_t i = 0; i < mWidths.size(); ++i) {
    const bool last = i + 1 == mWidths.size();
    const int more = last ? spare - given : static_cast<int>(double(spare) * std::max(1, mModel.ColumnWidth(static_cast<int>(i) + 1)) / declared);
    given += more;
    if (mTable->columnWidth(static_cast<int>(i)) != mWidths[i] + more) mTable->setColumnWidth(static_cast<int>(i), mWidths[i] + more);
  }
}

Extent ListViewRenderer::extent() const {
  const bool hasBar = !mStrip || mStrip->tables.back() == this;
  int width = 2 + (hasBar ? mTable->verticalScrollBar()->sizeHint().width() : 0);
  for (int column : mWidths) width += column;
  const int rows = std::clamp(mSnapshot->rowCount(), kRowsAtLeast, kRowsAtMost);
  return {.field = width, .height = mTable->horizontalHeader()->sizeHint().height() + rows * fieldHeight() + 2};
}

bool ListViewRenderer::key(QKeyEvent& event) {
  if (!mTable->hasFocus()) return false;  // it is the key of an edit in place
  int row = mTable->currentIndex().row();
  switch (event.key()) {
    case Qt::Key_Up: row = std::max(0, row - 1); break;
    case Qt::Key_Down: ++row; break;
    case Qt::Key_Home: row = 0; break;
    case Qt::Key_End: row = mSnapshot->rowCount() - 1; break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (row < 0 || !mModel.LabelEdit() || !mTable->isEnabled()) return false;
      mTable->edit(mSnapshot->index(row, 0));
      return true;
    default: return false;
  }
  if (row >= 0 && row < mSnapshot->rowCount()) act([=, this] { mModel.clickRow(row + 1); });
  return true;
}

}  // namespace ostrand
