#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/controls/Chart.h"

namespace ostrand {

// The menu of a chart: what can be done with its picture. Whoever shows the chart shows the menu when it opens, and does what
// leaves the program.
class CtrGraphMenu : public Control, public UserActions {
 public:
  // The views enable the first two by their number.
  enum Entry { ZoomToSamples = 1, UndoZoom, Maximize, Copy, SavePng, SavePdf, SaveCsv, Print };
  static constexpr int kEntries = 8;

  using Control::Control;
  std::string_view className() const override { return "CtrGraphMenu"; }

  // Entries count from 1; error 9 for one that there is not.
  bool Enabled(int entry) const;
  void Enabled(int entry, bool enabled);
  // Opens the menu over a chart of the same component.
  void Open(Chart& chart);

  // Whether an entry can be chosen for the chart over which the menu is open.
  bool isOffered(int entry) const;
  // The user's choice: the chart does what it knows; the rest is for whoever shows the menu. By number or by its key ("undoZoom"); error 70 if the menu is not open or does not offer it.
  void choose(int entry);
  void choose(const std::string& key) override;
  // The key of an entry.
  static std::string_view keyOf(int entry);

  Value get(std::string_view property, std::span<const int> indices) const override;
  void set(std::string_view property, std::span<const int> indices, const Value& value) override;

 protected:
  Kind ownKind() const override { return Kind::NoData; }

 private:
  static std::size_t checked(int entry);

  // Before a curve is read there is nothing to zoom to, and before a zoom none to undo.
  std::array<bool, kEntries> mEntries{false, false, true, true, true, true, true, true};
  Chart* mChart = nullptr;
};

}  // namespace ostrand
