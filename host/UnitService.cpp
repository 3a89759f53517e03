#include "host/UnitService.h"

#include <algorithm>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Document.h"

namespace ostrand {

namespace {

[[noreturn]] void fail(const std::string& why) { throw RuntimeError(RuntimeError::BadArgument, why); }

std::string required(const Node& node, const char* attribute) {
  const auto value = node.findAttribute(attribute);
  if (!value || value->empty()) fail("a " + std::string(node.name()) + " without \"" + attribute + "\"");
  return std::string(*value);
}

double requiredNumber(const Node& node, const char* attribute) {
  const std::string text = required(node, attribute);
  const auto number = parseNumber(text, '.');
  if (!number) fail(std::string(attribute) + " \"" + text + "\" is no number");
  return *number;
}

}  // namespace

Ref<UnitService> UnitService::open(const std::filesystem::path& file) {
  const Document doc = Document::readFile(file);
  const Ref<UnitService> service(new UnitService);
  try {
    if (doc.root().name() != "units") fail("not a table of units: its root is \"" + std::string(doc.root().name()) + "\"");
    for (const Node& node : doc.selectAll("/units/quantity")) {
      Quantity& quantity = service->mQuantities.emplace_back();
      quantity.name = required(node, "name");
      quantity.base = required(node, "base");
      for (const Node& each : node.selectAll("unit")) {
        const std::string key = required(each, "key");
        const Unit unit{service->mQuantities.size() - 1, requiredNumber(each, "factor"), requiredNumber(each, "offset")};
        if (unit.factor == 0) fail("the factor of \"" + key + "\" is 0");
        if (!service->mUnits.emplace(key, unit).second) fail("the unit \"" + key + "\" stands there twice");
        quantity.units.push_back(key);
      }
    }
    for (const Node& node : doc.selectAll("/units/parameter")) {
      const auto& all = service->mQuantities;
      const std::string quantity = required(node, "quantity");
      const auto found = std::find_if(all.begin(), all.end(), [&](const Quantity& each) { return each.name == quantity; });
      if (found == all.end()) fail("no quantity \"" + quantity + "\"");
      service->mParameters.emplace(required(node, "name"), static_cast<std::size_t>(found - all.begin()));
    }
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), file.string() + ": " + error.description());
  }
  return service;
}

const UnitService::Quantity& UnitService::require(std::string_view name) const {
  std::string known;
  for (const Quantity& each : mQuantities) {
    if (each.name == name) return each;
    known += (known.empty() ? "" : ", ") + each.name;
  }
  fail("no such quantity: \"" + std::string(name) + "\"; there are " + (known.empty() ? "none" : known));
}

void UnitService::choose(std::string_view quantity, std::string_view unit) {
  const Quantity& found = require(quantity);
  if (!unit.empty() && std::find(found.units.begin(), found.units.end(), unit) == found.units.end()) {
    std::string known;
    for (const std::string& each : found.units) known += (known.empty() ? "" : ", ") + each;
    fail("no unit \"" + std::string(unit) + "\" for " + found.name + "; there are " + known);
  }
  const_cast<Quantity&>(found).chosen = unit;
}

bool UnitService::ConvertValue(double value, const std::string& from, const std::string& to, double& result) {
  const auto source = mUnits.find(from);
  const auto target = mUnits.find(to);
  if (from == to) {
    result = value;
    return true;
  }
  if (source == mUnits.end() || target == mUnits.end() || source->second.quantity != target->second.quantity) return false;
  const Unit& a = source->second;
  const Unit& b = target->second;
  // Two spellings of one unit must not cost a digit.
  result = a.factor == b.factor && a.offset == b.offset ? value : (value * a.factor + a.offset - b.offset) / b.factor;
  return true;
}

bool UnitService::GetUnitInfo(const std::string& name, std::string& unit) {
  const auto found = mParameters.find(name);
  if (found == mParameters.end() || mQuantities[found->second].chosen.empty()) return false;
  unit = mQuantities[found->second].chosen;
  return true;
}

}  // namespace ostrand
