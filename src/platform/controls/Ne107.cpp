#include "platform/controls/Ne107.h"

#include <array>

namespace ostrand {

namespace {

struct Category {
  std::string_view key;
  char letter;
};
constexpr std::array<Category, 5> kCategories{{{"good", ' '}, {"maintenance", 'M'}, {"outOfSpecification", 'S'}, {"functionCheck", 'C'}, {"failure", 'F'}}};

const Category& of(Ne107 category) { return kCategories[static_cast<std::size_t>(category)]; }

}  // namespace

std::string_view keyOf(Ne107 category) { return of(category).key; }

char letterOf(Ne107 category) { return of(category).letter; }

std::optional<Ne107> ne107Of(std::string_view key) {
  for (std::size_t i = 0; i < kCategories.size(); ++i)
    if (kCategories[i].key == key) return static_cast<Ne107>(i);
  return std::nullopt;
}

}  // namespace ostrand
