#include "platform/controls/Color.h"

namespace ostrand {

std::string Color::inDigits() const {
  // What a window is painted with by the system, not by us.
  constexpr unsigned kWindow = 0x80000005, kDisabledText = 0x80000011;
  const auto value = static_cast<unsigned>(rgb);
  const unsigned shown = role == Role::Window         ? kWindow
                         : role == Role::DisabledText ? kDisabledText
                                                      : (value & 0xFF) << 16 | (value & 0xFF00) | (value >> 16 & 0xFF);
  std::string digits;
  for (int shift = shown > 0xFFFFFF ? 28 : 20; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[shown >> shift & 0xF];
  return "0x" + digits;
}

}  // namespace ostrand
