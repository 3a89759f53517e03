#include "recipe/RecipeGraph.h"

#include "platform/base/NumberText.h"
#include "recipe/Single.h"

namespace ostrand {

namespace {

// What is handed to the chart of the 251 elements of a block: all but the last two. So the last point of the last series is the
// chart's own.
constexpr int kHandedOver = Chart::kBlock - 2;

// Of an absent or refusing service nothing comes back.
void setUnitOf(const Ref<IUnitConverter>& units, const std::string& quantity, std::string& unit) {
  if (units) units->GetUnitInfo(quantity, unit);
}

}  // namespace

void RecipeGraph::connect() {
  pesgoValidation.MouseDown.connect([this] { pesgoValidation_MouseDown(); });
  pesgoValidation.ZoomIn.connect(
      [this] { routine("CtrRecipe pesgoValidation_ZoomIn: ", [&] { cgmValidation.Enabled(CtrGraphMenu::UndoZoom, true); }); });
  pesgoValidation.ZoomOut.connect(
      [this] { routine("CtrRecipe pesgoValidation_ZoomOut: ", [&] { cgmValidation.Enabled(CtrGraphMenu::UndoZoom, false); }); });
  picMaximize.Click.connect([this] { picMaximize_Click(); });
}

// --- the chart as a whole

void RecipeGraph::InitializeGraph() {
  routine("CtrRecipe InitializeGraph: ", [&] {
    constexpr Color kGrid{Color::Role::Given, 0x969696};
    struct {
      const char* label;
      Color color;
      Chart::Style style;
    } const series[] = {
        {"Sample points", RecipeColor::kUnchecked, Chart::Style::Marks}, {"Basic tuning", RecipeColor::kChecked, Chart::Style::Line},
        {"Polynome", RecipeColor::kChecked, Chart::Style::Line},         {"Not in use", RecipeColor::kGreen, Chart::Style::Line},
        {"Calibration", RecipeColor::kBlue, Chart::Style::Line},
    };
    pesgoValidation.Title(" ", "");
    pesgoValidation.GridColor(kGrid);
    for (int i = Samples; i <= Calibrated; ++i) {
      pesgoValidation.SeriesLabel(i, series[i].label);
      pesgoValidation.SeriesColor(i, series[i].color);
      pesgoValidation.SeriesStyle(i, series[i].style);
    }
    for (int point = 1; point <= Chart::kPoints; ++point) pesgoValidation.PointColor(Calibrated, point, RecipeColor::kBlue);
    pesgoValidation.AnnotationX(0.75f);
    pesgoValidation.AnnotationY(8.0f);
    pesgoValidation.AnnotationText("");
    mTorqueOnXAxis = false;
    SetXAxisTorque(true);
  });
}

void RecipeGraph::SetXAxisTorque(bool onX) {
  routine("CtrRecipe SetXAxisTorque ", [&] {
    if (onX == mTorqueOnXAxis) return;
    const bool consistencyWasX = !mTorqueOnXAxis;
    mTorqueOnXAxis = onX;
    if (mLoaded) {
      SetTorqueLabel("");
      if (consistencyWasX)
        SetConsistencyAxis(pesgoValidation.XMinimum(), pesgoValidation.XMaximum(), pesgoValidation.XTick(), pesgoValidation.XTick());
      else
        SetConsistencyAxis(pesgoValidation.YMinimum(), pesgoValidation.YMaximum(), pesgoValidation.YTick(), pesgoValidation.YTick());
    }
    SetConsistencyLabel("Lab / %Cs");
    SetTorqueAxis(0, kMaxTorque, 0, kMaxTorque);
  });
}

// --- axes

void RecipeGraph::setAxis(bool isX, float minimum, float maximum, float tickLast, float tickFirst) {
  Chart& chart = pesgoValidation;
  if (isX) {
    chart.XMaximum(maximum);
    chart.XMinimum(minimum);
    chart.XTick(tickFirst);
    chart.XTick(tickLast);
    chart.AnnotationX(maximum / 2);
  } else {
    chart.YMaximum(maximum);
    chart.YMinimum(minimum);
    chart.YTick(tickFirst);
    chart.YTick(tickLast);
    chart.AnnotationY(maximum / 2);
  }
}

void RecipeGraph::SetConsistencyAxis(float minimum, float maximum, float tickLast, float tickFirst) {
  routine("CtrRecipe SetConsistencyAxis: ", [&] { setAxis(!mTorqueOnXAxis, minimum, maximum, tickLast, tickFirst); });
}

void RecipeGraph::SetTorqueAxis(float minimum, float maximum, float tickLast, float tickFirst) {
  routine("CtrRecipe SetTorqueAxis: ", [&] { setAxis(mTorqueOnXAxis, minimum, maximum, tickLast, tickFirst); });
}

void RecipeGraph::SetConsistencyLabel(const std::string& text) {
  routine("CtrRecipe SetConsistencyLabel: ", [&] { mTorqueOnXAxis ? pesgoValidation.YLabel(text) : pesgoValidation.XLabel(text); });
}

void RecipeGraph::SetTorqueLabel(std::string text) {
  routine("CtrRecipe SetTorqueLabel: ", [&](Procedure& proc) {
    if (text.empty()) text = torqueUnit();
    std::string word = "torque";
    if (proc.pinnedMessenger()) {
      const Ref<ITextTable> texts = proc.messenger().GetTextTable();
      if (!texts) throwNothingThere("the text table");
      word = texts->GetText("torque");
    }
    const std::string label = word + " / " + text;
    mTorqueOnXAxis ? pesgoValidation.XLabel(label) : pesgoValidation.YLabel(label);
  });
}

// --- points

void RecipeGraph::SetConsistencyValue(int series, int point, float value) {
  // Without the object's name.
  routine(" SetConsistencyValue: ", [&] {
    mTorqueOnXAxis ? pesgoValidation.YValue(series, point, value) : pesgoValidation.XValue(series, point, value);
    pesgoValidation.Rebuild(0);
  });
}

void RecipeGraph::SetTorqueValue(int series, int point, float value) {
  routine("CtrRecipe SetTorqueValue ", [&] {
    mTorqueOnXAxis ? pesgoValidation.XValue(series, point, value) : pesgoValidation.YValue(series, point, value);
    pesgoValidation.Rebuild(0);
  });
}

void RecipeGraph::setTorqueBlock(const std::vector<float>& block) {
  mTorqueOnXAxis ? pesgoValidation.XData(block, kHandedOver) : pesgoValidation.YData(block, kHandedOver);
}

void RecipeGraph::setConsistencyBlock(const std::vector<float>& block) {
  mTorqueOnXAxis ? pesgoValidation.YData(block, kHandedOver) : pesgoValidation.XData(block, kHandedOver);
}

void RecipeGraph::clearSeries(std::initializer_list<Series> series) {
  // One more than there are: the chart drops it.
  for (int point = 0; point <= Chart::kPoints; ++point)
    for (const Series each : series) {
      pesgoValidation.XValue(each, point, Chart::kNull);
      pesgoValidation.YValue(each, point, Chart::kNull);
    }
}

// --- the message

void RecipeGraph::showMessage(Procedure& proc, const std::string& key) {
  mGraphMessage = key;
  const Ref<ITextTable> texts = proc.messenger().GetTextTable();
  if (!texts) throwNothingThere("the text table");
  pesgoValidation.AnnotationText(texts->GetSectionText(key, "#"));
}

void RecipeGraph::clearMessage() {
  mGraphMessage.clear();
  pesgoValidation.AnnotationText("");
}

// --- units

// What stands in the chart is converted in place; no curve is computed anew.
void RecipeGraph::showColumnUnits(Procedure& proc) {
  const Ref<IUnitConverter> units = proc.messenger().GetUnitConverter();
  std::string unit = lsvValidation.Header(Temperature);
  setUnitOf(units, "processTemperature", unit);
  if (trimmed(unit) != trimmed(lsvValidation.Header(Temperature))) lsvValidation.Header(Temperature, unit);

  const std::string before = torqueUnit();
  unit = before;
  setUnitOf(units, "torque", unit);
  if (unit == before) return;
  lsvValidation.Header(Torque, unit);
  const auto convert = [&](float value, float otherwise) {
    double converted = 0;
    return units->ConvertValue(value, before, unit, converted) ? toSingle(converted) : otherwise;
  };
  const bool isX = mTorqueOnXAxis;
  const float minimum = isX ? pesgoValidation.XMinimum() : pesgoValidation.YMinimum();
  const float maximum = isX ? pesgoValidation.XMaximum() : pesgoValidation.YMaximum();
  // The one tick setting of the axis serves for both.
  const float tick = isX ? pesgoValidation.XTick() : pesgoValidation.YTick();
  const float newMinimum = convert(minimum, minimum), newMaximum = convert(maximum, maximum);
  const float tickLast = convert(tick, tick), tickFirst = convert(tick, tick);
  SetTorqueAxis(newMinimum, newMaximum, tickLast, tickFirst);
  SetTorqueLabel(unit);
  std::vector<float> torque = torqueBlock();
  for (std::size_t i = 0; i + 1 < torque.size(); ++i)
    if (torque[i] != Chart::kNull) torque[i] = convert(torque[i], Chart::kNull);
  setTorqueBlock(torque);
  pesgoValidation.Rebuild(0);
}

// --- the user at the chart

// Whatever fails here is passed over.
void RecipeGraph::pesgoValidation_MouseDown() {
  const Ref<Component> pin(this);
  try {
    pesgoValidation.SetFocus();
    cgmValidation.Open(pesgoValidation);
  } catch (...) {
    // A menu that does not open is seen.
  }
}

void RecipeGraph::picMaximize_Click() {
  const Ref<Component> pin(this);
  const Ref<Messenger> host = mMessenger;
  try {
    if (host && host->GetMaximizeAllowed()) pesgoValidation.Maximize();
  } catch (...) {
    // A copy that does not open is seen.
  }
}

}  // namespace ostrand
