#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "host/BindingAudit.h"
#include "host/ComponentServer.h"
#include "platform/desktop/VirtualDesktop.h"
#include "simulator/Device.h"

namespace ostrand {
namespace {

// The data folder against the real views: every tag, choice, unit, text and frame.

class Nobody : public UserPrompt {
 public:
  int ask(const std::string&, const std::string&, const Answers&) override { return kStop; }
  void show(const std::string&, const std::string&) override {}
};

class DataAuditTest : public testing::Test {
 protected:
  const std::filesystem::path registry = std::filesystem::temp_directory_path() / ("ostrand-audit-" + std::to_string(::getpid()) + ".xml");
  const std::filesystem::path data = std::filesystem::path(OSTRAND_SOURCE_DIR) / "data";
  VirtualDesktop desktop;
  Nobody nobody;

  DataAuditTest() { ::setenv("OSTRAND_REGISTRY", registry.c_str(), 1); }
  ~DataAuditTest() {
    ::unsetenv("OSTRAND_REGISTRY");
    std::filesystem::remove(registry);
  }

  static std::vector<std::string> told(BindingAudit& audit, const std::set<BindingAudit::Kind>& passedOver) {
    std::vector<std::string> lines;
    for (const BindingAudit::Finding& each : audit.findings())
      if (!passedOver.contains(each.kind)) lines.push_back(each.view + " " + each.subject + " " + each.detail);
    return lines;
  }
};

TEST_F(DataAuditTest, EveryDataSetFitsItsViews) {
  using Kind = BindingAudit::Kind;
  ComponentServer components(std::filesystem::path(OSTRAND_BINARY_DIR) / "libDTMGUI_Ostrand.so");
  for (const DeviceKind& kind : deviceKinds()) {
    Host host(desktop, components, nobody, data);
    host.openDataSet(data / kind.dataSet);
    BindingAudit audit(host);
    audit.lookAtTree();
    EXPECT_FALSE(audit.views().empty()) << kind.name;
    EXPECT_THAT(told(audit, {Kind::ParameterUnbound, Kind::ViewMissing}), testing::IsEmpty()) << kind.name;
  }
}

// Also the views of transmitters that have no data set here.
TEST_F(DataAuditTest, EveryKeyOfEveryViewHasATextInEveryLanguage) {
  using Kind = BindingAudit::Kind;
  ComponentServer components(std::filesystem::path(OSTRAND_BINARY_DIR) / "libDTMGUI_Ostrand.so");
  Host host(desktop, components, nobody, data);
  host.openDataSet(data / "devices" / "profibusBlade.xml");
  std::vector<std::string> views;
  host.views().release(*host.views().place("VwMeasurement"));
  for (const RegisteredClass& each : components.classes())
    if (each.name.starts_with("Vw")) views.push_back(each.name);
  EXPECT_GT(views.size(), 10u);
  BindingAudit audit(host);
  audit.look(views);
  EXPECT_THAT(told(audit, {Kind::TagWithoutParameter, Kind::MappingMissing, Kind::ErrorReported, Kind::ParameterUnbound}), testing::IsEmpty());
}

}  // namespace
}  // namespace ostrand
