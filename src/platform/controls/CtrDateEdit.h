#pragma once

#include "platform/controls/MomentEdit.h"

namespace ostrand {

// A date: "2026-01-05" in documents, the locale's short date on the screen; both can be typed.
class CtrDateEdit : public MomentEdit {
 public:
  using MomentEdit::MomentEdit;
  std::string_view className() const override { return "CtrDateEdit"; }

 protected:
  Kind ownKind() const override { return Kind::DateEdit; }
  // Beside the standard form a document may have the day first, as in its stamps, whatever the locale.
  bool readDocument(const std::string& text, LocalTime& moment) const override { return readDate(text, *Locale::find("sv"), moment); }
  bool readScreen(const std::string& text, LocalTime& moment) const override { return readDate(text, locale(), moment); }
  std::string documentForm(LocalTime moment) const override { return standardDate(moment); }
  std::string screenForm(LocalTime moment) const override { return locale().date(moment); }
};

}  // namespace ostrand
