#pragma once

#include <QSortFilterProxyModel>
#include <bitset>

#include "workbench/conversation/ConversationLog.h"
#include "workbench/render/Theme.h"

namespace ostrand {

// The lines of chosen kinds that hold a text, in the colours of the theme.
class ConversationFilter : public QSortFilterProxyModel {
 public:
  explicit ConversationFilter(QObject* parent) : QSortFilterProxyModel(parent) { mKinds.set(); }

  void setKind(ConversationLog::Kind kind, bool shown) {
    mKinds.set(static_cast<std::size_t>(kind), shown);
    invalidateFilter();
  }
  bool shows(ConversationLog::Kind kind) const { return mKinds.test(static_cast<std::size_t>(kind)); }
  void setSearch(const QString& text) {
    mSearch = text;
    invalidateFilter();
  }
  void setTheme(const Theme& theme);

  QVariant data(const QModelIndex& index, int role) const override;
  // Without laying out the document that stands below a line.
  bool hasChildren(const QModelIndex& parent) const override;

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

 private:
  std::bitset<ConversationLog::kKinds> mKinds;
  QString mSearch;
  std::array<QColor, ConversationLog::kKinds> mColors;
  QColor mNote;
};

}  // namespace ostrand
