#include "host/transcript/inputs/OutputInputs.h"

#include "host/transcript/TranscriptStage.h"

namespace ostrand::inputs {

void trace(TranscriptStage& stage, const TranscriptInput& input) {
  std::vector<std::string> names;
  for (std::size_t i = 2; i < input.words.size(); ++i) names.push_back(input.words[i].text);
  stage.output.trace(input.words[1].text == "on", names);
}

void ignore(TranscriptStage& stage, const TranscriptInput& input) {
  for (std::size_t i = 1; i < input.words.size(); ++i) stage.output.heeded.ignore(input.words[i].text);
}

void heed(TranscriptStage& stage, const TranscriptInput& input) {
  std::string name;
  for (std::size_t i = 1; i < input.words.size(); ++i) {
    if (input.words[i].quoted) {
      stage.output.heeded.heedOnly(name, input.words[i].text);
      continue;
    }
    name = input.words[i].text;
    if (i + 1 == input.words.size() || !input.words[i + 1].quoted) stage.output.heeded.heed(name);
  }
}

}  // namespace ostrand::inputs
