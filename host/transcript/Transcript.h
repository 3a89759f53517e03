#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/transcript/TranscriptWords.h"

namespace ostrand {

// A line that was put out, and the document that belongs to it. The line is empty where a document stands for itself.
struct Output {
  std::string line;
  std::optional<std::string> xml;

  friend bool operator==(const Output&, const Output&) = default;
  // As lines of a transcript.
  std::vector<std::string> lines() const;
};

// An output that a transcript expects, and where it stands: lines `first` to `last`, from 0.
struct ExpectedOutput : Output {
  std::size_t first = 0;
  std::size_t last = 0;
};

struct TranscriptInput {
  std::string text;  // behind "> "
  std::vector<TranscriptWord> words;
  std::optional<std::string> document;
  std::size_t first = 0;
  std::size_t last = 0;

  const std::string& command() const { return words.front().text; }
};

// A transcript file: its lines, and what they mean. The first block has no input: what stands before the first one.
//
//   # a comment
//   > an input, a command and its arguments
//   | a further line of the text that belongs to the line above; a carriage return is written \r
//   anything else is an output that is expected
//
// Blank lines are passed over.
class Transcript {
 public:
  struct Block {
    std::optional<TranscriptInput> input;
    std::vector<ExpectedOutput> expected;
    std::size_t begin = 0;  // lines, from 0
    std::size_t end = 0;
  };

  // RuntimeError 5 "FILE:LINE: what is wrong" for a malformed line.
  static Transcript parse(std::string_view text, std::string file);
  // Also 53 and 70 as readWholeFile.
  static Transcript read(const std::filesystem::path& file);

  const std::string& file() const { return mFile; }
  const std::vector<std::string>& lines() const { return mLines; }
  const std::vector<Block>& blocks() const { return mBlocks; }
  // RuntimeError 5 that names the file and the line (from 0).
  [[noreturn]] void malformed(std::size_t line, const std::string& why) const;

 private:
  std::string mFile;
  std::vector<std::string> mLines;
  std::vector<Block> mBlocks;
};

// A document as the lines that begin with "| ".
std::vector<std::string> documentLines(std::string_view xml);

}  // namespace ostrand
