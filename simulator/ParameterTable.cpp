#include "simulator/ParameterTable.h"

#include <charconv>
#include <cmath>

#include "platform/base/NumberText.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand::simulator {

namespace {

std::string attribute(const Node& node, const char* name) { return std::string(node.findAttribute(name).value_or("")); }

Parameter::Type typeOf(std::string_view type) {
  if (type.starts_with("int")) return Parameter::Type::Integer;
  return type.starts_with("float") ? Parameter::Type::Float : Parameter::Type::Text;
}

bool beginsWord(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// The mapping of the whole name, or else of the shortest tail that has one, from a capital or a digit on.
Node mappingOf(const Document& dataSet, const std::string& name) {
  if (const Node own = mapping(dataSet, name)) return own;
  for (std::size_t at = name.size(); at-- > 1;) {
    if (!beginsWord(name[at])) continue;
    const std::string tail = lower(name[at]) + name.substr(at + 1);
    if (const Node found = mapping(dataSet, tail)) return found;
  }
  return nullptr;
}

std::string sixDigits(double number) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::scientific, 5).ptr;
  double rounded = 0;
  std::from_chars(text, end, rounded);
  return plainText(rounded == 0 ? 0 : rounded, '.');  // no "-0"
}

}  // namespace

std::string_view Parameter::element() const {
  return type == Type::Integer ? "comm:integerVal" : type == Type::Float ? "comm:floatVal" : "comm:stringVal";
}

std::string Parameter::text(const Value& shown) const {
  if (type == Type::Text) return shown.text;
  if (type == Type::Float) return !std::isnan(shown.number) ? sixDigits(shown.number) : mayBeEmpty ? "" : "NaN";
  return std::isnan(shown.number) ? "0" : plainText(shown.number, '.');
}

std::string_view Parameter::key(const Value& coded) const {
  const std::string wanted = text(coded);
  for (const Code& code : codes)
    if (code.value == wanted) return code.key;
  return {};
}

ParameterTable::ParameterTable(const Document& dataSet) {
  const std::vector<Node> nodes = dataSet.selectAll("./data:dtm/data:persistentData/data:parameters/data:parameter[@name]");
  for (const Node& node : nodes) {
    Parameter& p = mParameters.emplace_back();
    p.name = node.attribute("name");
    p.type = typeOf(attribute(node, "type"));
    p.unit = attribute(node, "unit");
    const std::string access = attribute(node, "access");
    p.readable = access != "write";
    p.writable = access == "write" || access == "readWrite";
    p.lowest = parseNumber(attribute(node, "minVal"), '.');
    p.highest = parseNumber(attribute(node, "maxVal"), '.');
    if (p.type == Parameter::Type::Integer && p.name.find('"') == p.name.npos) {
      if (const Node choices = mappingOf(dataSet, p.name)) {
        for (Node item = choices.firstChild(); item; item = item.nextSibling()) p.codes.push_back({attribute(item, "value"), attribute(item, "key")});
      }
    }
    p.value.text = attribute(node, "value");
    p.value.number = parseNumber(p.value.text, '.').value_or(p.value.number);
    mByName.emplace(p.name, &p);
  }
  for (const Node& group : dataSet.selectAll("./data:dtm/data:requestGroups/data:requestGroup[@name]")) {
    const auto [entry, isNew] = mGroups.try_emplace(std::string(group.attribute("name")));
    if (!isNew) continue;
    for (Node member = group.firstChild(); member; member = member.nextSibling()) {
      const Parameter* const p = find(member.findAttribute("name").value_or(""));
      if (p && p->readable) entry->second.push_back(p->name);
    }
  }
}

void ParameterTable::add(Parameter parameter) {
  if (find(parameter.name)) return;
  Parameter& added = mParameters.emplace_back(std::move(parameter));
  mByName.emplace(added.name, &added);
}

Parameter* ParameterTable::find(std::string_view name) {
  const auto found = mByName.find(name);
  return found == mByName.end() ? nullptr : found->second;
}

const Parameter* ParameterTable::find(std::string_view name) const { return const_cast<ParameterTable*>(this)->find(name); }

std::vector<std::string> ParameterTable::group(std::string_view name) const {
  const auto found = mGroups.find(name);
  return found == mGroups.end() ? std::vector<std::string>() : found->second;
}

double ParameterTable::number(std::string_view name, double fallback) const {
  const Parameter* const p = find(name);
  return p && !std::isnan(p->value.number) ? p->value.number : fallback;
}

std::string_view ParameterTable::key(std::string_view name) const {
  const Parameter* const p = find(name);
  return p ? p->key(p->value) : std::string_view();
}

void ParameterTable::set(std::string_view name, double number) {
  if (Parameter* const p = find(name)) p->value.number = number;
}

void ParameterTable::set(std::string_view name, std::string_view text) {
  if (Parameter* const p = find(name)) p->value.text = text;
}

void ParameterTable::setKey(std::string_view name, std::string_view key) {
  const Parameter* const p = find(name);
  if (!p) return;
  for (const Parameter::Code& code : p->codes)
    if (code.key == key) set(name, parseNumber(code.value, '.').value_or(p->value.number));
}

ParameterTable::Values ParameterTable::values() const {
  Values all;
  all.reserve(mParameters.size());
  for (const Parameter& p : mParameters) all.push_back(p.value);
  return all;
}

void ParameterTable::restore(const Values& values) {
  for (std::size_t i = 0; i < values.size(); ++i) mParameters[i].value = values[i];
}

}  // namespace ostrand::simulator
