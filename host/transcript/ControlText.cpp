#include "host/transcript/ControlText.h"

#include <algorithm>
#include <array>

#include "host/transcript/ChartText.h"
#include "host/transcript/ControlPath.h"
#include "platform/base/Characters.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/Chart.h"
#include "platform/controls/ChoiceEdit.h"
#include "platform/controls/Component.h"
#include "platform/controls/EditControl.h"

namespace ostrand {

namespace {

constexpr std::size_t kColumns = 4;
using Row = std::array<std::string, kColumns>;

struct KindWord {
  std::string_view className;
  std::string_view word;
};
constexpr KindWord kKindWords[] = {
    {"Frame", "frame"},          {"Label", "label"},          {"TextBox", "text"},       {"CheckBox", "check"},       {"OptionButton", "option"},
    {"CommandButton", "button"}, {"ListView", "list"},        {"PictureBox", "picture"}, {"Slider", "slider"},        {"CtrTextEdit", "edit"},
    {"CtrComboEdit", "combo"},   {"CtrDateEdit", "date"},     {"CtrTimeEdit", "time"},   {"CtrOptionEdit", "choice"}, {"CtrCheckEdit", "check"},
    {"CtrDateLabel", "stamp"},   {"CtrFocusTransfer", "tab"}, {"Chart", "chart"},        {"CtrGraphMenu", "menu"},
};

std::string kindWord(const Control& control) {
  for (const KindWord& each : kKindWords)
    if (each.className == control.className()) return std::string(each.word);
  return std::string(control.className());
}

// A property that the class may not have.
std::optional<Value> property(const Control& control, const char* name) {
  try {
    return control.get(name, {});
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

std::string content(const Control& control) {
  if (const auto* const edit = dynamic_cast<const EditControl*>(&control); edit && !property(control, "Value")) {
    const std::string unit = edit->displayUnit();
    return inQuotes(edit->displayText()) + (unit.empty() || unit == "noUnit" ? "" : " " + unit);
  }
  if (control.className() == "ListView") {
    const int rows = asInt(control.get("Count", {}));
    return std::to_string(rows) + (rows == 1 ? " row" : " rows");
  }
  if (const auto* const chart = dynamic_cast<const Chart*>(&control)) return chartInWords(*chart);
  if (const auto value = property(control, "Value")) {
    const auto caption = property(control, "Caption");
    return (caption ? toText(*caption) + " " : "") + toText(*value);
  }
  // A frame bears no caption of its own: its key is what the host selects it by.
  if (control.className() == "Frame" || nestedIn(control)) return toText(control.get("Tag", {}));
  for (const char* name : {"Caption", "Text"})
    if (const auto value = property(control, name)) return toText(*value);
  return {};
}

std::string state(const Control& control, const Control* focused) {
  std::string text;
  const auto add = [&](const std::string& word) { text += (text.empty() ? "" : ", ") + word; };
  const auto is = [&](const char* name) {
    const auto value = property(control, name);
    return value && asBool(*value);
  };
  if (control.className() == "CtrComboEdit") add("of " + toText(control.get("Count", {})));
  if (!is("Visible")) add("hidden");
  if (!is("Enabled")) add("disabled");
  if (is("ReadOnly")) add("read only");
  if (is("KeepLocal") || is("ExplicitApply")) add("held back");
  if (is("Modified")) add("edited");
  if (property(control, "Correct") && !is("Correct")) add("wrong");
  if (const auto error = property(control, "Error"); error && !asText(*error).empty()) add(toText(*error));
  if (&control == focused) add("focused");
  return text;
}

void addFront(const Component& component, const std::string& path, std::vector<Row>& rows) {
  for (const Control* const control : component.controlsOf(component.front())) {
    rows.push_back({path + control->name(), kindWord(*control), content(*control), state(*control, component.focused())});
    if (const Component* const nested = nestedIn(*control)) addFront(*nested, path + control->name() + ".", rows);
  }
}

}  // namespace

std::vector<Control*> selectableItems(const ControlCollection& controls) {
  std::vector<Control*> items;
  std::copy_if(controls.begin(), controls.end(), std::back_inserter(items), [](const Control* each) { return each->kind() == Control::Kind::Frame; });
  std::copy_if(controls.begin(), controls.end(), std::back_inserter(items), [](const Control* each) { return each->view() != nullptr; });
  return items;
}

std::vector<std::string> frontAsText(const Component& component) {
  std::vector<Row> rows;
  addFront(component, {}, rows);
  std::array<std::size_t, kColumns> widths{};
  for (const Row& row : rows)
    for (std::size_t i = 0; i < kColumns; ++i) widths[i] = std::max(widths[i], characterCount(row[i]));
  std::vector<std::string> lines;
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < kColumns; ++i) line += row[i] + std::string(widths[i] - characterCount(row[i]) + 2, ' ');
    line.erase(line.find_last_not_of(' ') + 1);
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace ostrand
