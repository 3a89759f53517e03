#pragma once

#include "workbench/dialogs/DeviceDialog.h"
#include "workbench/render/Theme.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace ostrand {

// What is wrong with the simulated device, and how fast it is.
class FaultsDialog : public DeviceDialog {
 public:
  FaultsDialog(Workbench& workbench, const Theme& theme, QWidget* parent);

  // RuntimeError 5 for an argument that cannot be used.
  void set(const std::string& fault, const std::string& argument);

 private:
  void describe();
  void setChosen();

  QComboBox* mFault;
  QLineEdit* mArgument;
  QLabel* mDescription;
  QLabel* mInForce;
  QStringList mSet;
};

}  // namespace ostrand
