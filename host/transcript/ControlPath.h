#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/types/ITaviView.h"

namespace ostrand {

class Component;
class Control;

// Controls by the names that transcripts give them: as in the code, with the index of a control array in parentheses,
// controls of a nested component behind a point, and @TAG for the first control that bears this tag.
//
//   Sample1Button(0)   CtrRecipe1.ctePn(0)   @ctr_activeRecipe   CtrRecipe1.@ctr_x

// nullptr if there is none.
Control* findControl(const ControlCollection& controls, std::string_view name);
// The name of a control as seen from these controls; empty if it is not among them.
std::string nameOfControl(const ControlCollection& controls, const Control& control);
// What is nested in a control; nullptr if it is no place of a component.
Component* nestedIn(const Control& control);

// "cteA(0).Text" or "lsv.Cell(2,1)".
struct PropertyName {
  std::string control;
  std::string property;
  std::vector<int> indices;

  // Nothing if the text is no such name.
  static std::optional<PropertyName> read(std::string_view text);
};

}  // namespace ostrand
