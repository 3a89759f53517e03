#include "platform/types/Registry.h"

#include <cstdlib>

#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Document.h"

namespace ostrand {

namespace {

using std::filesystem::path;

[[noreturn]] void damaged(const path& file, const std::string& why) {
  throw RuntimeError(RuntimeError::BadArgument, file.string() + ": the registration of the components is damaged (" + why +
                                                    "); delete the file and register the libraries again");
}

const char* environment(const char* name) {
  const char* const value = std::getenv(name);
  return value && *value ? value : nullptr;
}

std::string required(const path& file, const Node& entry, const char* attribute) {
  const auto value = entry.findAttribute(attribute);
  if (!value || value->empty()) damaged(file, std::string("a class without \"") + attribute + "\"");
  return std::string(*value);
}

RegisteredClass readEntry(const path& file, const Node& entry) {
  RegisteredClass registered{
      required(file, entry, "name"), {}, required(file, entry, "library"), std::string(entry.findAttribute("description").value_or(""))};
  const auto id = readGuid(required(file, entry, "id"));
  if (!id) damaged(file, "class \"" + registered.name + "\" has a malformed id");
  if (!registered.library.is_absolute()) damaged(file, "class \"" + registered.name + "\" names no absolute library path");
  registered.id = *id;
  return registered;
}

std::string text(const std::vector<RegisteredClass>& classes) {
  const Document doc = Document::read("<components/>");
  for (const RegisteredClass& each : classes) {
    const Node entry = doc.root().appendElement("class");
    entry.setAttribute("name", each.name);
    entry.setAttribute("id", guidText(each.id));
    entry.setAttribute("library", each.library.string());
    entry.setAttribute("description", each.description);
  }
  return doc.xml(true);
}

void write(const path& file, const std::vector<RegisteredClass>& classes) {
  std::error_code error;
  if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), error);
  if (error) throw RuntimeError(RuntimeError::PermissionDenied, file.string() + ": its folder cannot be made: " + error.message());
  writeWholeFile(file, text(classes));
}

}  // namespace

path registryPath() {
  if (const char* const file = environment("OSTRAND_REGISTRY")) return file;
  if (const char* const folder = environment("XDG_DATA_HOME")) return path(folder) / "ostrand" / "components.xml";
  if (const char* const home = environment("HOME")) return path(home) / ".local" / "share" / "ostrand" / "components.xml";
  throw RuntimeError(RuntimeError::FileNotFound, "no place for the registration of the components: set OSTRAND_REGISTRY to a file");
}

std::vector<RegisteredClass> readRegistry(const path& file) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) return {};
  const std::string content = readWholeFile(file);
  Document doc;
  try {
    doc = Document::read(content);
  } catch (const RuntimeError& error) {
    damaged(file, error.description());
  }
  if (doc.root().name() != "components") damaged(file, "its root is not \"components\"");
  std::vector<RegisteredClass> classes;
  for (Node entry = doc.root().firstChild(); entry; entry = entry.nextSibling()) {
    if (entry.name() != "class") damaged(file, "unknown element \"" + std::string(entry.name()) + "\"");
    classes.push_back(readEntry(file, entry));
  }
  return classes;
}

void addToRegistry(const path& file, const path& library, const std::vector<RegisteredClass>& classes) {
  std::vector<RegisteredClass> entries = readRegistry(file);
  std::erase_if(entries, [&](const RegisteredClass& entry) {
    if (entry.library == library) return true;
    for (const RegisteredClass& each : classes)
      if (each.name == entry.name || each.id == entry.id) return true;
    return false;
  });
  for (const RegisteredClass& each : classes) {
    entries.push_back(each);
    entries.back().library = library;
  }
  write(file, entries);
}

void removeFromRegistry(const path& file, const path& library) {
  std::vector<RegisteredClass> entries = readRegistry(file);
  if (std::erase_if(entries, [&](const RegisteredClass& entry) { return entry.library == library; }) > 0) write(file, entries);
}

std::optional<Guid> readGuid(std::string_view text) {
  Guid guid;
  if (text.size() != 36) return std::nullopt;
  std::size_t nibble = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool dash = i == 8 || i == 13 || i == 18 || i == 23;
    if (dash != (c == '-')) return std::nullopt;
    if (dash) continue;
    const int digit = c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
    if (digit < 0) return std::nullopt;
    guid.bytes[nibble / 2] = static_cast<std::uint8_t>(guid.bytes[nibble / 2] << 4 | digit);
    ++nibble;
  }
  return guid;
}

std::string guidText(const Guid& id) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < id.bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
    text += kDigits[id.bytes[i] >> 4];
    text += kDigits[id.bytes[i] & 15];
  }
  return text;
}

}  // namespace ostrand
