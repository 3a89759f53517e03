#pragma once

#include <vector>

namespace ostrand {

class Control;

// What a form has declared, for whoever shows it: how the controls stand to each other. Measures are the affair of who shows it.

// One spot of a row. Where several controls stand on it, one at a time is to be seen.
struct FormCell {
  int column = 0;  // from the left; column 0 is the labels'
  std::vector<Control*> controls;
};

// A row of which nothing is visible takes no room.
struct FormRow {
  Control* label = nullptr;     // tells what the controls of the row are
  std::vector<FormCell> cells;  // from left to right
  bool heads = false;           // labels that tell what stands in the columns below
  int share = 0;                // above 0 the row takes the whole width, which its cells share, and this share of the height that is left
};

// Rows whose columns stand below each other.
struct FormBlock {
  int share = 1;  // of the width, where blocks stand side by side
  std::vector<FormRow> rows;

  // The head of the column in which a control stands, nullptr where it has none.
  const Control* headOf(const FormRow& row, const FormCell& cell) const;
};

// What is seen together: a frame, a nested panel, or the controls of a component without frames.
struct FormFrame {
  Control* front = nullptr;  // the frame or nested panel
  Control* title = nullptr;
  Control* stamp = nullptr;
  std::vector<FormBlock> blocks{FormBlock{}};  // side by side
  bool writes = false;                         // it has a button that writes to the device
};

}  // namespace ostrand
