#pragma once

#include <QString>
#include <span>
#include <string>

namespace ostrand {

// The window's own words in the languages that it speaks. English is the key: code reads as what the user reads.
struct Phrase {
  const char* en;
  const char* fi;
  const char* sv;
  const char* de;
};

std::span<const Phrase> phrases();
// In the language of this code ("fi"); in English where there is no other, also for a phrase that is not in the table.
QString phrase(const char* english, const std::string& language);

}  // namespace ostrand
