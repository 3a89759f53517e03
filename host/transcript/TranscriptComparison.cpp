#include "host/transcript/TranscriptComparison.h"

#include <algorithm>
#include <cstdint>

namespace ostrand {

namespace {

constexpr std::string_view kAnyRun = "...";
constexpr std::string_view kRepeat = " +";
constexpr std::size_t kContext = 3;

// One step from what is expected to what came: an output that fits, one that is missing, or one too many.
struct Step {
  enum class Kind { Fits, Missing, Extra } kind;
  std::size_t index;  // of the expected output, or of the extra one
};

// An expected output, or the rest of one that may repeat.
struct Slot {
  const ExpectedOutput* output;
  std::size_t index;
  bool rest;
};

// The cheapest way from the expected outputs to those that came, by the number of missing and extra ones.
class Alignment {
 public:
  Alignment(const std::vector<ExpectedOutput>& expected, const std::vector<Output>& actual) : mActual(actual) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
      mSlots.push_back({&expected[i], i, false});
      if (mayRepeat(expected[i].line)) mSlots.push_back({&expected[i], i, true});
    }
  }

  std::vector<Step> steps() const {
    if (const auto quick = walk()) return *quick;
    const std::size_t rows = mSlots.size() + 1, columns = mActual.size() + 1;
    if (rows > kLargest / columns) return replaceAll();
    // cost[i][j]: from slot i and output j to the end.
    std::vector<std::uint32_t> cost(rows * columns);
    const auto at = [&](std::size_t i, std::size_t j) -> std::uint32_t& { return cost[i * columns + j]; };
    for (std::size_t i = rows; i-- > 0;)
      for (std::size_t j = columns; j-- > 0;) {
        if (i + 1 == rows && j + 1 == columns) continue;
        std::uint32_t best = UINT32_MAX;
        if (i + 1 < rows) best = at(i + 1, j) + (mSlots[i].rest ? 0 : 1);
        if (j + 1 < columns) best = std::min(best, at(i, j + 1) + 1);
        if (i + 1 < rows && j + 1 < columns && fits(i, j)) best = std::min(best, at(mSlots[i].rest ? i : i + 1, j + 1));
        at(i, j) = best;
      }
    std::vector<Step> steps;
    for (std::size_t i = 0, j = 0; i + 1 < rows || j + 1 < columns;) {
      const bool hasSlot = i + 1 < rows, hasOutput = j + 1 < columns;
      if (hasSlot && hasOutput && fits(i, j) && at(i, j) == at(mSlots[i].rest ? i : i + 1, j + 1)) {
        if (!mSlots[i].rest) steps.push_back({Step::Kind::Fits, mSlots[i].index});
        if (!mSlots[i].rest) ++i;
        ++j;
      } else if (hasSlot && at(i, j) == at(i + 1, j) + (mSlots[i].rest ? 0 : 1)) {
        if (!mSlots[i].rest) steps.push_back({Step::Kind::Missing, mSlots[i].index});
        ++i;
      } else {
        steps.push_back({Step::Kind::Extra, j++});
      }
    }
    return steps;
  }

 private:
  static constexpr std::size_t kLargest = 16'000'000;

  bool fits(std::size_t slot, std::size_t output) const { return matchesOutput(*mSlots[slot].output, mActual[output]); }

  // The usual case: everything fits, and nothing may repeat.
  std::optional<std::vector<Step>> walk() const {
    if (mSlots.size() != mActual.size()) return std::nullopt;
    std::vector<Step> steps;
    for (std::size_t i = 0; i < mSlots.size(); ++i) {
      if (mSlots[i].rest || !fits(i, i)) return std::nullopt;
      steps.push_back({Step::Kind::Fits, i});
    }
    return steps;
  }

  std::vector<Step> replaceAll() const {
    std::vector<Step> steps;
    for (const Slot& slot : mSlots)
      if (!slot.rest) steps.push_back({Step::Kind::Missing, slot.index});
    for (std::size_t j = 0; j < mActual.size(); ++j) steps.push_back({Step::Kind::Extra, j});
    return steps;
  }

  const std::vector<Output>& mActual;
  std::vector<Slot> mSlots;
};

bool tellsAnError(const std::string& line) { return line.starts_with("ReportError ") || line.starts_with("Unhandled "); }

}  // namespace

bool matchesPattern(std::string_view pattern, std::string_view text) {
  const std::size_t first = pattern.find(kAnyRun);
  if (first == pattern.npos) return pattern == text;
  if (!text.starts_with(pattern.substr(0, first))) return false;
  text.remove_prefix(first);
  pattern.remove_prefix(first + kAnyRun.size());
  // Each piece between two runs at its first place; the last piece at the end.
  for (;;) {
    const std::size_t next = pattern.find(kAnyRun);
    const std::string_view piece = pattern.substr(0, next);
    if (next == pattern.npos) return text.ends_with(piece);
    const std::size_t found = text.find(piece);
    if (found == text.npos) return false;
    text.remove_prefix(found + piece.size());
    pattern.remove_prefix(next + kAnyRun.size());
  }
}

bool mayRepeat(std::string_view expectedLine) { return expectedLine.ends_with(kRepeat); }

bool matchesOutput(const Output& expected, const Output& actual) {
  std::string_view pattern = expected.line;
  if (mayRepeat(pattern) && !matchesPattern(pattern, actual.line)) pattern.remove_suffix(kRepeat.size());
  if (!matchesPattern(pattern, actual.line)) return false;
  if (expected.xml.has_value() != actual.xml.has_value()) return false;
  return !expected.xml || matchesPattern(*expected.xml, *actual.xml);
}

TranscriptComparison::TranscriptComparison(const Transcript& transcript, const std::vector<PlayedBlock>& played) : mFile(transcript.file()) {
  for (std::size_t i = 0; i < transcript.blocks().size(); ++i) {
    compareBlock(transcript, transcript.blocks()[i], played[i]);
    addPlayed(transcript, transcript.blocks()[i], played[i]);
  }
}

void TranscriptComparison::addPlayed(const Transcript& transcript, const Transcript::Block& block, const PlayedBlock& played) {
  std::size_t line = block.begin;
  const auto copyUpTo = [&](std::size_t end) {
    for (; line < end; ++line) mPlayedText += transcript.lines()[line] + '\n';
  };
  if (block.input) copyUpTo(block.input->last + 1);
  for (const Output& output : played.outputs)
    for (const std::string& each : output.lines()) mPlayedText += each + '\n';
  for (const ExpectedOutput& output : block.expected) {
    copyUpTo(output.first);
    line = output.last + 1;
  }
  copyUpTo(block.end);
}

void TranscriptComparison::insert(const Output& output) {
  mMatches = false;
  if (tellsAnError(output.line)) mUnexpectedErrors.push_back(output.line);
  for (std::string& line : output.lines()) mEdits.push_back({'+', std::move(line)});
}

void TranscriptComparison::compareBlock(const Transcript& transcript, const Transcript::Block& block, const PlayedBlock& played) {
  // What is not heeded is not compared, so it stands in the file as it may.
  std::vector<ExpectedOutput> expected;
  for (const ExpectedOutput& each : block.expected)
    if (played.heeded.heedsLine(each.line)) expected.push_back(each);
  const std::vector<Step> steps = Alignment(expected, played.outputs).steps();

  std::size_t line = block.begin;
  const auto keepUpTo = [&](std::size_t end) {
    for (; line < end; ++line) mEdits.push_back({' ', transcript.lines()[line]});
  };
  if (block.input) keepUpTo(block.input->last + 1);
  for (const Step& step : steps) {
    if (step.kind == Step::Kind::Extra) {
      insert(played.outputs[step.index]);
      continue;
    }
    const ExpectedOutput& output = expected[step.index];
    keepUpTo(output.first);
    if (step.kind == Step::Kind::Fits) {
      keepUpTo(output.last + 1);
      continue;
    }
    mMatches = false;
    for (; line <= output.last; ++line) mEdits.push_back({'-', transcript.lines()[line]});
  }
  keepUpTo(block.end);
}

std::string TranscriptComparison::updatedText() const {
  std::string text;
  for (const Edit& edit : mEdits)
    if (edit.kind != '-') text += edit.line + '\n';
  return text;
}

std::string TranscriptComparison::diff() const {
  if (mMatches) return {};
  std::string text = "--- " + mFile + "\n+++ " + mFile + " (played)\n";
  std::size_t oldLine = 1, newLine = 1;  // of the edit `i`
  for (std::size_t i = 0; i < mEdits.size();) {
    // The next hunk: from the context before its first change to where no further change is near.
    std::size_t first = i;
    while (first < mEdits.size() && mEdits[first].kind == ' ') ++first;
    if (first == mEdits.size()) break;
    const std::size_t begin = first - std::min(first - i, kContext);
    oldLine += begin - i;
    newLine += begin - i;
    std::size_t last = first;
    for (std::size_t j = first; j < mEdits.size() && j <= last + 2 * kContext + 1; ++j)
      if (mEdits[j].kind != ' ') last = j;
    const std::size_t end = std::min(last + kContext + 1, mEdits.size());
    std::size_t oldCount = 0, newCount = 0;
    std::string lines;
    for (std::size_t j = begin; j < end; ++j) {
      if (mEdits[j].kind != '+') ++oldCount;
      if (mEdits[j].kind != '-') ++newCount;
      lines += mEdits[j].kind + mEdits[j].line + '\n';
    }
    // An empty side counts from the line before.
    text += "@@ -" + std::to_string(oldCount ? oldLine : oldLine - 1) + "," + std::to_string(oldCount) + " +" +
            std::to_string(newCount ? newLine : newLine - 1) + "," + std::to_string(newCount) + " @@\n" + lines;
    oldLine += oldCount;
    newLine += newCount;
    i = end;
  }
  return text;
}

}  // namespace ostrand
