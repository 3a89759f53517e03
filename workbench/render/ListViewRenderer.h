#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <memory>
#include <optional>
#include <vector>

#include "platform/controls/ListView.h"
#include "workbench/render/ControlRenderer.h"
#include "workbench/render/StateSymbol.h"

namespace ostrand {

// What a list showed when it was last looked at; tells the view only the cells that differ.
class ListSnapshot : public QAbstractTableModel {
 public:
  // The user's actions.
  std::function<void(int row, bool on)> onCheck;
  std::function<void(int row, const QString& text)> onEdit;

  explicit ListSnapshot(ListView& list, QObject* parent) : QAbstractTableModel(parent), mList(list) {}

  // What has to be measured anew.
  struct Followed {
    bool all = false;
    std::vector<int> rows;  // from 0
  };
  // Takes over what has changed since the last time, and nothing else.
  Followed follow(const Theme& theme);
  // The colours are others: everything is taken over again.
  void forget() { mSeen = 0; }
  ListView::Content content(int column) const { return mContents[static_cast<std::size_t>(column)]; }

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : static_cast<int>(mRows.size()); }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : static_cast<int>(mHeaders.size()); }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  struct Cell {
    QString text;
    QColor color;
    std::optional<ValueState> state;  // of what can be typed
    friend bool operator==(const Cell&, const Cell&) = default;
  };
  struct Row {
    std::vector<Cell> cells;
    bool checked = false;
    friend bool operator==(const Row&, const Row&) = default;
  };

  bool followForm();
  Row read(int row, const Theme& theme) const;

  ListView& mList;
  std::uint64_t mSeen = 0;  // the list's count of changes
  std::vector<QString> mHeaders;
  std::vector<ListView::Content> mContents;
  std::vector<Row> mRows;
  bool mBoxes = false;
  bool mEditable = false;
};

// A table. A trend is painted as a line. Tables in one strip of a form act as one: they scroll together, and a row that is
// selected in one is seen in all. Enter and tab go from one edit in place to that of the next row.
class ListViewRenderer : public ControlRenderer {
 public:
  ListViewRenderer(FormPage& page, ListView& list);

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;
  bool key(QKeyEvent& event) override;
  bool fills() const override { return true; }

  // The tables of a strip, from left to right; told once, and they live as long as each other.
  static void join(const std::vector<ListViewRenderer*>& tables);

 private:
  struct Strip {
    std::vector<ListViewRenderer*> tables;
    int row = -1;  // selected in all of them
  };
  void showRow();
  // Commits the edit in place and opens that of another row.
  void editNext(int step);
  void shareWidth();
  int headWidth(int column) const;
  int contentWidth(int row, int column) const;
  ListView& mModel;
  QTableView* mTable;
  ListSnapshot* mSnapshot;
  std::vector<int> mWidths;  // what the contents need
  std::shared_ptr<Strip> mStrip;
  int mSelected = -1;  // of the model, when it was last looked at
};

}  // namespace ostrand
