#pragma once

#include <utility>
#include <vector>

#include "platform/controls/EditControl.h"

namespace ostrand {

// One value as text: a number in the user's unit, decimals and separator, or a plain text.
class CtrTextEdit : public EditControl {
 public:
  using EditControl::EditControl;
  ~CtrTextEdit() override { clearRelations(); }
  std::string_view className() const override { return "CtrTextEdit"; }

  // Restricts what may be typed to the characters that the parameter's type can hold; for a text that is
  // the packed character set of the bus: capitals (small letters become capitals), digits, the usual signs.
  void SetTextOption(bool restrict);
  // This edit's value may not fall below the other's by less than the margin (in the data unit). The one
  // relation that exists is "max". Told again, the margin is replaced.
  void AddValueRelation(CtrTextEdit& lower, const std::string& relation, double margin);
  // Removes the relations in which this edit takes part, at either end.
  void ClearValueRelations();

  // The user types and leaves; another unit may stand behind the number ("12 degF"). Error 70 if the edit
  // cannot be reached.
  void type(const std::string& text);

  // The limits on the screen, in the user's unit; empty where there is none.
  std::string shownLimit(const std::optional<double>& limit) const;

 protected:
  Kind ownKind() const override { return Kind::TextEdit; }
  std::string shown(const std::string& documentText) const override;
  std::optional<std::string> told() const override;
  bool passes() const override;
  void parameterChanged() override { mValue.chooseUnit(parameterName(), *this); }
  void unitsChanged() override;
  void takeText(const std::string& text) override;
  void loadEdit(const std::string& documentText) override;
  void recheckOthers() override;

 private:
  struct Lower {
    CtrTextEdit* edit;
    double margin;
  };

  struct Upper {
    CtrTextEdit* edit;
    Ref<Component> held;  // its view
  };

  void takeEdit(DeviceValue::Edit edit);
  // What the user typed, with the unit in which he meant it.
  DeviceValue::Edit typedEdit(std::string text) const;
  std::string restricted(const std::string& text) const;
  void clearRelations();
  // What the edits above ask of the host may end their view.
  std::vector<Upper> heldUppers() const;

  bool mRestricted = false;
  std::vector<Lower> mLowers;         // the edits that bound this one from below
  std::vector<CtrTextEdit*> mUppers;  // the edits that this one bounds
};

}  // namespace ostrand
