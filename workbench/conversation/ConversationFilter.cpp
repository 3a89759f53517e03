#include "workbench/conversation/ConversationFilter.h"

#include <QBrush>

namespace ostrand {

using Kind = ConversationLog::Kind;

void ConversationFilter::setTheme(const Theme& theme) {
  mColors.fill(theme.text);
  mColors[static_cast<std::size_t>(Kind::User)] = theme.accent;
  mColors[static_cast<std::size_t>(Kind::Request)] = theme.good;
  mColors[static_cast<std::size_t>(Kind::Message)] = theme.caution;
  mColors[static_cast<std::size_t>(Kind::Error)] = theme.error;
  for (const Kind quiet : {Kind::Status, Kind::Log, Kind::Bus}) mColors[static_cast<std::size_t>(quiet)] = theme.secondaryText;
  mNote = theme.secondaryText;
  if (sourceModel()) invalidate();
}

QVariant ConversationFilter::data(const QModelIndex& index, int role) const {
  if (role != Qt::ForegroundRole) return QSortFilterProxyModel::data(index, role);
  if (index.parent().isValid() || index.column() == ConversationLog::Time) return QBrush(mNote);
  return QBrush(mColors[static_cast<std::size_t>(index.data(ConversationLog::KindRole).toInt())]);
}

bool ConversationFilter::hasChildren(const QModelIndex& parent) const {
  return parent.isValid() ? sourceModel()->hasChildren(mapToSource(parent)) : QSortFilterProxyModel::hasChildren(parent);
}

bool ConversationFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  if (parent.isValid()) return true;
  const QModelIndex line = sourceModel()->index(row, 0, parent);
  if (!mKinds.test(static_cast<std::size_t>(line.data(ConversationLog::KindRole).toInt()))) return false;
  return mSearch.isEmpty() || line.data(ConversationLog::PlainRole).toString().contains(mSearch, Qt::CaseInsensitive);
}

}  // namespace ostrand
