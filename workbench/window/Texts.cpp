#include "workbench/window/Texts.h"

namespace ostrand {

QString Texts::operator()(const std::string& key) const { return qt(mTable ? mTable->GetText(key) : key); }

QString Texts::operator()(const std::string& key, const char* english) const {
  return mFileTable && mFileTable->hasText(key) ? qt(mFileTable->GetText(key)) : QString::fromUtf8(english);
}

QString Texts::unit(const std::string& key) const {
  if (key.empty() || key == "noUnit") return {};
  return qt(mTable ? mTable->GetSectionText(key, "unit") : key);
}

}  // namespace ostrand
