#include "host/transcript/Transcript.h"

#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::vector<std::string> splitLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
    if (end == text.npos) break;
    text.remove_prefix(end + 1);
  }
  return lines;
}

bool isBlankLine(std::string_view line) { return line.find_first_not_of(" \t") == line.npos; }

// What stands behind "| ", or behind "|" at the end of a line.
std::string documentLine(std::string_view line) {
  std::string text;
  line.remove_prefix(line.size() > 1 ? 2 : 1);
  for (std::size_t i = 0; i < line.size(); ++i) {
    const bool isReturn = line[i] == '\\' && i + 1 < line.size() && line[i + 1] == 'r';
    text += isReturn ? '\r' : line[i];
    i += isReturn;
  }
  return text;
}

void appendDocumentLine(std::optional<std::string>& document, std::string_view line) {
  document = document ? *document + "\n" + documentLine(line) : documentLine(line);
}

}  // namespace

std::vector<std::string> documentLines(std::string_view xml) {
  std::vector<std::string> lines(1, "| ");
  for (char c : xml) {
    if (c == '\n')
      lines.emplace_back("| ");
    else if (c == '\r')
      lines.back() += "\\r";
    else
      lines.back() += c;
  }
  return lines;
}

std::vector<std::string> Output::lines() const {
  std::vector<std::string> lines;
  if (!line.empty()) lines.push_back(line);
  if (xml)
    for (std::string& each : documentLines(*xml)) lines.push_back(std::move(each));
  return lines;
}

void Transcript::malformed(std::size_t line, const std::string& why) const {
  throw RuntimeError(RuntimeError::BadArgument, mFile + ":" + std::to_string(line + 1) + ": " + why);
}

Transcript Transcript::parse(std::string_view text, std::string file) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  Transcript transcript;
  transcript.mFile = std::move(file);
  transcript.mLines = splitLines(text);
  transcript.mBlocks.emplace_back();

  // What a line that begins with "|" belongs to.
  enum class Above { Nothing, Input, Output } above = Above::Nothing;
  for (std::size_t i = 0; i < transcript.mLines.size(); ++i) {
    const std::string& line = transcript.mLines[i];
    Block* block = &transcript.mBlocks.back();
    if (isBlankLine(line)) continue;
    if (line[0] == '#') {
      above = Above::Nothing;
    } else if (line[0] == '>') {
      if (line.size() > 1 && line[1] != ' ') transcript.malformed(i, "an input begins with \"> \"");
      TranscriptInput input{line.substr(std::min<std::size_t>(2, line.size())), {}, {}, i, i};
      try {
        input.words = readInput(input.text);
      } catch (const RuntimeError& error) {
        transcript.malformed(i, error.description());
      }
      if (input.words.empty()) transcript.malformed(i, "an input needs a command");
      block->end = i;
      block = &transcript.mBlocks.emplace_back();
      block->begin = i;
      block->input = std::move(input);
      above = Above::Input;
    } else if (line[0] == '|') {
      if (line.size() > 1 && line[1] != ' ') transcript.malformed(i, "a further line begins with \"| \"");
      if (above == Above::Nothing) transcript.malformed(i, "there is no line above that this one belongs to");
      // A document or a file that was asked for is an output, though there is no line above it but the input.
      if (above == Above::Input && (block->input->command() == "document" || block->input->command() == "file")) {
        block->expected.push_back({{}, i, i});
        above = Above::Output;
      }
      if (above == Above::Input) {
        appendDocumentLine(block->input->document, line);
        block->input->last = i;
      } else {
        appendDocumentLine(block->expected.back().xml, line);
        block->expected.back().last = i;
      }
    } else {
      block->expected.push_back({{line, {}}, i, i});
      above = Above::Output;
    }
  }
  transcript.mBlocks.back().end = transcript.mLines.size();
  return transcript;
}

Transcript Transcript::read(const std::filesystem::path& file) { return parse(readWholeFile(file), file.generic_string()); }

}  // namespace ostrand
