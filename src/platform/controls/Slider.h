#pragma once

#include "platform/controls/Control.h"

namespace ostrand {

class Slider : public Control {
 public:
  using Control::Control;
  std::string_view className() const override { return "Slider"; }

  int Value() const { return read(mValue, "Value"); }
  // Error 5 outside Min to Max; raises Change when the value really changes.
  void Value(int value) {
    if (probe()) probeSetting("Value", value);
    become(value);
  }
  int Min() const { return read(mMin, "Min"); }
  int Max() const { return read(mMax, "Max"); }
  int SmallChange() const { return mSmallChange; }
  int LargeChange() const { return mLargeChange; }

  Signal<> Change;

  // The user's move; error 70 if the slider cannot be reached.
  void slide(int value) {
    requireUsable();
    become(value);
  }

  // For the form.
  void designRange(int min, int max, int smallChange, int largeChange);

  ostrand::Value get(std::string_view property, std::span<const int> indices) const override;
  void set(std::string_view property, std::span<const int> indices, const ostrand::Value& value) override;

 protected:
  Kind ownKind() const override { return Kind::NoData; }

 private:
  void become(int value);
  int mValue = 0;
  int mMin = 0;
  int mMax = 100;
  int mSmallChange = 1;
  int mLargeChange = 10;
};

}  // namespace ostrand
