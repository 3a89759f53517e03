#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/transcript/TranscriptWords.h"

namespace ostrand {

// Whether the arguments of an input have this form, a letter for each:
//
//   w  any word          i  a whole number      n  a number that is not negative
//   b  true or false     o  on or off           p  CONTROL.PROPERTY
//   y  0 to 255          v  a text in quotes, true or false, or a whole number
//   {a|b}  one of these
//   *  the last one once more or often          ?  what follows may be left out
bool hasForm(std::string_view form, std::span<const TranscriptWord> arguments);

}  // namespace ostrand
