#include "workbench/dialogs/FaultsDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/base/RuntimeError.h"
#include "simulator/Device.h"
#include "workbench/render/ComboEditRenderer.h"

namespace ostrand {

namespace {

QString view(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

constexpr std::pair<const char*, const char*> kSpeeds[] = {
    {"As on the bus", "1"}, {"Ten times faster", "0.1"}, {"Hundred times faster", "0.01"}, {"Three times slower", "3"}, {"Ten times slower", "10"}};

}  // namespace

FaultsDialog::FaultsDialog(Workbench& workbench, const Theme& theme, QWidget* parent)
    : DeviceDialog(workbench, "Simulated device", parent),
      mFault(new ChoiceBox(theme, this)),
      mArgument(new QLineEdit),
      mDescription(new QLabel),
      mInForce(new QLabel(texts().say("none"))) {
  for (const FaultKind& fault : Device::faults())
    if (fault.name != "slow") mFault->addItem(view(fault.name));
  mDescription->setProperty("role", QStringLiteral("note"));
  mDescription->setWordWrap(true);
  mInForce->setWordWrap(true);
  auto* const speed = new ChoiceBox(theme, this);
  for (const auto& [text, factor] : kSpeeds) speed->addItem(texts().say(text), QString::fromLatin1(factor));
  connect(mFault, &QComboBox::currentIndexChanged, this, [this] { describe(); });
  connect(speed, &QComboBox::activated, this, [this, speed] { set("slow", speed->currentData().toString().toStdString()); });

  auto* const form = new QFormLayout;
  form->setHorizontalSpacing(16);
  form->setVerticalSpacing(10);
  form->addRow(texts().say("Speed"), speed);
  form->addRow(texts().say("Fault"), mFault);
  form->addRow(QString(), mDescription);
  form->addRow(texts().say("Argument"), mArgument);
  form->addRow(texts().say("In force"), mInForce);
  auto* const buttons = new QDialogButtonBox;
  QPushButton* const setButton = buttons->addButton(texts().say("Set"), QDialogButtonBox::ActionRole);
  QPushButton* const end = buttons->addButton(texts().say("End all faults"), QDialogButtonBox::ActionRole);
  QPushButton* const close = buttons->addButton(texts().say("Close"), QDialogButtonBox::RejectRole);
  connect(setButton, &QPushButton::clicked, this, [this] { setChosen(); });
  connect(end, &QPushButton::clicked, this, [this, speed] {
    set("none", {});
    speed->setCurrentIndex(0);
  });
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  column().addLayout(form);
  column().addStretch(1);
  column().addWidget(buttons);
  openAs(480, 320);
  describe();
}

void FaultsDialog::describe() {
  for (const FaultKind& fault : Device::faults()) {
    if (view(fault.name) != mFault->currentText()) continue;
    mDescription->setText(view(fault.description));
    mArgument->setPlaceholderText(view(fault.argument));
    mArgument->setEnabled(!fault.argument.empty());
    if (fault.argument.empty()) mArgument->clear();
  }
}

void FaultsDialog::set(const std::string& fault, const std::string& argument) {
  Device* const device = host().communication().device();
  if (!device) throwNothingThere("the device");
  device->setFault(fault, argument);
  if (fault == "none")
    mSet.clear();
  else
    mSet << qt(argument.empty() ? fault : fault + " " + argument);
  mInForce->setText(mSet.isEmpty() ? texts().say("none") : mSet.join(QStringLiteral(", ")));
}

void FaultsDialog::setChosen() {
  try {
    set(mFault->currentText().toStdString(), mArgument->text().toStdString());
  } catch (const RuntimeError& error) {
    mInForce->setText(texts().say("Not set: %1").arg(qt(error.description())));
  }
}

}  // namespace ostrand
