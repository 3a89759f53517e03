#include "workbench/plant/LoopTestBanner.h"

#include "workbench/words/Spoken.h"

namespace ostrand {

LoopTestBanner::LoopTestBanner(PlantDevice& device) : mDevice(device), mListening(device.outputs().changed.connect([this] { refresh(); })) {
  setProperty("role", QStringLiteral("banner"));
  setWordWrap(true);
  setTextFormat(Qt::PlainText);
  speak(*this, "accessibleName", "Loop test");
  hide();
}

LoopTestBanner::~LoopTestBanner() { mDevice.outputs().changed.disconnect(mListening); }

void LoopTestBanner::setTexts(const Texts& texts) {
  mTexts = texts;
  refresh();
}

void LoopTestBanner::refresh() {
  const bool driving = mDevice.outputs().mayBeForced();
  if (driving) {
    QString text = QStringLiteral("⚠  ") +
                   mTexts.say("%1: a loop test may still drive the output. Keep the control loop out of automatic control until the test has been stopped.").arg(qt(mDevice.title()));
    if (!mDevice.host().communication().device())
      text += QLatin1Char(' ') + mTexts.say("The device is not connected.");
    else if (!mDevice.status().answers())
      text += QLatin1Char(' ') + mTexts.say("The device does not answer.");
    if (this->text() != text) setText(text);
  }
  if (isHidden() == driving) setVisible(driving);
}

}  // namespace ostrand
