#include "host/UnitService.h"

#include <unistd.h>

#include "host/HostBench.h"
#include "platform/base/File.h"

namespace ostrand::test {

namespace {

class UnitServiceTest : public ::testing::Test {
 protected:
  Ref<UnitService> units = UnitService::open(sourceData() / "units.xml");
  double convert(double value, const char* from, const char* to) {
    double result = -1;
    return units->ConvertValue(value, from, to, result) ? result : -99999.0;
  }
};

TEST_F(UnitServiceTest, ConvertsWithinAQuantity) {
  EXPECT_NEAR(convert(100, "degC", "degF"), 212, 1e-9);
  EXPECT_NEAR(convert(32, "degF", "degC"), 0, 1e-9);
  EXPECT_NEAR(convert(0, "degC", "K"), 273.15, 1e-9);
  EXPECT_NEAR(convert(1, "ftlbf", "Nm"), 1.3558179483314, 1e-12);
  EXPECT_EQ(convert(3.42, "%Cs", "% Cs"), 3.42);
  EXPECT_EQ(convert(7, "anything", "anything"), 7);
}

TEST_F(UnitServiceTest, RefusesAndLeavesTheResult) {
  double result = 4;
  EXPECT_FALSE(units->ConvertValue(1, "degC", "N", result));
  EXPECT_FALSE(units->ConvertValue(1, "degC", "parsec", result));
  EXPECT_FALSE(units->ConvertValue(1, "", "degC", result));
  EXPECT_FALSE(units->ConvertValue(1, "%", "%Cs", result));
  EXPECT_EQ(result, 4);
}

TEST_F(UnitServiceTest, TellsTheChosenUnitOfAName) {
  std::string unit = "untouched";
  EXPECT_FALSE(units->GetUnitInfo("torque", unit)) << "nobody has chosen yet";
  EXPECT_EQ(unit, "untouched");
  units->choose("torque", "ftlbf");
  EXPECT_TRUE(units->GetUnitInfo("torque", unit));
  EXPECT_EQ(unit, "ftlbf");
  EXPECT_FALSE(units->GetUnitInfo("sampleTorque", unit)) << "tails are the caller's affair";
  EXPECT_FALSE(units->GetUnitInfo("nobodyKnows", unit));
  units->choose("torque", "");
  EXPECT_FALSE(units->GetUnitInfo("torque", unit));
}

TEST_F(UnitServiceTest, SaysWhatThereIsToChoose) {
  const auto noQuantity = refusalOf([&] { units->choose("mass", "kg"); });
  EXPECT_EQ(noQuantity.number, RuntimeError::BadArgument);
  EXPECT_NE(noQuantity.description.find("temperature, shearForce, torque"), std::string::npos) << noQuantity.description;
  EXPECT_NE(refusalOf([&] { units->choose("torque", "degC"); }).description.find("Nm, kNm, ftlbf, Ncm, inlbf"), std::string::npos);
}

TEST_F(UnitServiceTest, ADamagedFileIsNamed) {
  const auto file = std::filesystem::temp_directory_path() / ("ostrandUnits" + std::to_string(::getpid()) + ".xml");
  for (const char* const text :
       {"<other/>", "<units><quantity base='a'/></units>",
        "<units><quantity name='q' base='a'><unit key='a' factor='x' offset='0'/></quantity></units>",
        "<units><quantity name='q' base='a'><unit key='a' factor='0' offset='0'/></quantity></units>",
        "<units><quantity name='q' base='a'><unit key='a' factor='1' offset='0'/><unit key='a' factor='1' offset='0'/></quantity></units>",
        "<units><parameter name='p' quantity='q'/></units>", "<units"}) {
    writeWholeFile(file, text);
    const auto error = refusalOf([&] { UnitService::open(file); });
    EXPECT_EQ(error.number, RuntimeError::BadArgument) << text;
    EXPECT_TRUE(error.description.starts_with(file.string())) << error.description;
  }
  std::filesystem::remove(file);
}

TEST_F(UnitServiceTest, AnEmptyServiceConvertsNothing) {
  UnitService& none = *(units = Ref<UnitService>(new UnitService));
  double result = 0;
  EXPECT_FALSE(none.ConvertValue(1, "degC", "degF", result));
  EXPECT_TRUE(none.quantities().empty());
}

}  // namespace

}  // namespace ostrand::test
