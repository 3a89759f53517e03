#include "host/transcript/TranscriptFiles.h"

#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

constexpr const char* kRelationsFile = "Relations_ostrand.xml";

}  // namespace

TranscriptFiles::TranscriptFiles(const std::filesystem::path& data, HiddenFolders& hidden) : mHidden(hidden), mData(std::filesystem::absolute(data)) {
  mHidden.add(mData);
}

void TranscriptFiles::playedFrom(const std::filesystem::path& transcript) {
  mFolder = std::filesystem::absolute(transcript).parent_path();
  mHidden.add(mFolder);
}

std::optional<std::filesystem::path> TranscriptFiles::find(const std::string& name) {
  std::error_code ignored;
  for (const std::filesystem::path& file : {written(name), mFolder / name, mData / name})
    if (std::filesystem::exists(file, ignored)) return file;
  return std::nullopt;
}

std::filesystem::path TranscriptFiles::written(const std::string& name) {
  const std::filesystem::path file = std::filesystem::path(name).relative_path().lexically_normal();
  const bool leadsOut = file.begin() != file.end() && *file.begin() == "..";
  return scratchFolder("files") / (leadsOut ? file.filename() : file);
}

std::string TranscriptFiles::documentOf(const TranscriptInput& input) {
  if (input.document) return *input.document;
  const auto file = find(input.words[1].text);
  if (!file) throw RuntimeError(RuntimeError::FileNotFound, "no such file: " + input.words[1].text);
  return readWholeFile(*file);
}

std::filesystem::path TranscriptFiles::scratchFolder(const char* name) {
  const std::filesystem::path folder = mScratch.path() / name;
  if (std::filesystem::create_directory(folder)) mHidden.add(mScratch.path());
  return folder;
}

const std::filesystem::path& TranscriptFiles::hostFolder() {
  if (!mHostFolder.empty()) return mHostFolder;
  const std::filesystem::path folder = scratchFolder("host");
  std::error_code ignored;
  std::filesystem::copy_file(mData / kRelationsFile, folder / kRelationsFile, ignored);
  return mHostFolder = folder;
}

std::filesystem::path TranscriptFiles::relations() { return hostFolder() / kRelationsFile; }

}  // namespace ostrand
