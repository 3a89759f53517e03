#include "platform/controls/CtrGraphMenu.h"

#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"

namespace ostrand {

namespace {

constexpr std::string_view kKeys[CtrGraphMenu::kEntries] = {"zoomToSamples", "undoZoom", "maximize", "copy",
                                                            "savePng",       "savePdf",  "saveCsv",  "print"};

}  // namespace

std::size_t CtrGraphMenu::checked(int entry) {
  if (entry < 1 || entry > kEntries) throw RuntimeError(RuntimeError::OutOfRange, "the menu of a chart has no entry " + std::to_string(entry));
  return static_cast<std::size_t>(entry) - 1;
}

std::string_view CtrGraphMenu::keyOf(int entry) { return kKeys[checked(entry)]; }

bool CtrGraphMenu::Enabled(int entry) const { return read(mEntries[checked(entry)], "Enabled(" + std::to_string(entry) + ")"); }

void CtrGraphMenu::Enabled(int entry, bool enabled) { write(mEntries[checked(entry)], enabled, "Enabled(" + std::to_string(entry) + ")"); }

void CtrGraphMenu::Open(Chart& chart) {
  announce("Open", " " + chart.name());
  const Ref<Component> pin(owner());
  mChart = &chart;
  chart.menuOpens(*this);
}

bool CtrGraphMenu::isOffered(int entry) const { return mChart && mEntries[checked(entry)] && (entry != Maximize || mChart->maximizeAllowed()); }

void CtrGraphMenu::choose(int entry) {
  if (!isOffered(entry)) throw RuntimeError(RuntimeError::PermissionDenied, name() + " does not offer " + std::string(keyOf(entry)));
  const Ref<Component> pin(owner());
  switch (entry) {
    case ZoomToSamples: return mChart->zoomToSamples();
    case UndoZoom: return mChart->undoZoom();
    case Maximize: return mChart->maximize();
    default: return;
  }
}

void CtrGraphMenu::choose(const std::string& key) {
  for (int entry = 1; entry <= kEntries; ++entry)
    if (keyOf(entry) == key) return choose(entry);
  throw RuntimeError(RuntimeError::PermissionDenied, name() + " does not offer " + inQuotes(key));
}

Value CtrGraphMenu::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Enabled" && indices.size() == 1) return mEntries[checked(indices[0])];
  return Control::get(property, indices);
}

void CtrGraphMenu::set(std::string_view property, std::span<const int> indices, const Value& value) {
  if (property == "Enabled" && indices.size() == 1) return Enabled(indices[0], asBool(value));
  Control::set(property, indices, value);
}

}  // namespace ostrand
