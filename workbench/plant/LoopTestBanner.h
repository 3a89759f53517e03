#pragma once

#include <QLabel>

#include "workbench/plant/PlantDevice.h"
#include "workbench/render/Theme.h"
#include "workbench/words/Texts.h"

namespace ostrand {

// Warns while a loop test may still drive a device's output, also while another device or nothing of it is shown.
class LoopTestBanner : public QLabel {
 public:
  // The device must outlive it.
  explicit LoopTestBanner(PlantDevice& device);
  ~LoopTestBanner() override;

  void setTexts(const Texts& texts);
  void refresh();

 private:
  PlantDevice& mDevice;
  Signal<>::Id mListening;
  Texts mTexts;
};

}  // namespace ostrand
