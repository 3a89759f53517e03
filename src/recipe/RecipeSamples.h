#pragma once

#include <array>
#include <string>
#include <vector>

#include "recipe/RecipeCurve.h"

namespace ostrand {

// The samples of a recipe: the newest records of the device's history, in tables that act as one. A row, counted from 1, is one
// sample across all of them, in both of its editors and as a mark in the chart. The box of a row takes the sample into the
// calibration.
class RecipeSamples : public RecipeCurve {
 public:
  // All rows are free again. They keep their texts until new records take them.
  void ClearHistoryTable();

 protected:
  ~RecipeSamples() override;
  void connect() override;

  void addItems();
  void lsvUsed_ItemCheck(int row);
  void lsvValidation_ItemCheck(int row);

  // Asks for the newest records, the newest first, so that it gets row 1; a release in between lets no further request leave.
  void LoadSamples(int count);
  // A record of the history, or half of one, finds its row.
  void takeRecord(Procedure& proc, const Document& doc, const Node& id);
  // What the curve leaves of each laboratory value: with the correction of the device, and with what is proposed.
  void showResiduals();

  bool mSubtractWater = false;
  std::string mRecipeDigit;

 private:
  void RequestSample(int index);
  bool sendRequest(const std::string& half, int index);
  void takeWater(Procedure& proc, const Document& doc);
  void caeReadonlySample_Change(int index, const std::string& itemTag, const std::string& now);
  void caeSample_Change(int index, const std::string& itemTag, const std::string& now);
  void takeLabEdit(ListView& list, int row, std::string& text);
  void optAction_Click(int index);
  void pesgoValidation_DataHotSpot(bool doubleClick, int series, int point);
  bool isActing(Action action) const { return optAction(action).Value() && optAction(action).Enabled(); }
  void showResidual(int row);
  Color colorOf(int row, const std::string& itemTag) const;
  void showPointText(int row);
  std::string pointText(int row) const;

  std::array<int, kRows> mHistoryIds{};  // by row; 0 is free
  double mWaterTorque = 0.05;
  std::vector<Signal<const std::string&, const std::string&>::Id> mListening;  // to the editors, in their order
};

}  // namespace ostrand
