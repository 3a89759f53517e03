#pragma once

#include <string>
#include <string_view>

// The names of a sample's values, on the wire, in the data set and in the tables.
namespace ostrand::SampleItems {

// Written with the sample.
inline const std::string kRecipe = "historyRecipe";
inline const std::string kId = "historyId";
inline const std::string kLabConsistency = "historyLabConsistency";
inline const std::string kLabFiller = "historyLabFiller";
// Read only.
inline const std::string kConsistency = "historyConsistency";
inline const std::string kDeviation = "historyDeviation";
inline const std::string kMax = "historyMax";
inline const std::string kMin = "historyMin";
inline const std::string kProcessTemperature = "historyProcessTemperature";
inline const std::string kTime = "historyTime";
inline const std::string kTorque = "historyTorque";
inline const std::string kUncompensatedConsistency = "historyUncompensatedConsistency";

// The contexts of both halves of a sample, up to its number; as the design has them.
inline const std::string kSampleContext = "recipe1sample";
inline const std::string kReadonlyContext = "recipe1sampleHistory";

}  // namespace ostrand::SampleItems
