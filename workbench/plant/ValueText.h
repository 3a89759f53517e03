#pragma once

#include <QString>
#include <string>

#include "host/Host.h"
#include "workbench/words/Texts.h"

namespace ostrand {

// A parameter's value, in document form, as a list shows it: a coded value as its choice is called, a number with the digits
// that are shown of it. Without its unit.
QString valueText(Host& host, const Texts& texts, const std::string& parameter, const std::string& value);
// The same with all digits that it has: for what is to be written.
QString wholeValueText(Host& host, const Texts& texts, const std::string& parameter, const std::string& value);
// A text with its unit behind it, if there is one.
QString withUnit(const QString& text, const QString& unit);

}  // namespace ostrand
