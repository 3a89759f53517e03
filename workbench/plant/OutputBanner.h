#pragma once

#include <QWidget>

#include "workbench/plant/PlantDevice.h"
#include "workbench/words/Texts.h"

class QLabel;
class QPushButton;

namespace ostrand {

// Warns while an output of a device may be forced, or a sample may be running, whichever page of whichever device is shown, and
// offers the way out of it: by the host itself, since the view from which it began may be gone.
class OutputBanner : public QWidget {
 public:
  // The device must outlive it.
  explicit OutputBanner(PlantDevice& device);
  ~OutputBanner() override;

  void setTexts(const Texts& texts);
  void refresh();
  QString text() const;
  QPushButton& freeButton() const { return *mFree; }
  QPushButton& stopButton() const { return *mStop; }

 private:
  QString warning() const;
  void free();
  void stop();

  PlantDevice& mDevice;
  Signal<>::Id mListening;
  Texts mTexts;
  QLabel* mText;
  QPushButton* mFree;
  QPushButton* mStop;
  bool mTried = false;  // to free or stop it, and the device has not confirmed it
};

}  // namespace ostrand
