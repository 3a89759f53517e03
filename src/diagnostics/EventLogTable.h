#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "platform/xml/Document.h"

namespace ostrand {

// The parameters of the event logs in the data set: a node for each kind, category and row. What the device
// answers is written into them, so that the data set follows the device.
class EventLogTable {
 public:
  static constexpr int kRows = 8;

  struct Cell {
    int kind;      // 0 event, 1 count
    int category;  // 0 error, 1 warning, 2 information
    int row;       // from 1
  };
  // Where a parameter or item of this name belongs; nothing if the name does not tell, or if its row is past the
  // table's. Error 9 for row 0.
  static std::optional<Cell> cellOf(std::string_view name);

  bool isBuilt() const { return static_cast<bool>(mNodes[0][0][0]); }
  void build(const Document& dataSet);
  void clear() { mNodes = {}; }
  // Error 91 where the data set has no such parameter.
  void write(const Cell& cell, const std::string& value);

 private:
  Node& at(const Cell& cell);

  static constexpr int kKinds = 2;
  static constexpr int kCategories = 3;
  std::array<std::array<std::array<Node, kRows>, kCategories>, kKinds> mNodes;
};

}  // namespace ostrand
