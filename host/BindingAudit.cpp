#include "host/BindingAudit.h"

#include <algorithm>

#include "host/ActingValues.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/CaptionedControl.h"
#include "platform/controls/ChoiceEdit.h"
#include "platform/controls/ListView.h"

namespace ostrand {

namespace {

constexpr std::string_view kDatePrefix = "date_";
// How the text tables call what shows a unit.
constexpr const char* kUnitSection = "unit";

// Hears what a view reports while it is looked at.
class Reports : public HostObserver {
 public:
  explicit Reports(Observers& observers) : mObservers(observers) { mObservers.add(*this); }
  ~Reports() { mObservers.remove(*this); }
  void errorReported(const std::string&, const std::string& prefix, int number, const std::string& description) override {
    texts.push_back(prefix + std::to_string(number) + " " + description);
  }
  void errorUnhandled(const std::string&, int number, const std::string& description) override {
    texts.push_back("unhandled: " + std::to_string(number) + " " + description);
  }
  std::vector<std::string> texts;

 private:
  Observers& mObservers;
};

}  // namespace

void BindingAudit::look(const std::vector<std::string>& classes) {
  for (const std::string& name : classes) look(name, {}, {});
}

void BindingAudit::lookAtTree() {
  if (!mHost.treeDocument()) return;
  for (const Node& branch : mHost.treeDocument().selectAll("/dtm/treeView/branch[@component]")) {
    const std::string component(branch.attribute("component"));
    const std::string name(branch.findAttribute("name").value_or(""));
    std::vector<std::string> nodes;
    for (const Node& node : branch.selectAll("node")) nodes.emplace_back(node.findAttribute("name").value_or(""));
    try {
      look(component, name, nodes);
    } catch (const RuntimeError& error) {
      if (error.number() != RuntimeError::BadArgument) throw;
      mFindings.push_back({Kind::ViewMissing, "", component, name});
      continue;
    }
    need(name, component);
    for (const std::string& node : nodes) need(node, component);
  }
}

void BindingAudit::look(const std::string& className, const std::string& tag, const std::vector<std::string>& nodes) {
  Reports reports(mHost.observers());
  const Ref<ViewSite> site = mHost.views().place(className, tag);
  if (site->view()) {
    mViews.push_back(className);
    mHost.views().open(*site, {});
    see(className, *site->view());
    for (const std::string& text : reports.texts) mFindings.push_back({Kind::ErrorReported, className, text, ""});
    for (const std::string& node : nodes) {
      site->select(node);
      if (site->selected() != node) mFindings.push_back({Kind::FrameMissing, className, node, tag});
    }
  }
  mHost.views().release(*site);
}

void BindingAudit::see(const std::string& view, ITaviView& component) {
  for (Control* control : component.GetControls()) see(view, *control);
}

void BindingAudit::see(const std::string& view, Control& control) {
  const DataSet& dataSet = *mHost.dataSet();
  const std::string& tag = control.Tag();
  if (control.kind() == Control::Kind::DateLabel) {
    const std::string group = tag.starts_with(kDatePrefix) ? tag.substr(kDatePrefix.size()) : tag;
    const auto groups = dataSet.groups();
    if (!tag.empty() && std::find(groups.begin(), groups.end(), group) == groups.end())
      mFindings.push_back({Kind::TagWithoutParameter, view, tag, control.name()});
    return;
  }
  if (const std::string name(control.parameterName()); !name.empty()) {
    mBound.insert(name);
    if (!dataSet.has(name)) {
      mFindings.push_back({Kind::TagWithoutParameter, view, tag, control.name()});
      return;
    }
    if (const auto* const choice = dynamic_cast<const ChoiceEdit*>(&control)) {
      if (choice->choices().empty() && dataSet.info(name).isInteger()) mFindings.push_back({Kind::MappingMissing, view, name, control.name()});
      for (const Choice& each : choice->choices()) need(each.key, view);
    }
    return;
  }
  if (const auto* const list = dynamic_cast<const ListView*>(&control)) {
    for (int column = 1; column <= list->ColumnCount(); ++column)
      if (!list->HeaderTag(column).empty()) need(list->HeaderTag(column), view);
    return;
  }
  if (ITaviView* const nested = control.view()) {
    if (!tag.empty()) need(tag, view);
    // A panel that shows a whole group shows each of its values.
    for (const std::string& name : dataSet.parametersOf(tag)) {
      mBound.insert(name);
      need(name, view);
    }
    see(view, *nested);
    return;
  }
  const bool isText = dynamic_cast<const CaptionedControl*>(&control) || control.kind() == Control::Kind::TextBox;
  if (isText && !tag.empty()) need(tag, view);
}

std::vector<BindingAudit::Finding> BindingAudit::findings() {
  std::vector<Finding> all = mFindings;
  for (auto& more : {dataSetFindings(), textFindings()}) all.insert(all.end(), more.begin(), more.end());
  std::stable_sort(all.begin(), all.end(), [](const Finding& a, const Finding& b) { return a.kind < b.kind; });
  return all;
}

std::vector<BindingAudit::Finding> BindingAudit::dataSetFindings() {
  const DataSet& dataSet = *mHost.dataSet();
  std::vector<Finding> found;
  std::set<std::string> units;
  for (const std::string& name : dataSet.parameters()) {
    const std::string unit = dataSet.info(name).unit;
    const bool plain = unit == "noUnit" || unit == "%";
    if (!plain && !mHost.user().units()->knows(unit) && units.insert(unit).second) found.push_back({Kind::UnitUnknown, "", unit, name});
    const std::string acts = dataSet.acts(name);
    if (!acts.empty() && !actsOfWord(acts)) found.push_back({Kind::ActsUnknown, "", name, acts});
    if (acts.empty() && actsByName(name) != Acts::No) found.push_back({Kind::ActsMissing, "", name, dataSet.homeGroup(name)});
    if (!mBound.contains(name)) found.push_back({Kind::ParameterUnbound, "", name, dataSet.homeGroup(name)});
  }
  return found;
}

std::vector<BindingAudit::Finding> BindingAudit::textFindings() {
  struct Needed {
    std::string key;
    std::string view;
    bool isUnit;
  };
  std::vector<Needed> needed;
  std::set<std::string> once;
  for (const auto& [key, view] : mKeys)
    if (once.insert(key).second) needed.push_back({key, view, false});
  std::set<std::string> units;
  const DataSet& dataSet = *mHost.dataSet();
  for (const std::string& name : dataSet.parameters())
    if (units.insert(dataSet.info(name).unit).second) needed.push_back({dataSet.info(name).unit, "", true});
  std::vector<std::pair<std::string, Ref<TextTable>>> tables;
  for (const TextTables::Language& language : mHost.user().textTables().languages())
    tables.emplace_back(language.code, mHost.user().textTables().fileTable(language.code));
  std::vector<Finding> found;
  for (const Needed& each : needed) {
    std::string without;
    for (const auto& [code, table] : tables) {
      const bool has = each.isUnit ? table->hasSectionText(each.key, kUnitSection) : table->hasText(each.key);
      if (!has) without += (without.empty() ? "" : " ") + code;
    }
    if (!without.empty()) found.push_back({Kind::TextMissing, each.view, each.isUnit ? each.key + " (unit)" : each.key, without});
  }
  return found;
}

}  // namespace ostrand
