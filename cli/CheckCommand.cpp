#include "cli/CheckCommand.h"

#include <CLI/CLI.hpp>
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
  int ask(const std::string&, const std::string&) override { return kStop; }
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
    {BindingAudit::Kind::ViewMissing, "Views of the tree document that nobody has registered"},
};

std::string listed(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text.empty() ? "none" : text;
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
    for (const std::string& line : aligned(rows)) terminal.line("  " + line);
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
