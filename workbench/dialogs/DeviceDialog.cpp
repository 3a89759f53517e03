#include "workbench/dialogs/DeviceDialog.h"

#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace ostrand {

DeviceDialog::DeviceDialog(Workbench& workbench, const char* title, QWidget* parent)
    : QDialog(parent), mWorkbench(workbench), mDevice(workbench.current()), mTexts(workbench.texts()), mColumn(new QVBoxLayout(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  const QString tag = qt(mDevice.title());
  setWindowTitle(QStringLiteral("%1 – %2").arg(mTexts.say(title), tag));
  const QString description = qt(host().dataSet() ? host().dataSet()->current("description") : std::string());
  auto* const first = new QLabel(description.isEmpty() ? tag : QStringLiteral("%1 – %2").arg(tag, description));
  first->setProperty("role", QStringLiteral("heading"));
  first->setTextFormat(Qt::PlainText);
  mColumn->setContentsMargins(16, 16, 16, 16);
  mColumn->setSpacing(12);
  mColumn->addWidget(first);
  mDeviceChanged = mWorkbench.deviceChanged.connect([this] {
    if (&mWorkbench.current() != &mDevice) close();
  });
  mSettingsChanged = mWorkbench.settingsChanged.connect([this] { settingsChanged(); });
}

DeviceDialog::~DeviceDialog() {
  mWorkbench.deviceChanged.disconnect(mDeviceChanged);
  mWorkbench.settingsChanged.disconnect(mSettingsChanged);
}

void DeviceDialog::openAs(int width, int height) {
  const QSize wanted = QSizeF(QSizeF(width, height) * mWorkbench.settings().scale).toSize();
  resize(screen() ? wanted.boundedTo(screen()->availableSize()) : wanted);
}

QString DeviceDialog::whyNoWriting() const {
  return mDevice.host().user().session().level < 3 ? mTexts.say("Needs user level 3 or more") : QString();
}

}  // namespace ostrand
