#pragma once

#include "platform/controls/EditControl.h"

namespace ostrand {

// What the edits of a date and of a time of day share: a document form that does not depend on the locale,
// and the locale's form on the screen. A text that cannot be read stays as it was typed and is not correct.
class MomentEdit : public EditControl {
 public:
  using EditControl::EditControl;

  // The user types and leaves; error 70 if the edit cannot be reached.
  void type(const std::string& text);

 protected:
  std::string shown(const std::string& documentText) const override;
  std::optional<std::string> told() const override;
  bool passes() const override;
  void takeText(const std::string& text) override;
  void unitsChanged() override;
  void dropEdit() override { mTyped.reset(); }

  virtual bool readDocument(const std::string& text, LocalTime& moment) const = 0;
  virtual bool readScreen(const std::string& text, LocalTime& moment) const = 0;
  virtual std::string documentForm(LocalTime moment) const = 0;
  virtual std::string screenForm(LocalTime moment) const = 0;

 private:
  // What does not come from a document: in document form, or as it was typed if it could not be read. It
  // stays unreadable in another locale too.
  struct Typed {
    std::string text;
    bool readable;
  };

  void takeTyped(const std::string& text, bool byUser);
  std::string typedOnScreen() const { return mTyped->readable ? shown(mTyped->text) : mTyped->text; }

  std::optional<Typed> mTyped;
};

}  // namespace ostrand
