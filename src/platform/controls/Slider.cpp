#include "platform/controls/Slider.h"

#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"

namespace ostrand {

void Slider::designRange(int min, int max, int smallChange, int largeChange) {
  mMin = mValue = min;
  mMax = max;
  mSmallChange = smallChange;
  mLargeChange = largeChange;
}

void Slider::become(int value) {
  if (value < mMin || value > mMax) throw RuntimeError(RuntimeError::BadArgument, name() + " cannot stand at " + std::to_string(value));
  if (value == mValue) return;
  const Ref<Component> pin(owner());
  mValue = value;
  changedNow();
  Change();
}

Value Slider::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Value") return mValue;
  if (property == "Min") return mMin;
  if (property == "Max") return mMax;
  return Control::get(property, indices);
}

void Slider::set(std::string_view property, std::span<const int> indices, const ostrand::Value& value) {
  if (property == "Value") return Value(asInt(value));
  Control::set(property, indices, value);
}

}  // namespace ostrand
