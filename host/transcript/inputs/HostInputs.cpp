#include "host/transcript/inputs/HostInputs.h"

#include "host/transcript/TranscriptCommands.h"
#include "host/transcript/TranscriptStage.h"
#include "platform/base/File.h"
#include "platform/base/NumberText.h"

namespace ostrand::inputs {

void level(TranscriptStage& stage, const TranscriptInput& input) { stage.script->level = numberOf(input.words[1]); }

void mode(TranscriptStage& stage, const TranscriptInput& input) {
  stage.script->mode = numberOf(input.words[1]);
  stage.raise({ViewEvent::Kind::SetCommunicationMode, stage.script->mode, {}, {}});
}

void receive(TranscriptStage& stage, const TranscriptInput& input) {
  stage.raise({ViewEvent::Kind::ReceiveValue, 0, input.words[1].text, input.words[2].text});
}

void unit(TranscriptStage& stage, const TranscriptInput& input) { stage.units->choose(input.words[1].text, input.words[2].text); }

void units(TranscriptStage& stage, const TranscriptInput&) { stage.raise({ViewEvent::Kind::SetUnits, 0, {}, {}}); }

void changes(TranscriptStage& stage, const TranscriptInput& input) { stage.raise({ViewEvent::Kind::GetChanges, numberOf(input.words[1]), {}, {}}); }

void answer(TranscriptStage& stage, const TranscriptInput& input) {
  for (std::size_t i = 1; i < input.words.size(); ++i) stage.script->answers.push_back(numberOf(input.words[i]));
}

void accept(TranscriptStage& stage, const TranscriptInput& input) {
  for (std::size_t i = 1; i < input.words.size(); ++i) stage.script->accepts.push_back(input.words[i].text == "true");
}

void fail(TranscriptStage& stage, const TranscriptInput& input) {
  const std::string& call = input.words[1].text;
  ErrorText error{RuntimeError::Unexpected, "told to fail"};
  if (input.words.size() > 4) error = {numberOf(input.words[3]), input.words[4].text};
  stage.output.failNext(call, input.words.size() > 2 ? numberOf(input.words[2]) : 1, std::move(error));
}

void during(TranscriptStage& stage, const TranscriptInput& input) { stage.output.duringNext(input.words[1].text, nestedInput(input)); }

void parent(TranscriptStage& stage, const TranscriptInput& input) {
  (input.words[1].text == "NotifyStatus" ? stage.script->offersNotifyStatus : stage.script->offersDownload) = input.words[2].text == "on";
}

void maximize(TranscriptStage& stage, const TranscriptInput& input) { stage.script->maximizeAllowed = input.words[1].text == "true"; }

void address(TranscriptStage& stage, const TranscriptInput& input) {
  stage.script->address = static_cast<std::uint8_t>(numberOf(input.words[1]));
  stage.script->addressIsOk = input.words.size() < 3;
}

void tree(TranscriptStage& stage, const TranscriptInput& input) { stage.script->tree = Document::read(stage.files.documentOf(input)); }

void relations(TranscriptStage& stage, const TranscriptInput& input) {
  if (!input.document && input.words[1].text == "none")
    std::filesystem::remove(stage.files.relations());
  else
    writeWholeFile(stage.files.relations(), stage.files.documentOf(input));
}

void dialog(TranscriptStage& stage, const TranscriptInput& input) {
  const bool cancels = !input.words[1].quoted && input.words[1].text == "cancel";
  stage.desktop.files.push_back(cancels ? std::nullopt : std::optional(input.words[1].text));
}

void locale(TranscriptStage& stage, const TranscriptInput& input) {
  if (!stage.desktop.setLocale(input.words[1].text)) throw RuntimeError(RuntimeError::BadArgument, "no such locale: " + input.words[1].text);
}

void advance(TranscriptStage& stage, const TranscriptInput& input) { stage.desktop.advance(*parseNumber(input.words[1].text, '.')); }

std::optional<unsigned> seedOf(const TranscriptWord& word) {
  if (!word.text.starts_with("seed=")) return std::nullopt;
  const auto number = parseInteger(std::string_view(word.text).substr(5));
  return number && *number >= 0 ? std::optional(static_cast<unsigned>(*number)) : std::nullopt;
}

void device(TranscriptStage& stage, const TranscriptInput& input) {
  stage.connect(input.words[1].text, input.words.size() > 2 ? seedOf(input.words[2]).value_or(1) : 1);
}

void run(TranscriptStage& stage, const TranscriptInput& input) {
  if (!stage.device) throw RuntimeError(RuntimeError::NothingThere, "there is no device");
  const auto seconds = input.words.size() > 1 ? parseNumber(input.words[1].text, '.') : std::nullopt;
  stage.device->run(seconds, [&stage](double each) { stage.desktop.advance(each); });
}

void fault(TranscriptStage& stage, const TranscriptInput& input) {
  if (!stage.device) throw RuntimeError(RuntimeError::NothingThere, "there is no device");
  std::string argument;
  for (std::size_t i = 2; i < input.words.size(); ++i) argument += (i > 2 ? " " : "") + input.words[i].text;
  stage.device->setFault(input.words[1].text, argument);
}

}  // namespace ostrand::inputs
