#include "platform/controls/CtrModuleSelection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/base/RuntimeError.h"
#include "platform/desktop/VirtualDesktop.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"

namespace ostrand {
namespace {

using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

std::string item(const char* value, const char* key, const char* bytes) {
  return std::string("<data:mappedItem value=\"") + value + "\" key=\"" + key + "\" bytes=\"" + bytes + "\"/>";
}

struct CtrModuleSelectionTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<CtrModuleSelection> modules{new CtrModuleSelection};

  CtrModuleSelectionTest() {
    modules->Place(desktop, nullptr, "modules");
    modules->SetMessenger(messenger);
  }
  ~CtrModuleSelectionTest() override {
    modules->Terminate();
    modules = nullptr;
    EXPECT_EQ(messenger->count(), 1u);
    EXPECT_EQ(messenger->listeners(), 0u);
  }

  // Two modules of the group: one with a mapping of its own, one that shares the mapping "module".
  static Document data(const std::string& first = "1", const std::string& second = "0") {
    const std::string numbers = "type=\"integerVal\"";
    return dataSet(parameterXml("flow", first, numbers) + parameterXml("heatModule", second, numbers) + parameterXml("other", "1", numbers),
                   "<data:mappedParam name=\"flow\">" + item("0", "none", "1") + item("1", "short", "5") + item("2", "long", "10") +
                       "</data:mappedParam>" + "<data:mappedParam name=\"module\">" + item("0", "off", "") + item("1", "on", "2") +
                       item("2", "odd", "NaN") + item("3", "huge", "1E9") + "</data:mappedParam>",
                   "<data:requestGroup name=\"modules\"><data:includedParam name=\"flow\"/><data:includedParam name=\"absent\"/>"
                   "<data:includedParam name=\"heatModule\"/></data:requestGroup>");
  }
  Control& control(const std::string& name) {
    for (Control* each : modules->GetControls())
      if (each->name() == name) return *each;
    throw std::runtime_error(name);
  }
  CtrComboEdit& combo(int row) { return dynamic_cast<CtrComboEdit&>(control("cceModule(" + std::to_string(row) + ")")); }
  std::string caption(const std::string& name) { return dynamic_cast<Label&>(control(name)).Caption(); }
  // The rows that are shown: name, choice, bytes.
  std::vector<std::string> rows() {
    std::vector<std::string> all;
    for (int row = 0; row < CtrModuleSelection::kModules; ++row)
      if (const std::string at = "(" + std::to_string(row) + ")"; combo(row).Visible())
        all.push_back(caption("lblModule" + at) + "|" + combo(row).Text() + "|" + caption("lblBytes" + at));
    return all;
  }
};

TEST_F(CtrModuleSelectionTest, ShowsARowForEachParameterOfItsGroup) {
  EXPECT_THAT(rows(), IsEmpty());
  modules->SetOfflineData(data());
  EXPECT_THAT(rows(), ElementsAre("flow|short|5", "heatModule|off|0")) << "a name without a parameter has no row";
  EXPECT_EQ(modules->cyclicBytes(), 5);
  EXPECT_EQ(caption("lblTotalBytes"), "5");
  EXPECT_EQ(combo(0).ContextTag(), "modules");
}

TEST_F(CtrModuleSelectionTest, ANewDataSetReplacesTheRows) {
  modules->SetOfflineData(data());
  modules->SetImportData(dataSet(parameterXml("flow", "1")));
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(caption("lblTotalBytes"), "");
  modules->SetImportData(data("2", "1"));
  EXPECT_THAT(rows(), ElementsAre("flow|long|10", "heatModule|on|2"));
}

TEST_F(CtrModuleSelectionTest, AChoiceTellsItsCostAtOnce) {
  modules->SetOfflineData(data());
  combo(0).choose("long");
  combo(1).choose("on");
  EXPECT_THAT(rows(), ElementsAre("flow|long|10", "heatModule|on|2"));
  EXPECT_EQ(caption("lblTotalBytes"), "12");
  EXPECT_THAT(calls.take(), Contains(testing::HasSubstr("SetParameterStatus \"flow\" \"edited\"")));
  combo(0).restore();
  EXPECT_EQ(caption("lblTotalBytes"), "7");
}

TEST_F(CtrModuleSelectionTest, ACostThatIsNoNumberCountsAsNone) {
  modules->SetOfflineData(data());
  for (const char* key : {"odd", "huge", "off"}) {
    combo(1).choose(key);
    EXPECT_EQ(modules->cyclicBytes(), 5) << key;
  }
}

TEST_F(CtrModuleSelectionTest, TakesTheDevicesWord) {
  modules->SetOfflineData(data());
  modules->SetOnlineData(answer("name=\"modules\"", itemXml("heatModule", "1", "integerVal") + itemXml("nobody", "1", "integerVal")));
  EXPECT_THAT(rows(), ElementsAre("flow|short|5", "heatModule|on|2"));
}

TEST_F(CtrModuleSelectionTest, MarksTheModulesThatAnErrorNames) {
  modules->SetOfflineData(data());
  modules->SetErrorData(answer("name=\"elsewhere\" errorCode=\"communicationError\""));
  EXPECT_EQ(combo(0).Error(), "") << "another request's error";
  modules->SetErrorData(answer("name=\"modules\" errorCode=\"missingItems\"", itemXml("heatModule", "")));
  EXPECT_EQ(combo(0).Error(), "");
  EXPECT_EQ(combo(1).Error(), "missingItems");
  modules->SetErrorData(answer("name=\"modules\" errorCode=\"communicationError\""));
  EXPECT_EQ(combo(0).Error(), "communicationError") << "an error that names nobody is everybody's";
}

TEST_F(CtrModuleSelectionTest, AModuleWithoutARowIsReported) {
  std::string parameters, included;
  for (int i = 0; i < CtrModuleSelection::kModules + 2; ++i) {
    const std::string name = "m" + std::to_string(i);
    parameters += parameterXml(name, "0");
    included += "<data:includedParam name=\"" + name + "\"/>";
  }
  messenger->announce("CtrModuleSelection ITaviDataUser_setOfflineData: ", RuntimeError::OutOfRange);
  modules->SetOfflineData(dataSet(parameters, {}, "<data:requestGroup name=\"modules\">" + included + "</data:requestGroup>"));
  EXPECT_EQ(rows().size(), static_cast<std::size_t>(CtrModuleSelection::kModules));
}

TEST_F(CtrModuleSelectionTest, IsSelectedUnderItsTagAndFocusesItsFirstRow) {
  modules->RequestFocus();
  EXPECT_EQ(modules->focused(), nullptr) << "there is no row yet";
  modules->SetOfflineData(data());
  modules->SetSelectedView("modules");
  EXPECT_EQ(modules->GetSelectedView(), "modules");
  modules->RequestFocus();
  EXPECT_EQ(modules->focused(), &combo(0));
  modules->SetSelectedView("elsewhere");
  EXPECT_EQ(modules->GetSelectedView(), "");
}

TEST_F(CtrModuleSelectionTest, TheTabKeyLeavesAtBothEnds) {
  modules->SetOfflineData(data());
  const auto leaves = [&](int row, bool shift) {
    calls.take();
    desktop.tabDown = true;
    desktop.shiftDown = shift;
    combo(row).leave();
    desktop.tabDown = false;
    desktop.shiftDown = false;
    return calls.take() == std::vector<std::string>{"FocusOut"};
  };
  EXPECT_TRUE(leaves(0, true));
  EXPECT_FALSE(leaves(0, false));
  EXPECT_TRUE(leaves(1, false));
  EXPECT_FALSE(leaves(1, true));
}

}  // namespace
}  // namespace ostrand
