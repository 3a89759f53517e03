#pragma once

#include <optional>
#include <string_view>

namespace ostrand {

// What the walks take a control for.
enum class ControlKind {
  Label,
  TextBox,
  Frame,
  CheckBox,
  OptionButton,
  CommandButton,
  ListView,
  PictureBox,
  Chart,
  NoData,
  TextEdit,
  ComboEdit,
  DateEdit,
  TimeEdit,
  OptionEdit,
  CheckEdit,
  DateLabel,
  Nested,
};

// The controls of every toolkit, and what has no data: they have no Object.
constexpr bool isPlain(ControlKind kind) { return kind < ControlKind::TextEdit; }
// An edit of one value; its tag names it.
constexpr bool isEdit(ControlKind kind) { return kind >= ControlKind::TextEdit && kind <= ControlKind::CheckEdit; }
// An edit of an enumeration.
constexpr bool isChoice(ControlKind kind) {
  return kind == ControlKind::ComboEdit || kind == ControlKind::CheckEdit || kind == ControlKind::OptionEdit;
}

// The kinds that a class name alone tells, whatever the class is otherwise.
constexpr std::optional<ControlKind> kindOfClass(std::string_view className) {
  constexpr struct {
    std::string_view name;
    ControlKind kind;
  } kClasses[] = {
      {"CtrTextEdit", ControlKind::TextEdit},   {"CtrComboEdit", ControlKind::ComboEdit},   {"CtrDateEdit", ControlKind::DateEdit},
      {"CtrTimeEdit", ControlKind::TimeEdit},   {"CtrOptionEdit", ControlKind::OptionEdit}, {"CtrCheckEdit", ControlKind::CheckEdit},
      {"CtrDateLabel", ControlKind::DateLabel},
  };
  for (const auto& [name, kind] : kClasses)
    if (name == className) return kind;
  return std::nullopt;
}

}  // namespace ostrand
