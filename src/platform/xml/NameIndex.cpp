#include "platform/xml/NameIndex.h"

#include <cstring>

namespace ostrand {

namespace {

inline std::uint32_t hashOf(std::string_view text) {
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15u;
  std::uint64_t hash = text.size() * kMultiplier;
  const auto mix = [&](const char* at, std::size_t size) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, size);
    hash = (hash ^ word) * kMultiplier;
    hash ^= hash >> 29;
  };
  // Whole words are read faster than parts of one, so the last may overlap the one before.
  const char* at = text.data();
  for (std::size_t left = text.size(); left > 8; at += 8, left -= 8) mix(at, 8);
  if (text.size() >= 8)
    mix(text.data() + text.size() - 8, 8);
  else if (!text.empty())
    mix(at, text.size());
  return static_cast<std::uint32_t>(hash * kMultiplier >> 32);
}

// The `name` attribute's value; nothing without one.
inline const char* nameAttribute(pugi::xml_node node) {
  // It is the first attribute in every data set that we know; the search is for the others.
  const pugi::xml_attribute first = node.first_attribute();
  const char* const called = first.name();
  if (called[0] == 'n' && called[1] == 'a' && called[2] == 'm' && called[3] == 'e' && !called[4]) return first.value();
  if (!first) return nullptr;
  const pugi::xml_attribute other = node.attribute("name");
  return other ? other.value() : nullptr;
}

std::string_view nameOf(pugi::xml_node node) {
  const char* const name = nameAttribute(node);
  return name ? name : std::string_view();
}

std::string_view nameOf(std::string_view name) { return name; }

bool isCalled(pugi::xml_node node, const char* name) { return std::strcmp(node.name(), name) == 0; }

// Whether `a` comes before `b` in document order; both in one tree.
bool comesBefore(pugi::xml_node a, pugi::xml_node b) {
  const auto depth = [](pugi::xml_node node) {
    std::size_t count = 0;
    for (; node; node = node.parent()) ++count;
    return count;
  };
  const std::size_t da = depth(a), db = depth(b);
  for (std::size_t i = db; i < da; ++i) a = a.parent();
  for (std::size_t i = da; i < db; ++i) b = b.parent();
  if (a == b) return da < db;
  while (a.parent() != b.parent()) a = a.parent(), b = b.parent();
  // Whichever has the shorter way to the end tells it: most insertions are made there.
  pugi::xml_node behindA = a, behindB = b;
  while (true) {
    if (!(behindA = behindA.next_sibling())) return false;
    if (behindA == b) return true;
    if (!(behindB = behindB.next_sibling())) return true;
    if (behindB == a) return false;
  }
}

// One step in document order, forwards and backwards.
pugi::xml_node nodeBehind(pugi::xml_node at) {
  if (const pugi::xml_node child = at.first_child()) return child;
  for (; at; at = at.parent()) {
    pugi::xml_node next = at.next_sibling();
    if (next && isHidden(next)) next = next.next_sibling();
    if (next) return next;
  }
  return {};
}

pugi::xml_node nodeBefore(pugi::xml_node at) {
  pugi::xml_node before = at.previous_sibling();
  if (before && isHidden(before)) before = before.previous_sibling();
  if (!before) return at.parent();
  while (const pugi::xml_node last = before.last_child()) before = last;
  return before;
}

}  // namespace

void NameIndex::build(pugi::xml_node document) {
  reset();
  mBuilt = true;
  for (pugi::xml_node child = document.first_child(); child; child = child.next_sibling())
    if (!isHidden(child))
      eachMember(child, [&](pugi::xml_node node) {
        // For `next` there is no use yet.
        if (const char* const name = nameAttribute(node)) mEntries.push_back({node.internal_object(), hashOf(name)});
      });
  std::size_t slots = 32;
  while (slots < mEntries.size() * 2) slots *= 2;
  mSlots.assign(slots, Slot{});
  // The last first: whoever has the same name stands in front of it, and no chain is searched for its end.
  for (std::size_t i = mEntries.size(); i-- > 0;) {
    const auto entry = static_cast<std::uint32_t>(i + 1);
    const std::uint32_t hash = mEntries[i].next;
    Slot& slot = mSlots[slotOf(nodeOf(entry), hash)];
    if (!slot.entry) ++mUsed;
    mEntries[i].next = slot.entry;
    slot = {hash, entry};
  }
}

void NameIndex::reset() {
  mEntries.clear();
  mSlots.clear();
  mUsed = 0;
  mBuilt = false;
}

template <class Do>
void NameIndex::eachMember(pugi::xml_node top, Do apply) const {
  if (mPath.size() == 1) {
    for (pugi::xml_node at = top; at;) {
      if (isCalled(at, mPath[0])) apply(at);
      if (const pugi::xml_node child = at.first_child()) {
        at = child;
        continue;
      }
      pugi::xml_node next;
      while (at != top && !(next = at.next_sibling())) at = at.parent();
      at = next;
    }
    return;
  }
  const std::size_t depth = depthOnPath(top);
  if (depth > 0) eachBelow(top, depth, apply);
}

template <class Do>
void NameIndex::eachBelow(pugi::xml_node node, std::size_t depth, Do& apply) const {
  if (depth == mPath.size()) return apply(node);
  const char* const name = mPath[depth];
  for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
    if (!isCalled(child, name)) continue;
    if (depth + 1 == mPath.size())
      apply(child);
    else
      eachBelow(child, depth + 1, apply);
  }
}

std::size_t NameIndex::depthOnPath(pugi::xml_node node) const {
  std::size_t depth = 0;
  for (pugi::xml_node up = node.parent(); up && depth <= mPath.size(); up = up.parent()) ++depth;
  if (depth > mPath.size()) return 0;
  pugi::xml_node up = node;
  for (std::size_t i = depth; i > 0; up = up.parent())
    if (!isCalled(up, mPath[--i])) return 0;
  return depth;
}

bool NameIndex::isMember(pugi::xml_node node) const { return mPath.size() == 1 ? isCalled(node, mPath[0]) : depthOnPath(node) == mPath.size(); }

void NameIndex::inserted(pugi::xml_node node) {
  if (mBuilt) eachMember(node, [&](pugi::xml_node member) { add(member); });
}

void NameIndex::removing(pugi::xml_node node) {
  if (mBuilt) eachMember(node, [&](pugi::xml_node member) { remove(member); });
}

void NameIndex::renaming(pugi::xml_node node) {
  if (mBuilt && isMember(node)) remove(node);
}

void NameIndex::renamed(pugi::xml_node node) {
  if (mBuilt && isMember(node)) add(node);
}

template <class Named>
std::size_t NameIndex::slotOf(Named named, std::uint32_t hash) const {
  const std::size_t mask = mSlots.size() - 1;
  std::size_t at = hash & mask;
  for (; mSlots[at].entry; at = (at + 1) & mask)
    if (mSlots[at].hash == hash && nameOf(nodeOf(mSlots[at].entry)) == nameOf(named)) break;
  return at;
}

std::uint32_t NameIndex::head(std::string_view name) const {
  if (mSlots.empty()) return 0;
  return mSlots[slotOf(name, hashOf(name))].entry;
}

pugi::xml_node NameIndex::find(std::string_view name) const {
  const std::uint32_t entry = head(name);
  return entry ? nodeOf(entry) : pugi::xml_node();
}

void NameIndex::add(pugi::xml_node node) {
  const char* const name = nameAttribute(node);
  if (!name) return;
  const std::uint32_t hash = hashOf(name);
  Slot* slot = &mSlots[slotOf(std::string_view(name), hash)];
  mEntries.push_back({node.internal_object(), 0});
  const auto entry = static_cast<std::uint32_t>(mEntries.size());
  if (!slot->entry) {
    *slot = {hash, entry};
    if (++mUsed * 2 > mSlots.size()) grow();
    return;
  }
  std::uint32_t* const link = linkFor(slot->entry, node);
  mEntries[entry - 1].next = *link;
  *link = entry;
}

std::uint32_t* NameIndex::linkFor(std::uint32_t& head, pugi::xml_node node) {
  constexpr int kFew = 8;
  std::uint32_t* link = &head;
  for (int i = 0; *link && i < kFew; ++i) link = &mEntries[*link - 1].next;
  if (!*link) {
    link = &head;
    while (*link && comesBefore(nodeOf(*link), node)) link = &mEntries[*link - 1].next;
    return link;
  }
  // Among many of one name the next of them stands near. It may be part of what is being inserted, and not be known yet.
  const std::string_view name = nameOf(node);
  const auto linkTo = [&](pugi::xml_node other) -> std::uint32_t* {
    const char* const its = other && isCalled(other, mPath.back()) ? nameAttribute(other) : nullptr;
    if (!its || name != its || !isMember(other)) return nullptr;
    std::uint32_t* at = &head;
    while (*at && mEntries[*at - 1].node != other.internal_object()) at = &mEntries[*at - 1].next;
    return *at ? at : nullptr;
  };
  for (pugi::xml_node before = node, behind = node;;) {
    if (before) before = nodeBefore(before);
    if (std::uint32_t* const found = linkTo(before)) return &mEntries[*found - 1].next;
    if (behind) behind = nodeBehind(behind);
    if (std::uint32_t* const found = linkTo(behind)) return found;
    if (!before && !behind) return &head;
  }
}

void NameIndex::remove(pugi::xml_node node) {
  const std::string_view name = nameOf(node);
  std::size_t at = slotOf(name, hashOf(name));
  std::uint32_t* link = &mSlots[at].entry;
  while (*link && mEntries[*link - 1].node != node.internal_object()) link = &mEntries[*link - 1].next;
  if (!*link) return;
  *link = mEntries[*link - 1].next;
  if (mSlots[at].entry) return;

  // The slot is free: move up whatever a later search would no longer reach over the gap.
  --mUsed;
  const std::size_t mask = mSlots.size() - 1;
  for (std::size_t next = (at + 1) & mask; mSlots[next].entry; next = (next + 1) & mask) {
    const std::size_t home = mSlots[next].hash & mask;
    if (((next - home) & mask) < ((next - at) & mask)) continue;
    mSlots[at] = mSlots[next];
    mSlots[next].entry = 0;
    at = next;
  }
}

void NameIndex::grow() {
  std::vector<Slot> old(mSlots.size() * 4);
  old.swap(mSlots);
  const std::size_t mask = mSlots.size() - 1;
  for (const Slot& slot : old) {
    if (!slot.entry) continue;
    std::size_t at = slot.hash & mask;
    while (mSlots[at].entry) at = (at + 1) & mask;
    mSlots[at] = slot;
  }
}

std::size_t NameIndex::memory() const { return mEntries.capacity() * sizeof(Entry) + mSlots.capacity() * sizeof(Slot); }

}  // namespace ostrand
