#include "host/transcript/TranscriptCommands.h"

#include "host/transcript/InputForm.h"
#include "host/transcript/inputs/HostInputs.h"
#include "host/transcript/inputs/LifeInputs.h"
#include "host/transcript/inputs/LookingInputs.h"
#include "host/transcript/inputs/MemberCall.h"
#include "host/transcript/inputs/OutputInputs.h"
#include "host/transcript/inputs/UserInputs.h"
#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

constexpr auto kNo = TranscriptCommand::Below::Nothing;
constexpr auto kFile = TranscriptCommand::Below::FileOrDocument;
constexpr auto kAny = TranscriptCommand::Below::Anything;

// clang-format off
constexpr TranscriptCommand kCommands[] = {
    // life of the view
    {"create",      "CLASS [tag=TAG] [as NAME]",             "w?www",                             kNo,   &inputs::create},
    {"view",        "NAME",                                  "w",                                 kNo,   &inputs::view},
    {"messenger",   "",                                      "",                                  kNo,   &inputs::messenger},
    {"localize",    "LANGUAGE",                              "w",                                 kNo,   &inputs::localize},
    {"select",      "KEY",                                   "w",                                 kNo,   &inputs::select},
    {"focus",       "",                                      "",                                  kNo,   &inputs::focus},
    {"leave",       "",                                      "",                                  kNo,   &inputs::leave},
    {"import",      "FILE, or a document below",             "?w",                                kFile, &inputs::handIn},
    {"offline",     "FILE, or a document below",             "?w",                                kFile, &inputs::handIn},
    {"online",      "FILE, or a document below",             "?w",                                kFile, &inputs::handIn},
    {"error",       "FILE, or a document below",             "?w",                                kFile, &inputs::handIn},
    {"release",     "",                                      "",                                  kNo,   &inputs::release},
    {"terminate",   "",                                      "",                                  kNo,   &inputs::terminate},
    {"resize",      "WIDTH HEIGHT",                          "ii",                                kNo,   &inputs::resize},
    // the user
    {"click",       "CONTROL",                               "w",                                 kNo,   &inputs::click},
    {"type",        "CONTROL \"TEXT\"",                      "ww",                                kNo,   &inputs::type},
    {"choose",      "CONTROL KEY",                           "ww",                                kNo,   &inputs::choose},
    {"check",       "LIST ROW",                              "wi",                                kNo,   &inputs::check},
    {"uncheck",     "LIST ROW",                              "wi",                                kNo,   &inputs::check},
    {"edit",        "LIST ROW \"TEXT\"",                     "wiw",                               kNo,   &inputs::edit},
    {"slide",       "CONTROL VALUE",                         "wi",                                kNo,   &inputs::slide},
    {"leave-field", "CONTROL [tab] [shift]",                 "w?{tab|shift}{tab|shift}",          kNo,   &inputs::leaveField},
    {"hotspot",     "CHART SERIES POINT [double]",           "wii?{double}",                      kNo,   &inputs::hotspot},
    {"menu",        "CHART",                                 "w",                                 kNo,   &inputs::menu},
    // code
    {"call",        "[CONTROL.]MEMBER [ARG...]",             "w?v*",                              kNo,   &inputs::call},
    {"set",         "CONTROL.PROPERTY VALUE",                "pw",                                kNo,   &inputs::set},
    // the host
    {"level",       "N",                                     "i",                                 kNo,   &inputs::level},
    {"mode",        "N",                                     "i",                                 kNo,   &inputs::mode},
    {"receive",     "TAG VALUE",                             "ww",                                kNo,   &inputs::receive},
    {"unit",        "QUANTITY UNIT",                         "ww",                                kNo,   &inputs::unit},
    {"units",       "",                                      "",                                  kNo,   &inputs::units},
    {"changes",     "MODE",                                  "i",                                 kNo,   &inputs::changes},
    {"answer",      "N [N ...]",                             "i*",                                kNo,   &inputs::answer},
    {"accept",      "BOOL [BOOL ...]",                       "b*",                                kNo,   &inputs::accept},
    {"fail",        "CALL [N [NUMBER \"DESCRIPTION\"]]",     "w?iiw",                             kNo,   &inputs::fail},
    {"during",      "CALL INPUT",                            "ww",                                kAny,  &inputs::during},
    {"parent",      "NotifyStatus|DTMGUIDownload on|off",    "{NotifyStatus|DTMGUIDownload}o",    kNo,   &inputs::parent},
    {"maximize",    "BOOL",                                  "b",                                 kNo,   &inputs::maximize},
    {"address",     "N [bad]",                               "y?{bad}",                           kNo,   &inputs::address},
    {"tree",        "FILE, or a document below",             "?w",                                kFile, &inputs::tree},
    {"relations",   "FILE|none, or a document below",        "?w",                                kFile, &inputs::relations},
    {"dialog",      "NAME|cancel",                           "w",                                 kNo,   &inputs::dialog},
    {"locale",      "NAME",                                  "w",                                 kNo,   &inputs::locale},
    {"advance",     "SECONDS",                               "n",                                 kNo,   &inputs::advance},
    {"device",      "NAME [seed=N]",                         "w?w",                               kNo,   &inputs::device},
    {"run",         "[SECONDS]",                             "?n",                                kNo,   &inputs::run},
    {"fault",       "NAME [ARG]",                            "w?w*",                              kNo,   &inputs::fault},
    // looking
    {"get",         "CONTROL.PROPERTY...",                   "p*",                                kNo,   &inputs::get},
    {"front",       "",                                      "",                                  kNo,   &inputs::front},
    {"selected",    "",                                      "",                                  kNo,   &inputs::selected},
    {"focused",     "",                                      "",                                  kNo,   &inputs::focused},
    {"show",        "",                                      "",                                  kNo,   &inputs::show},
    {"chart",       "CONTROL [SERIES [POINT...]]",           "w?ii*",                             kNo,   &inputs::chart},
    {"document",    "N [XPATH]",                             "i?w",                               kNo,   &inputs::document},
    {"file",        "NAME",                                  "w",                                 kNo,   &inputs::file},
    {"now",         "",                                      "",                                  kNo,   &inputs::now},
    {"picture",     "image|logo [ARGUMENT]",                 "{image|logo}?w",                    kNo,   &inputs::picture},
    // what is put out
    {"trace",       "on|off [CONTROL...]",                   "o?w*",                              kNo,   &inputs::trace},
    {"ignore",      "CALL...",                               "w*",                                kNo,   &inputs::ignore},
    {"heed",        "CALL... or CALL \"BEGINNING\"",         "w*",                                kNo,   &inputs::heed},
};
// clang-format on

// What a form cannot tell.
bool isGood(std::string_view name, std::span<const TranscriptWord> words) {
  if (name == "create") {
    std::size_t at = 1;
    if (at < words.size() && words[at].text.starts_with("tag=")) ++at;
    if (at + 1 < words.size() && words[at].text == "as") at += 2;
    return at == words.size();
  }
  if (name == "device") return words.size() < 2 || inputs::seedOf(words[1]).has_value();
  if (name == "fail") return words.size() != 3 && (words.size() < 2 || parseInteger(words[1].text).value_or(0) > 0);
  if (name == "heed") return !words[0].quoted;
  return true;
}

}  // namespace

std::span<const TranscriptCommand> transcriptCommands() { return kCommands; }

const TranscriptCommand* findCommand(std::string_view name) {
  for (const TranscriptCommand& command : kCommands)
    if (command.name == name) return &command;
  return nullptr;
}

TranscriptInput nestedInput(const TranscriptInput& during) {
  TranscriptInput nested{during.words[2].text, {}, during.document, during.first, during.last};
  nested.words = readInput(nested.text);
  return nested;
}

std::string complaintAbout(const TranscriptInput& input) {
  const std::string& name = input.command();
  const TranscriptCommand* const command = findCommand(name);
  if (!command) return "no such input: " + name;
  const std::span<const TranscriptWord> words = std::span(input.words).subspan(1);
  const std::string usage = "it should be: " + name + (*command->arguments ? " " : "") + command->arguments;
  if (!hasForm(command->form, words) || !isGood(name, words)) return usage;
  if (command->below == kNo && input.document) return name + " takes no document";
  if (command->below == kFile && input.document.has_value() != words.empty()) return usage;
  if (name != "during") return {};
  try {
    return words[1].text.empty() ? usage : complaintAbout(nestedInput(input));
  } catch (const RuntimeError& error) {
    return error.description();
  }
}

}  // namespace ostrand
