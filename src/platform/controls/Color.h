#pragma once

#include <string>

namespace ostrand {

// What a colour is for, beside the value that code and tests see. Whoever shows the control maps roles to
// its theme and takes the value for Role::Given only.
struct Color {
  enum class Role { Given, Window, Text, DisabledText, ErrorText, EditedText };

  Role role = Role::Window;
  int rgb = 0xFFFFFF;

  friend bool operator==(const Color&, const Color&) = default;

  // As a transcript tells the colours of a chart: "0xFF0000" is blue; eight digits for a colour of the system.
  std::string inDigits() const;

  static constexpr Color window() { return {Role::Window, 0xFFFFFF}; }
  static constexpr Color text() { return {Role::Text, 0x000000}; }
  static constexpr Color disabledText() { return {Role::DisabledText, 0x808080}; }
  static constexpr Color errorText() { return {Role::ErrorText, 0xFF0000}; }
  static constexpr Color editedText() { return {Role::EditedText, 0x0000FF}; }
};

}  // namespace ostrand
