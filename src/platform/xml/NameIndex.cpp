#include "platform/xml/NameIndex.h"

#include <cstring>

namespace ostrand {

namespace {

std::uint32_t hashOf(std::string_view text) {
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15u;
  std::uint64_t hash = text.size() * kMultiplier;
  const char* at = text.data();
  std::size_t left = text.size();
  const auto mix = [&](std::uint64_t word) {
    hash = (hash ^ word) * kMultiplier;
    hash ^= hash >> 29;
  };
  for (; left >= 8; at += 8, left -= 8) {
    std::uint64_t word;
    std::memcpy(&word, at, 8);
    mix(word);
  }
  std::uint64_t tail = 0;
  std::memcpy(&tail, at, left);
  mix(tail);
  return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

std::string_view nameOf(pugi::xml_node node) {
  // The name is the first attribute in every data set that we know; the search is for the others.
  const pugi::xml_attribute first = node.first_attribute();
  if (std::strcmp(first.name(), "name") == 0) return first.value();
  return node.attribute("name").value();
}

bool hasName(pugi::xml_node node) { return static_cast<bool>(node.attribute("name")); }

bool isCalled(pugi::xml_node node, const char* name) { return std::strcmp(node.name(), name) == 0; }

// Whether `a` comes before `b` in document order; both in one tree, neither within the other.
bool comesBefore(pugi::xml_node a, pugi::xml_node b) {
  const auto depth = [](pugi::xml_node node) {
    std::size_t count = 0;
    for (; node; node = node.parent()) ++count;
    return count;
  };
  std::size_t da = depth(a), db = depth(b);
  for (; da > db; --da) a = a.parent();
  for (; db > da; --db) b = b.parent();
  while (a.parent() != b.parent()) a = a.parent(), b = b.parent();
  for (pugi::xml_node at = a.next_sibling(); at; at = at.next_sibling())
    if (at == b) return true;
  return false;
}

}  // namespace

void NameIndex::build(pugi::xml_node document) {
  reset();
  mSlots.assign(64, Slot{});
  mBuilt = true;
  if (anywhere())
    collectAnywhere(document);
  else
    collect(document, 0);
}

void NameIndex::reset() {
  mEntries.clear();
  mSlots.clear();
  mUsed = 0;
  mBuilt = false;
}

void NameIndex::collect(pugi::xml_node parent, std::size_t depth) {
  const char* const wanted = mPath[depth];
  const bool last = depth + 1 == mPath.size();
  for (pugi::xml_node child = parent.first_child(); child; child = child.next_sibling()) {
    if (!isCalled(child, wanted)) continue;
    if (last)
      add(child, true);
    else
      collect(child, depth + 1);
  }
}

void NameIndex::collectAnywhere(pugi::xml_node document) {
  pugi::xml_node at = document.first_child();
  while (at) {
    if (isCalled(at, mPath[0])) add(at, true);
    if (pugi::xml_node down = at.first_child(); down && at.name()[0] != '#') {
      at = down;
      continue;
    }
    while (at && !at.next_sibling()) at = at.parent() == document ? pugi::xml_node() : at.parent();
    if (at) at = at.next_sibling();
  }
}

NameIndex::Place NameIndex::placeOf(pugi::xml_node node) const {
  if (anywhere()) {
    if (isCalled(node, mPath[0])) return Place::Member;
    return node.first_child() ? Place::Above : Place::Outside;
  }
  std::size_t depth = 0;
  for (pugi::xml_node up = node.parent(); up; up = up.parent()) ++depth;
  if (depth == 0 || depth > mPath.size()) return Place::Outside;
  const bool last = depth == mPath.size();
  for (pugi::xml_node up = node; depth > 0; up = up.parent())
    if (!isCalled(up, mPath[--depth])) return Place::Outside;
  return last ? Place::Member : Place::Above;
}

void NameIndex::inserted(pugi::xml_node node) {
  if (!mBuilt) return;
  switch (placeOf(node)) {
    case Place::Member: add(node, false); break;
    case Place::Above: reset(); break;
    case Place::Outside: break;
  }
}

void NameIndex::removing(pugi::xml_node node) {
  if (!mBuilt) return;
  switch (placeOf(node)) {
    case Place::Member: remove(node, nameOf(node)); break;
    case Place::Above: reset(); break;
    case Place::Outside: break;
  }
}

void NameIndex::renaming(pugi::xml_node node, std::string_view) {
  // The entry comes back with `inserted` once the new name stands.
  if (mBuilt && placeOf(node) == Place::Member) remove(node, nameOf(node));
}

std::size_t NameIndex::slotOf(std::string_view name, std::uint32_t hash) const {
  const std::size_t mask = mSlots.size() - 1;
  std::size_t at = hash & mask;
  for (; mSlots[at].entry; at = (at + 1) & mask)
    if (mSlots[at].hash == hash && nameOf(pugi::xml_node(mEntries[mSlots[at].entry - 1].node)) == name) break;
  return at;
}

std::uint32_t NameIndex::head(std::string_view name) const {
  if (mSlots.empty()) return 0;
  return mSlots[slotOf(name, hashOf(name))].entry;
}

pugi::xml_node NameIndex::find(std::string_view name) const {
  const std::uint32_t entry = head(name);
  return entry ? pugi::xml_node(mEntries[entry - 1].node) : pugi::xml_node();
}

void NameIndex::add(pugi::xml_node node, bool inOrder) {
  const std::string_view name = nameOf(node);
  if (name.empty() && !hasName(node)) return;
  const std::uint32_t hash = hashOf(name);
  Slot* slot = &mSlots[slotOf(name, hash)];
  mEntries.push_back({node.internal_object(), 0});
  const auto entry = static_cast<std::uint32_t>(mEntries.size());
  if (!slot->entry) {
    *slot = {hash, entry};
    if (++mUsed * 2 > mSlots.size()) grow();
    return;
  }
  std::uint32_t* link = &slot->entry;
  while (*link && (inOrder || comesBefore(pugi::xml_node(mEntries[*link - 1].node), node))) link = &mEntries[*link - 1].next;
  mEntries[entry - 1].next = *link;
  *link = entry;
}

void NameIndex::remove(pugi::xml_node node, std::string_view name) {
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
