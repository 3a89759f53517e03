#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/base/File.h"
#include "platform/types/Registry.h"

namespace ostrand {
namespace {

namespace fs = std::filesystem;

// The real program, with a registration of its own.
class ProgramTest : public testing::Test {
 protected:
  struct Result {
    int code = -1;
    std::string text;
    bool says(const std::string& part) const { return text.find(part) != text.npos; }
  };

  void SetUp() override {
    folder = fs::path(testing::TempDir()) / ("ostrand-program-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(folder);
    fs::create_directories(folder);
    registry = folder / "components.xml";
  }
  void TearDown() override { fs::remove_all(folder); }

  Result run(const std::string& arguments, const std::string& input = "", const std::string& environment = "") {
    writeWholeFile(folder / "input", input);
    const std::string command = "OSTRAND_REGISTRY='" + registry.string() + "' OSTRAND_DATA='" OSTRAND_SOURCE_DIR "/data' " + environment +
                                " '" OSTRAND_BINARY_DIR "/ostrand' " + arguments + " 2>&1 <'" + (folder / "input").string() + "'";
    Result result;
    std::FILE* const pipe = popen(command.c_str(), "r");
    if (!pipe) return result;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) result.text.append(buffer, count);
    const int status = pclose(pipe);
    result.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
  }
  fs::path folder, registry;
};

TEST_F(ProgramTest, TellsTheCalibrationTheSameEveryTime) {
  const Result first = run("demo");
  EXPECT_EQ(first.code, 0) << first.text;
  EXPECT_TRUE(first.says("DTMGUIDownload \"laboratoryResults\" 1")) << first.text;
  EXPECT_TRUE(first.says("The calibration was successful."));
  EXPECT_TRUE(first.says("%Cs  agrees with the laboratory")) << first.text;
  EXPECT_FALSE(first.says("ReportError")) << first.text;
  EXPECT_FALSE(first.says("\033[")) << "no colours in a pipe";
  EXPECT_EQ(run("demo").text, first.text);
  EXPECT_NE(run("demo --seed 2").text, first.text);
  EXPECT_TRUE(run("demo --language fi").says("Laboratoriotulokset"));
  const Result unknown = run("demo --language xx");
  EXPECT_EQ(unknown.code, 2);
  EXPECT_TRUE(unknown.says("no such language: \"xx\""));
}

TEST_F(ProgramTest, CalibratesOnTheOtherBus) {
  const Result demo = run("demo --bus profibus");
  EXPECT_EQ(demo.code, 0) << demo.text;
  EXPECT_TRUE(demo.says("executeAction")) << demo.text;
  EXPECT_TRUE(demo.says("The calibration was successful."));
  EXPECT_TRUE(demo.says("%Cs  agrees with the laboratory")) << demo.text;
  EXPECT_EQ(run("demo --bus other").code, 2);
}

TEST_F(ProgramTest, MakesAnotherRecipeTheActiveOne) {
  const Result demo = run("demo --recipe 3");
  EXPECT_EQ(demo.code, 0) << demo.text;
  EXPECT_TRUE(demo.says("DTMGUIDownload \"activeRecipe\" 1")) << demo.text;
  EXPECT_TRUE(demo.says("The device has confirmed it: Recipe 3 is active.")) << demo.text;
  EXPECT_EQ(run("demo --recipe 9").code, 2);
}

TEST_F(ProgramTest, ListsClassesAndDevices) {
  const Result classes = run("classes");
  EXPECT_EQ(classes.code, 0);
  EXPECT_TRUE(classes.says("VwMeasurement "));
  EXPECT_TRUE(classes.says("libDTMGUI_Ostrand.so"));
  const Result devices = run("devices");
  EXPECT_EQ(devices.code, 0);
  EXPECT_TRUE(devices.says("hartBlade"));
  EXPECT_TRUE(devices.says("silent [REQUEST]"));
}

TEST_F(ProgramTest, RegistersAndUnregisters) {
  EXPECT_EQ(run("register").code, 0);
  EXPECT_GE(readRegistry(registry).size(), 3u);
  EXPECT_EQ(run("unregister").code, 0);
  EXPECT_TRUE(readRegistry(registry).empty());
  const Result none = run("register no/such.so");
  EXPECT_EQ(none.code, 2);
  EXPECT_TRUE(none.says("no/such.so: no such component library"));
  writeWholeFile(registry, "<components><cl");
  const Result damaged = run("classes");
  EXPECT_EQ(damaged.code, 2);
  EXPECT_TRUE(damaged.says("is damaged")) << damaged.text;
}

TEST_F(ProgramTest, ChecksDataSets) {
  const Result good = run("check hartBlade");
  EXPECT_EQ(good.code, 0) << good.text;
  EXPECT_TRUE(good.says("Tags without a parameter or group: none"));
  const Result other = run("check hartBlade --view VwMeasurementQX5");
  EXPECT_EQ(other.code, 1);
  EXPECT_TRUE(other.says("ctr_binaryInputGrade")) << other.text;
  EXPECT_EQ(run("check no/such.xml").code, 2);
  EXPECT_EQ(run("check hartBlade --view VwNothing").code, 2);
  const Result noDataSet = run("check " OSTRAND_SOURCE_DIR "/data/units.xml");
  EXPECT_EQ(noDataSet.code, 2);
  EXPECT_TRUE(noDataSet.says("not a data set"));
}

TEST_F(ProgramTest, SimulatesADevice) {
  const std::string request = "<communicationRequest name=\"activeRecipe\" access=\"read\"/>";
  const Result answer = run("simulate hartBlade", request);
  EXPECT_EQ(answer.code, 0) << answer.text;
  EXPECT_TRUE(answer.says("<comm:integerVal>1</comm:integerVal>")) << answer.text;
  EXPECT_EQ(run("simulate hartBlade --seed 1", request).text, answer.text);
  EXPECT_TRUE(run("simulate hartBlade --fault 'refuse activeRecipe communicationError'", request).says("errorCode=\"communicationError\""));
  const Result silent = run("simulate hartBlade --fault silent", request);
  EXPECT_EQ(silent.code, 1);
  EXPECT_TRUE(silent.says("did not answer"));
  EXPECT_EQ(run("simulate hartBlade", "no request").code, 2);
  EXPECT_EQ(run("simulate hartBlade --fault nonsense", request).code, 2);
  const Result none = run("simulate nothing", request);
  EXPECT_EQ(none.code, 2);
  EXPECT_TRUE(none.says("there are hartBlade"));
}

TEST_F(ProgramTest, SaysHowItIsUsed) {
  const Result help = run("--help");
  EXPECT_EQ(help.code, 0);
  for (const char* const command : {"demo", "replay", "check", "simulate", "devices", "classes", "register", "unregister"}) {
    EXPECT_TRUE(help.says(command)) << command;
    EXPECT_EQ(run(std::string(command) + " --help").code, 0) << command;
  }
  EXPECT_EQ(run("").code, 2);
  EXPECT_EQ(run("nonsense").code, 2);
  const Result noData = run("check hartBlade", "", "OSTRAND_DATA=/no/such/folder");
  EXPECT_EQ(noData.code, 2);
  EXPECT_TRUE(noData.says("OSTRAND_DATA names no folder")) << noData.text;
}

}  // namespace
}  // namespace ostrand
