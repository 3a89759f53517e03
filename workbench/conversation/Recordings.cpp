#include "workbench/conversation/Recordings.h"

#include <algorithm>

namespace ostrand {

Recordings::Recordings(ComponentSource& components, const Desktop& desktop)
    : mDesktop(desktop), mComponents(components, [this](const std::string&) -> TranscriptRecorder& { return begin(); }) {}

TranscriptRecorder& Recordings::begin() {
  TranscriptRecorder& recorder = *mRecorders.emplace_back(std::make_unique<TranscriptRecorder>(mDesktop));
  recorder.language = mLanguage;
  for (const Setting& setting : mSettings) [[maybe_unused]] const TranscriptRecorder::Input told = recorder.input(setting.line);
  return recorder;
}

void Recordings::setLanguage(const std::string& language) {
  mLanguage = language;
  for (const auto& recorder : mRecorders) recorder->language = language;
}

void Recordings::setLocale(const std::string& name) { set("locale", "locale " + name); }

void Recordings::setUnit(const std::string& quantity, const std::string& unit) {
  set(quantity, "unit " + TranscriptRecorder::word(quantity) + " " + TranscriptRecorder::word(unit));
}

void Recordings::set(const std::string& name, const std::string& line) {
  std::erase_if(mSettings, [&](const Setting& each) { return each.name == name; });
  mSettings.push_back({name, line});
  for (const auto& recorder : mRecorders) [[maybe_unused]] const TranscriptRecorder::Input told = recorder->input(line);
}

}  // namespace ostrand
