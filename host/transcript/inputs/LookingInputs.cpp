#include "host/transcript/inputs/LookingInputs.h"

#include <set>

#include "host/transcript/ChartText.h"
#include "host/transcript/ControlText.h"
#include "host/transcript/TranscriptStage.h"
#include "platform/base/File.h"
#include "platform/base/NumberText.h"
#include "platform/controls/Chart.h"
#include "platform/types/ITaviDeviceSpecific.h"

namespace ostrand::inputs {

namespace {

// FNV-1a, 64 bits, as hexadecimal digits.
std::string digestOf(std::string_view bytes) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
  std::string digits;
  for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[hash >> shift & 0xF];
  return digits;
}

}  // namespace

void get(TranscriptStage& stage, const TranscriptInput& input) {
  const TranscriptOutput::Quiet quiet(stage.output);
  for (std::size_t i = 1; i < input.words.size(); ++i) {
    const PropertyName name = *PropertyName::read(input.words[i].text);
    if (name.control == "view" && name.property == "Keys") {
      // A frame may hold a panel that is selected in its place, under the same key or without one of its own.
      std::set<std::string> told;
      for (const Control* const item : selectableItems(stage.controls()))
        if (const std::string key = toText(item->get("Tag", {})); key != inQuotes("") && told.insert(key).second) stage.output.printValue(key);
      continue;
    }
    const Control* const found = findControl(stage.controls(), name.control);
    if (!found) {
      stage.output.print("NoSuchControl", name.control);
      continue;
    }
    try {
      stage.output.printValue(toText(found->get(name.property, name.indices)));
    } catch (const RuntimeError& error) {
      stage.output.print("Rejected", error.description());
    }
  }
}

void front(TranscriptStage& stage, const TranscriptInput&) {
  const Component* const view = stage.component();
  const Control* const item = view ? view->front() : nullptr;
  stage.output.printValue(item ? toText(item->get("Tag", {})) : inQuotes(""));
}

void selected(TranscriptStage& stage, const TranscriptInput&) {
  const Ref<ITaviView> view = stage.need<ITaviView>("ITaviView");
  stage.onView([&] { stage.output.printValue(inQuotes(view->GetSelectedView())); });
}

void focused(TranscriptStage& stage, const TranscriptInput&) {
  const Component* const view = stage.component();
  const Control* const found = view ? view->focused() : nullptr;
  stage.output.printValue(inQuotes(found ? nameOfControl(stage.controls(), *found) : std::string()));
}

void show(TranscriptStage& stage, const TranscriptInput&) {
  const TranscriptOutput::Quiet quiet(stage.output);
  const Component* const view = stage.component();
  if (!view) return;
  for (std::string& line : frontAsText(*view)) stage.output.printValue(std::move(line));
}

void chart(TranscriptStage& stage, const TranscriptInput& input) {
  const TranscriptOutput::Quiet quiet(stage.output);
  const Control& control = stage.control(input.words[1].text);
  const auto* const chart = dynamic_cast<const Chart*>(&control);
  if (!chart) throw RuntimeError(RuntimeError::PermissionDenied, control.name() + " is no chart");
  std::vector<std::string> lines;
  if (input.words.size() == 2) {
    lines = chartAsText(*chart);
  } else {
    std::vector<int> points;
    for (std::size_t i = 3; i < input.words.size(); ++i) points.push_back(numberOf(input.words[i]));
    lines = pointsAsText(*chart, numberOf(input.words[2]), points);
  }
  for (std::string& line : lines) stage.output.printValue(std::move(line));
}

void document(TranscriptStage& stage, const TranscriptInput& input) {
  const int number = numberOf(input.words[1]);
  if (number < 1 || number > static_cast<int>(stage.documents.size()))
    throw RuntimeError(RuntimeError::OutOfRange, "there is no document " + std::to_string(number));
  const Document& document = stage.documents[static_cast<std::size_t>(number) - 1];
  if (input.words.size() == 2) return stage.output.printDocument(document.xml());
  if (const auto text = document.selectText(input.words[2].text)) stage.output.printValue(inQuotes(*text));
}

void file(TranscriptStage& stage, const TranscriptInput& input) {
  const std::string& name = input.words[1].text;
  const std::filesystem::path file = stage.files.written(name);
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) throw RuntimeError(RuntimeError::FileNotFound, "no such file: " + name);
  std::string text = readWholeFile(file);
  if (text.ends_with('\n')) text.pop_back();
  stage.output.printDocument(std::move(text));
}

void now(TranscriptStage& stage, const TranscriptInput&) { stage.output.printValue(standardDateAndTime(stage.desktop.now())); }

void picture(TranscriptStage& stage, const TranscriptInput& input) {
  const Ref<ITaviDeviceSpecific> specific = stage.need<ITaviDeviceSpecific>("ITaviDeviceSpecific");
  const std::string argument = input.words.size() > 2 ? input.words[2].text : std::string();
  stage.onView([&] {
    const Picture picture = input.words[1].text == "image" ? specific->GetDeviceImage(argument) : specific->GetDeviceLogo(argument);
    stage.output.printValue(std::to_string(picture.width) + " " + std::to_string(picture.height) + " " + inQuotes(digestOf(picture.svg)));
  });
}

}  // namespace ostrand::inputs
