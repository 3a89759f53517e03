#include "simulator/ConsistencyOutput.h"

#include <cmath>

namespace ostrand::simulator {

void ConsistencyOutput::hold() {
  if (!isHeld()) mHeld = mTable.number("consistency", mHeld);
}

void ConsistencyOutput::keepLast() {
  mLastConsistency = mTable.number("consistency", 0);
  mLastCurrent = mTable.number("outputCurrent", 4);
  hold();
}

double ConsistencyOutput::failSafe(double measured) const {
  const std::string_view type = mTable.key("failSafeType");
  if (type == "failSafeTypeDefaultValue") return mTable.number("failSafeDefaultValue", 0);
  return type == "failSafeTypeLastValidValue" ? mLastConsistency : measured;
}

CurrentOutput ConsistencyOutput::current(double consistency, bool isFailSafe) const {
  CurrentOutput out = CurrentOutput::of(consistency, mTable.number("lowerRangeValue", 0), mTable.number("upperRangeValue", 100));
  const bool isUnknown = std::isnan(out.percent);
  const bool hasNoChoice = !mTable.find("failSafeType");
  const bool isAlarm = isFailSafe && (hasNoChoice || mTable.key("failSafeType") == "failSafeTypeAlarmCurrent");
  if (isAlarm || isUnknown) out.alarm(mTable.key("failSafeAlarmCurrent"), mLastCurrent);
  // On an address of its own in a multi-drop line the device draws the smallest current.
  const double fixed = mLoopTest != 0 ? mLoopTest : mFixedCurrent != 0 ? mFixedCurrent : mTable.number("hartAddress", 0) != 0 ? 4.0 : 0;
  if (fixed != 0) out.fix(fixed);
  return out;
}

int ConsistencyOutput::sideOfSensorLimits(double consistency) const {
  return consistency < mTable.number("lowerSensorLimit") ? -1 : consistency > mTable.number("upperSensorLimit") ? 1 : 0;
}

void ConsistencyOutput::showFunctionBlock(const Health& health) {
  if (!mTable.find("outputValue")) return;
  mTable.setKey("actualMode", health.isOutOfService ? "modeOutOfService" : mTable.key("targetMode"));
  const bool isOutOfService = mTable.key("actualMode") == "modeOutOfService";
  const bool isDriven = isTested() && !isOutOfService;
  const double consistency = mTable.number("consistency");
  const double value = isDriven ? mLoopTest : isHeld() ? mHeld : consistency;
  mTable.set("outputValue", value);

  const int side = sideOfSensorLimits(consistency);
  std::string_view quality = health.isFailSafe || side != 0 || health.isOutOfLimits ? "qualityUncertain" : "qualityGood";
  if (isSimulated()) quality = mTable.key("simulationQuality");
  if (isOutOfService || std::isnan(value)) quality = "qualityBad";
  mTable.setKey("outputQuality", quality);

  std::string_view limit = side < 0 ? "limitedLow" : side > 0 ? "limitedHigh" : "limitedNone";
  if (isSimulated()) limit = mTable.key("simulationLimit");
  if (isHeld() || isDriven) limit = "limitedConstant";
  mTable.setKey("outputLimit", limit);
}

}  // namespace ostrand::simulator
