#include "platform/controls/CtrMonitoring.h"

#include <algorithm>
#include <utility>

#include "platform/base/NumberText.h"
#include "platform/controls/Form.h"
#include "platform/trap/Procedure.h"
#include "platform/types/Listening.h"
#include "platform/types/Query.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

enum Column { Name = 1, Shown, Unit, Trend };

constexpr std::size_t kTrendShown = 16;

}  // namespace

CtrMonitoring::~CtrMonitoring() { stopListening(mMessenger, *this); }

void CtrMonitoring::declare(Form& form) {
  form.fill(lsvMonitoring, "monitoring");
  lsvMonitoring.AddColumn("variable", 3600);
  lsvMonitoring.AddColumn("value", 1800, ListView::Content::Number);
  lsvMonitoring.AddColumn("unit", 1200);
  lsvMonitoring.AddColumn("trend", 2400, ListView::Content::Trend);
}

void CtrMonitoring::resized() {
  Procedure proc(*this, "UserControl_Resize");
  proc.step([&] { lsvMonitoring.Move(0, 0, width(), height()); });
}

void CtrMonitoring::terminate() {
  stopListening(std::exchange(mMessenger, nullptr), *this);
  mDataSet = {};
  Panel::terminate();
}

void CtrMonitoring::SetMessenger(const Ref<Messenger>& messenger) {
  Procedure proc(*this, "ITaviComponent_SetMessenger", messenger);
  proc.step([&] { changeMessenger(mMessenger, proc.pinnedMessenger(), *this); });
}

void CtrMonitoring::RequestFocus() {
  Procedure proc(*this, "ITaviView_RequestFocus");
  proc.step([&] { lsvMonitoring.SetFocus(); });
}

void CtrMonitoring::Localize(const Ref<ITextTable>& textTable) {
  Procedure proc(*this, "ILocalizable_Localize");
  proc.step([&] {
    mTextTable = textTable;
    for (int column = 1; column <= lsvMonitoring.ColumnCount(); ++column)
      if (textTable) lsvMonitoring.Header(column, textTable->GetText(lsvMonitoring.HeaderTag(column)));
    for (int row = 1; row <= static_cast<int>(mVariables.size()); ++row) {
      const Ref<Variable> variable = mVariables[static_cast<std::size_t>(row) - 1];
      showTexts(*variable, row);
      showRow(*variable, row);
    }
  });
}

void CtrMonitoring::ViewSetUnits() {
  Procedure proc(*this, "mMessenger_ViewSetUnits");
  proc.step([&] {
    for (int row = 1; row <= static_cast<int>(mVariables.size()); ++row) {
      const Ref<Variable> variable = mVariables[static_cast<std::size_t>(row) - 1];
      variable->value.chooseUnit(variable->name, *this);
      showTexts(*variable, row);
      showRow(*variable, row);
    }
  });
}

void CtrMonitoring::SetOfflineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOfflineData");
  proc.step([&] {
    mDataSet = doc;
    mVariables.clear();
    mRows.clear();
    lsvMonitoring.Clear();
    const Node live = group(doc, tag());
    if (!live) return;
    for (Node included = live.firstChild(); included; included = included.nextSibling()) {
      const Node found = parameter(doc, included.findAttribute("name").value_or(""));
      if (!found) continue;
      int row = 0;
      const Ref<Variable> variable = variableOf(found, row);
      variable->value.store(variable->value.documentText(found.findAttribute("value").value_or("")));
      showRow(*variable, row);
    }
  });
}

void CtrMonitoring::SetOnlineData(const Document& doc) {
  Procedure proc(*this, "ITaviDataUser_setOnlineData");
  proc.step([&] {
    if (!mDataSet) return;
    const Node answer = response(doc);
    if (!answer) return;
    for (Node item = answer.firstChild(); item; item = item.nextSibling()) {
      if (item.name() != "comm:item") continue;
      const std::string_view name = item.findAttribute("name").value_or("");
      const auto known = mRows.find(std::string(name));
      int row = known == mRows.end() ? 0 : known->second;
      Ref<Variable> variable;
      if (row == 0) {
        // A recipe or a serial number that somebody reads meanwhile is no live value.
        if (answer.findAttribute("name").value_or("") != tag()) continue;
        const Node found = parameter(mDataSet, name);
        if (!found) continue;
        variable = variableOf(found, row);
      } else {
        variable = mVariables[static_cast<std::size_t>(row) - 1];
      }
      take(*variable, row, item);
    }
  });
}

Ref<CtrMonitoring::Variable> CtrMonitoring::variableOf(const Node& parameter, int& row) {
  const auto [at, isNew] = mRows.try_emplace(std::string(parameter.attribute("name")), static_cast<int>(mVariables.size()) + 1);
  row = at->second;
  if (!isNew) return mVariables[static_cast<std::size_t>(row) - 1];
  const Ref<Variable> variable(new Variable);
  mVariables.push_back(variable);
  variable->name = at->first;
  variable->value.describe(parameter);
  // A coded value is shown by the name of its choice.
  variable->choices.read(mapping(mDataSet, variable->name));
  lsvMonitoring.AddRow();
  variable->value.chooseUnit(variable->name, *this);
  showTexts(*variable, row);
  return variable;
}

Ref<IUnitConverter> CtrMonitoring::converter() const {
  const Ref<Messenger> host = mMessenger;
  return host ? host->GetUnitConverter() : nullptr;
}

void CtrMonitoring::take(Variable& variable, int row, const Node& item) {
  const auto received = variable.value.received(item, *this);
  if (!received) return;
  if (const auto number = parseNumber(received->text, '.')) variable.values[variable.count++ % kTrendLength] = *number;
  variable.value.store(received->text);
  variable.read = true;
  showRow(variable, row);
}

void CtrMonitoring::showTexts(const Variable& variable, int row) {
  lsvMonitoring.Cell(row, Name, label(variable.name));
  const std::string unit = variable.value.displayUnit();
  std::string shown = unit == "noUnit" ? std::string() : unit;
  const Ref<ITextTable> texts = mTextTable;
  if (texts && !shown.empty()) shown = texts->GetSectionText(unit, "unit");
  lsvMonitoring.Cell(row, Unit, shown);
}

void CtrMonitoring::showRow(const Variable& variable, int row) {
  const Choice* const choice = variable.choices.byValue(variable.value.stored());
  const std::string shown = choice ? text(choice->key) : variable.value.shown(variable.value.stored(), desktop().locale(), *this);
  lsvMonitoring.Cell(row, Shown, shown);
  lsvMonitoring.CellColor(row, Shown, variable.read ? Color::text() : Color::disabledText());
  lsvMonitoring.Cell(row, Trend, trendText(variable));
}

std::vector<double> CtrMonitoring::trend(int row) const {
  const Variable& variable = *mVariables.at(static_cast<std::size_t>(row) - 1);
  const std::size_t length = std::min(variable.count, kTrendLength);
  std::vector<double> values;
  for (std::size_t i = variable.count - length; i < variable.count; ++i) values.push_back(variable.values[i % kTrendLength]);
  return values;
}

std::string CtrMonitoring::trendText(const Variable& variable) const {
  constexpr std::array<const char*, 8> kBars{"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
  const std::size_t length = std::min({variable.count, kTrendLength, kTrendShown});
  if (length < 2) return {};
  const auto value = [&](std::size_t i) { return variable.values[(variable.count - length + i) % kTrendLength]; };
  double low = value(0), high = value(0);
  for (std::size_t i = 1; i < length; ++i) low = std::min(low, value(i)), high = std::max(high, value(i));
  std::string text;
  for (std::size_t i = 0; i < length; ++i) {
    const double share = high > low ? (value(i) - low) / (high - low) : 0.5;
    text += kBars[static_cast<std::size_t>(share * 7.0 + 0.5)];
  }
  return text;
}

}  // namespace ostrand
