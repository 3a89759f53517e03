#pragma once

#include <optional>
#include <set>
#include <string>

#include "platform/xml/Document.h"

namespace ostrand {

class DataSet;

// What a request does at the device.
enum class Effect {
  Plain,  // reads, or sets values
  Acts,   // makes the device do something: forces an output, starts a sample, calibrates, resets
  Stops,  // ends what such a request began, and does nothing else
};

struct Action {
  Effect effect = Effect::Plain;
  // What it is about: the items that hold an output, kSample, and any other item that acts. A stop ends the waiting requests
  // that are about the same.
  std::set<std::string> about;
};

inline constexpr const char* kSample = "sample";

// A sample that the device takes, and how it was started: that says how it is stopped.
struct RunningSample {
  enum class Start {
    Written,    // `sampleStart` 0 or 1 written; the reading of its values ends it
    Read,       // `sampleStart` read; likewise
    Executed,   // `executeAction` 3 or 4; 5 or 6 ends it
    Commanded,  // `sampleAction` 124; 125 ends it
  } start;
  int number = 1;  // 1 or 2
};

// The sample that a request starts.
std::optional<RunningSample> startedSample(const Document& request);

// What ends it, as a request named "sampling".
Document stopOf(const RunningSample& sample, const DataSet* dataSet);

// Whether a write only tells the device which record of its history is asked for: it is how such a record is read.
bool selectsRecord(const Document& request);

// `running` is the sample that the device may be taking. Without a data set the names alone tell what acts.
Action actionOf(const Document& request, const DataSet* dataSet, const std::optional<RunningSample>& running);

}  // namespace ostrand
