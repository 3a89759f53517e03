#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace ostrand {

// Result codes of the component border, the usual values.
enum class Result : std::uint32_t {
  Ok = 0x00000000,
  False = 0x00000001,
  NoInterface = 0x80004002,
  BadPointer = 0x80004003,
  OutOfMemory = 0x8007000E,
  Unexpected = 0x8000FFFF,
  NoAggregation = 0x80040110,
  ClassNotAvailable = 0x80040111,
  RegistrationFailed = 0x80040201,
};

// Sixteen bytes that name a class or an interface, written as "8-4-4-4-12" hexadecimal digits.
struct Guid {
  std::array<std::uint8_t, 16> bytes{};
  friend bool operator==(const Guid&, const Guid&) = default;

  static consteval Guid of(std::string_view text) {
    Guid guid;
    std::size_t nibble = 0;
    for (char c : text) {
      if (c == '-') continue;
      const int digit = c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
      if (digit < 0 || digit > 15 || nibble == 32) throw "not a GUID";
      guid.bytes[nibble / 2] = static_cast<std::uint8_t>(guid.bytes[nibble / 2] << 4 | digit);
      ++nibble;
    }
    if (nibble != 32) throw "not a GUID";
    return guid;
  }
};

// What every object behind the component border offers. Interfaces inherit it virtually, so that a class
// counts itself in one place however many interfaces it has, and have no virtual destructor: an object ends
// itself when its last count is released. No member of this one throws.
class IObject {
 public:
  static constexpr Guid kId = Guid::of("00000000-0000-0000-c000-000000000046");

  // Gives the interface with a count of its own, or NoInterface and nullptr.
  virtual Result queryInterface(const Guid& id, void** out) noexcept = 0;
  virtual std::uint32_t addRef() noexcept = 0;
  virtual std::uint32_t release() noexcept = 0;

 protected:
  ~IObject() = default;
};

}  // namespace ostrand
