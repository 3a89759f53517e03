#pragma once

#include <optional>
#include <string>
#include <vector>

#include "benchmarks/Work.h"

namespace ostrand::bench {

// How a row is read, and what it must reach; without a limit it is there to be known.
struct Figure {
  enum Form {
    TimesFaster,  // theirs / ours, at least the limit
    Share,        // ours / theirs, at most the limit
    Exponent,     // of the growth from theirs to ours while the size grows `growth` times, at most the limit
    Seconds,      // ours alone, at most the limit
    Number,       // no work but a number, at most the limit
  };
  Form form;
  std::optional<double> limit = {};
  double growth = 1;
};

struct Row {
  std::string what;
  Work ours;
  std::string peer;
  Work theirs;
  Figure figure;
  // Numbers instead of the works.
  std::function<double()> ourNumber = {};
  std::function<double()> theirNumber = {};
};

struct Section {
  std::string title;
  std::vector<Row> rows;
};

// Everything that is measured, in the order of the table.
std::vector<Section> sections();

}  // namespace ostrand::bench
