#pragma once

#include <map>
#include <vector>

#include "simulator/GyreCurves.h"
#include "simulator/GyreRecipe.h"
#include "simulator/Transmitter.h"

namespace ostrand::simulator {

// The samples that a GYRE transmitter keeps, for each recipe the newest thirty, and before them record 0, which tells the
// torque in water. A record has an index, from the oldest on, which moves when a sample is added, and a number, which stays.
//
// A record is told in halves: the wanted recipe and index are written, and the answer holds the half. With the number in both,
// the halves find together:
//
//   host    write recipe1sampleHistory: sampleHistory1Recipe 1, sampleHistory1Index 20
//   device  the same, and historyId 20, historyTime, historyProcessTemperature, historyTorque, historyConsistency,
//           historyUncompensatedConsistency
//   host    write recipe1sampleHistory: sampleHistory2Recipe 1, sampleHistory2Index 20
//   device  the same, and historyId 20, historyRecipe 1, historyDeviation, historyMin, historyMax, historyLabConsistency,
//           historyLabFiller
//
// What the laboratory says is written back under historyRecipe and historyId. It is an empty text as long as nobody has said
// anything, and can be made so again.
class GyreHistory {
 public:
  static constexpr std::size_t kLongest = 30;

  struct Record {
    int id;            // 0 of the water record
    std::string time;  // "2026-01-05 08:00:01"
    double temperature;
    double torque;                                   // Nm, of pulp and water
    double consistency, deviation, lowest, highest;  // %Cs, by the recipe as it was then
    double laboratory;                               // %Cs, what has been told; NaN for nothing
    double laboratoryFiller;                         // %
    double truth;                                    // %Cs, what the laboratory would find
  };

  // A table that knows no recipes has no samples. The table must outlive it.
  explicit GyreHistory(ParameterTable& table);

  // How many samples the memory says that there are, before any is added.
  const std::map<int, std::size_t>& promised() const { return mPromised; }
  void setWater(Record water) { mWater = std::move(water); }
  // The record gets the next number of its recipe.
  void add(int recipe, Record record);
  const Record* withId(int recipe, int id) const;

  // The straight line through what the laboratory has found in the recipe's samples; nothing with fewer than two values.
  std::optional<GyreCurve> curveOfLaboratory(int recipe) const;
  double waterTorque() const { return mWater.torque; }
  // Whether records are told with the torque of the water in them.
  void setTellsWater(bool tellsWater) { mTellsWater = tellsWater; }

  // --- On writes. The memory looks as it would after them

  static bool isAbout(const Writing& writing);
  Judgement verdictOn(const std::vector<Writing>& writings) const;
  void takeEffect(const Writing& writing);
  static std::vector<std::string> alsoTold(const std::vector<Writing>& writings);

 private:
  using Records = std::vector<Record>;  // from the oldest on

  const Record* withIndex(int recipe, int index) const;
  // The record that is addressed by recipe and number.
  Record* addressed();
  void show(int recipe, const Record& record);

  ParameterTable& mTable;
  std::map<int, std::size_t> mPromised;
  std::map<int, Records> mRecords;
  std::map<int, int> mLastId;
  Record mWater{};
  bool mTellsWater = false;
};

}  // namespace ostrand::simulator
