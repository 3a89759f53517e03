#include "platform/base/File.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "platform/base/RuntimeError.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace ostrand {

namespace {

struct Closer {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

File open(const std::filesystem::path& path, const char* mode) { return File(std::fopen(path.string().c_str(), mode)); }

bool toDisk(std::FILE* file) {
  if (std::fflush(file) != 0) return false;
#ifdef _WIN32
  return _commit(_fileno(file)) == 0;
#else
  return fsync(fileno(file)) == 0;
#endif
}

// A new file beside the one that is meant. Another program may be writing the same one at this moment: its file is left alone.
File openBeside(const std::filesystem::path& path, std::filesystem::path& beside) {
  constexpr int kWritersAtOnce = 100;
  std::error_code ignored;
  File file;
  for (int i = 0; i < kWritersAtOnce; ++i) {
    beside = path;
    beside += i == 0 ? ".new" : ".new" + std::to_string(i);
    file = open(beside, "wbx");
    const int why = errno;
    const bool taken = !file && why == EEXIST && !std::filesystem::is_directory(beside, ignored);
    errno = why;
    if (!taken) break;
  }
  return file;
}

[[noreturn]] void fail(int number, const std::filesystem::path& path, const std::string& why) {
  throw RuntimeError(number, path.string() + ": " + why);
}

}  // namespace

std::string readWholeFile(const std::filesystem::path& path) {
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) fail(RuntimeError::FileNotFound, path, "no such file");
  if (std::filesystem::is_directory(path, ignored)) fail(RuntimeError::PermissionDenied, path, "is a folder");
  const File file = open(path, "rb");
  if (!file) fail(RuntimeError::PermissionDenied, path, std::strerror(errno));
  std::string text;
  if (const auto size = std::filesystem::file_size(path, ignored); !ignored) text.reserve(size);
  char buffer[1 << 16];
  while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get())) text.append(buffer, count);
  if (std::ferror(file.get())) fail(RuntimeError::PermissionDenied, path, std::strerror(errno));
  return text;
}

void writeWholeFile(const std::filesystem::path& path, std::string_view text) {
  std::filesystem::path beside;
  bool written = false;
  File file = openBeside(path, beside);
  const bool opened = file != nullptr;
  int why = errno;
  if (file) {
    written = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size() && toDisk(file.get());
    why = errno;
    if (std::fclose(file.release()) != 0) written = false, why = errno;
  }
  std::error_code error;
  if (written) std::filesystem::rename(beside, path, error);
  if (written && !error) return;
  // What we could not open is not ours.
  std::error_code ignored;
  if (opened) std::filesystem::remove(beside, ignored);
  fail(RuntimeError::PermissionDenied, path, "cannot be written: " + (error ? error.message() : std::string(std::strerror(why))));
}

}  // namespace ostrand
