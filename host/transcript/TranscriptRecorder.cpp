#include "host/transcript/TranscriptRecorder.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "platform/base/File.h"
#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

using std::chrono::milliseconds;

// Calls that come out of the event pump so soon after each other belong to one moment.
constexpr milliseconds kOneMoment{50};

std::string secondsText(milliseconds time) { return plainText(static_cast<double>(time.count()) / 1000.0, '.'); }

std::string joined(const std::string& command, const std::deque<std::string>& words, const std::string& otherwise) {
  std::string line = command;
  for (const std::string& word : words) line += " " + (word.empty() ? otherwise : word);
  return line;
}

void addInput(std::vector<std::string>& lines, const std::string& line, const std::optional<std::string>& document) {
  lines.push_back("> " + line);
  if (!document) return;
  for (std::string& each : documentLines(*document)) lines.push_back(std::move(each));
}

}  // namespace

std::string TranscriptRecorder::word(const std::string& text) {
  const bool isBare = !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
    return std::isalnum(c) || c == '_' || c == '-' || c == '.' || c == '(' || c == ')' || c == '@' || c == ',';
  });
  return isBare ? text : inQuotes(text);
}

// --- inputs

TranscriptRecorder::Block& TranscriptRecorder::current() {
  if (!mInputs.empty() || !mCalls.empty()) return mBlocks.back();
  // Nobody did anything: it came out of the event pump.
  const LocalTime now = mDesktop.now();
  if (mBlocks.empty() || !mBlocks.back().timed || now - mLastTimed > kOneMoment) addTimedBlock();
  mLastTimed = now;
  advanceTo(now);
  return mBlocks.back();
}

void TranscriptRecorder::addTimedBlock() {
  Block& block = mBlocks.emplace_back();
  block.timed = true;
  block.begin = mClock;
}

void TranscriptRecorder::advanceTo(LocalTime time) {
  Block& block = mBlocks.back();
  mClock = std::max(mClock, time);
  block.input = {"> advance " + secondsText(mClock - block.begin)};
}

TranscriptRecorder::Input TranscriptRecorder::input(const std::string& line, const std::optional<std::string>& document) {
  if (mCalls.empty()) {
    if (!mInputs.empty()) return Input(nullptr);
    if (mBlocks.empty()) mClock = mDesktop.now();
    if (const LocalTime now = mDesktop.now(); now > mClock) {
      addTimedBlock();
      advanceTo(now);
    }
    addInput(mBlocks.emplace_back().input, line, document);
  } else {
    if (!mInputs.empty() && mInputs.back() == mCalls.size()) return Input(nullptr);
    // Inside the n-th call of a name: each `during` reaches as far as the next one.
    const OpenCall& call = mCalls.back();
    std::string chain;
    for (int i = 0; i < call.ordinal; ++i) chain += "during " + call.name + " ";
    setup(mBlocks.back(), chain + line, document);
  }
  mInputs.push_back(mCalls.size());
  return Input(this);
}

void TranscriptRecorder::inputEnds() { mInputs.pop_back(); }

void TranscriptRecorder::setup(Block& block, const std::string& line, const std::optional<std::string>& document) {
  addInput(block.setup, line, document);
}

void TranscriptRecorder::put(std::string line) { current().outputs.push_back({std::move(line), {}}); }

void TranscriptRecorder::unhandled(const ErrorText& error) { put("Unhandled " + std::to_string(error.number) + " " + inQuotes(error.description)); }

// --- calls

TranscriptRecorder::Call TranscriptRecorder::begins(const CallText& text) {
  Block& block = current();
  OpenCall call{text.name, ++block.calls[text.name], &block, {}, nullptr};
  if (text.name == "wait")
    call.waitsUntil = mClock + milliseconds(static_cast<long long>(parseNumber(text.firstArgument, '.').value_or(0) * 1000.0 + 0.5));
  if (text.name == "AskUser") call.slot = &block.answers.emplace_back();
  if (text.name == "SendRequestWithStatus") call.slot = &block.accepts.emplace_back();
  if (text.told) {
    call.output = block.outputs.size();
    block.outputs.push_back({text.line(), text.xml});
  }
  mCalls.push_back(std::move(call));
  return mCalls.size() - 1;
}

void TranscriptRecorder::returns(Call call, const std::string& answer) {
  OpenCall& open = mCalls[call];
  if (open.slot) *open.slot = answer;
  if (open.output && !answer.empty()) open.block->outputs[*open.output].line += " -> " + answer;
  mClock = std::max(mClock, open.waitsUntil);
  learn(*open.block, open.name, answer);
  mCalls.pop_back();
}

void TranscriptRecorder::fails(Call call, const ErrorText& error) {
  OpenCall& open = mCalls[call];
  if (open.output) open.block->outputs[*open.output].line += " -> failed";
  // A call that fails takes no answer.
  if (open.slot) *open.slot = "failed";
  setup(*open.block,
        "fail " + open.name + " " + std::to_string(open.ordinal) + " " + std::to_string(error.number) + " " + inQuotes(error.description));
  mCalls.pop_back();
}

void TranscriptRecorder::learn(Block& block, const std::string& call, const std::string& answer) {
  if (call == "GetUserLevel") {
    const int level = static_cast<int>(parseInteger(answer).value_or(mLevel));
    if (std::exchange(mLevel, level) != level) setup(block, "level " + answer);
  } else if (call == "GetMaximizeAllowed" && !answer.empty()) {
    if (std::exchange(mMaximizeAllowed, answer) != answer) setup(block, "maximize " + answer);
  } else if (call == "GetTreeDocument" && !answer.empty()) {
    if (!std::exchange(mKnowsTree, true)) setup(block, "tree", answer);
  } else if (call == "DTMGUIGetXmlPath" && !answer.empty()) {
    if (std::exchange(mKnowsRelations, true)) return;
    try {
      setup(block, "relations", readWholeFile(std::filesystem::path(answer) / "Relations_ostrand.xml"));
    } catch (const RuntimeError&) {
      setup(block, "relations none");
    }
  } else if (call == "OpenDialog" || call == "SaveDialog") {
    setup(block, "dialog " + answer);
  }
}

std::string TranscriptRecorder::text() const {
  std::string text;
  const auto add = [&](const std::vector<std::string>& lines) {
    for (const std::string& line : lines) text += line + '\n';
  };
  for (const Block& block : mBlocks) {
    // Each question has its answer before it, so that none is left over for a later one.
    std::deque<std::string> answers = block.answers, accepts = block.accepts;
    std::erase(answers, "failed");
    std::erase(accepts, "failed");
    if (!answers.empty()) text += "> " + joined("answer", answers, "4") + '\n';
    if (std::find(accepts.begin(), accepts.end(), "false") != accepts.end()) text += "> " + joined("accept", accepts, "true") + '\n';
    add(block.setup);
    add(block.input);
    for (const Output& output : block.outputs) add(output.lines());
  }
  return text;
}

}  // namespace ostrand
