#pragma once

#include <optional>
#include <string>

#include "recipe/BaseCurve.h"
#include "recipe/CurvePoints.h"
#include "recipe/LabCalibration.h"
#include "recipe/PnOrigin.h"
#include "recipe/RecipeGraph.h"

namespace ostrand {

// The curve of a recipe: the base curve of its sensor and pulp or its typed polynome, what the chart shows of it, and how
// laboratory results become a proposal for P1 and P2. The device measures; here is computed what the user sees, and what he may
// then let the host write.
class RecipeCurve : public RecipeGraph {
 protected:
  void connect() override;

  // Rows count from 1.
  void DrawCurve(int series, Coefficients cubic, Correction correction);
  void DrawCalibratedCurve();
  // Nothing where the row has no laboratory value or no filler; that has been reported.
  std::optional<double> GetLabConsistency(int row);
  void CalibratePoint(int row);
  void CalibrateTwoPoints(int rowA, int rowB);

  // A copy of the pulp type: what is asked of the host may change it.
  void ccePulpType_Change(std::string value);
  void ctePolynomeFactor_Change();
  void ctePn_Change();
  void optCurve_Click(int index);
  void coeCurve_Change(std::string value);

  // What is on the screen of P1 and P2 is what a proposal is measured against from here on.
  void keepCorrection();
  // A proposal falls: what is on the screen then is what the device has.
  void restoreCorrection();
  void showOrigins();

  // What the laboratory found in a row and what the device made of it; nothing while one of the numbers is not there.
  std::optional<LabPoint> labPoint(int row) const;
  // The correction on the screen, and that of the device; nothing where they are no numbers.
  std::optional<CalibrationLine> shownLine() const { return lineOf(shownText(ctePn(0)), shownText(ctePn(1))); }
  std::optional<CalibrationLine> deviceLine() const { return lineOf(mSlopeText, mOffsetText); }
  // IsNumeric and its number, as the user writes it.
  std::optional<double> number(const std::string& text) const;

  int mSwRevision = -1;                 // what follows the point; -1 is unknown
  std::string mSensorType;              // the value of cceSensorType
  std::string mSlopeText, mOffsetText;  // P1 and P2 as last read from the device
  PnOrigin mOrigins[2];
  Ref<ITextTable> mTextTable;

 private:
  bool canCalibrate(int row) const;
  void propose(int index, double value);
  // Nothing without a laboratory value of both; that has been reported.
  std::optional<TwoPointCalibration> lineThrough(int rowA, int rowB);
  void takeBaseCurve(Procedure& proc, const std::string& pulpType);
  void showNoCurve();
  void holdTogether();
  void clearCalibrated();
  Coefficients typedCubic() const;
  static std::string shownText(const CtrTextEdit& edit) { return asText(edit.get("Text", {})); }
  std::optional<CalibrationLine> lineOf(const std::string& slope, const std::string& offset) const;
  // Sets coeCurve without its Change. An edit of the user's where he has chosen; else it only follows.
  void setCurveType(const std::string& value, bool byUser);

  BaseCurve mCurve;
  bool mMirrorsDevice = false;                      // the options follow what was read
  const std::string* mCurveTypeBeingSet = nullptr;  // by code
};

}  // namespace ostrand
