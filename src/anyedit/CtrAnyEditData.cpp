#include <cmath>
#include <cstdint>
#include <utility>

#include "anyedit/CtrAnyEdit.h"
#include "anyedit/NumberMask.h"
#include "core/modTools.h"
#include "platform/base/NumberText.h"
#include "platform/controls/UnitSearch.h"
#include "platform/xml/Vocabulary.h"

// The ways on which values come into a CtrAnyEdit: data set, import, device, the user's units. Every call to the host and every
// Change may come back with anything: texts that leave are copies, and what was looked up before is looked up again.
namespace ostrand {

namespace {

constexpr int kDefaultDecimals = 3;

// A whole number of 16 bits.
int decimalsIn(std::string_view text) {
  const double value = std::nearbyint(requireNumber(text, '.'));
  if (value < INT16_MIN || value > INT16_MAX) throw RuntimeError(RuntimeError::Overflow, "too many decimals: " + std::string(text));
  return static_cast<int>(value);
}

std::optional<double> limitOf(double value) { return value == kNoMaximum || value == kNoMinimum ? std::nullopt : std::optional(value); }

// With as many decimals as its item shows, if it is right; a wrong text stays as it was.
std::string settled(const AnyItem& item, const std::string& text, char separator) {
  return item.correct ? masked(text, item.format, separator) : text;
}

}  // namespace

// --- the data set

void CtrAnyEdit::SetOfflineData(const Document& doc) {
  run("CtrAnyEdit ITaviDataUser_SetOfflineData ", [&, data = doc] {
    LimitTip tip(mDecimalSeparator);
    eachItem([&](AnyItem& item) { return takeOffline(item, data, tip); });
  });
}

// False where the data set does not know the item, which ends the load.
bool CtrAnyEdit::takeOffline(AnyItem& item, const Document& doc, LimitTip& tip) {
  const Node parameter = parameterAnywhere(doc, item.name);
  if (!parameter) return false;
  if (!item.parameterNode) item.parameterNode = parameter;
  item.typeName = attributeText(parameter, "type");
  std::string value = attributeText(parameter, "value");
  item.source = {};
  if (item.isNumeric()) describe(item, parameter, value, tip);
  item.text = value;
  CheckValue(item);
  item.source.shown = item.text;

  const std::string synchronised = attributeText(parameter, "synchronised");
  if (synchronised == "1") {
    item.modified = false;
    // Unformatted, where an answer of the device leaves the formatted text: the next check finds "1.500" modified against "1.5".
    item.baselineText = value;
    forwardSyncChanges();
    forwardChanges();
  } else if (synchronised != "2") {
    // What was stored and never synchronised counts as edited.
    item.modified = !value.empty();
    if (item.modified) {
      item.baselineText.clear();
      forwardChanges();
    }
  }
  // What is read only once stays so.
  std::string access = attributeText(parameter, "access");
  for (char& c : access)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  if (access.find("write") == std::string::npos) item.readOnly = true;
  raiseChange(item);
  return true;
}

void CtrAnyEdit::describe(AnyItem& item, const Node& parameter, std::string& value, LimitTip& tip) {
  const auto limit = [&](const char* name, double absent) {
    const std::string text = attributeText(parameter, name);
    return text.empty() ? absent : requireNumber(text, '.');
  };
  item.minVal = limit("minVal", kNoMinimum);
  item.maxVal = limit("maxVal", kNoMaximum);
  if (item.isFloat()) {
    const std::string decimals(parameter.findAttribute("decimals").value_or(""));
    item.decimals = decimals.empty() ? kDefaultDecimals : decimalsIn(decimals);
    item.format = numberMask(item.decimals);
    value = withSeparator(value, '.', mDecimalSeparator);
  }
  item.dataUnit = attributeText(parameter, "unit");
  if (item.dataUnit.empty()) item.dataUnit = "noUnit";
  tip.tell(item.toolTip, limitOf(item.minVal), limitOf(item.maxVal), item.dataUnit, LimitTip::kInDataUnit);

  item.displayUnit = item.hasConvertibleUnit() ? userUnit(item) : item.dataUnit;
  if (item.dataUnit == item.displayUnit) return;
  if (const auto number = parseNumber(value, mDecimalSeparator)) {
    if (const auto result = convertedSingle(*number, item.dataUnit, item.displayUnit)) {
      item.source = {value, item.dataUnit, {}};
      value = plainTextOfSingle(*result, mDecimalSeparator);
    } else {
      modTools::DropTrace(" CtrAnyEdit setOfflineData: using Datafile units, because unable to convert " + value + item.dataUnit + " to " +
                          item.displayUnit);
      item.displayUnit = item.dataUnit;
    }
  }
  if (item.dataUnit != item.displayUnit) tellConvertedLimits(item, item.displayUnit, tip);
}

// --- an imported data set

void CtrAnyEdit::SetImportData(const Document& doc) {
  run("CtrAnyEdit  setImportData ", [&, data = doc] {
    eachItem([&](AnyItem& item) {
      takeImport(item, data);
      return true;
    });
  });
}

// It holds the control's own copies, by the names that they have there. Neither the baseline nor what is modified changes but
// through the check, so that an imported value that differs counts as edited.
void CtrAnyEdit::takeImport(AnyItem& item, const Document& doc) {
  const Node parameter = parameterAnywhere(doc, tag() + item.name);
  if (!parameter) return;
  if (!item.ownCopy) {
    item.parameterNode = item.parameterNode.parent().append(parameter);
    item.ownCopy = true;
  }
  std::string value = attributeText(parameter, "value");
  item.source = {};
  if (item.isNumeric()) {
    value = withSeparator(value, '.', mDecimalSeparator);
    if (!item.hasConvertibleUnit() || !converter()) {
      item.displayUnit = item.dataUnit;
    } else if (const auto number = parseNumber(value, mDecimalSeparator); number && item.dataUnit != item.displayUnit) {
      if (const auto result = convertedSingle(*number, item.dataUnit, item.displayUnit)) {
        item.source = {value, item.dataUnit, {}};
        value = plainTextOfSingle(*result, mDecimalSeparator);
      } else {
        modTools::DropTrace(" CtrAnyEdit setImportData: using Datafile units, because unable to convert " + value + item.dataUnit + " to " +
                            item.displayUnit);
        item.displayUnit = item.dataUnit;
      }
    }
  }
  item.text = value;
  CheckValue(item);
  item.source.shown = item.text;
  forwardChanges();
  raiseChange(item);
}

// --- the device

void CtrAnyEdit::SetOnlineData(const Document& doc) {
  run("CtrAnyEdit  setOnlineData ", [&, data = doc] {
    if (!responseAnywhere(data)) return;
    eachItem([&](AnyItem& item) {
      takeOnline(item, data);
      return true;
    });
  });
}

void CtrAnyEdit::takeOnline(AnyItem& item, const Document& doc) {
  const Node answer = itemAnywhere(doc, item.name);
  if (!answer) return;
  if (!item.ownCopy) makeOwnCopy(item);
  const std::string element = "comm:" + item.typeName;
  const Node valueNode = answer.child(element.c_str());
  if (!valueNode) tellMissing(answer, "./" + element);
  std::string value = valueNode ? valueNode.text() : std::string();
  item.source = {};
  if (item.isNumeric()) {
    value = withSeparator(std::string(trimmed(value)), '.', mDecimalSeparator);
    if (item.hasConvertibleUnit()) convertAnswer(item, answer, value);
  }
  item.text = value;
  CheckValue(item);
  item.source.shown = item.text;
  item.baselineText = item.text;
  item.modified = false;
  forwardChanges();
  item.synchronised = true;
  forwardSyncChanges();
  raiseChange(item);
}

// The host's own parameter is left alone from here on: what this control receives, and what the user types, lives in the copy. So
// several controls edit the same parameter side by side.
void CtrAnyEdit::makeOwnCopy(AnyItem& item) {
  const Node parent = item.parameterNode.parent();
  const Node copy = item.parameterNode.clone();
  copy.setAttribute("name", tag() + std::string(copy.attribute("name")));
  item.parameterNode = parent.append(copy);
  item.ownCopy = true;
}

void CtrAnyEdit::convertAnswer(AnyItem& item, const Node& answer, std::string& value) {
  std::string unit(answer.findAttribute("unit").value_or(""));
  if (unit.empty() || unit == "noUnit") unit = item.dataUnit;
  const auto number = parseNumber(value, mDecimalSeparator);
  if (unit == item.displayUnit || !number) return;
  if (const auto result = convertedSingle(*number, unit, item.displayUnit)) {
    item.source = {value, unit, {}};
    value = plainTextOfSingle(*result, mDecimalSeparator);
    return;
  }
  if (const Ref<Messenger> host = mMessenger) host->SetStatusLine("Failed", "a");
  // The value may come in a unit that the user has chosen meanwhile; the display unit stays as it is all the same.
  const Ref<IUnitConverter> service = converter();
  const std::string name = item.name;
  std::string chosen;
  if (!service || !service->GetUnitInfo(name, chosen) || chosen == item.displayUnit) return;
  if (const auto result = convertedSingle(*number, unit, chosen)) value = plainTextOfSingle(*result, mDecimalSeparator);
}

// --- the user's units

void CtrAnyEdit::ViewSetUnits() {
  run("CtrAnyEdit  mMessenger_ViewSetUnits", [&] {
    eachItem([&](AnyItem& item) {
      if (item.hasConvertibleUnit()) changeUnit(item);
      return true;
    });
  });
}

// The baseline stays in the unit that it was in, so that the next check finds the item modified.
void CtrAnyEdit::changeUnit(AnyItem& item) {
  const std::string unit = userUnit(item);
  convertText(item, unit);
  LimitTip tip(mDecimalSeparator);
  tellConvertedLimits(item, unit, tip);
  raiseChange(item);
}

// A text is converted from what it was made from and not from what was rounded for the screen, and that comes back as it was with
// its own unit: to look at a value in another unit and return changes no digit of it.
void CtrAnyEdit::convertText(AnyItem& item, const std::string& unit) {
  const std::string shown = item.text, unitBefore = item.displayUnit;
  if (unit == unitBefore || !parseNumber(shown, mDecimalSeparator)) return;
  AnyItem::Source source = item.source;
  if (source.shown != shown || source.unit.empty()) source = {shown, unitBefore, {}};
  const bool returns = source.unit == unit;
  const std::string& text = returns ? shown : source.text;
  const auto result = convertedSingle(requireNumber(text, mDecimalSeparator), returns ? unitBefore : source.unit, unit);
  if (item.text != shown || item.displayUnit != unitBefore) return;  // another text has come meanwhile
  if (!result) {
    if (const Ref<Messenger> host = mMessenger) host->SetStatusLine("Failed", "a");
    return;
  }
  item.displayUnit = unit;
  item.text =
      returns ? settled(item, source.text, mDecimalSeparator) : masked(plainTextOfSingle(*result, mDecimalSeparator), item.format, mDecimalSeparator);
  source.shown = item.text;
  item.source = std::move(source);
}

// --- what they share

// A limit that cannot be converted leaves the tip as it stands.
void CtrAnyEdit::tellConvertedLimits(AnyItem& item, const std::string& unit, LimitTip& tip) const {
  const std::optional<double> minimum = limitOf(item.minVal), maximum = limitOf(item.maxVal);
  std::optional<double> low, high;
  if (minimum && !(low = converted(*minimum, item.dataUnit, unit, *this))) return;
  if (maximum) high = converted(*maximum, item.dataUnit, unit, *this);
  tip.tell(item.toolTip, low, high, unit, LimitTip::kConverted);
}

// The unit that the user chose for the item's quantity, or else that of the data.
std::string CtrAnyEdit::userUnit(const AnyItem& item) const {
  const Ref<IUnitConverter> service = converter();
  std::string unit;
  return service && findUserUnit(*service, item.name, unit) && !unit.empty() ? unit : item.dataUnit;
}

std::string CtrAnyEdit::attributeText(const Node& node, const char* name) const {
  if (const auto text = node.findAttribute(name)) return std::string(*text);
  tellMissing(node, std::string("./@") + name);
  return {};
}

void CtrAnyEdit::tellMissing(const Node& node, const std::string& path) const {
  if (const Ref<Messenger> host = mMessenger) host->ShowMessage("CtrAnyEdit getText ", "Missing " + path + ": \r\n" + node.xml() + "\r\n");
}

void CtrAnyEdit::raiseChange(const AnyItem& item) {
  const std::string name = item.name, text = item.text;
  Change(name, text);
}

}  // namespace ostrand
