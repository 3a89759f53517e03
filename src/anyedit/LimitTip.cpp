#include "anyedit/LimitTip.h"

#include "platform/base/NumberText.h"

namespace ostrand {

void LimitTip::tell(std::string& tip, std::optional<double> minimum, std::optional<double> maximum, const std::string& unit, const Signs& signs) {
  const std::string behind = " " + (unit == "noUnit" ? std::string() : unit);
  if (minimum) {
    mMinimum = plainText(*minimum, mSeparator);
    tip = signs.atLeast + mMinimum + behind;
  }
  if (maximum) tip = (mMinimum.empty() ? signs.atMost : mMinimum + "..") + plainText(*maximum, mSeparator) + behind;
}

}  // namespace ostrand
