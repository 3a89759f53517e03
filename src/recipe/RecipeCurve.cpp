#include "recipe/RecipeCurve.h"

#include <array>
#include <utility>

#include "core/modTools.h"
#include "platform/base/NumberText.h"
#include "recipe/SampleItems.h"
#include "recipe/Single.h"

namespace ostrand {

namespace {

constexpr const char* kUnitOfCurves = "Nm";
constexpr Correction kNoCorrection{1.0f, 0.0f};

}  // namespace

void RecipeCurve::connect() {
  RecipeGraph::connect();
  ccePulpType.Change.connect([this](const std::string& value) { ccePulpType_Change(value); });
  coeCurve.Change.connect([this](const std::string& value) {
    if (!mCurveTypeBeingSet || *mCurveTypeBeingSet != value) coeCurve_Change(value);
  });
  ctePolynomeFactor.each([this](int, CtrTextEdit& factor) { factor.Change.connect([this](const std::string&) { ctePolynomeFactor_Change(); }); });
  ctePn.each([this](int, CtrTextEdit& edit) {
    edit.Change.connect([this](const std::string&) { ctePn_Change(); });
    edit.changed.connect([this] {
      holdTogether();
      showOrigins();
    });
  });
  optCurve.each([this](int index, OptionButton& option) { option.Click.connect([this, index] { optCurve_Click(index); }); });
}

std::optional<double> RecipeCurve::number(const std::string& text) const { return parseNumber(withSeparator(text, '.', separator()), separator()); }

// --- drawing

void RecipeCurve::DrawCurve(int series, Coefficients cubic, Correction correction) {
  routine("CtrRecipe DrawCurve: ", [&](Procedure& proc) {
    ShownTorque shown;
    if (const std::string unit = torqueUnit(); unit != kUnitOfCurves) {
      const Ref<IUnitConverter> units = proc.pinnedMessenger() ? proc.messenger().GetUnitConverter() : nullptr;
      shown = [units, unit](float torque) -> std::optional<float> {
        double converted = 0;
        if (!units || !units->ConvertValue(torque, kUnitOfCurves, unit, converted)) return std::nullopt;
        return toSingle(converted);
      };
    }
    std::vector<float> torque = torqueBlock(), consistency = consistencyBlock();
    drawCurve(torque, consistency, series, mCurve, cubic, correction, shown);
    setTorqueBlock(torque);
    setConsistencyBlock(consistency);
    pesgoValidation.Rebuild(0);
  });
}

void RecipeCurve::clearCalibrated() {
  std::vector<float> torque = torqueBlock();
  clearCurve(torque, Calibrated);
  setTorqueBlock(torque);
  pesgoValidation.Rebuild(0);
}

void RecipeCurve::DrawCalibratedCurve() {
  routine("CtrRecipe DrawCalibratedCurve: ", [&] {
    const auto unusable = [](const CtrTextEdit& edit) { return !edit.Correct() || edit.Text().empty(); };
    if (unusable(ctePn(0)) || unusable(ctePn(1))) return clearCalibrated();
    const Locale& locale = desktop().locale();
    const Correction correction{toSingle(modTools::ToLocalNumber(ctePn(0).Text(), locale)),
                                toSingle(modTools::ToLocalNumber(ctePn(1).Text(), locale))};
    if (optCurve(PulpType).Value()) return DrawCurve(Calibrated, mCurve.coefficients, correction);
    // A special grade has no curve here: what was drawn stays.
    if (!optCurve(Polynome).Value()) return;
    bool hasCubic = true;
    ctePolynomeFactor.each([&](int, const CtrTextEdit& factor) { hasCubic = hasCubic && !unusable(factor); });
    if (hasCubic)
      DrawCurve(Calibrated, typedCubic(), correction);
    else
      clearCalibrated();
  });
}

Coefficients RecipeCurve::typedCubic() const {
  Coefficients cubic{};
  for (int power = 0; power < 4; ++power)
    cubic[static_cast<std::size_t>(power)] = toSingle(modTools::ToLocalNumber(ctePolynomeFactor(power).Text(), desktop().locale()));
  return cubic;
}

// --- which curve

void RecipeCurve::optCurve_Click(int index) {
  routine("CtrRecipe optCurve_Click: ", [&] {
    const bool byUser = !mMirrorsDevice;
    DisableEditables(CurveFields);
    if (const std::string tag = optCurve(index).Tag(); tag != coeCurve.Text()) setCurveType(tag, byUser);
    clearSeries({BasicTuning, NotInUse, TypedPolynome, Calibrated});
    SetConsistencyAxis(0, kMaxConsistency, 0, kMaxConsistency);
    pesgoValidation.Rebuild(0);
    switch (index) {
      case PulpType: {
        ccePulpType.Enabled(true);
        const std::string pulpType = ccePulpType.Text();
        ccePulpType_Change(pulpType);
        setCurveType(pulpType, byUser);
        break;
      }
      case SpecialGrade:
        lsvUsed.Enabled(true);
        lsvUsed.BackColor(RecipeColor::kWindow);
        break;
      case Polynome:
        ctePolynomeFactor.each([](int, CtrTextEdit& factor) { factor.Enabled(true); });
        lblPolynome.each([](int, Label& label) { label.Enabled(true); });
        ctePolynomeFactor_Change();
        break;
    }
  });
}

// A special grade that is read from the device lands on the polynome as well, and stays there. The device's own word is kept: what
// was not chosen by a user never counts as his edit.
void RecipeCurve::coeCurve_Change(std::string value) {
  const Ref<Component> pin(this);
  const bool before = std::exchange(mMirrorsDevice, true);
  routine("CtrRecipe coeCurve_Change: ", [&] {
    if (value == optCurve(Polynome).Tag() || value == optCurve(SpecialGrade).Tag())
      optCurve(Polynome).Value(true);
    else if (!value.empty())
      optCurve(PulpType).Value(true);
  });
  mMirrorsDevice = before;
}

void RecipeCurve::setCurveType(const std::string& value, bool byUser) {
  const std::string* const before = std::exchange(mCurveTypeBeingSet, &value);
  const auto restore = [&] { mCurveTypeBeingSet = before; };
  try {
    byUser ? coeCurve.Text(value) : coeCurve.follow(value);
  } catch (...) {
    restore();
    throw;
  }
  restore();
}

// What fails on the way to the curve is not reported: the chart says that there is none.
void RecipeCurve::ccePulpType_Change(std::string value) {
  const Ref<Component> pin(this);
  Procedure proc(mMessenger, nullptr, "CtrRecipe ccePulpType_Change: ");
  SetConsistencyAxis(0, kMaxConsistency, 0, kMaxConsistency);
  try {
    if (proc.pinnedMessenger()) takeBaseCurve(proc, value);
  } catch (...) {
    try {
      showNoCurve();
      showMessage(proc, "|c#missingCoefficients");
    } catch (...) {
      // The host does not even give the text: the curves at zero are seen.
    }
    return;
  }
  routine("CtrRecipe ccePulpType_Change: ", [&] {
    if (optCurve(PulpType).Value()) setCurveType(value, ccePulpType.Modified());
  });
}

void RecipeCurve::takeBaseCurve(Procedure& proc, const std::string& pulpType) {
  const Document tree = proc.messenger().GetTreeDocument();
  if (!tree) return;
  clearMessage();
  const Node node = chooseBaseCurve(tree, mSensorType, pulpType, mSwRevision);
  if (!node) {
    if (const std::string message = messageWithoutCurve(mSensorType, pulpType, mSwRevision); !message.empty()) {
      showMessage(proc, message);
      cgmValidation.Enabled(CtrGraphMenu::ZoomToSamples, false);
    }
    return;
  }
  constexpr float kAboveCurve = 3.0f;
  readCubic(node, desktop().locale(), mCurve);
  SetConsistencyAxis(0, mCurve.maxConsistency + kAboveCurve, 0, kMaxConsistency);
  readEndLines(node, desktop().locale(), mCurve);
  cgmValidation.Enabled(CtrGraphMenu::ZoomToSamples, true);
  SetConsistencyLabel(pulpType.find("ULIN") != pulpType.npos ? "%" : "Lab / %Cs");
  DrawCurve(BasicTuning, mCurve.coefficients, kNoCorrection);
  DrawCalibratedCurve();
}

// The end lines that were there stay.
void RecipeCurve::showNoCurve() {
  cgmValidation.Enabled(CtrGraphMenu::ZoomToSamples, false);
  DrawCurve(BasicTuning, {}, kNoCorrection);
  DrawCurve(Calibrated, {}, kNoCorrection);
}

void RecipeCurve::ctePolynomeFactor_Change() {
  routine("CtrRecipe ctePolynomeFactor_Change: ", [&] {
    if (!optCurve(Polynome).Value()) return;
    bool correct = true;
    ctePolynomeFactor.each([&](int, const CtrTextEdit& factor) { correct = correct && factor.Correct(); });
    if (!correct) {
      clearSeries({TypedPolynome, Calibrated});
      pesgoValidation.Rebuild(0);
      cgmValidation.Enabled(CtrGraphMenu::ZoomToSamples, false);
      return;
    }
    clearMessage();
    mCurve.takeWholeRange();
    SetConsistencyAxis(0, kMaxConsistency, 0, kMaxConsistency);
    DrawCurve(TypedPolynome, typedCubic(), kNoCorrection);
    DrawCalibratedCurve();
    cgmValidation.Enabled(CtrGraphMenu::ZoomToSamples, true);
  });
}

void RecipeCurve::ctePn_Change() { DrawCalibratedCurve(); }

// --- calibration

std::optional<double> RecipeCurve::GetLabConsistency(int row) {
  std::optional<double> laboratory;
  routine("CtrRecipe GetLabConsistency: ", [&] {
    const Locale& locale = desktop().locale();
    const double found = modTools::ToLocalNumber(lsvConsistency.Cell(row, 1), locale);
    laboratory = fillerCorrected(found, modTools::ToLocalNumber(lsvFiller.Cell(row, 1), locale));
  });
  return laboratory;
}

// A laboratory value that does not pass its limits stands in the row all the same; nothing is computed from it.
bool RecipeCurve::canCalibrate(int row) const {
  return caeSample(row - 1)->Correct(SampleItems::kLabConsistency) && caeSample(row - 1)->Correct(SampleItems::kLabFiller);
}

void RecipeCurve::propose(int index, double value) {
  ctePn(index).Text(plainText(value, separator()));
  ctePn(index).MarkEdited(true);
}

void RecipeCurve::CalibratePoint(int row) {
  routine("CtrRecipe CalibratePoint: ", [&] {
    if (!canCalibrate(row)) return;
    const auto uncompensated = number(caeReadonlySample(row - 1)->Text(SampleItems::kUncompensatedConsistency));
    if (!uncompensated) return;
    const auto laboratory = GetLabConsistency(row);
    if (!laboratory) return;
    const auto slope = number(ctePn(0).Text());
    if (!slope) return;
    propose(1, calibrateOnePoint({*laboratory, *uncompensated}, *slope).offset);
  });
}

void RecipeCurve::CalibrateTwoPoints(int rowA, int rowB) {
  routine("CtrRecipe CalibrateTwoPoints: ", [&](Procedure& proc) {
    auto result = lineThrough(rowA, rowB);
    if (!result) return;
    if (result->tooClose) {
      proc.messenger().ShowMessage("twoPointCalibration", "msgEqualConsistencies");
      // While he reads it the user may take a point out, or get another value for it.
      if (!lsvUsed.Checked(rowA) || !lsvUsed.Checked(rowB)) return;
      result = lineThrough(rowA, rowB);
    }
    if (!result || !result->line) return;
    propose(0, result->line->slope);
    propose(1, result->line->offset);
  });
}

std::optional<TwoPointCalibration> RecipeCurve::lineThrough(int rowA, int rowB) {
  if (!canCalibrate(rowA) || !canCalibrate(rowB)) return std::nullopt;
  const auto labA = GetLabConsistency(rowA);
  if (!labA) return std::nullopt;
  const auto labB = GetLabConsistency(rowB);
  if (!labB) return std::nullopt;
  const auto uncompensated = [&](int row) {
    return modTools::ToLocalNumber(caeReadonlySample(row - 1)->Text(SampleItems::kUncompensatedConsistency), desktop().locale());
  };
  return calibrateTwoPoints({*labA, uncompensated(rowA)}, {*labB, uncompensated(rowB)});
}

std::optional<LabPoint> RecipeCurve::labPoint(int row) const {
  const auto cell = [row](const ListView& list) { return asText(list.get("Cell", std::array{row, 1})); };
  const auto laboratory = number(cell(lsvConsistency)), filler = number(cell(lsvFiller));
  const auto uncompensated = number(caeReadonlySample(row - 1)->Text(SampleItems::kUncompensatedConsistency));
  if (!laboratory || !filler || !uncompensated || !canCalibrate(row)) return std::nullopt;
  return LabPoint{fillerCorrected(*laboratory, *filler), *uncompensated};
}

std::optional<CalibrationLine> RecipeCurve::lineOf(const std::string& slope, const std::string& offset) const {
  const auto p1 = number(slope), p2 = number(offset);
  if (!p1 || !p2) return std::nullopt;
  return CalibrationLine{*p1, *p2};
}

// --- P1 and P2 of the device

void RecipeCurve::keepCorrection() {
  mSlopeText = ctePn(0).Text();
  mOffsetText = ctePn(1).Text();
}

void RecipeCurve::restoreCorrection() {
  const auto asStored = [](const std::string& text) { return withSeparator(text, ',', '.'); };
  const auto restore = [&](CtrTextEdit& edit, const std::string& text) {
    edit.Text(text);
    // The text has the decimals of the screen, the device may have more.
    if (asStored(text) == asStored(edit.storedText())) edit.showStored();
  };
  restore(ctePn(0), std::string(mSlopeText));
  restore(ctePn(1), std::string(mOffsetText));
}

// Half of a new line would drive the measurement anywhere: while one of the two is wrong the other is not collected either.
void RecipeCurve::holdTogether() {
  routine("CtrRecipe holdTogether: ", [&] {
    const auto is = [&](int index, const char* property) { return asBool(ctePn(index).get(property, {})); };
    const bool isHeld = is(0, "Modified") && is(1, "Modified") && !(is(0, "Correct") && is(1, "Correct"));
    for (const int index : {0, 1})
      if (is(index, "KeepLocal") != isHeld) ctePn(index).KeepLocal(isHeld);
  });
}

void RecipeCurve::showOrigins() {
  routine("CtrRecipe showOrigins: ", [&] {
    ctePn.each([&](int index, const CtrTextEdit& edit) {
      const bool isEdited = asBool(edit.get("Modified", {}));
      const std::string key = edit.stored().empty() && !isEdited ? "" : mOrigins[index].key(isEdited);
      Label& label = lblPnOrigin(index);
      if (asText(label.get("Tag", {})) == key) return;
      label.Tag(key);
      const Ref<ITextTable> texts = mTextTable;
      label.Caption(texts && !key.empty() ? texts->GetLabel(key) : key);
    });
  });
}

}  // namespace ostrand
