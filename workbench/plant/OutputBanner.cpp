#include "workbench/plant/OutputBanner.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include "workbench/words/Spoken.h"

namespace ostrand {

namespace {

constexpr std::pair<OutputKind, const char*> kWarnings[] = {
    {OutputKind::LoopTest,
     "%1: a loop test may still drive the output. Keep the control loop out of automatic control until the test has been stopped."},
    {OutputKind::Simulation,
     "%1: the output may be simulated. Keep the control loop out of automatic control until the simulation has been switched off."},
    {OutputKind::Trim, "%1: a trim may still hold the output. Keep the control loop out of automatic control until it has been freed."},
};

}  // namespace

OutputBanner::OutputBanner(PlantDevice& device)
    : mDevice(device),
      mListening(device.outputs().changed.connect([this] { refresh(); })),
      mText(new QLabel),
      mFree(new QPushButton),
      mStop(new QPushButton) {
  setAttribute(Qt::WA_StyledBackground);
  setProperty("role", QStringLiteral("banner"));
  mText->setWordWrap(true);
  mText->setTextFormat(Qt::PlainText);
  speak(*mText, "accessibleName", "Warning");
  speak(*mFree, "text", "Free the output");
  speak(*mFree, "toolTip", "Sends to the device what ends it; no page needs to be open");
  speak(*mStop, "text", "Stop the sample");
  QObject::connect(mFree, &QPushButton::clicked, this, [this] { free(); });
  QObject::connect(mStop, &QPushButton::clicked, this, [this] { stop(); });
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(16, 6, 16, 6);
  layout->setSpacing(12);
  layout->addWidget(mText, 1);
  layout->addWidget(mFree);
  layout->addWidget(mStop);
  hide();
}

OutputBanner::~OutputBanner() { mDevice.outputs().changed.disconnect(mListening); }

void OutputBanner::setTexts(const Texts& texts) {
  mTexts = texts;
  refresh();
}

QString OutputBanner::text() const { return mText->text(); }

void OutputBanner::free() {
  mDevice.outputs().freeOutput([banner = QPointer(this)](bool freed) {
    if (!banner) return;
    banner->mTried = !freed;
    banner->refresh();
  });
}

void OutputBanner::stop() {
  mDevice.outputs().stopSampling([banner = QPointer(this)](bool stopped) {
    if (!banner) return;
    banner->mTried = !stopped;
    banner->refresh();
  });
}

QString OutputBanner::warning() const {
  QStringList sentences;
  for (const auto& [kind, sentence] : kWarnings)
    if (mDevice.outputs().mayBeForced(kind)) sentences << mTexts.say(sentence).arg(qt(mDevice.title()));
  if (mDevice.outputs().sampling()) sentences << mTexts.say("%1: a sample may be running.").arg(qt(mDevice.title()));
  if (!mDevice.host().communication().device())
    sentences << mTexts.say("The device is not connected.");
  else if (!mDevice.status().answers())
    sentences << mTexts.say("The device does not answer.");
  else if (mTried)
    sentences << mTexts.say("The device has not confirmed that it has ended.");
  return QStringLiteral("⚠  ") + sentences.join(QLatin1Char(' '));
}

void OutputBanner::refresh() {
  const bool forced = mDevice.outputs().mayBeForced(), sampling = mDevice.outputs().sampling();
  if (!forced && !sampling) mTried = false;
  if (forced || sampling) {
    if (const QString text = warning(); mText->text() != text) mText->setText(text);
    mFree->setVisible(forced);
    mStop->setVisible(sampling);
  }
  if (isHidden() == (forced || sampling)) setVisible(forced || sampling);
}

}  // namespace ostrand
