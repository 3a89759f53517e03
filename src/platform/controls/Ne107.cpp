#include "platform/controls/Ne107.h"

#include <algorithm>
#include <array>

#include "platform/base/NumberText.h"

namespace ostrand {

namespace {

struct Category {
  std::string_view key;
  char letter;
};
constexpr std::array<Category, 5> kCategories{
    {{"good", ' '}, {"maintenance", 'M'}, {"outOfSpecification", 'S'}, {"functionCheck", 'C'}, {"failure", 'F'}}};

const Category& of(Ne107 category) { return kCategories[static_cast<std::size_t>(category)]; }

}  // namespace

std::string_view keyOf(Ne107 category) { return of(category).key; }

char letterOf(Ne107 category) { return of(category).letter; }

std::optional<Ne107> ne107Of(std::string_view key) {
  for (std::size_t i = 0; i < kCategories.size(); ++i)
    if (kCategories[i].key == key) return static_cast<Ne107>(i);
  return std::nullopt;
}

std::optional<Ne107> ne107OfRaised(const Node& mapping) {
  if (!mapping) return std::nullopt;
  for (Node item = mapping.firstChild(); item; item = item.nextSibling()) {
    if (parseNumber(item.findAttribute("value").value_or("0"), '.').value_or(1.0) == 0.0) continue;
    if (const auto category = ne107Of(item.findAttribute("category").value_or(""))) return category;
  }
  return std::nullopt;
}

const std::vector<Ne107>& ne107Order() {
  static const std::vector<Ne107> order{Ne107::Failure, Ne107::FunctionCheck, Ne107::OutOfSpecification, Ne107::Maintenance};
  return order;
}

Ne107 foremost(const std::vector<Ne107>& inForce, const std::vector<Ne107>& order) {
  for (const Ne107 each : order)
    if (std::find(inForce.begin(), inForce.end(), each) != inForce.end()) return each;
  return Ne107::Good;
}

}  // namespace ostrand
