#include "benchmarks/DiagnosticsWorks.h"

#include <array>
#include <memory>

#include "benchmarks/Classic.h"
#include "benchmarks/Placed.h"
#include "component/Classes.h"
#include "platform/controls/ListView.h"

namespace ostrand::bench {

namespace {

using Names = std::vector<std::string>;

Names eventLogNames() {
  Names names;
  for (const char* const category : {"Error", "Warning", "Info"})
    for (int row = 1; row <= 8; ++row)
      for (const char* const kind : {"Event", "Count"}) names.push_back("eventLog" + std::string(category) + kind + "0" + std::to_string(row));
  return names;
}

// Bits of four branches.
Names statusNames(int bits) {
  constexpr std::array kEnds{"Failure", "Active", "OutOfLimits", "Available"};
  Names names;
  for (int i = 0; i < bits; ++i) names.push_back("statusUnit" + std::to_string(i) + kEnds[static_cast<std::size_t>(i) % kEnds.size()]);
  return names;
}

std::string dataSetOf(const std::string& group, const Names& names) {
  std::string text =
      "<data:dtm xmlns:data=\"x-schema:TAVPersistentDataSchema.xml\" xmlns:typeInfo=\"x-schema:TAVTypeInfoSchema.xml\">"
      "<typeInfo:internalInfo busCategory=\"HART\"/><data:persistentData><data:parameters>";
  for (const std::string& name : names) text += "<data:parameter name=\"" + name + "\" type=\"integerVal\" value=\"0\" unit=\"noUnit\"/>";
  text += "</data:parameters></data:persistentData><data:mappedParams>";
  for (const auto& [key, category] :
       {std::pair("failure", "failure"), {"active", "functionCheck"}, {"outOfLimits", "outOfSpecification"}, {"available", "maintenance"}})
    text += "<data:mappedParam name=\"" + std::string(key) +
            "\"><data:mappedItem value=\"0\" key=\"off\"/><data:mappedItem value=\"1\" key=\"on\" category=\"" + category + "\"/></data:mappedParam>";
  text += "</data:mappedParams><data:requestGroups><data:requestGroup name=\"" + group + "\">";
  for (const std::string& name : names) text += "<data:includedParam name=\"" + name + "\"/>";
  return text + "</data:requestGroup></data:requestGroups></data:dtm>";
}

// Every third item differs from one salt to the next.
std::string answerOf(const std::string& group, const Names& names, int salt) {
  std::string text = "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse name=\"" + group +
                     "\" access=\"read\" isFinal=\"1\" responseStatus=\"device\">";
  for (std::size_t i = 0; i < names.size(); ++i)
    text += "<comm:item name=\"" + names[i] + "\" unit=\"noUnit\"><comm:integerVal>" + std::to_string(i % 3 == 0 ? salt : 0) +
            "</comm:integerVal></comm:item>";
  return text + "</comm:communicationResponse></comm:dtm>";
}

Component* makeView() {
  for (const ComponentClass& known : componentClasses())
    if (known.name == "VwDiagnostics") return known.create();
  throw std::runtime_error("no diagnostics view");
}

// A view that shows one of two answers, and a list for the peer.
struct Shown {
  Shown(const std::string& group, Names items)
      : names(std::move(items)), texts{answerOf(group, names, 0), answerOf(group, names, 1)}, placed(makeView()) {
    offlineData(placed, Document::read(dataSetOf(group, names)));
    placed.as<ITaviView>()->SetSelectedView(group);
    for (const std::string& text : texts) {
      twins.push_back(Document::read(text));
      onlineData(placed, twins.back());
    }
    list.AddColumn("name", 1000);
    for (std::size_t i = 0; i < names.size(); ++i) list.AddRow();
  }

  Names names;
  std::array<std::string, 2> texts;
  std::vector<Document> twins;
  Placed placed;
  ListView list{"list"};
  std::size_t next = 0;
};

Work answerTo(By by, const std::string& group, const Names& names) {
  const auto shown = std::make_shared<Shown>(group, names);
  return {workName(by, group, {static_cast<int>(names.size())}), [=](Meter& meter) {
            shown->next = 1 - shown->next;
            const std::string& text = shown->texts[shown->next];
            if (by == By::Ostrand) return meter.measure([&] { onlineData(shown->placed, Document::read(text)); });
            std::unique_ptr<LibxmlPaths> paths;
            meter.measure([&] { paths = std::make_unique<LibxmlPaths>(text); });
            paths->pairWith(shown->twins[shown->next]);
            meter.measure([&] {
              for (std::size_t i = 0; i < shown->names.size(); ++i) {
                const Node item = paths->first("/comm:dtm/comm:communicationResponse/comm:item[@name=\"" + shown->names[i] + "\"]");
                shown->list.Cell(static_cast<int>(i) + 1, 1, item.firstChild().text());
              }
              paths.reset();
            });
          }};
}

}  // namespace

Work eventLog(By by) { return answerTo(by, "eventLog", eventLogNames()); }

Work deviceStatus(By by, int bits) { return answerTo(by, "deviceStatus", statusNames(bits)); }

}  // namespace ostrand::bench
