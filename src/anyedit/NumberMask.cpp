#include "anyedit/NumberMask.h"

#include "platform/base/NumberText.h"

namespace ostrand {

std::string numberMask(int decimals) {
  std::string mask = "######0";
  if (decimals > 0) mask.append(".").append(static_cast<std::size_t>(decimals), '0');
  return mask;
}

std::string masked(const std::string& text, const std::string& mask, char separator) {
  const auto number = parseNumber(text, separator);
  if (!number) return text;
  const std::size_t point = mask.find('.');
  return fixedText(*number, point == mask.npos ? 0 : static_cast<int>(mask.size() - point - 1), separator);
}

}  // namespace ostrand
