#pragma once

#include "platform/controls/EditControl.h"
#include "workbench/render/ControlRenderer.h"
#include "workbench/render/KeptValue.h"
#include "workbench/render/StateSymbol.h"

namespace ostrand {

// What the edits share: behind the field the unit, what has to be said of the value, and its state; Escape and the undo key take an edit back.
class EditRenderer : public ControlRenderer {
 public:
  EditRenderer(FormPage& page, EditControl& edit);

  void restyle() override;
  void sync() override;
  Extent extent() const override;
  QString explanation() const override;
  bool key(QKeyEvent& event) override;

 protected:
  EditControl& edit() const { return mEdit; }
  // The field's own part; behind it come unit and state.
  virtual int fieldWidth() const = 0;
  std::vector<QWidget*> widgetsWith(QWidget* field) const;
  // How the field is told apart by the style sheet: edited, corrected, wrong, or nothing.
  QString look() const;
  virtual void dropTyping() {}
  void takeBack();

 private:
  KeptValue kept() const;
  QString companion(const ValueStates& states, const KeptValue& kept) const;
  QString limits() const;

  EditControl& mEdit;
  QLabel* mUnit;
  StateSymbol* mState;
};

}  // namespace ostrand
