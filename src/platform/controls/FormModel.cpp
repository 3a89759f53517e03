#include "platform/controls/FormModel.h"

namespace ostrand {

const Control* FormBlock::headOf(const FormRow& row, const FormCell& cell) const {
  const Control* head = nullptr;
  for (const FormRow& each : rows) {
    if (&each == &row) return row.heads ? nullptr : head;
    if (!each.heads) continue;
    head = nullptr;
    for (const FormCell& at : each.cells)
      if (at.column == cell.column) head = at.controls.front();
  }
  return nullptr;
}

}  // namespace ostrand
