#include "host/TextTables.h"

#include <algorithm>

#include "platform/base/RuntimeError.h"

namespace ostrand {

std::vector<TextTables::Language> TextTables::languages() const {
  std::vector<Language> found;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(mFolder, ignored)) {
    if (entry.path().extension() != ".xml") continue;
    Language language{entry.path().stem().string(), entry.path().stem().string()};
    try {
      const Document doc = Document::readFile(entry.path());
      if (const auto name = doc.root() ? doc.root().findAttribute("name") : std::nullopt) language.name = *name;
    } catch (const RuntimeError&) {
      // Whoever chooses it hears what is wrong with it.
    }
    found.push_back(std::move(language));
  }
  std::sort(found.begin(), found.end(), [](const Language& a, const Language& b) { return a.code < b.code; });
  return found;
}

Ref<ITextTable> TextTables::table(const std::string& language) {
  if (language == "keys") return Ref<ITextTable>(new KeyTable);
  if (language == "probe") return Ref<ITextTable>(new ProbeTable);
  return fileTable(language);
}

Ref<TextTable> TextTables::fileTable(const std::string& language) {
  if (language == "keys" || language == "probe") return nullptr;
  if (const auto known = mTables.find(language); known != mTables.end()) return known->second;
  const std::filesystem::path file = mFolder / (language + ".xml");
  std::error_code ignored;
  // A code is a plain name: it never leads out of the folder.
  if (language.empty() || language.find_first_of("/\\") != language.npos || !std::filesystem::exists(file, ignored)) {
    std::string all;
    for (const Language& each : languages()) all += each.code + ", ";
    throw RuntimeError(RuntimeError::BadArgument, "no such language: \"" + language + "\"; there are " + all + "keys, probe");
  }
  try {
    return mTables[language] = Ref<TextTable>(new TextTable(Document::readFile(file)));
  } catch (const RuntimeError& error) {
    const std::string& why = error.description();
    throw RuntimeError(error.number(), why.starts_with(file.string()) ? why : file.string() + ": " + why);
  }
}

}  // namespace ostrand
