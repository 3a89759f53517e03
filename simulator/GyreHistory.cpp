#include "simulator/GyreHistory.h"

#include <algorithm>
#include <cmath>

#include "simulator/RecipeNames.h"

namespace ostrand::simulator {

namespace {

constexpr int kRecipes = 4;
constexpr int kHighestId = 65535;

const std::vector<std::string> kFirstHalf = {"historyId",     "historyTime",        "historyProcessTemperature",
                                             "historyTorque", "historyConsistency", "historyUncompensatedConsistency"};
const std::vector<std::string> kSecondHalf = {"historyId",  "historyRecipe",         "historyDeviation", "historyMin",
                                              "historyMax", "historyLabConsistency", "historyLabFiller"};

// -1 for a value that the table does not have.
int whole(double number) { return std::isnan(number) ? -1 : static_cast<int>(std::clamp(number, -1.0, 1e6)); }

bool contains(const std::vector<Writing>& writings, std::string_view name) {
  return std::any_of(writings.begin(), writings.end(), [&](const Writing& writing) { return writing.parameter->name == name; });
}

}  // namespace

GyreHistory::GyreHistory(ParameterTable& table) : mTable(table) {
  for (int recipe = 1; recipe <= kRecipes; ++recipe)
    if (const std::string name = recipeName(recipe, "SampleCount"); mTable.find(name)) {
      const auto promised = static_cast<std::size_t>(std::clamp(mTable.number(name, 0), 0.0, static_cast<double>(kLongest)));
      mPromised[recipe] = promised;
      mRecords[recipe];
      mTable.set(name, 0);
    }
  // A record is found by recipe and number: so they are written too, although nobody can change them.
  for (const char* const name : {"historyRecipe", "historyId"})
    if (Parameter* const key = mTable.find(name)) key->writable = true;
  for (const char* const name : {"historyLabConsistency", "historyLabFiller"})
    if (Parameter* const told = mTable.find(name)) told->mayBeEmpty = true;
}

void GyreHistory::add(int recipe, Record record) {
  const auto found = mRecords.find(recipe);
  if (found == mRecords.end()) return;
  Records& records = found->second;
  int& last = mLastId[recipe];
  last = last % kHighestId + 1;
  record.id = last;
  records.push_back(std::move(record));
  if (records.size() > kLongest) records.erase(records.begin());
  mTable.set(recipeName(recipe, "SampleCount"), static_cast<double>(records.size()));
}

const GyreHistory::Record* GyreHistory::withIndex(int recipe, int index) const {
  const auto records = mRecords.find(recipe);
  if (records == mRecords.end() || index < 0 || index > static_cast<int>(records->second.size())) return nullptr;
  return index == 0 ? &mWater : &records->second[static_cast<std::size_t>(index) - 1];
}

const GyreHistory::Record* GyreHistory::withId(int recipe, int id) const {
  const auto records = mRecords.find(recipe);
  if (records == mRecords.end()) return nullptr;
  const auto found = std::find_if(records->second.begin(), records->second.end(), [&](const Record& record) { return record.id == id; });
  return found == records->second.end() ? nullptr : &*found;
}

GyreHistory::Record* GyreHistory::addressed() {
  return const_cast<Record*>(withId(whole(mTable.number("historyRecipe")), whole(mTable.number("historyId"))));
}

std::optional<GyreCurve> GyreHistory::curveOfLaboratory(int recipe) const {
  const auto records = mRecords.find(recipe);
  double count = 0, x = 0, y = 0, xx = 0, xy = 0;
  if (records != mRecords.end())
    for (const Record& record : records->second) {
      if (std::isnan(record.laboratory)) continue;
      const double torque = record.torque - mWater.torque;
      const double fibres = record.laboratory * (1 - (std::isnan(record.laboratoryFiller) ? 0 : record.laboratoryFiller) / 100);
      count += 1;
      x += torque;
      y += fibres;
      xx += torque * torque;
      xy += torque * fibres;
    }
  constexpr double kLeastSpread = 1e-6;
  const double spread = count * xx - x * x;
  if (count < 2 || spread < kLeastSpread) return std::nullopt;
  GyreCurve line;
  line.factors[1] = (count * xy - x * y) / spread;
  line.factors[0] = (y - line.factors[1] * x) / count;
  return line;
}

// --- Writes ---

bool GyreHistory::isAbout(const Writing& writing) {
  const std::string& name = writing.parameter->name;
  return name.starts_with("sampleHistory") || name.starts_with("history");
}

Judgement GyreHistory::verdictOn(const std::vector<Writing>& writings) const {
  for (const std::string half : {"sampleHistory1", "sampleHistory2"}) {
    const std::string recipe = half + "Recipe";
    const std::string index = half + "Index";
    const bool hasRecipe = contains(writings, recipe);
    if (!hasRecipe && !contains(writings, index)) continue;
    if (!hasRecipe || !contains(writings, index)) return {Verdict::InvalidSelection, {hasRecipe ? recipe : index}};
    if (!withIndex(whole(mTable.number(recipe)), whole(mTable.number(index)))) return {Verdict::NoDataAvailable, {recipe, index}};
  }
  const bool isLaboratory = std::any_of(writings.begin(), writings.end(), [](const Writing& w) { return w.parameter->name.starts_with("history"); });
  if (!isLaboratory) return {};
  // Never the record that happens to be the last one told.
  if (!contains(writings, "historyRecipe") || !contains(writings, "historyId")) return {Verdict::InvalidSelection, {"historyRecipe", "historyId"}};
  const bool isKnown = withId(whole(mTable.number("historyRecipe")), whole(mTable.number("historyId")));
  return isKnown ? Judgement{} : Judgement{Verdict::NoDataAvailable, {"historyRecipe", "historyId"}};
}

void GyreHistory::takeEffect(const Writing& writing) {
  const std::string& name = writing.parameter->name;
  if (name == "sampleHistory1Index" || name == "sampleHistory2Index") {
    const int recipe = whole(mTable.number(name == "sampleHistory1Index" ? "sampleHistory1Recipe" : "sampleHistory2Recipe"));
    if (const Record* const record = withIndex(recipe, whole(writing.value.number))) show(recipe, *record);
  } else if (name == "historyLabConsistency" || name == "historyLabFiller") {
    Record* const record = addressed();
    if (!record) return;
    (name == "historyLabFiller" ? record->laboratoryFiller : record->laboratory) = writing.value.number;
    show(whole(mTable.number("historyRecipe")), *record);
  }
}

void GyreHistory::show(int recipe, const Record& record) {
  const bool isWater = &record == &mWater;
  const double net = isWater ? record.torque : record.torque - mWater.torque;
  mTable.set("historyRecipe", recipe);
  mTable.set("historyId", record.id);
  mTable.set("historyTime", record.time);
  mTable.set("historyProcessTemperature", record.temperature);
  mTable.set("historyTorque", mTellsWater ? record.torque : net);
  mTable.set("historyConsistency", record.consistency);
  // By the curve that the recipe has now: P1 and P2 are to fit that one.
  mTable.set("historyUncompensatedConsistency", isWater ? 0 : GyreRecipe::of(recipe, mTable, *this).uncompensated(net));
  mTable.set("historyDeviation", record.deviation);
  mTable.set("historyMin", record.lowest);
  mTable.set("historyMax", record.highest);
  mTable.set("historyLabConsistency", record.laboratory);
  mTable.set("historyLabFiller", record.laboratoryFiller);
}

std::vector<std::string> GyreHistory::alsoTold(const std::vector<Writing>& writings) {
  std::vector<std::string> told;
  if (contains(writings, "sampleHistory1Index")) told = kFirstHalf;
  if (contains(writings, "sampleHistory2Index")) told.insert(told.end(), kSecondHalf.begin() + (told.empty() ? 0 : 1), kSecondHalf.end());
  return told;
}

}  // namespace ostrand::simulator
