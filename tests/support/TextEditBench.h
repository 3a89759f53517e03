#pragma once

#include <string>

#include "platform/controls/CtrTextEdit.h"
#include "support/ControlBench.h"

namespace ostrand::test {

inline constexpr const char* kTemperature =
    R"(name="x" type="floatVal" value="20" unit="degC" decimals="1" minVal="0" maxVal="100" access="readWrite")";

// A text edit with values to be filled in, and what it would send.
struct TextEditBench : ControlBench<CtrTextEdit> {
  void offline(const std::string& attributes) { edit().setOfflineData(parameterNode(attributes)); }
  void offlineFloat(const std::string& value, const std::string& rest = {}) {
    offline("name=\"x\" type=\"floatVal\" value=\"" + value + "\" " + rest);
  }
  // Temperatures in degF, as the user wants them.
  void fahrenheit() {
    messenger->converter->userUnits["x"] = "degF";
    messenger->raiseUnits();
  }
  std::string sent(bool ignoreErrors = true) {
    const Node item = edit().GetXmlItem(ignoreErrors);
    return item ? item.xml() : "nothing";
  }
  static std::string item(const std::string& value, const std::string& type = "floatVal", const std::string& unit = "noUnit") {
    return "<item name=\"x\" unit=\"" + unit + "\"><" + type + ">" + value + "</" + type + "></item>";
  }
};

}  // namespace ostrand::test
