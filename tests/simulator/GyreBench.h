#pragma once

#include "simulator/DeviceBench.h"

namespace ostrand::test {

// A GYRE transmitter, and what its views ask of it.
class GyreBench : public DeviceBench {
 protected:
  GyreBench() : DeviceBench("hartGYRE") {}

  static std::string anItem(const char* name) { return "<item name=\"" + std::string(name) + "\" unit=\"noUnit\"><integerVal/></item>"; }

  std::vector<Answer> startSample() { return ask(requestText("sampleStart", "read", anItem("sampleStart"))); }
  std::vector<Answer> stopSample() {
    return ask(requestText(
        "sampling", "read",
        anItem("activeRecipe") + anItem("sampleTime") + anItem("sampleConsistency") + anItem("sampleTorque") + anItem("sampleProcessTemperature")));
  }
  void takeSample(double seconds) {
    ASSERT_EQ(errorOf(startSample()), "");
    desktop->advance(seconds);
    ASSERT_EQ(errorOf(stopSample()), "");
  }

  std::vector<Answer> askHalf(int half, int recipe, int index) {
    const std::string prefix = "sampleHistory" + std::to_string(half);
    return ask(writeOf("recipe" + std::to_string(recipe) + "sampleHistory",
                       item(prefix + "Recipe", std::to_string(recipe)) + item(prefix + "Index", std::to_string(index))));
  }
  // The text of an item of a record.
  std::string told(int recipe, int index, const char* name) {
    for (const int half : {1, 2})
      for (const Answer& answer : askHalf(half, recipe, index))
        if (const Node found = ostrand::item(answer.document, name)) return found.text();
    return "missing";
  }
  double toldNumber(int recipe, int index, const char* name) { return parseNumber(told(recipe, index, name), '.').value_or(-1e9); }
  std::string tellLaboratory(int recipe, int id, const std::string& consistency, const std::string& filler = "0") {
    return write("recipe" + std::to_string(recipe) + "sample1", item("historyRecipe", std::to_string(recipe)) +
                                                                    item("historyId", std::to_string(id)) +
                                                                    item("historyLabConsistency", consistency) + item("historyLabFiller", filler));
  }
};

}  // namespace ostrand::test
