#include "cli/CheckCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "cli/Terminal.h"
#include "host/BindingAudit.h"
#include "host/ComponentServer.h"
#include "host/DataFolder.h"
#include "platform/desktop/VirtualDesktop.h"

namespace ostrand {

namespace {

struct Options {
  std::string dataSet;
  std::vector<std::string> views;
  bool strict = false;
};

// Nobody is there to answer.
class Nobody : public UserPrompt {
 public:
  int ask(const std::string&, const std::string&, const Answers&) override { return kStop; }
  void show(const std::string&, const std::string&) override {}
};

struct Heading {
  BindingAudit::Kind kind;
  const char* text;
};

constexpr Heading kHeadings[] = {
    {BindingAudit::Kind::TagWithoutParameter, "Tags without a parameter or group"},
    {BindingAudit::Kind::MappingMissing, "Choices without a mapping"},
    {BindingAudit::Kind::UnitUnknown, "Unknown units"},
    {BindingAudit::Kind::TextMissing, "Texts missing"},
    {BindingAudit::Kind::FrameMissing, "Nodes of the tree document without a frame"},
    {BindingAudit::Kind::ErrorReported, "Errors that the views reported"},
    {BindingAudit::Kind::ParameterUnbound, "Parameters that no control of these views shows"},
    {BindingAudit::Kind::ActsUnknown, "Unknown words in acts"},
    {BindingAudit::Kind::ActsMissing, "Values that act by their name, and do not say so"},
    {BindingAudit::Kind::ViewMissing, "Views of the tree document that nobody has registered"},
};

std::string listed(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text.empty() ? "none" : text;
}

// A group a line: there are many, and one view shows a group as a whole.
std::vector<std::vector<std::string>> byGroup(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::vector<std::string>> groups;
  std::map<std::string, std::vector<std::string>> members;
  for (const auto& row : rows) {
    if (members[row[1]].empty()) groups.push_back({row[1]});
    members[row[1]].push_back(row[0]);
  }
  constexpr std::size_t kShown = 3;
  for (auto& group : groups) {
    const std::vector<std::string>& all = members[group[0]];
    group.push_back(std::to_string(all.size()));
    group.push_back(listed({all.begin(), all.begin() + static_cast<std::ptrdiff_t>(std::min(kShown, all.size()))}) +
                    (all.size() > kShown ? " and " + std::to_string(all.size() - kShown) + " more" : ""));
  }
  return groups;
}

std::filesystem::path fileOf(const std::string& told) {
  std::error_code ignored;
  const std::filesystem::path device = dataFolder() / "devices" / (told + ".xml");
  return !std::filesystem::exists(told, ignored) && std::filesystem::exists(device, ignored) ? device : std::filesystem::path(told);
}

void check(const Options& options) {
  const Terminal terminal;
  VirtualDesktop desktop;
  ComponentServer components;
  Nobody nobody;
  Host host(desktop, components, nobody, dataFolder());
  host.openDataSet(fileOf(options.dataSet));
  BindingAudit audit(host);
  if (options.views.empty())
    audit.lookAtTree();
  else
    audit.look(options.views);
  terminal.line("Data set  " + host.dataSet()->file().string() + ": " + std::to_string(host.dataSet()->parameters().size()) + " parameters, " +
                std::to_string(host.dataSet()->groups().size()) + " groups");
  terminal.line("Views     " + listed(audit.views()));
  const std::vector<BindingAudit::Finding> findings = audit.findings();
  bool missing = audit.views().empty();
  for (const Heading& heading : kHeadings) {
    std::vector<std::vector<std::string>> rows;
    for (const BindingAudit::Finding& each : findings)
      if (each.kind == heading.kind) rows.push_back({each.subject, each.detail, each.view});
    const bool isRemark = heading.kind == BindingAudit::Kind::ParameterUnbound || heading.kind == BindingAudit::Kind::ViewMissing;
    const bool counts = !isRemark || options.strict;
    const auto style = rows.empty() ? Terminal::Style::Good : counts ? Terminal::Style::Bad : Terminal::Style::Yellow;
    terminal.line();
    terminal.line(terminal.styled(std::string(heading.text) + ": " + (rows.empty() ? "none" : std::to_string(rows.size())), style));
    const bool isLong = heading.kind == BindingAudit::Kind::ParameterUnbound && !options.strict;
    for (const std::string& line : aligned(isLong ? byGroup(rows) : rows)) terminal.line("  " + line);
    missing = missing || (counts && !rows.empty());
  }
  if (missing) throw CLI::RuntimeError(1);
}

}  // namespace

void addCheckCommand(CLI::App& app) {
  CLI::App* const command = app.add_subcommand("check", "Check that a data set, the views, the units and the text tables fit together");
  const auto options = std::make_shared<Options>();
  command->add_option("DATASET", options->dataSet, "A data set's file, or the name of a device of the data folder")->required();
  command->add_option("--view", options->views, "Only these views; else those of the device's tree document");
  command->add_flag("--strict", options->strict, "A parameter that no control shows, and a view that is not registered, count as missing too");
  command->footer("Exit code 1 if something is missing.");
  command->callback([options] { check(*options); });
}

}  // namespace ostrand
