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

#include "host/ActingValues.h"
#include "platform/base/NumberText.h"
#include "workbench/plant/ValueText.h"

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

CompareDialog::CompareDialog(Workbench& workbench, QWidget* parent)
    : DeviceDialog(workbench, "Data set and device", parent),
      mNote(new QLabel),
      mProgress(new QProgressBar),
      mTable(new QTableWidget),
      mOnlyDifferences(new QCheckBox(texts().say("Only differences"))) {
  mProgress->setTextVisible(false);
  mTable->setColumnCount(kColumns);
  mTable->setHorizontalHeaderLabels({texts().say("Value"), texts().say("Data set"), texts().say("Device"), texts().say("Difference")});
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
  mAgain = buttons->addButton(texts().say("Compare again"), QDialogButtonBox::ActionRole);
  mRead = buttons->addButton(texts().say("Read ticked into data set"), QDialogButtonBox::ActionRole);
  mWrite = buttons->addButton(texts().say("Write ticked to device"), QDialogButtonBox::ActionRole);
  QPushButton* const close = buttons->addButton(texts().say("Close"), QDialogButtonBox::RejectRole);
  for (QPushButton* const each : {mAgain, mRead, mWrite}) each->setAutoDefault(false);
  connect(mAgain, &QPushButton::clicked, this, [this] { begin(); });
  connect(mRead, &QPushButton::clicked, this, [this] { readTicked(); });
  connect(mWrite, &QPushButton::clicked, this, [this] { writeTicked(); });
  connect(close, &QPushButton::clicked, this, &QDialog::close);

  auto* const top = new QHBoxLayout;
  top->addWidget(mNote, 1);
  top->addWidget(mOnlyDifferences);
  mNote->setWordWrap(true);
  column().addLayout(top);
  column().addWidget(mProgress);
  column().addWidget(mTable, 1);
  column().addWidget(buttons);
  mTable->setFocus();
  openAs(860, 560);
  host().observers().add(*this);
}

CompareDialog::~CompareDialog() { host().observers().remove(*this); }

void CompareDialog::begin() {
  mRunning = true;
  mTable->setRowCount(0);
  show();
  raise();
  host().exchange().comparison().start([this, alive = std::weak_ptr(mAlive)] {
    if (alive.expired()) return;
    mRunning = false;
    fill();
    refreshProgress();
  });
  refreshProgress();
}

void CompareDialog::refreshProgress() {
  const Transfer& transfer = host().exchange().comparison().transfer();
  mProgress->setVisible(mRunning);
  mProgress->setRange(0, std::max(1, transfer.total()));
  mProgress->setValue(transfer.done());
  const QString why = whyNoWriting();
  for (QPushButton* const each : {mAgain, mRead}) each->setEnabled(!mRunning);
  mWrite->setEnabled(!mRunning && why.isEmpty());
  mWrite->setToolTip(why);
  if (mRunning) mNote->setText(texts().say("Asking the device: %1 of %2 requests").arg(transfer.done()).arg(transfer.total()));
}

QString CompareDialog::shown(const Comparison::Row& row, const std::string& value) const {
  return withUnit(valueText(host(), texts(), row.parameter, value), texts().unit(row.unit));
}

QString CompareDialog::difference(const Comparison::Row& row) const {
  if (!row.errorCode.empty()) return texts()(row.errorCode);
  if (row.same) return QStringLiteral("–");
  const ParameterInfo info = host().dataSet()->info(row.parameter);
  const int decimals = info.decimals.value_or(2);
  // Of the numbers as they are shown, so that the row adds up.
  const auto asShown = [&](const std::string& text) {
    const auto number = parseNumber(text, '.');
    return number ? parseNumber(fixedText(*number, decimals, '.'), '.') : number;
  };
  const auto ours = asShown(row.dataSet), theirs = asShown(row.device);
  if (!info.isFloat() || !ours || !theirs) return texts().say("differs");
  return qt((*theirs > *ours ? "+" : "") + fixedText(*theirs - *ours, decimals, host().desktop().locale().decimalSeparator));
}

void CompareDialog::fill() {
  const std::vector<Comparison::Row>& rows = host().exchange().comparison().rows();
  mTable->setRowCount(static_cast<int>(rows.size()));
  int differences = 0, failures = 0;
  for (int i = 0; i < mTable->rowCount(); ++i) {
    const Comparison::Row& row = rows[static_cast<std::size_t>(i)];
    QTableWidgetItem* const name = cell(texts()(row.parameter));
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
  QString note = differences == 0 ? texts().say("%1 values compared, none differs").arg(rows.size())
                                  : texts().say("%1 values compared, %2 differ").arg(rows.size()).arg(differences);
  if (failures > 0) note += QStringLiteral(", ") + texts().say("%1 could not be read").arg(failures);
  if (!mLeftOut.isEmpty())
    note += QStringLiteral(". ") + texts().say("Left out, since the device acts on it: %1").arg(mLeftOut.join(QStringLiteral(", ")));
  mNote->setText(note);
  filter();
}

void CompareDialog::filter() {
  for (int i = 0; i < mTable->rowCount(); ++i)
    mTable->setRowHidden(i, mOnlyDifferences->isChecked() && mTable->item(i, Value)->data(kSameRole).toBool());
}

void CompareDialog::showOnlyDifferences(bool on) { mOnlyDifferences->setChecked(on); }

void CompareDialog::tick(const std::string& parameter, bool on) {
  for (int i = 0; i < mTable->rowCount(); ++i)
    if (mTable->item(i, Value)->data(kParameterRole).toString() == qt(parameter))
      mTable->item(i, Value)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
}

std::vector<std::string> CompareDialog::ticked() const {
  std::vector<std::string> names;
  for (int i = 0; i < mTable->rowCount(); ++i)
    if (mTable->item(i, Value)->checkState() == Qt::Checked) names.push_back(mTable->item(i, Value)->data(kParameterRole).toString().toStdString());
  return names;
}

void CompareDialog::readTicked() {
  if (const auto names = ticked(); !names.empty())
    host().exchange().readParameters(names, [this, alive = std::weak_ptr(mAlive)] {
      if (!alive.expired()) begin();
    });
}

void CompareDialog::writeTicked() {
  if (!whyNoWriting().isEmpty()) return;
  // What makes the device act leaves by its own page alone.
  std::vector<std::string> names = ticked();
  mLeftOut.clear();
  std::erase_if(names, [this](const std::string& name) {
    if (actsOf(host().dataSet(), name) == Acts::No) return false;
    mLeftOut << texts()(name);
    return true;
  });
  if (names.empty())
    fill();
  else
    host().exchange().writeParameters(names, [this, alive = std::weak_ptr(mAlive)] {
      if (!alive.expired()) begin();
    });
}

}  // namespace ostrand
