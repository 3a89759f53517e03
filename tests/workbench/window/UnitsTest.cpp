#include <gmock/gmock.h>

#include "platform/base/NumberText.h"
#include "platform/controls/CtrTextEdit.h"
#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// A page with a temperature that can be edited.
class TemperatureView : public View {
 public:
  TemperatureView() : View("TemperatureView", "diagnostics") {}

  CtrTextEdit temperature{"temperature"};

 protected:
  void declare(Form& form) override {
    for (const char* const key : {"deviceStatus", "eventLog", "resetingEventLog"}) frame(form, key, std::string("date_") + key);
    frame(form, "loopTest", "date_loopTest").row(mLabel, "temperatureCalibrationCorrection", temperature, "ctr_temperatureCalibrationCorrection");
  }

 private:
  Label mLabel{"label"};
};

class UnitsTest : public WindowBench {
 protected:
  void SetUp() override {
    catalog.own["VwDiagnostics"] = [this] { return mView = new TemperatureView; };
    // A correction is a difference and has no user's unit in the mill; here it stands for a temperature.
    std::string units = readWholeFile(data / "units.xml");
    units.insert(units.find("</units>"), "<parameter name=\"temperatureCalibrationCorrection\" quantity=\"temperature\"/>");
    writeWholeFile(data / "units.xml", units);
    open();
    ASSERT_TRUE(show("diagnostics", "loopTest"));
  }
  CtrTextEdit& edit() { return mView->temperature; }
  std::string tooltip() { return window->panel().explanation(edit()).toStdString(); }

 private:
  TemperatureView* mView = nullptr;
};

TEST_F(UnitsTest, AUnitMayBeTypedBehindTheNumber) {
  typeInto("temperature", "12 degF");
  EXPECT_EQ(edit().displayText(), "-11.1") << "in the unit of the screen";
  EXPECT_TRUE(edit().Modified() && edit().Correct());
  typeInto("temperature", "3,5");
  EXPECT_EQ(edit().displayText(), "3.5");
  typeInto("temperature", "100 degF");
  EXPECT_FALSE(edit().Correct()) << "beyond 20 degC";
  typeInto("temperature", "3 apples");
  EXPECT_FALSE(edit().Correct());
}

TEST_F(UnitsTest, AnEditStaysTheSameUnderAnotherUnitLanguageAndSeparator) {
  typeInto("temperature", "10");
  window->settingsMenu().setUnit("temperature", "degF");
  settle();
  EXPECT_EQ(edit().displayText(), "50.0");
  EXPECT_TRUE(edit().Modified());
  window->settingsMenu().setLanguage("fi");
  window->settingsMenu().setLocale("fi");
  settle();
  EXPECT_EQ(edit().displayText(), "50,0");
  EXPECT_TRUE(edit().Modified());
  window->settingsMenu().setUnit("temperature", "degC");
  settle();
  const std::vector<Change> changes = workbench->host().edits().collect();
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].name, "temperatureCalibrationCorrection");
  EXPECT_EQ(parseNumber(changes[0].newText, '.'), 10.0);
}

TEST_F(UnitsTest, TheTooltipHoldsLimitsInTheUsersUnitAndWhatTheDeviceHas) {
  EXPECT_THAT(tooltip(),
              AllOf(HasSubstr("-20.0 – 20.0 °C"), HasSubstr("temperatureCalibrationCorrection"), HasSubstr("Raw value"), HasSubstr("Last read")));
  window->settingsMenu().setUnit("temperature", "degF");
  settle();
  EXPECT_THAT(tooltip(), AllOf(HasSubstr("-4.0 – 68.0 °F"), HasSubstr("degC"), Not(HasSubstr("°C")))) << "the raw value keeps the device's unit";
}

}  // namespace
}  // namespace ostrand::test
