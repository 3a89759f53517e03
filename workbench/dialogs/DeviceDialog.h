#pragma once

#include <QDialog>

#include "workbench/plant/Workbench.h"

class QLabel;
class QVBoxLayout;

namespace ostrand {

// A dialog that reads or writes one device. Its title and its first line say which, and it closes when the user goes to
// another one, so that it never works on a device that stands nowhere else on the screen.
class DeviceDialog : public QDialog {
 public:
  // The device that is looked at. `title` is one of the window's own words.
  DeviceDialog(Workbench& workbench, const char* title, QWidget* parent);
  ~DeviceDialog() override;

 protected:
  Workbench& workbench() const { return mWorkbench; }
  PlantDevice& device() const { return mDevice; }
  Host& host() const { return mDevice.host(); }
  const Texts& texts() const { return mTexts; }
  // What stands below the first line.
  QVBoxLayout& column() const { return *mColumn; }
  // As large as this at scale 1, as far as the screen allows.
  void openAs(int width, int height);
  // Why this user may not write; empty if he may.
  QString whyNoWriting() const;
  // The user's settings have changed, his level among them.
  virtual void settingsChanged() {}

 private:
  Workbench& mWorkbench;
  PlantDevice& mDevice;
  Texts mTexts;
  QVBoxLayout* mColumn;
  Signal<>::Id mDeviceChanged;
  Signal<>::Id mSettingsChanged;
};

}  // namespace ostrand
