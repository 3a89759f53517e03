#include "workbench/plant/HeaderBar.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/base/RuntimeError.h"
#include "workbench/plant/DevicePicture.h"
#include "workbench/plant/ElidedLabel.h"
#include "workbench/plant/SignalSymbol.h"
#include "workbench/plant/ValueText.h"
#include "workbench/words/Spoken.h"

namespace ostrand {

namespace {

constexpr int kPictureHeight = 56;
constexpr int kLogoHeight = 24;
constexpr int kSymbolSize = 34;

QLabel* with(QLabel* label, const char* role) {
  label->setProperty("role", QString::fromLatin1(role));
  return label;
}

// Texts of any length may be cut.
QLabel* cuttable(const char* role) { return with(new ElidedLabel, role); }
QLabel* whole(const char* role) { return with(new QLabel, role); }

}  // namespace

HeaderBar::HeaderBar(QWidget* parent)
    : QWidget(parent),
      mPicture(new QLabel),
      mLogoLabel(new QLabel),
      mTag(whole("title")),
      mDescription(cuttable("note")),
      mFacts(new QGridLayout),
      mSymbol(new QLabel),
      mLetter(whole("letter")),
      mWord(whole("strong")) {
  setObjectName(QStringLiteral("header"));
  mFacts->setHorizontalSpacing(28);
  mFacts->setVerticalSpacing(2);
  mType = addFact(0, cuttable("strong"));
  mSerial = addFact(1, whole("strong"));
  mBus = addFact(2, whole("strong"));
  mConnection = addFact(3, whole("strong"));

  auto* const name = new QVBoxLayout;
  name->setSpacing(2);
  name->addWidget(mTag);
  name->addWidget(mDescription);

  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(16, 10, 20, 10);
  layout->setSpacing(16);
  layout->addWidget(mPicture);
  layout->addLayout(name);
  layout->addSpacing(16);
  layout->addLayout(mFacts);
  layout->addStretch(1);
  layout->addWidget(mLogoLabel);
  layout->addWidget(mSymbol);
  layout->addWidget(mLetter);
  layout->addWidget(mWord);
  speak(*mSymbol, "accessibleName", "Device state");
}

HeaderBar::Fact HeaderBar::addFact(int column, QLabel* value) {
  const Fact fact{whole("note"), value};
  mFacts->addWidget(fact.name, 0, column);
  mFacts->addWidget(fact.value, 1, column);
  return fact;
}

void HeaderBar::setTheme(const Theme& theme) {
  mTheme = theme;
  mTag->setFont(theme.font(Theme::Text::Title));
  mLetter->setFont(theme.font(Theme::Text::Title));
  for (QLabel* const strong : {mType.value, mSerial.value, mBus.value, mConnection.value, mWord}) strong->setFont(theme.font(Theme::Text::Strong));
  for (QLabel* const small : {mType.name, mSerial.name, mBus.name, mConnection.name}) small->setFont(theme.font(Theme::Text::Small));
  showPictures();
  fit();
}

void HeaderBar::setTexts(const Texts& texts) {
  mTexts = texts;
  refresh();
}

void HeaderBar::setPriorities(const std::vector<Ne107>& priorities) {
  mPriorities = priorities;
  refresh();
}

void HeaderBar::setDevice(PlantDevice* device, ComponentCatalog& components, Desktop& desktop) {
  mDevice = device;
  mImage = mLogo = {};
  if (device) {
    try {
      const std::string pictures(device->classes().pictures());
      if (components.has(pictures)) {
        const Ref<IObject> object = components.create(pictures);
        if (const Ref<IPlaceable> placeable = query<IPlaceable>(object.get())) placeable->Place(desktop, nullptr, {});
        if (const Ref<ITaviDeviceSpecific> specific = query<ITaviDeviceSpecific>(object.get())) {
          mImage = specific->GetDeviceImage({});
          mLogo = specific->GetDeviceLogo({});
        }
        if (const Ref<IPlaceable> placeable = query<IPlaceable>(object.get())) placeable->Terminate();
      }
    } catch (const RuntimeError&) {
      // The placeholder serves as well.
    }
  }
  showPictures();
  refresh();
}

void HeaderBar::showPictures() {
  mPicture->setPixmap(devicePixmap(mImage, mTheme, mTheme.px(kPictureHeight), devicePixelRatioF()));
  const QPixmap logo = logoPixmap(mLogo, mTheme.px(kLogoHeight), devicePixelRatioF());
  mLogoLabel->setPixmap(logo);
  mLogoLabel->setVisible(!logo.isNull());
  mSymbol->setPixmap(signalSymbol(mShown, mTheme.px(kSymbolSize), devicePixelRatioF()));
}

QSize HeaderBar::minimumSizeHint() const { return {mTheme.px(400), layout()->minimumSize().height()}; }

void HeaderBar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fit();
}

// What there is no room for goes whole: first what stands on the pages as well. The state stays.
void HeaderBar::fit() {
  QStringList shown{QString::number(width()), mTag->font().toString()};
  for (const QLabel* const each : findChildren<QLabel*>()) shown << each->text();
  if (std::exchange(mFitted, shown) == shown) return;
  const std::vector<QLabel*> dispensable[] = {
      {mSerial.name, mSerial.value}, {mType.name, mType.value}, {mBus.name, mBus.value}, {mConnection.name, mConnection.value}, {mDescription}};
  for (const std::vector<QLabel*>& labels : dispensable)
    for (QLabel* const label : labels) label->show();
  for (const std::vector<QLabel*>& labels : dispensable) {
    // The layout learns from its parts, one inside the other, what has been hidden.
    mFacts->invalidate();
    layout()->invalidate();
    // The serial number is not worth a cut text.
    const bool isFirst = labels.front() == mSerial.name;
    if ((isFirst ? layout()->sizeHint() : layout()->minimumSize()).width() <= width()) break;
    for (QLabel* const label : labels) label->hide();
  }
  mFacts->invalidate();
  layout()->activate();
}

void HeaderBar::show(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

QString HeaderBar::connection() const {
  Communication& communication = mDevice->host().communication();
  if (!communication.device()) return mTexts.say("Not connected");
  if (communication.isBusy()) return mTexts.say("Busy");
  if (communication.isLocal()) return mTexts.say("Offline, local values");
  return mDevice->status().answers() ? mTexts.say("Online") : mTexts.say("No answer");
}

void HeaderBar::refresh() {
  setVisible(mDevice != nullptr);
  if (!mDevice) return;
  DataSet& dataSet = *mDevice->host().dataSet();
  show(*mTag, qt(mDevice->title()));
  show(*mDescription, qt(dataSet.current("description")));
  show(*mType.name, mTexts("deviceType"));
  show(*mType.value, valueText(mDevice->host(), mTexts, "deviceType", dataSet.current("deviceType")));
  show(*mSerial.name, mTexts("sensorSerialNumber"));
  show(*mSerial.value, qt(dataSet.current("sensorSerialNumber")));
  show(*mBus.name, mTexts.say("Bus"));
  const std::string bus = dataSet.busCategory();
  show(*mBus.value, bus == "DPV1" ? QStringLiteral("PROFIBUS PA") : qt(bus));
  show(*mConnection.name, mTexts.say("Connection"));
  show(*mConnection.value, connection());

  const DeviceSignal state = mDevice->status().state(mPriorities);
  const QString word = signalWord(state, mTexts);
  show(*mLetter, signalLetter(state));
  mLetter->setVisible(!mLetter->text().isEmpty());
  show(*mWord, word);
  if (state != mShown) {
    mShown = state;
    mSymbol->setPixmap(signalSymbol(state, mTheme.px(kSymbolSize), devicePixelRatioF()));
  }
  QStringList causes;
  for (const auto& [name, signal] : mDevice->status().inForce()) causes << QStringLiteral("%1  %2").arg(signalLetter(signal), mTexts(name));
  const QString hint = causes.isEmpty() ? word : causes.join(QLatin1Char('\n'));
  mSymbol->setToolTip(hint);
  mWord->setToolTip(hint);
  fit();
}

}  // namespace ostrand
