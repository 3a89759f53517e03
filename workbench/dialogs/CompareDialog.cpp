#include "workbench/dialogs/CompareDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/base/NumberText.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr int kParameterRole = Qt::UserRole;
constexpr int kSameRole = Qt::UserRole + 1;

QTableWidgetItem* cell(const QString& text) {
  auto* const item = new QTableWidgetItem(text);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  return item;
}

}  // namespace

CompareDialog::CompareDialog(Host& host, const Texts& texts, QWidget* parent)
    : QDialog(parent), mHost(host), mTexts(texts), mNote(new QLabel), mProgress(new QProgressBar), mTable(new QTableWidget), mOnlyDifferences(new QCheckBox(mTexts.say("Only differences"))) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(mTexts.say("Data set and device"));
  mProgress->setTextVisible(false);
  mTable->setColumnCount(kColumns);
  mTable->setHorizontalHeaderLabels({mTexts.say("Value"), mTexts.say("Data set"), mTexts.say("Device"), mTexts.say("Difference")});
  mTable->verticalHeader()->hide();
  mTable->setShowGrid(false);
  mTable->setAlternatingRowColors(false);
  mTable->setSelectionBehavior(QAbstractItemView::SelectRows);
  mTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  mTable->horizontalHeader()->setStretchLastSection(true);
  mTable->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  mOnlyDifferences->setChecked(true);
  connect(mOnlyDifferences, &QCheckBox::toggled, this, [this] { filter(); });

  auto* const buttons = new QDialogButtonBox;
  mAgain = buttons->addButton(mTexts.say("Compare again"), QDialogButtonBox::ActionRole);
  mRead = buttons->addButton(mTexts.say("Read ticked into data set"), QDialogButtonBox::ActionRole);
  mWrite = buttons->addButton(mTexts.say("Write ticked to device"), QDialogButtonBox::ActionRole);
  QPushButton* const close = buttons->addButton(mTexts.say("Close"), QDialogButtonBox::RejectRole);
  for (QPushButton* const each : {mAgain, mRead, mWrite}) each->setAutoDefault(false);
  connect(mAgain, &QPushButton::clicked, this, [this] { begin(); });
  connect(mRead, &QPushButton::clicked, this, [this] { readTicked(); });
  connect(mWrite, &QPushButton::clicked, this, [this] { writeTicked(); });
  connect(close, &QPushButton::clicked, this, &QDialog::close);

  auto* const top = new QHBoxLayout;
  top->addWidget(mNote, 1);
  top->addWidget(mOnlyDifferences);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addLayout(top);
  layout->addWidget(mProgress);
  layout->addWidget(mTable, 1);
  layout->addWidget(buttons);
  mTable->setFocus();
  resize(860, 560);
  mHost.observers().add(*this);
}

CompareDialog::~CompareDialog() { mHost.observers().remove(*this); }

void CompareDialog::begin() {
  mRunning = true;
  mTable->setRowCount(0);
  show();
  raise();
  mHost.comparison().start([this, alive = std::weak_ptr(mAlive)] {
    if (alive.expired()) return;
    mRunning = false;
    fill();
    refreshProgress();
  });
  refreshProgress();
}

void CompareDialog::refreshProgress() {
  const Transfer& transfer = mHost.comparison().transfer();
  mProgress->setVisible(mRunning);
  mProgress->setRange(0, std::max(1, transfer.total()));
  mProgress->setValue(transfer.done());
  for (QPushButton* const each : {mAgain, mRead, mWrite}) each->setEnabled(!mRunning);
  if (mRunning) mNote->setText(mTexts.say("Asking the device: %1 of %2 requests").arg(transfer.done()).arg(transfer.total()));
}

QString CompareDialog::shown(const Comparison::Row& row, const std::string& value) const {
  DataSet* const dataSet = mHost.dataSet();
  if (!dataSet || value.empty()) return {};
  const ParameterInfo info = dataSet->info(row.parameter);
  if (const Node choices = mapping(dataSet->document(), row.parameter))
    for (Node choice = choices.firstChild(); choice; choice = choice.nextSibling())
      if (choice.findAttribute("value").value_or("") == value) return mTexts(std::string(choice.findAttribute("key").value_or("")));
  std::string text = value;
  if (const auto number = info.isFloat() ? parseNumber(value, '.') : std::nullopt) text = fixedText(*number, info.decimals.value_or(2), mHost.desktop().locale().decimalSeparator);
  const QString unit = mTexts.unit(row.unit);
  return unit.isEmpty() ? qt(text) : QStringLiteral("%1 %2").arg(qt(text), unit);
}

QString CompareDialog::difference(const Comparison::Row& row) const {
  if (!row.errorCode.empty()) return mTexts(row.errorCode);
  if (row.same) return QStringLiteral("–");
  const ParameterInfo info = mHost.dataSet()->info(row.parameter);
  const int decimals = info.decimals.value_or(2);
  // Of the numbers as they are shown, so that the row adds up.
  const auto asShown = [&](const std::string& text) {
    const auto number = parseNumber(text, '.');
    return number ? parseNumber(fixedText(*number, decimals, '.'), '.') : number;
  };
  const auto ours = asShown(row.dataSet), theirs = asShown(row.device);
  if (!info.isFloat() || !ours || !theirs) return mTexts.say("differs");
  return qt((*theirs > *ours ? "+" : "") + fixedText(*theirs - *ours, decimals, mHost.desktop().locale().decimalSeparator));
}

void CompareDialog::fill() {
  const std::vector<Comparison::Row>& rows = mHost.comparison().rows();
  mTable->setRowCount(static_cast<int>(rows.size()));
  int differences = 0, failures = 0;
  for (int i = 0; i < mTable->rowCount(); ++i) {
    const Comparison::Row& row = rows[static_cast<std::size_t>(i)];
    QTableWidgetItem* const name = cell(mTexts(row.parameter));
    name->setFlags(name->flags() | Qt::ItemIsUserCheckable);
    name->setCheckState(Qt::Unchecked);
    name->setData(kParameterRole, qt(row.parameter));
    name->setData(kSameRole, row.same);
    name->setToolTip(qt(row.parameter));
    mTable->setItem(i, Value, name);
    mTable->setItem(i, DataSetSays, cell(shown(row, row.dataSet)));
    mTable->setItem(i, DeviceSays, cell(shown(row, row.device)));
    mTable->setItem(i, Difference, cell(difference(row)));
    failures += !row.errorCode.empty();
    differences += row.errorCode.empty() && !row.same;
  }
  QString note = differences == 0 ? mTexts.say("%1 values compared, none differs").arg(rows.size()) : mTexts.say("%1 values compared, %2 differ").arg(rows.size()).arg(differences);
  if (failures > 0) note += QStringLiteral(", ") + mTexts.say("%1 could not be read").arg(failures);
  mNote->setText(note);
  filter();
}

void CompareDialog::filter() {
  for (int i = 0; i < mTable->rowCount(); ++i) mTable->setRowHidden(i, mOnlyDifferences->isChecked() && mTable->item(i, Value)->data(kSameRole).toBool());
}

void CompareDialog::showOnlyDifferences(bool on) { mOnlyDifferences->setChecked(on); }

void CompareDialog::tick(const std::string& parameter, bool on) {
  for (int i = 0; i < mTable->rowCount(); ++i)
    if (mTable->item(i, Value)->data(kParameterRole).toString() == qt(parameter)) mTable->item(i, Value)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
}

std::vector<std::string> CompareDialog::ticked() const {
  std::vector<std::string> names;
  for (int i = 0; i < mTable->rowCount(); ++i)
    if (mTable->item(i, Value)->checkState() == Qt::Checked) names.push_back(mTable->item(i, Value)->data(kParameterRole).toString().toStdString());
  return names;
}

void CompareDialog::readTicked() {
  if (const auto names = ticked(); !names.empty()) mHost.readParameters(names, [this, alive = std::weak_ptr(mAlive)] {
      if (!alive.expired()) begin();
    });
}

void CompareDialog::writeTicked() {
  if (const auto names = ticked(); !names.empty()) mHost.writeParameters(names, [this, alive = std::weak_ptr(mAlive)] {
      if (!alive.expired()) begin();
    });
}

}  // namespace ostrand
