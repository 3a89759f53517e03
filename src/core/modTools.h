#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/Desktop.h"
#include "platform/xml/Vocabulary.h"

// Small routines on the value forms of the documents.
namespace ostrand::modTools {

// A number of a document (with a point) in the user's locale, as a double. A text that is no number is
// error 13, of the caller: these two have no trap.
double ToLocalNumber(std::string_view text, const Locale& locale);
// The text of a double for a request, with a point.
std::string ToDocumentNumber(double value, const Locale& locale);

// A stamp "31/12/2020 23:59:59" (any single characters between) as "2020-12-31 23:59:59". The pieces are cut by position,
// so what is missing leaves an empty piece.
std::string StandardizeDatafileDate(std::string_view stamp);
// The same in the user's short date and long time; what is no date gives an empty text and a trace.
std::string LocalizeDatafileDate(std::string_view stamp, Desktop& desktop);

// To the machine's debug output: for procedures that have no Messenger at hand.
void DebugTrace(Desktop& desktop, const std::string& source, const std::string& procedure, int number, const std::string& description);
// Takes the failures that happen while no Messenger exists ("<view> <procedure> - Error<number>: <description>"),
// and does nothing with them.
void DropTrace(const std::string& text);

// The name of the request group in which a parameter is at home, for ContextTag; empty if it has none.
std::string groupOfParameter(const Document& doc, std::string_view name);

// The present date and time as the user writes it.
std::string presentDateAndTime(const Desktop& desktop);

}  // namespace ostrand::modTools
