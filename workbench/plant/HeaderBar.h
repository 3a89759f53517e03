#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QWidget>

#include "platform/types/ITaviDeviceSpecific.h"
#include "workbench/plant/PlantDevice.h"
#include "workbench/render/Theme.h"
#include "workbench/words/Texts.h"

namespace ostrand {

// Who the device is, above its views: picture and logo, tag and description, what it is and where it is, what it says of
// itself.
class HeaderBar : public QWidget {
 public:
  explicit HeaderBar(QWidget* parent = nullptr);

  void setTheme(const Theme& theme);
  void setTexts(const Texts& texts);
  void setPriorities(const std::vector<Ne107>& priorities);
  // `components` makes the control with the family's pictures, where there is one.
  void setDevice(PlantDevice* device, ComponentCatalog& components, Desktop& desktop);
  // Values and states anew; what has not changed is not painted.
  void refresh();
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Fact {
    QLabel* name;
    QLabel* value;
  };
  Fact addFact(int column, QLabel* value);
  void fit();
  void showPictures();
  QString connection() const;
  static void show(QLabel& label, const QString& text);

  Theme mTheme = Theme::make(Theme::Kind::Light);
  Texts mTexts;
  std::vector<Ne107> mPriorities = ne107Order();
  PlantDevice* mDevice = nullptr;
  Picture mImage;
  Picture mLogo;
  std::optional<Ne107> mShown;
  QStringList mFitted;  // to what the facts were chosen last

  QLabel* mPicture;
  QLabel* mLogoLabel;
  QLabel* mTag;
  QLabel* mDescription;
  QGridLayout* mFacts;
  Fact mType;
  Fact mSerial;
  Fact mBus;
  Fact mConnection;
  QLabel* mSymbol;
  QLabel* mLetter;
  QLabel* mWord;
};

}  // namespace ostrand
