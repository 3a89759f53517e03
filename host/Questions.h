#pragma once

#include <string>

#include "host/UserPrompt.h"
#include "platform/types/ITaviView.h"
#include "platform/types/ITextTable.h"
#include "platform/xml/Node.h"

namespace ostrand {

// How the host words the questions that views ask by a key of the text table.

// The answers say what they do; where the table of questions does not know the key, they say yes and no.
UserPrompt::Answers answersTo(ITextTable& texts, const std::string& question);

// The text of the question. Before a loop test it names each value that would be sent from the view, with its unit.
std::string wordedQuestion(ITextTable& texts, const std::string& question, ITaviView* asking);

// The text of the choice that a code stands for; the value itself where there is none.
std::string wordedChoice(ITextTable& texts, const Node& mapping, const std::string& value);

// "Loop test value: 12.00 mA".
std::string wordedValue(ITextTable& texts, const std::string& parameter, const std::string& value, const std::string& unit);

}  // namespace ostrand
