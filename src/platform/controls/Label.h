#pragma once

#include <utility>

#include "platform/controls/CaptionedControl.h"

namespace ostrand {

class Label : public CaptionedControl {
 public:
  explicit Label(std::string name, Color ink = Color::text()) : CaptionedControl(std::move(name)), mForeColor(ink) {}
  std::string_view className() const override { return "Label"; }

  const Color& ForeColor() const { return read(mForeColor, "ForeColor"); }

  Value get(std::string_view property, std::span<const int> indices) const override {
    return property == "ForeColor" ? Value(mForeColor.rgb) : CaptionedControl::get(property, indices);
  }

 protected:
  Kind ownKind() const override { return Kind::Label; }

 private:
  const Color mForeColor;
};

}  // namespace ostrand
