#include "host/Actions.h"

#include <algorithm>

#include "host/ActingValues.h"
#include "host/DataSet.h"
#include "host/OutputRules.h"
#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

constexpr const char* kSampling = "sampling";

bool isWrite(const Document& request) {
  const Node element = requestElement(request);
  return element && element.findAttribute("access") == "write";
}

std::string_view nameOf(const Document& request) {
  const Node element = requestElement(request);
  return element ? element.findAttribute("name").value_or("") : "";
}

int code(const MessageItem& item) {
  const auto number = parseNumber(item.value, '.');
  return number && *number >= 0 && *number < 1000 && *number == static_cast<int>(*number) ? static_cast<int>(*number) : -1;
}

bool stopsSample(const MessageItem& item) {
  return (item.name == "executeAction" && (code(item) == 5 || code(item) == 6)) || (item.name == "sampleAction" && code(item) == 125);
}

// A reading ends a sample if it asks for that sample's values and for nothing else. Who reads them among others only looks.
bool readsSample(const std::vector<MessageItem>& items, const RunningSample& sample) {
  if (sample.start == RunningSample::Start::Read) {
    bool result = false;
    for (const MessageItem& item : items) {
      if (!item.name.starts_with("sample") && item.name != "activeRecipe") return false;
      result = result || item.name == "sampleConsistency";
    }
    return result;
  }
  const std::string prefix = kSample + std::to_string(sample.number);
  bool hasAverage = false, hasDeviation = false;
  for (const MessageItem& item : items) {
    if (!item.name.starts_with(prefix)) return false;
    hasAverage = hasAverage || item.name == prefix + "ConsistencyAverage";
    hasDeviation = hasDeviation || item.name == prefix + "Deviation";
  }
  return hasAverage && hasDeviation;
}

Action actionOfRead(const Document& request, const std::vector<MessageItem>& items, const std::optional<RunningSample>& running) {
  if (startedSample(request)) return {Effect::Acts, {kSample}};
  const bool byReading = running && (running->start == RunningSample::Start::Written || running->start == RunningSample::Start::Read);
  if (byReading && nameOf(request) == kSampling && readsSample(items, *running)) return {Effect::Stops, {kSample}};
  return {};
}

}  // namespace

std::optional<RunningSample> startedSample(const Document& request) {
  using Start = RunningSample::Start;
  for (const MessageItem& item : itemsOf(request)) {
    if (item.name == "sampleStart") return isWrite(request) ? RunningSample{Start::Written, code(item) == 1 ? 2 : 1} : RunningSample{Start::Read, 1};
    if (!isWrite(request)) continue;
    if (item.name == "executeAction" && (code(item) == 3 || code(item) == 4)) return RunningSample{Start::Executed, code(item) - 2};
    if (item.name == "sampleAction" && code(item) == 124) return RunningSample{Start::Commanded, 1};
  }
  return std::nullopt;
}

bool selectsRecord(const Document& request) {
  const std::vector<MessageItem> items = itemsOf(request);
  return !items.empty() && std::all_of(items.begin(), items.end(), [](const MessageItem& item) {
    return item.name.starts_with("sampleHistory") && (item.name.ends_with("Recipe") || item.name.ends_with("Index"));
  });
}

Document stopOf(const RunningSample& sample, const DataSet* dataSet) {
  using Start = RunningSample::Start;
  const std::string prefix = kSample + std::to_string(sample.number);
  const auto item = [&](const std::string& name, const char* unit, const char* element) {
    return dataSet && dataSet->has(name) ? dataSet->item(name, false) : MessageItem{name, unit, element, ""};
  };
  switch (sample.start) {
    case Start::Executed: return makeWriteRequest(kSampling, {{"executeAction", "noUnit", "integerVal", std::to_string(sample.number + 4)}});
    case Start::Commanded: return makeWriteRequest(kSampling, {{"sampleAction", "noUnit", "integerVal", "125"}});
    case Start::Read:
      return makeReadRequest(kSampling, {item("activeRecipe", "noUnit", "integerVal"), item("sampleTime", "noUnit", "stringVal"),
                                         item("sampleConsistency", "%Cs", "floatVal"), item("sampleTorque", "Nm", "floatVal"),
                                         item("sampleProcessTemperature", "degC", "floatVal")});
    case Start::Written: break;
  }
  std::vector<MessageItem> items = {item(prefix + "Deviation", "noUnit", "floatVal"), item(prefix + "ConsistencyAverage", "%", "floatVal")};
  if (!dataSet || dataSet->has(prefix + "ShearForceAverage")) items.push_back(item(prefix + "ShearForceAverage", "N", "floatVal"));
  return makeReadRequest(kSampling, items);
}

Action actionOf(const Document& request, const DataSet* dataSet, const std::optional<RunningSample>& running) {
  const std::vector<MessageItem> items = itemsOf(request);
  if (!isWrite(request)) return actionOfRead(request, items, running);
  Action action;
  bool onlyStops = !items.empty();
  bool acts = false;
  for (const MessageItem& item : items) {
    if (const OutputRule* const rule = outputRule(item.name)) {
      action.about.insert(item.name);
      const bool frees = requestedValue(item.value) == OutputValue::Frees;
      onlyStops = onlyStops && frees;
      // A value of zero beside others of its page is set like those.
      acts = acts || !frees || rule->kind == OutputKind::LoopTest;
    } else if (stopsSample(item)) {
      action.about.insert(kSample);
    } else {
      onlyStops = false;
      if (actsOf(dataSet, item.name) != Acts::ByButton) continue;
      acts = true;
      action.about.insert(item.name);
    }
  }
  if (startedSample(request)) action.about.insert(kSample);
  action.effect = onlyStops ? Effect::Stops : acts ? Effect::Acts : Effect::Plain;
  return action;
}

}  // namespace ostrand
