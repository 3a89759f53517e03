#include "workbench/words/Texts.h"

#include "workbench/words/Phrases.h"

namespace ostrand {

QString Texts::operator()(const std::string& key) const { return qt(mTable ? mTable->GetText(key) : key); }

QString Texts::say(const char* english) const { return phrase(english, mLanguage); }

QString Texts::quantity(const std::string& name) const {
  const QString text = (*this)(name);
  return text == qt(name) ? say((text.left(1).toUpper() + text.mid(1)).toUtf8()) : text;
}

QString Texts::unit(const std::string& key) const {
  if (key.empty() || key == "noUnit") return {};
  return qt(mTable ? mTable->GetSectionText(key, "unit") : key);
}

}  // namespace ostrand
