#pragma once

#include "platform/controls/Control.h"

namespace ostrand {

// A plain text box: a text of the table, or (tag "ctr_" + name) a value of an answer, read only.
class TextBox : public Control {
 public:
  using Control::Control;
  std::string_view className() const override { return "TextBox"; }

  const std::string& Text() const { return read(mText, "Text"); }
  void Text(std::string text) { write(mText, std::move(text), "Text"); }

  Signal<const std::string&> Change;  // the user has typed

  // The user types and leaves; error 70 if the box cannot be reached.
  void type(const std::string& text);

  Value get(std::string_view property, std::span<const int> indices) const override;
  void set(std::string_view property, std::span<const int> indices, const Value& value) override;

 protected:
  Kind ownKind() const override { return Kind::TextBox; }

 private:
  std::string mText;
};

}  // namespace ostrand
