#include "benchmarks/Documents.h"

namespace ostrand::bench {

namespace {

constexpr int kGroupSize = 20;
constexpr int kChoices = 4;

const char* typeOf(Content content) { return content == Content::Number ? "floatVal" : content == Content::Choice ? "integerVal" : "stringVal"; }

// A tenth of the values has a unit that the user sees converted.
std::string unitOf(int parameter) { return contentOf(parameter) != Content::Number ? "noUnit" : parameter % 10 == 0 ? "degC" : "%Cs"; }

std::string valueOf(int parameter, int salt) {
  switch (contentOf(parameter)) {
    case Content::Number: return std::to_string(parameter + salt) + ".25";
    case Content::Text: return "STOCK LINE " + std::to_string(parameter + salt);
    case Content::Date: return "2026-01-" + std::to_string(10 + (parameter / 10 + salt) % 20);
    default: return std::to_string((parameter + salt) % kChoices);
  }
}

}  // namespace

Content contentOf(int parameter) {
  switch (parameter % 10) {
    case 4:
    case 9: return Content::Choice;
    case 7: return Content::Date;
    case 8: return Content::Text;
    default: return Content::Number;
  }
}

std::string nameOf(int parameter) { return "recipe" + std::to_string(parameter / 10) + "Value" + std::to_string(parameter); }

std::string groupOf(int parameter) { return "group" + std::to_string(parameter / kGroupSize); }

std::string dataSetText(int parameters) {
  std::string text =
      "<?xml version=\"1.0\"?>\n<data:dtm xmlns:data=\"x-schema:TAVPersistentDataSchema.xml\" xmlns:typeInfo=\"x-schema:TAVTypeInfoSchema.xml\">\n"
      "<typeInfo:internalInfo busCategory=\"HART\"/>\n<data:persistentData><data:parameters>\n";
  for (int i = 0; i < parameters; ++i) {
    const bool number = contentOf(i) == Content::Number;
    text += "<data:parameter name=\"" + nameOf(i) + "\" type=\"" + typeOf(contentOf(i)) + "\" value=\"" + valueOf(i, 0) +
            "\" offlineValue=\"\" unit=\"" + unitOf(i) + "\" decimals=\"" + (number ? "2" : "0") + "\" minVal=\"" + (number ? "0" : "") +
            "\" maxVal=\"" + (number ? "100000" : "") + "\" access=\"readWrite\" synchronised=\"1\"/>\n";
  }
  text += "</data:parameters></data:persistentData>\n<data:mappedParams>\n";
  for (int i = 4; i < parameters; i += 10) {
    text += "<data:mappedParam name=\"" + nameOf(i) + "\">";
    for (int value = 0; value < kChoices; ++value)
      text += "<data:mappedItem value=\"" + std::to_string(value) + "\" key=\"choice" + std::to_string(value) + "\"/>";
    text += "</data:mappedParam>\n";
  }
  text += "</data:mappedParams>\n<data:requestGroups>\n";
  for (int i = 0; i < parameters; ++i) {
    if (i % kGroupSize == 0) text += "<data:requestGroup name=\"" + groupOf(i) + "\" lastUpdate=\"31/12/2025 23:59:59\">\n";
    text += "<data:includedParam name=\"" + nameOf(i) + "\"/>\n";
    if ((i + 1) % kGroupSize == 0 || i + 1 == parameters) text += "</data:requestGroup>\n";
  }
  return text + "</data:requestGroups>\n</data:dtm>\n";
}

std::string answerText(int items, int salt) {
  std::string text =
      "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse name=\"group0\" access=\"read\" isFinal=\"1\" "
      "responseStatus=\"ok\">";
  for (int i = 0; i < items; ++i) {
    const std::string element = std::string("comm:") + typeOf(contentOf(i));
    text +=
        "<comm:item name=\"" + nameOf(i) + "\" unit=\"" + unitOf(i) + "\"><" + element + ">" + valueOf(i, salt) + "</" + element + "></comm:item>";
  }
  return text + "</comm:communicationResponse></comm:dtm>";
}

}  // namespace ostrand::bench
