#include <gmock/gmock.h>

#include <cmath>

#include "platform/base/NumberText.h"
#include "platform/controls/EditControl.h"
#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

// An engineer calibrates a transmitter against the laboratory. The mill moves to another consistency while he waits for the
// second sample.
class CalibrationTest : public WindowBench, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    open();
    mStart = workbench->desktop().now();
  }

  PlantDevice& transmitter() { return device(GetParam()); }
  Device& simulated() { return *transmitter().host().communication().device(); }
  void passUntil(double seconds) {
    const double passed = static_cast<double>((workbench->desktop().now() - mStart).count()) / 1000.0;
    workbench->desktop().wait(std::max(0.0, seconds - passed));
  }
  double shown(const std::string& edit) {
    window->panel().refresh();
    return parseNumber(control<EditControl>(edit).displayText(), '.').value_or(0);
  }
  // The buttons by mouse, what is typed by keyboard. Gives the device's average.
  double sample(int number) {
    const std::string n = std::to_string(number);
    EXPECT_TRUE(show(transmitter(), "calibration", "sampling"));
    clickOn("Sample" + n + "Button(0)");
    until([&] { return control<Control>("Sample" + n + "Button(1)").Visible(); });
    workbench->desktop().wait(20);
    clickOn("Sample" + n + "Button(1)");
    until([&] { return shown("cte_sampling(" + std::to_string(2 * number - 2) + ")") > 0; });
    return shown("cte_sampling(" + std::to_string(2 * number - 2) + ")");
  }
  double laboratory(int sample) { return simulated().laboratoryValue(sample).value_or(0); }

  LocalTime mStart;
};

TEST_P(CalibrationTest, TheReadingMovesToTheLaboratorysValue) {
  const double first = sample(1);
  const double off = std::abs(first - laboratory(1));
  EXPECT_GT(off, 0.05) << "there is something to calibrate";
  passUntil(245);
  sample(2);
  const std::vector<double> found{laboratory(1), laboratory(2)};
  ASSERT_GT(std::abs(found[0] - found[1]), 0.1) << "the mill has moved";

  ASSERT_TRUE(show(transmitter(), "calibration", "laboratoryResults"));
  chooseIn("cce_laboratoryResults(0)", "useBothSamples");
  chooseIn("cce_laboratoryResults(1)", "recipe1");
  ASSERT_TRUE(window->panel().enter());
  window->tree().setFocus();
  typeInto("cte_laboratoryResults(0)", "0");
  typeInto("cte_laboratoryResults(1)", QString::fromStdString(fixedText(found[0], 2, '.')));
  typeInto("cte_laboratoryResults(2)", QString::fromStdString(fixedText(found[1], 2, '.')));
  asked.clear();
  tabTo("LabCalibrateBtn");
  press(Qt::Key_Space);
  settle();
  EXPECT_TRUE(until([&] { return !asked.empty(); }));
  EXPECT_THAT(asked, ElementsAre(HasSubstr("calibration was successful")));

  const double slope = parseNumber(transmitter().host().dataSet()->value("recipe1LinearizationSlopeP1"), '.').value_or(0);
  ASSERT_TRUE(show(transmitter(), "calibration", "recipes"));
  window->transfers().readPage();
  settle();
  EXPECT_NE(shown("cteSlope(0)"), slope) << "the recipes have been read back";

  const double after = sample(1);
  EXPECT_NEAR(after, laboratory(1), 0.03);
  EXPECT_LT(std::abs(after - laboratory(1)), off / 2);
}

INSTANTIATE_TEST_SUITE_P(Transmitters, CalibrationTest, testing::Values("hartBlade", "profibusBlade"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
}  // namespace ostrand::test
