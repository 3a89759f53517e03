#pragma once

#include <string>

#include "platform/xml/Node.h"

namespace ostrand {

// What a parameter says when it has no limit: the largest double but for its last digits, and its negative.
inline constexpr double kNoMaximum = 1.79769313486231E+308;
inline constexpr double kNoMinimum = -kNoMaximum;

// One value behind the editor. Two texts tell edited from synchronised: `text` is what the user sees, `baselineText` what was
// last read.
struct AnyItem {
  std::string name;      // the parameter's; empty in a free slot
  std::string caption;   // for messages
  std::string typeName;  // the parameter's, also the name of the value element on the wire
  std::string format = "######0";
  int decimals = 0;
  // In the data unit. Until offline data came both are 0.
  double minVal = 0;
  double maxVal = 0;
  std::string dataUnit = "noUnit";     // of the data document
  std::string displayUnit = "noUnit";  // that the user chose
  std::string toolTip;
  bool readOnly = false;

  std::string text;  // in the display unit, with the decimal separator
  std::string baselineText;
  bool correct = true;
  bool modified = false;
  bool synchronised = false;  // a value of the device has arrived

  Node parameterNode;    // in the persistent document
  bool ownCopy = false;  // and there a copy that belongs to this control

  // What a converted text was made from: it comes back as it was when its own unit does.
  struct Source {
    std::string text;
    std::string unit;
    std::string shown;
  } source;

  bool isInteger() const { return typeName.starts_with("int"); }
  bool isFloat() const { return typeName.starts_with("float"); }
  bool isNumeric() const { return isInteger() || isFloat(); }
  // Percentages never convert, and what has no unit cannot.
  bool hasConvertibleUnit() const { return dataUnit != "noUnit" && dataUnit.find('%') == dataUnit.npos; }
};

}  // namespace ostrand
