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
#include "workbench/words/Texts.h"

namespace ostrand {

namespace {

QString view(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

constexpr std::pair<const char*, const char*> kSpeeds[] = {{"As on the bus", "1"}, {"Ten times faster", "0.1"}, {"Hundred times faster", "0.01"}, {"Three times slower", "3"}, {"Ten times slower", "10"}};

}  // namespace

FaultsDialog::FaultsDialog(Host& host, const Theme& theme, const Texts& texts, QWidget* parent)
    : QDialog(parent), mHost(host), mTexts(texts), mFault(new ChoiceBox(theme, this)), mArgument(new QLineEdit), mDescription(new QLabel), mInForce(new QLabel(mTexts.say("none"))) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(mTexts.say("Simulated device"));
  for (const FaultKind& fault : Device::faults())
    if (fault.name != "slow") mFault->addItem(view(fault.name));
  mDescription->setProperty("role", QStringLiteral("note"));
  mDescription->setWordWrap(true);
  mInForce->setWordWrap(true);
  auto* const speed = new ChoiceBox(theme, this);
  for (const auto& [text, factor] : kSpeeds) speed->addItem(mTexts.say(text), QString::fromLatin1(factor));
  connect(mFault, &QComboBox::currentIndexChanged, this, [this] { describe(); });
  connect(speed, &QComboBox::activated, this, [this, speed] { set("slow", speed->currentData().toString().toStdString()); });

  auto* const form = new QFormLayout;
  form->setHorizontalSpacing(16);
  form->setVerticalSpacing(10);
  form->addRow(mTexts.say("Speed"), speed);
  form->addRow(mTexts.say("Fault"), mFault);
  form->addRow(QString(), mDescription);
  form->addRow(mTexts.say("Argument"), mArgument);
  form->addRow(mTexts.say("In force"), mInForce);
  auto* const buttons = new QDialogButtonBox;
  QPushButton* const setButton = buttons->addButton(mTexts.say("Set"), QDialogButtonBox::ActionRole);
  QPushButton* const end = buttons->addButton(mTexts.say("End all faults"), QDialogButtonBox::ActionRole);
  QPushButton* const close = buttons->addButton(mTexts.say("Close"), QDialogButtonBox::RejectRole);
  connect(setButton, &QPushButton::clicked, this, [this] { setChosen(); });
  connect(end, &QPushButton::clicked, this, [this, speed] {
    set("none", {});
    speed->setCurrentIndex(0);
  });
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(16);
  layout->addLayout(form);
  layout->addStretch(1);
  layout->addWidget(buttons);
  resize(480, 320);
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
  Device* const device = mHost.communication().device();
  if (!device) throwNothingThere("the device");
  device->setFault(fault, argument);
  if (fault == "none") mSet.clear();
  else mSet << qt(argument.empty() ? fault : fault + " " + argument);
  mInForce->setText(mSet.isEmpty() ? mTexts.say("none") : mSet.join(QStringLiteral(", ")));
}

void FaultsDialog::setChosen() {
  try {
    set(mFault->currentText().toStdString(), mArgument->text().toStdString());
  } catch (const RuntimeError& error) {
    mInForce->setText(mTexts.say("Not set: %1").arg(qt(error.description())));
  }
}

}  // namespace ostrand
