#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "anyedit/CtrAnyEdit.h"
#include "platform/controls/Chart.h"
#include "platform/controls/Component.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrGraphMenu.h"
#include "platform/controls/CtrOptionEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/Nested.h"
#include "platform/controls/PlainControls.h"

namespace ostrand {

// The colours of a recipe. Those of the tables bear the numbers of the system's colours, blue in the high byte; whoever shows them
// goes by their role.
namespace RecipeColor {
constexpr Color system(Color::Role role, unsigned index) { return {role, static_cast<int>(0x80000000U | index)}; }

inline constexpr Color kWindow = system(Color::Role::Window, 0x05);
inline constexpr Color kLocked{Color::Role::Given, 0xF0F1F2};
inline constexpr Color kUnchecked = system(Color::Role::DisabledText, 0x11);
inline constexpr Color kChecked{Color::Role::Text, 0x000000};
inline constexpr Color kWrong{Color::Role::ErrorText, 0x0000FF};
inline constexpr Color kEdited{Color::Role::EditedText, 0xFF0000};
// Of the chart.
inline constexpr Color kBlue{Color::Role::Given, 0x0000FF};
inline constexpr Color kGreen{Color::Role::Given, 0x00FF00};
inline constexpr Color kUncheckedPoint{Color::Role::Given, 0x888866};
}  // namespace RecipeColor

// One recipe of a GYRE transmitter on a form: which curve it uses, its correction P1 and P2, its filler, the samples of the
// device's history, and a chart that lays all of it over each other. Here stand the controls; what they do is told in the
// classes above, of which each knows only those below it: the graph, the curve, the samples, and the recipe's life.
//
// The design is written for "recipe1"; the tags take the instance's own name when it is placed.
class RecipeForm : public Component {
 public:
  static constexpr int kRows = 17;  // of the tables: samples that are shown at once

  std::string_view objectName() const override { return "CtrRecipe"; }

 protected:
  enum Curve { PulpType, SpecialGrade, Polynome };
  enum Action { OnePoint, TwoPoints, CurveAdjustment };
  // Of lsvValidation. The first has neither key nor header.
  enum Column { Mark = 1, Time, Temperature, Torque, Consistency };
  enum Locked { All, CurveFields, CorrectionFields };

  void declare(Form& form) override;
  void resized() override;  // UserControl_Resize

  // The body of a routine. It ends at its error, which is told under this prefix; what has changed so far stays. True if it
  // came to its end.
  template <class F>
  bool routine(std::string_view prefix, F&& body) {
    const Ref<Component> pin(this);
    Procedure proc(mMessenger, lastError(), prefix);
    return proc.all([&] {
      if constexpr (std::invocable<F&, Procedure&>)
        body(proc);
      else
        body();
    });
  }

  void replaceDesignTag(const std::string& by);
  void setColumnWidths(ListView& list);
  void DisableEditables(Locked which);
  char separator() const { return desktop().locale().decimalSeparator; }
  // The unit in which the chart and the table show torque.
  std::string torqueUnit() const { return lsvValidation.Header(Torque); }

  ControlArray<OptionButton> optCurve{"optCurve"};
  ControlArray<OptionButton> optAction{"optAction"};
  CtrComboEdit cceSensorType{"cceSensorType"};
  CtrComboEdit ccePulpType{"ccePulpType"};
  CtrOptionEdit coeCurve{"coeCurve"};
  ControlArray<Label> lblPolynome{"lblPolynome"};
  ControlArray<CtrTextEdit> ctePolynomeFactor{"ctePolynomeFactor"};  // c0 to c3
  ControlArray<Label> lblPn{"lblPn"};
  ControlArray<CtrTextEdit> ctePn{"ctePn"};  // P1 and P2
  ControlArray<Label> lblPnOrigin{"lblPnOrigin"};
  CtrTextEdit cteRecipe{"cteRecipe"};  // the filler
  ListView lsvUsed{"lsvUsed"};
  ListView lsvValidation{"lsvValidation"};
  ListView lsvConsistency{"lsvConsistency"};
  ListView lsvFiller{"lsvFiller"};
  ListView lsvResidual{"lsvResidual"};
  ControlArray<Nested<CtrAnyEdit>> caeSample{"caeSample"};
  ControlArray<Nested<CtrAnyEdit>> caeReadonlySample{"caeReadonlySample"};
  Chart pesgoValidation{"pesgoValidation"};
  CtrGraphMenu cgmValidation{"cgmValidation"};
  CommandButton picMaximize{"picMaximize"};

  bool mLoaded = false;  // the first offline data has come

 private:
  Label lblCurve{"lblCurve"};
  Label lblAction{"lblAction"};
  Label lblSensorType{"lblSensorType"};
  Label lblPulpType{"lblPulpType"};
  Label lblRecipe{"lblRecipe"};
};

}  // namespace ostrand
