#pragma once

#include "platform/controls/MomentEdit.h"

namespace ostrand {

// A time of day: "08:00:00" in documents, the locale's long time on the screen; both can be typed.
class CtrTimeEdit : public MomentEdit {
 public:
  using MomentEdit::MomentEdit;
  std::string_view className() const override { return "CtrTimeEdit"; }

 protected:
  Kind ownKind() const override { return Kind::TimeEdit; }
  bool readDocument(const std::string& text, LocalTime& moment) const override { return readTime(text, locale(), moment); }
  bool readScreen(const std::string& text, LocalTime& moment) const override { return readTime(text, locale(), moment); }
  std::string documentForm(LocalTime moment) const override { return standardTime(moment); }
  std::string screenForm(LocalTime moment) const override { return locale().time(moment); }
};

}  // namespace ostrand
