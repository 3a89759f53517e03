#include "views/VwMeasurementQX5.h"

#include "platform/trap/Procedure.h"

namespace ostrand {

using modView::TabPosition;

namespace {

constexpr int kDigitalInput = 2;

}  // namespace

// clang-format off
void VwMeasurementQX5::declare(Form& form) {
  frame(form, "activeGrade", "date_activeGrade")
      .hidden(coeActiveGrade, "ctr_activeGrade")
      .group(picOptions, {{&optActiveGrade.at(0), "grade1"},
                          {&optActiveGrade.at(1), "grade2"},
                          {&optActiveGrade.at(2), "digitalInput"}})
      .row(lblActiveGrade, "binaryInputGrade", cceActiveGrade, "ctr_binaryInputGrade");
  form.nested(CtrMonitoring1, "monitoringVariables");

  // The frame of the grade never gets the focus: the view asks for a frame "activeRecipe", which it has not.
  mFocusOn = {{"monitoringVariables", &CtrMonitoring1}};
}
// clang-format on

VwMeasurementQX5::VwMeasurementQX5() : View("VwMeasurementQX5", "measurement") {}

void VwMeasurementQX5::connect() {
  optActiveGrade.each([this](int index, OptionButton& button) { button.Click.connect([this, index] { optActiveGrade_Click(index); }); });
  optActiveGrade(0).LostFocus.connect([this] { leaveByTab("optActiveGrade_LostFocus", TabPosition::First); });
  coeActiveGrade.Change.connect([this](const std::string& text) { coeActiveGrade_Change(text); });
  cceActiveGrade.LostFocus.connect([this] { leaveByTab("cceActiveGrade_LostFocus", TabPosition::Last); });
}

void VwMeasurementQX5::coeActiveGrade_Change(const std::string& text) {
  Procedure proc(*this, "coeActiveGrade_Change");
  proc.step([&] {
    for (int i = 0; i <= kDigitalInput; ++i)
      if (text == optActiveGrade(i).Tag()) return optActiveGrade(i).Value(true);
    // What the device calls by no known name is a digital input.
    if (!text.empty()) optActiveGrade(kDigitalInput).Value(true);
  });
}

void VwMeasurementQX5::optActiveGrade_Click(int index) {
  Procedure proc(*this, "optActiveGrade_Click");
  proc.step([&] {
    if (optActiveGrade(index).Tag() != coeActiveGrade.Text()) coeActiveGrade.Text(optActiveGrade(index).Tag());
  });
  const bool binaryInput = index == kDigitalInput;
  proc.step([&] { lblActiveGrade.Enabled(binaryInput); });
  proc.step([&] { cceActiveGrade.Enabled(binaryInput); });
}

}  // namespace ostrand
