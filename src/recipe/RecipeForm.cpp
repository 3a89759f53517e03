#include "recipe/RecipeForm.h"

#include <algorithm>

#include "platform/controls/Form.h"
#include "recipe/SampleItems.h"

namespace ostrand {

namespace {

const std::string kDesignTag = "recipe1";
constexpr int kMargin = 240;  // twips, as all measures of a form

}  // namespace

// clang-format off
void RecipeForm::declare(Form& form) {
  FrameForm rows = form.rows();
  rows.split({6, 7})
      .options(lblCurve, "curveType", {{&optCurve.at(PulpType), "pulpType"}, {&optCurve.at(SpecialGrade), "specialGrade"}, {&optCurve.at(Polynome), "polynome"}})
      .row(lblSensorType, "sensorType",      cceSensorType, "ctr_sensorType")
      .row(lblPulpType,   "pulpType", ccePulpType,   "ctr_recipe1PulpType")
      .heads({{&lblPolynome.at(3), "polynomeC3"}, {&lblPolynome.at(2), "polynomeC2"}, {&lblPolynome.at(1), "polynomeC1"}, {&lblPolynome.at(0), "polynomeC0"}})
      .row(ctePolynomeFactor.at(3), "ctr_recipe1PolynomeC3").cell(ctePolynomeFactor.at(2), "ctr_recipe1PolynomeC2")
          .cell(ctePolynomeFactor.at(1), "ctr_recipe1PolynomeC1").cell(ctePolynomeFactor.at(0), "ctr_recipe1PolynomeC0")
      .strip({{&lsvUsed, 400}, {&lsvValidation, 3535}, {&lsvConsistency, 1100}, {&lsvFiller, 1000}, {&lsvResidual, 1500}})
      .beside()
      .options(lblAction, "calibration", {{&optAction.at(OnePoint), "onePointCalibration"}, {&optAction.at(TwoPoints), "twoPointCalibration"}, {&optAction.at(CurveAdjustment), "curveAdjustment"}})
      .row(lblPn.at(0), "linearizationSlopeP1",  ctePn.at(0), "ctr_recipe1LinearizationSlopeP1").cell(lblPnOrigin.at(0), "")
      .row(lblPn.at(1), "linearizationOffsetP2", ctePn.at(1), "ctr_recipe1LinearizationOffsetP2").cell(lblPnOrigin.at(1), "")
      .row(lblRecipe,   "filler",                cteRecipe,   "ctr_recipe1Filler").cell(picMaximize, "maximize")
      .strip({{&pesgoValidation, 1}})
      .caption(optCurve(PulpType),   "Pulp Type").caption(optCurve(SpecialGrade), "Special grade").caption(optCurve(Polynome), "Polynome")
      .caption(optAction(OnePoint),  "1-point calibration").caption(optAction(TwoPoints), "2-point calibration").caption(optAction(CurveAdjustment), "Curve adjustment")
      .caption(lblPn(0), "Slope P1").caption(lblPn(1), "Offset P2").caption(picMaximize, "Maximize");

  form.hidden(coeCurve, "ctr_recipe1CurveType");
  form.hidden(cgmValidation, "");
  for (int i = 0; i < kRows; ++i) form.hidden(caeSample.at(i), SampleItems::kSampleContext + std::to_string(i + 1));
  for (int i = 0; i < kRows; ++i) form.hidden(caeReadonlySample.at(i), SampleItems::kReadonlyContext + std::to_string(i + 1));

  struct { ListView* list; const char* header; const char* tag; ListView::Content content; } const columns[] = {
      {&lsvUsed,        "",                "",             ListView::Content::Text},
      {&lsvValidation,  "",                "",             ListView::Content::Text},
      {&lsvValidation,  "Time",            "",             ListView::Content::Text},
      {&lsvValidation,  "degC",            "",             ListView::Content::Text},
      {&lsvValidation,  "Nm",              "",             ListView::Content::Text},
      {&lsvValidation,  "%Cs",             "",             ListView::Content::Text},
      {&lsvConsistency, "--- Lab %Cs",     "",             ListView::Content::Text},
      {&lsvFiller,      "--- Filler %",    "fillerHeader", ListView::Content::Text},
      {&lsvResidual,    "",                "residual",     ListView::Content::Number},
      {&lsvResidual,    "",                "residualProposed", ListView::Content::Number},
  };
  for (const auto& [list, header, tag, content] : columns) {
    list->AddColumn(tag, 0, content);
    list->Header(list->ColumnCount(), header);
  }
  lsvUsed.CheckBoxes(true);
  lsvConsistency.LabelEdit(true);
  lsvFiller.LabelEdit(true);
}
// clang-format on

void RecipeForm::resized() {
  routine("CtrRecipe UserControl_Resize - Error", [&] {
    // The tables and the chart take what the rows above leave; each keeps its share of the width.
    const int tablesRight = lsvResidual.Left() + lsvResidual.Width();
    const int before = pesgoValidation.Left() + pesgoValidation.Width() + kMargin;
    const auto scaled = [&](int x) { return static_cast<int>(static_cast<long long>(x) * width() / std::max(1, before)); };
    for (ListView* list : {&lsvUsed, &lsvValidation, &lsvConsistency, &lsvFiller, &lsvResidual}) {
      const int left = scaled(list->Left()), right = scaled(list->Left() + list->Width());
      list->Move(left, list->Top(), right - left, std::max(0, height() - list->Top() - kMargin));
    }
    const int left = std::max(scaled(pesgoValidation.Left()), scaled(tablesRight));
    pesgoValidation.Move(left, pesgoValidation.Top(), std::max(0, width() - kMargin - left), std::max(0, height() - pesgoValidation.Top() - kMargin));
  });
}

void RecipeForm::replaceDesignTag(const std::string& by) {
  const auto replaced = [&](std::string text) {
    for (std::size_t at = text.find(kDesignTag); at != text.npos; at = text.find(kDesignTag, at + by.size())) text.replace(at, kDesignTag.size(), by);
    return text;
  };
  if (by == kDesignTag) return;
  for (Control* const control : controls()) {
    if (const std::string tag = control->Tag(); tag.find(kDesignTag) != tag.npos) control->Tag(replaced(tag));
    // A nested editor keeps the context itself; the control around it has none.
  }
  for (const auto* editors : {&caeSample, &caeReadonlySample})
    editors->each([&](int, const Nested<CtrAnyEdit>& editor) { editor->ContextTag(replaced(editor->ContextTag())); });
}

// Twips; a table of one column is filled by it.
void RecipeForm::setColumnWidths(ListView& list) {
  if (&list == &lsvValidation) {
    constexpr int kWidths[] = {300, 1550, 505, 580, 600};
    for (int column = Mark; column <= Consistency; ++column) list.ColumnWidth(column, kWidths[column - 1]);
  } else {
    for (int column = 1; column <= list.ColumnCount(); ++column) list.ColumnWidth(column, list.Width() / list.ColumnCount());
  }
}

void RecipeForm::DisableEditables(Locked which) {
  if (which == All || which == CurveFields) {
    ccePulpType.Enabled(false);
    lblPolynome.each([](int, Label& label) { label.Enabled(false); });
    ctePolynomeFactor.each([](int, CtrTextEdit& factor) { factor.Enabled(false); });
  }
  if (which == All || which == CorrectionFields) {
    ctePn.each([](int, CtrTextEdit& edit) { edit.Enabled(false); });
    lblPn.each([](int, Label& label) { label.Enabled(false); });
    lsvUsed.BackColor(RecipeColor::kLocked);
  }
}

}  // namespace ostrand
