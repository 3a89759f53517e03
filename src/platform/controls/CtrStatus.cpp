#include "platform/controls/CtrStatus.h"

#include <algorithm>

#include "platform/base/NumberText.h"
#include "platform/controls/Form.h"
#include "platform/controls/ParameterInfo.h"
#include "platform/trap/Procedure.h"
#include "platform/types/Query.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

enum Column { Name = 1, State, Category, New };

constexpr int kSearchHeight = 480;
constexpr const char* kIndent = "    ";

bool isZero(const std::string& value) { return parseNumber(value, '.').value_or(1.0) == 0.0; }

bool contains(const std::string& text, const std::string& part) {
  const auto same = [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b)); };
  return std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

}  // namespace

void CtrStatus::connect() {
  txtSearch.Change.connect([this](const std::string&) { rebuild(); });
}

void CtrStatus::declare(Form& form) {
  form.rows().row(lblSearch, "search", txtSearch, "").fill(lsvStatus, "statusTree");
  lsvStatus.AddColumn("status", 6000);
  lsvStatus.AddColumn("state", 1800);
  lsvStatus.AddColumn("ne107", 3000);
  lsvStatus.AddColumn("newSinceLastRead", 2400);
}

void CtrStatus::resized() {
  Procedure proc(*this, "UserControl_Resize");
  proc.step([&] { lsvStatus.Move(0, kSearchHeight, width(), std::max(0, height() - kSearchHeight)); });
}

void CtrStatus::terminate() {
  mDataSet = {};
  Panel::terminate();
}

void CtrStatus::RequestFocus() {
  Procedure proc(*this, "ITaviView_RequestFocus");
  proc.step([&] { lsvStatus.SetFocus(); });
}

void CtrStatus::Localize(const Ref<ITextTable>& textTable) {
  Procedure proc(*this, "ILocalizable_Localize");
  proc.step([&] {
    mTextTable = textTable;
    lblSearch.Caption(text(lblSearch.Tag()));
    for (int column = 1; column <= lsvStatus.ColumnCount(); ++column) lsvStatus.Header(column, text(lsvStatus.HeaderTag(column)));
    rebuild();
  });
}

// --- documents

void CtrStatus::SetOfflineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOfflineData");
  proc.step([&] {
    mDataSet = doc;
    mBranches.clear();
    mPositions.clear();
    mLastRead.reset();
    mFailed = false;
    if (const Node bits = group(doc, tag()))
      for (Node bit = bits.firstChild(); bit; bit = bit.nextSibling()) addLeaf(std::string(bit.findAttribute("name").value_or("")));
    rebuild();
  });
}

void CtrStatus::SetOnlineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOnlineData");
  proc.step([&] {
    const Node answer = ownAnswer(doc);
    if (!answer) return;
    const bool first = !mLastRead;
    for (Node item = answer.firstChild(); item; item = item.nextSibling()) {
      if (item.name() != "comm:item") continue;
      const std::string name(item.findAttribute("name").value_or(""));
      // A bit that the data set does not list still finds its branch, if a mapping knows its kind.
      if (!mPositions.contains(name) && (!mDataSet || !addLeaf(name))) continue;
      const Node value = valueElement(item, "integerVal");
      const std::string text = value ? value.text() : std::string();
      // The device has no value for this bit: the last one stands.
      if (text.empty() || text == "NaN") continue;
      Leaf& leaf = *leafOf(name);
      const bool raised = !isZero(text);
      leaf.isNew = raised && !leaf.raised.value_or(false) && !first;
      leaf.raised = raised;
    }
    mLastRead = desktop().now();
    mFailed = false;
    rebuild();
  });
}

void CtrStatus::SetErrorData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setErrorData");
  proc.step([&] {
    if (!ownAnswer(doc)) return;
    mFailed = true;
    rebuild();
  });
}

Node CtrStatus::ownAnswer(const Document& doc) const {
  const Node answer = doc ? response(doc) : Node();
  return answer && answer.findAttribute("name") == tag() ? answer : Node();
}

bool CtrStatus::isKnown() const {
  return !mPositions.empty() && std::all_of(mBranches.begin(), mBranches.end(), [](const Branch& branch) {
    return std::all_of(branch.leaves.begin(), branch.leaves.end(), [](const Leaf& leaf) { return leaf.raised.has_value(); });
  });
}

bool CtrStatus::addLeaf(const std::string& item) {
  const Node mapping = mappingByTail(mDataSet, item);
  if (!mapping || mPositions.contains(item)) return false;
  const std::string key(mapping.attribute("name"));
  auto branch = std::find_if(mBranches.begin(), mBranches.end(), [&](const Branch& at) { return at.key == key; });
  if (branch == mBranches.end()) branch = mBranches.insert(mBranches.end(), Branch{key, {}});
  mPositions[item] = {static_cast<std::size_t>(branch - mBranches.begin()), branch->leaves.size()};
  branch->leaves.push_back({item, ne107OfRaised(mapping).value_or(Ne107::Maintenance), {}, false});
  return true;
}

CtrStatus::Leaf* CtrStatus::leafOf(const std::string& item) {
  const auto at = mPositions.find(item);
  return at == mPositions.end() ? nullptr : &mBranches[at->second.first].leaves[at->second.second];
}

// --- the table

void CtrStatus::rebuild() {
  struct Row {
    std::string name, state, category, isNew;
    bool bad;
  };
  std::vector<Row> rows(1);
  const auto categoryText = [&](Ne107 category) {
    return (category == Ne107::Good ? std::string() : std::string(1, letterOf(category)) + "  ") + text(std::string(keyOf(category)));
  };
  // The host may change everything below while it is asked for texts; what it changes is shown by a rebuild of its own.
  const int turn = ++mRebuilds;
  const std::vector<Branch> branches = mBranches;
  const bool known = isKnown();
  const std::string wanted = txtSearch.Text();
  Ne107 worstOfAll = Ne107::Good;
  bool anyNew = false;
  for (const Branch& branch : branches) {
    Ne107 worst = Ne107::Good;
    bool branchNew = false, branchKnown = true;
    std::vector<Row> leaves;
    for (const Leaf& leaf : branch.leaves) {
      const bool raised = leaf.raised.value_or(false);
      if (raised) worst = std::max(worst, leaf.category);
      branchKnown = branchKnown && leaf.raised;
      branchNew = branchNew || leaf.isNew;
      const std::string name = text(leaf.item);
      if (!wanted.empty() && !contains(name, wanted)) continue;
      leaves.push_back({std::string(kIndent) + kIndent + name,
                        text(!leaf.raised ? "notRead"
                             : raised     ? "on"
                                          : "off"),
                        raised ? categoryText(leaf.category) : std::string(), leaf.isNew ? text("new") : std::string(), raised});
    }
    worstOfAll = std::max(worstOfAll, worst);
    anyNew = anyNew || branchNew;
    if (leaves.empty()) continue;
    rows.push_back({kIndent + text(branch.key),
                    {},
                    branchKnown || worst != Ne107::Good ? categoryText(worst) : text("notKnown"),
                    branchNew ? text("new") : std::string(),
                    worst != Ne107::Good});
    rows.insert(rows.end(), leaves.begin(), leaves.end());
  }
  // What is raised is told also while the rest is not known.
  const std::string worstText = categoryText(worstOfAll);
  const std::string state = known ? worstText : text("notKnown") + (worstOfAll == Ne107::Good ? std::string() : " (" + worstText + ")");
  rows[0] = {text(tag()),
             mFailed     ? text("syncError")
             : mLastRead ? desktop().locale().dateAndTime(*mLastRead)
                         : text("notRead"),
             state, anyNew ? text("new") : std::string(), worstOfAll != Ne107::Good};

  if (turn != mRebuilds) return;
  mWorst = worstOfAll;

  const int count = static_cast<int>(rows.size());
  while (lsvStatus.Count() > count) lsvStatus.RemoveRow(lsvStatus.Count());
  while (lsvStatus.Count() < count) lsvStatus.AddRow();
  for (int row = 1; row <= count; ++row) {
    const Row& at = rows[static_cast<std::size_t>(row) - 1];
    lsvStatus.Cell(row, Name, at.name);
    lsvStatus.Cell(row, State, at.state);
    lsvStatus.Cell(row, Category, at.category);
    lsvStatus.CellColor(row, Category, at.bad ? Color::errorText() : Color::text());
    lsvStatus.Cell(row, New, at.isNew);
  }
}

}  // namespace ostrand
