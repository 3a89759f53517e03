#pragma once

#include <functional>
#include <string>
#include <vector>

#include "recipe/RecipeForm.h"

namespace ostrand {

// The graph of a recipe: which axis shows torque, the ranges and labels of the axes, the message in the middle, single points
// and whole blocks, and what a change of the units makes of them. Points of torque stand in the unit of the table's column.
class RecipeGraph : public RecipeForm {
 protected:
  enum Series { Samples, BasicTuning, TypedPolynome, NotInUse, Calibrated };
  static constexpr float kMaxConsistency = 18.001f;  // of the axis while no curve tells another, in %Cs
  static constexpr float kMaxTorque = 1.5f;          // Nm

  void connect() override;

  void InitializeGraph();
  void SetXAxisTorque(bool onX);
  // Both tick settings go to the one that an axis has: the last call wins, so that a `tickLast` of 0 means automatic ticks. The
  // message follows the middle of the axis.
  void SetConsistencyAxis(float minimum, float maximum, float tickLast, float tickFirst);
  void SetTorqueAxis(float minimum, float maximum, float tickLast, float tickFirst);
  void SetConsistencyLabel(const std::string& text);
  // An empty text stands for the unit of the table's column.
  void SetTorqueLabel(std::string text);
  void SetConsistencyValue(int series, int point, float value);
  void SetTorqueValue(int series, int point, float value);

  // The message in the middle of the chart, told by its key.
  void showMessage(Procedure& proc, const std::string& key);
  void clearMessage();
  // Nothing of these series is seen from here on; nothing is rebuilt.
  void clearSeries(std::initializer_list<Series> series);
  void showColumnUnits(Procedure& proc);  // of ViewSetUnits

  std::vector<float> torqueBlock() const { return mTorqueOnXAxis ? pesgoValidation.XData() : pesgoValidation.YData(); }
  std::vector<float> consistencyBlock() const { return mTorqueOnXAxis ? pesgoValidation.YData() : pesgoValidation.XData(); }
  void setTorqueBlock(const std::vector<float>& block);
  void setConsistencyBlock(const std::vector<float>& block);

  std::string mGraphMessage;  // the key of the message in the middle

 private:
  void pesgoValidation_MouseDown();
  void picMaximize_Click();
  void setAxis(bool isX, float minimum, float maximum, float tickLast, float tickFirst);

  bool mTorqueOnXAxis = false;
};

}  // namespace ostrand
