#include <gmock/gmock.h>

#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrMonitoring.h"
#include "platform/controls/CtrTextEdit.h"
#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The GYRE transmitter among the devices of the plant.
class GyreTest : public WindowBench {
 protected:
  void SetUp() override { open(); }
  bool show(const char* branch, const char* frame) { return WindowBench::show(device("hartGYRE"), branch, frame); }
};

TEST_F(GyreTest, ItsPagesOpenAndAreRead) {
  ASSERT_TRUE(show("measurement", "monitoringVariables"));
  grab("gyre-measurement");
  ASSERT_TRUE(show("information", "transmitter"));
  EXPECT_EQ(deviceValue("transmitter", "swRevision"), "1.67");
  EXPECT_EQ(control<CtrComboEdit>("cceTransmitter").displayText(), "GYRE transmitter");
  ASSERT_TRUE(show("diagnostics", "deviceStatus"));
  EXPECT_EQ(deviceValue("deviceStatus", "statusMotorFailure"), "0");
  grab("gyre-diagnostics");
  EXPECT_THAT(said(ConversationLog::Kind::Error), IsEmpty());
}

TEST_F(GyreTest, ARecipeThatIsNotCalibratedIsWarnedOf) {
  ASSERT_TRUE(show("measurement", "activeRecipe"));
  chooseIn("cceActiveRecipe", "recipe4");
  Host& host = workbench->host();
  bool done = false;
  EXPECT_THAT(host.exchange().applyChanges(
                  host.edits().collect(), [&] { done = true; }, "activeRecipe"),
              IsEmpty());
  EXPECT_TRUE(until([&] { return done; }));
  settle();
  EXPECT_EQ(deviceValue("activeRecipe", "activeRecipe"), "4");
  EXPECT_THAT(asked, ElementsAre("Recipe 4: This recipe is not calibrated."));
}

}  // namespace
}  // namespace ostrand::test
