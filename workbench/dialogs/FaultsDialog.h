#pragma once

#include <QDialog>

#include "host/Host.h"
#include "workbench/render/Theme.h"
#include "workbench/words/Texts.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace ostrand {

// What is wrong with the simulated device, and how fast it is.
class FaultsDialog : public QDialog {
 public:
  FaultsDialog(Host& host, const Theme& theme, const Texts& texts, QWidget* parent);

  // RuntimeError 5 for an argument that cannot be used.
  void set(const std::string& fault, const std::string& argument);

 private:
  void describe();
  void setChosen();

  Host& mHost;
  Texts mTexts;
  QComboBox* mFault;
  QLineEdit* mArgument;
  QLabel* mDescription;
  QLabel* mInForce;
  QStringList mSet;
};

}  // namespace ostrand
