#pragma once

#include "platform/controls/Control.h"

namespace ostrand {

// A control with a caption: label, button, check box, option button, frame, date label.
class CaptionedControl : public Control {
 public:
  using Control::Control;

  const std::string& Caption() const { return read(mCaption, "Caption"); }
  void Caption(std::string caption) { write(mCaption, std::move(caption), "Caption"); }

  Value get(std::string_view property, std::span<const int> indices) const override;
  void set(std::string_view property, std::span<const int> indices, const Value& value) override;

 protected:
  void design(const char* property, std::string text) override;
  // An action of the user: keeps the owner alive until every listener has returned.
  void raise(Signal<>& event);

  std::string mCaption;
};

}  // namespace ostrand
