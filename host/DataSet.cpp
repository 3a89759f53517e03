#include "host/DataSet.h"

#include "platform/base/File.h"
#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/DeviceValue.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

std::string named(const Node& node, const char* name) { return std::string(node.findAttribute(name).value_or("")); }

bool isName(std::string_view name) { return name.find('"') == name.npos; }

}  // namespace

DataSet DataSet::open(const std::filesystem::path& file) {
  Document document = Document::readFile(file);
  try {
    return DataSet(std::move(document), file);
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), file.string() + ": " + error.description());
  }
}

DataSet::DataSet(Document document, std::filesystem::path file) : mDocument(std::move(document)), mFile(std::move(file)) {
  const Node root = mDocument.root();
  if (!root || root.name() != "data:dtm" || !root.child("data:persistentData"))
    throw RuntimeError(RuntimeError::BadArgument, "not a data set: no data:persistentData below data:dtm");
}

void DataSet::save() {
  if (mFile.empty()) throw RuntimeError(RuntimeError::FileNotFound, "the data set has no file yet");
  saveAs(mFile);
}

void DataSet::saveAs(const std::filesystem::path& file) {
  writeWholeFile(file, mDocument.xml(true));
  mFile = file;
  mChanged = false;
  mExchanged.clear();
}

Document DataSet::deviceCopy() const {
  const Document copy = mDocument.copy();
  const Node list = copy.root().child("data:persistentData").child("data:parameters");
  for (Node each = list ? list.firstChild() : nullptr; each; each = each.nextSibling()) {
    if (each.findAttribute("offlineValue")) each.setAttribute("offlineValue", "");
    // A value that counts as the user's would be there to be written again.
    if (each.findAttribute("synchronised") != "0") continue;
    each.setAttribute("value", "");
    each.setAttribute("synchronised", "1");
  }
  return copy;
}

std::string DataSet::busCategory() const { return mDocument.selectText("//typeInfo:internalInfo/@busCategory").value_or(""); }

std::string DataSet::deviceType() const { return mDocument.selectText("//typeInfo:internalInfo/@deviceType").value_or(""); }

Node DataSet::node(std::string_view name) const { return isName(name) ? parameter(mDocument, name) : nullptr; }

std::string DataSet::attribute(std::string_view parameter, const char* name) const {
  const Node found = node(parameter);
  return found ? named(found, name) : "";
}

void DataSet::set(const Node& parameter, const char* name, std::string_view text) {
  if (parameter.findAttribute(name) == text) return;
  parameter.setAttribute(name, text);
  mChanged = true;
}

std::vector<std::string> DataSet::parameters() const {
  std::vector<std::string> names;
  const Node list = mDocument.root().child("data:persistentData").child("data:parameters");
  for (Node each = list ? list.firstChild() : nullptr; each; each = each.nextSibling())
    if (each.name() == "data:parameter") names.push_back(named(each, "name"));
  return names;
}

bool DataSet::has(std::string_view parameter) const { return static_cast<bool>(node(parameter)); }

ParameterInfo DataSet::info(std::string_view parameter) const {
  ParameterInfo info;
  info.read(node(parameter));
  return info;
}

std::string DataSet::value(std::string_view parameter) const { return attribute(parameter, "value"); }

std::string DataSet::offlineValue(std::string_view parameter) const { return attribute(parameter, "offlineValue"); }

std::string DataSet::current(std::string_view parameter) const {
  std::string edit = offlineValue(parameter);
  return edit.empty() ? value(parameter) : edit;
}

bool DataSet::synchronised(std::string_view parameter) const { return attribute(parameter, "synchronised") != "0"; }

void DataSet::edit(std::string_view parameter, std::string_view text) {
  if (const Node found = node(parameter)) set(found, "offlineValue", named(found, "value") == text ? "" : text);
}

void DataSet::discardEdit(std::string_view parameter) {
  if (const Node found = node(parameter)) set(found, "offlineValue", "");
}

std::vector<std::string> DataSet::edited() const {
  std::vector<std::string> names;
  for (const std::string& name : parameters())
    if (!offlineValue(name).empty()) names.push_back(name);
  return names;
}

std::vector<std::string> DataSet::groups() const {
  std::vector<std::string> names;
  const Node list = mDocument.root().child("data:requestGroups");
  for (Node each = list ? list.firstChild() : nullptr; each; each = each.nextSibling())
    if (each.name() == "data:requestGroup") names.push_back(named(each, "name"));
  return names;
}

std::vector<std::string> DataSet::parametersOf(std::string_view name) const {
  std::vector<std::string> names;
  const Node found = isName(name) ? group(mDocument, name) : nullptr;
  for (Node each = found ? found.firstChild() : nullptr; each; each = each.nextSibling())
    if (each.name() == "data:includedParam") names.push_back(named(each, "name"));
  return names;
}

std::string DataSet::homeGroup(std::string_view parameter) const { return isName(parameter) ? ostrand::homeGroup(mDocument, parameter) : ""; }

std::string DataSet::lastUpdate(std::string_view name) const {
  const Node found = isName(name) ? group(mDocument, name) : nullptr;
  return found ? named(found, "lastUpdate") : "";
}

MessageItem DataSet::item(std::string_view parameter, bool withValue) const {
  const ParameterInfo about = info(parameter);
  return {std::string(parameter), about.unit, about.wireType(), withValue ? current(parameter) : ""};
}

std::vector<MessageItem> DataSet::readItems(std::string_view group) const {
  std::vector<MessageItem> items;
  for (const std::string& name : parametersOf(group))
    if (has(name) && !info(name).writeOnly) items.push_back(item(name, false));
  return items;
}

std::vector<std::string> DataSet::takeAnswer(const Document& answer, LocalTime now, IUnitConverter* units) {
  std::vector<std::string> unusable;
  const AnswerHead head = headOf(answer);
  if (!head.valid || head.local) return unusable;
  const Node response = ostrand::response(answer);
  for (Node item = response.firstChild(); item; item = item.nextSibling()) {
    if (item.name() != "comm:item" || !item.firstChild()) continue;
    const std::string name = named(item, "name");
    const Node parameter = node(name);
    if (!parameter) continue;
    ParameterInfo about;
    about.read(parameter);
    const auto value = usableValue(item, about, units);
    if (!value) {
      unusable.push_back(name);
      continue;
    }
    set(parameter, "value", *value);
    set(parameter, "synchronised", "1");
    mExchanged.insert(name);
    if (head.write || named(parameter, "offlineValue") == *value) set(parameter, "offlineValue", "");
  }
  if (head.isFinal && !head.write && head.errorCode.empty() && isName(head.name))
    if (const Node found = group(mDocument, head.name)) set(found, "lastUpdate", groupStamp(now));
  return unusable;
}

void DataSet::forgetSample(std::string_view sample) {
  for (const std::string& name : parameters())
    if (name.starts_with(sample) && info(name).readOnly) set(node(name), "value", "");
}

std::optional<std::string> usableValue(const Node& item, const ParameterInfo& info, IUnitConverter* units) {
  struct Held final : UnitSource {
    explicit Held(IUnitConverter* units) : mUnits(units) {}
    Ref<IUnitConverter> converter() const override { return mUnits; }
    const Ref<IUnitConverter> mUnits;
  };
  const auto received = DeviceValue::received(item, info, Held(units));
  // A number that the device does not have yet comes as an empty text too.
  return received && (received->usable || received->text.empty()) ? std::optional(received->text) : std::nullopt;
}

std::string groupStamp(LocalTime time) {
  const std::string standard = standardDateAndTime(time);  // 2025-12-31 23:59:59.000
  return standard.substr(8, 2) + "/" + standard.substr(5, 2) + "/" + standard.substr(0, 4) + " " + standard.substr(11, 8);
}

}  // namespace ostrand
