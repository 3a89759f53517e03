#include "workbench/plant/PlantTree.h"

#include <QKeyEvent>
#include <algorithm>

#include "workbench/plant/SignalSymbol.h"

namespace ostrand {

PlantTree::PlantTree(QWidget* parent) : QTreeWidget(parent) {
  setObjectName(QStringLiteral("plant"));
  setAccessibleName(QStringLiteral("Plant"));
  setHeaderHidden(true);
  setFrameShape(QFrame::NoFrame);
  setUniformRowHeights(true);
  setMinimumWidth(220);
  setIndentation(14);
  setExpandsOnDoubleClick(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);
  connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { choose(item); });
}

void PlantTree::setDevices(const std::vector<std::unique_ptr<PlantDevice>>& devices) {
  mRows.clear();
  clear();
  mMill = new QTreeWidgetItem(this);
  mMill->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  for (const auto& device : devices) addDevice(*device);
  mMill->setExpanded(true);
  retranslate();
  refreshDevices();
}

void PlantTree::addDevice(PlantDevice& device) {
  auto* const item = new QTreeWidgetItem(mMill);
  mRows.push_back({item, {&device, {}, {}}, {}});
  const Document& tree = device.host().treeDocument();
  if (!tree) return;
  for (const Node& branch : tree.selectAll("/dtm/treeView/branch")) {
    const std::string name(branch.findAttribute("name").value_or(""));
    const bool exists = !device.classFor(name).empty();
    auto* const branchItem = new QTreeWidgetItem(item);
    // A view without frames is a page by itself.
    const bool isPage = !branch.child("node");
    mRows.push_back({branchItem, {&device, name, isPage ? name : std::string()}, name, exists});
    for (Node node = branch.firstChild(); node; node = node.nextSibling()) {
      const std::string frame(node.findAttribute("name").value_or(""));
      if (node.name() == "node" && !frame.empty()) mRows.push_back({new QTreeWidgetItem(branchItem), {&device, name, frame}, frame, exists});
    }
    branchItem->setExpanded(exists);
  }
  // One device at a time keeps the tree short.
  item->setExpanded(mMill->childCount() == 1);
}

void PlantTree::setTexts(const Texts& texts) {
  mTexts = texts;
  retranslate();
}

void PlantTree::retranslate() {
  if (!mMill) return;
  mMill->setText(0, mTexts.say("Mill"));
  for (const Row& row : mRows) {
    if (row.key.empty()) continue;
    row.item->setText(0, mTexts(row.key));
    row.item->setFlags(row.exists ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
    // A long name may not have its whole width.
    row.item->setToolTip(0, row.exists ? row.item->text(0) : mTexts.say("There is no view for this yet"));
  }
}

void PlantTree::setPriorities(const std::vector<Ne107>& priorities) {
  mPriorities = priorities;
  refreshDevices();
}

void PlantTree::refreshDevices() {
  for (const Row& row : mRows) {
    if (!row.key.empty()) continue;
    const DeviceSignal state = row.page.device->status().state(mPriorities);
    row.item->setText(0, qt(row.page.device->title()));
    row.item->setIcon(0, QIcon(signalSymbol(state, 16, devicePixelRatioF())));
    row.item->setToolTip(0, QStringLiteral("%1\n%2").arg(qt(std::string(row.page.device->kind().description)), signalWord(state, mTexts)));
  }
}

void PlantTree::setShown(const Page& page) {
  QTreeWidgetItem* const before = itemOf(mShown);
  QFont plain = font();
  if (before) before->setFont(0, plain);
  mShown = page;
  if (QTreeWidgetItem* const item = itemOf(page)) {
    plain.setBold(true);
    item->setFont(0, plain);
    setCurrentItem(item);
    scrollToItem(item);
  }
}

PlantTree::Page PlantTree::firstPage() const {
  for (const Row& row : mRows)
    if (row.exists && !row.page.frame.empty()) return row.page;
  return {};
}

std::vector<PlantTree::Page> PlantTree::pages(const PlantDevice& device) const {
  std::vector<Page> pages;
  for (const Row& row : mRows)
    if (row.exists && !row.page.frame.empty() && row.page.device == &device) pages.push_back(row.page);
  return pages;
}

QTreeWidgetItem* PlantTree::itemOf(const Page& page) const {
  const auto row = std::find_if(mRows.begin(), mRows.end(), [&](const Row& each) { return each.page == page; });
  return row == mRows.end() ? nullptr : row->item;
}

const PlantTree::Row* PlantTree::rowOf(const QTreeWidgetItem* item) const {
  const auto row = std::find_if(mRows.begin(), mRows.end(), [&](const Row& each) { return each.item == item; });
  return row == mRows.end() ? nullptr : &*row;
}

void PlantTree::choose(QTreeWidgetItem* item) {
  const Row* const row = rowOf(item);
  if (!row || !row->exists || !onChosen) return;
  // A device or a branch stands for the first frame below it.
  if (row->page.frame.empty()) {
    for (const Row& each : mRows) {
      const bool below = each.page.device == row->page.device && (row->page.branch.empty() || each.page.branch == row->page.branch);
      if (below && each.exists && !each.page.frame.empty()) {
        onChosen(Page(each.page));
        return;
      }
    }
    return;
  }
  onChosen(Page(row->page));
}

void PlantTree::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    choose(currentItem());
  else
    QTreeWidget::keyPressEvent(event);
}

}  // namespace ostrand
