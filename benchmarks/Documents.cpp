#include "benchmarks/Documents.h"

namespace ostrand::bench {

namespace {

constexpr int kGroupSize = 20;

std::string nameOf(int i) { return "recipe" + std::to_string(i / 10) + "Value" + std::to_string(i); }

}  // namespace

std::string dataSetText(int parameters) {
  std::string text =
      "<?xml version=\"1.0\"?>\n<data:dtm xmlns:data=\"x-schema:TAVPersistentDataSchema.xml\" xmlns:typeInfo=\"x-schema:TAVTypeInfoSchema.xml\">\n"
      "<typeInfo:internalInfo busCategory=\"HART\"/>\n<data:persistentData><data:parameters>\n";
  for (int i = 0; i < parameters; ++i) {
    const bool choice = i % 5 == 4;
    text += "<data:parameter name=\"" + nameOf(i) + "\" type=\"" + (choice ? "integerVal" : "floatVal") + "\" value=\"" +
            std::to_string(choice ? i % 4 : i) + (choice ? "" : ".25") + "\" offlineValue=\"\" unit=\"" + (choice ? "noUnit" : "degC") +
            "\" decimals=\"" + (choice ? "0" : "2") + "\" minVal=\"0\" maxVal=\"100000\" access=\"readWrite\" synchronised=\"1\"/>\n";
  }
  text += "</data:parameters></data:persistentData>\n<data:mappedParams>\n";
  for (int i = 4; i < parameters; i += 10) {
    text += "<data:mappedParam name=\"" + nameOf(i) + "\">";
    for (int value = 0; value < 4; ++value)
      text += "<data:mappedItem value=\"" + std::to_string(value) + "\" key=\"choice" + std::to_string(value) + "\"/>";
    text += "</data:mappedParam>\n";
  }
  text += "</data:mappedParams>\n<data:requestGroups>\n";
  for (int from = 0; from < parameters; from += kGroupSize) {
    text += "<data:requestGroup name=\"group" + std::to_string(from / kGroupSize) + "\" lastUpdate=\"31/12/2025 23:59:59\">";
    for (int i = from; i < from + kGroupSize && i < parameters; ++i) text += "<data:includedParam name=\"" + nameOf(i) + "\"/>";
    text += "</data:requestGroup>\n";
  }
  return text + "</data:requestGroups>\n</data:dtm>\n";
}

std::string answerText(int items, int salt) {
  std::string text =
      "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse name=\"group0\" access=\"read\" isFinal=\"1\" "
      "responseStatus=\"ok\">";
  for (int i = 0; i < items; ++i) {
    const bool choice = i % 5 == 4;
    const char* const element = choice ? "integerVal" : "floatVal";
    text += "<comm:item name=\"" + nameOf(i) + "\" unit=\"" + (choice ? "noUnit" : "degC") + "\"><comm:" + element + ">" +
            std::to_string((i + salt) % 4) + (choice ? "" : ".5") + "</comm:" + element + "></comm:item>";
  }
  return text + "</comm:communicationResponse></comm:dtm>";
}

}  // namespace ostrand::bench
