#include "workbench/window/HeaderBar.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/base/RuntimeError.h"
#include "platform/xml/Vocabulary.h"
#include "workbench/window/DevicePicture.h"
#include "workbench/window/ElidedLabel.h"

namespace ostrand {

namespace {

constexpr int kPictureHeight = 56;
constexpr int kLogoHeight = 24;
constexpr int kSymbolSize = 34;

QLabel* with(QLabel* label, const char* role) {
  label->setProperty("role", QString::fromLatin1(role));
  return label;
}

// In a narrow window the texts are cut, and the tree keeps its place.
QLabel* text(const char* role) { return with(new ElidedLabel, role); }

// A coded value as its choice is called.
QString valueText(DataSet& dataSet, const Texts& texts, const char* parameter) {
  const std::string value = dataSet.current(parameter);
  if (const Node choices = mapping(dataSet.document(), parameter))
    for (Node choice = choices.firstChild(); choice; choice = choice.nextSibling())
      if (choice.findAttribute("value").value_or("") == value) return texts(std::string(choice.findAttribute("key").value_or("")));
  return qt(value);
}

}  // namespace

HeaderBar::HeaderBar(QWidget* parent)
    : QWidget(parent), mPicture(new QLabel), mLogoLabel(new QLabel), mTag(with(new QLabel, "title")), mDescription(text("note")), mSymbol(new QLabel), mLetter(with(new QLabel, "letter")), mWord(with(new QLabel, "strong")) {
  setObjectName(QStringLiteral("header"));
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(28);
  grid->setVerticalSpacing(2);
  mType = addFact(*grid, 0);
  mSerial = addFact(*grid, 1);
  mBus = addFact(*grid, 2);
  mConnection = addFact(*grid, 3);

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
  layout->addLayout(grid);
  layout->addStretch(1);
  layout->addWidget(mLogoLabel);
  layout->addWidget(mSymbol);
  layout->addWidget(mLetter);
  layout->addWidget(mWord);
  mSymbol->setAccessibleName(QStringLiteral("Device state"));
}

HeaderBar::Fact HeaderBar::addFact(QGridLayout& grid, int column) {
  const Fact fact{text("note"), text("strong")};
  grid.addWidget(fact.name, 0, column);
  grid.addWidget(fact.value, 1, column);
  return fact;
}

void HeaderBar::setTheme(const Theme& theme) {
  mTheme = theme;
  mTag->setFont(theme.font(Theme::Text::Title));
  mLetter->setFont(theme.font(Theme::Text::Title));
  for (QLabel* const strong : {mType.value, mSerial.value, mBus.value, mConnection.value, mWord}) strong->setFont(theme.font(Theme::Text::Strong));
  for (QLabel* const small : {mType.name, mSerial.name, mBus.name, mConnection.name}) small->setFont(theme.font(Theme::Text::Small));
  showPictures();
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
  mSymbol->setPixmap(ne107::symbol(mShown, mTheme.px(kSymbolSize), devicePixelRatioF()));
}

void HeaderBar::show(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

QString HeaderBar::connection() const {
  Communication& communication = mDevice->host().communication();
  if (!communication.device()) return QStringLiteral("Not connected");
  if (communication.isBusy()) return QStringLiteral("Busy");
  if (communication.isLocal()) return QStringLiteral("Offline, local values");
  return mDevice->status().answers() ? QStringLiteral("Online") : QStringLiteral("No answer");
}

void HeaderBar::refresh() {
  setVisible(mDevice != nullptr);
  if (!mDevice) return;
  DataSet& dataSet = *mDevice->host().dataSet();
  show(*mTag, qt(mDevice->title()));
  show(*mDescription, qt(dataSet.current("description")));
  show(*mType.name, mTexts("deviceType"));
  show(*mType.value, valueText(dataSet, mTexts, "deviceType"));
  show(*mSerial.name, mTexts("sensorSerialNumber"));
  show(*mSerial.value, qt(dataSet.current("sensorSerialNumber")));
  show(*mBus.name, QStringLiteral("Bus"));
  const std::string bus = dataSet.busCategory();
  show(*mBus.value, bus == "DPV1" ? QStringLiteral("PROFIBUS PA") : qt(bus));
  show(*mConnection.name, QStringLiteral("Connection"));
  show(*mConnection.value, connection());

  const Ne107 state = mDevice->status().state(mPriorities);
  show(*mLetter, QString::fromLatin1(ne107::letter(state)));
  mLetter->setVisible(*ne107::letter(state) != '\0');
  show(*mWord, QString::fromLatin1(ne107::word(state)));
  if (state != mShown) {
    mShown = state;
    mSymbol->setPixmap(ne107::symbol(state, mTheme.px(kSymbolSize), devicePixelRatioF()));
  }
  QStringList causes;
  for (const auto& [name, signal] : mDevice->status().inForce()) causes << QStringLiteral("%1  %2").arg(QString::fromLatin1(ne107::letter(signal)), mTexts(name));
  const QString hint = causes.isEmpty() ? QString::fromLatin1(ne107::word(state)) : causes.join(QLatin1Char('\n'));
  mSymbol->setToolTip(hint);
  mWord->setToolTip(hint);
}

}  // namespace ostrand
