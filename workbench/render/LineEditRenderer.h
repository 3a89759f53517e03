#pragma once

#include "workbench/render/EditRenderer.h"

class QLineEdit;

namespace ostrand {

// A value that is typed: text, number, date or time. What is typed goes to the model on Enter and on leaving; until then the
// field keeps it, whatever the device answers meanwhile.
class LineEditRenderer : public EditRenderer {
 public:
  LineEditRenderer(FormPage& page, EditControl& edit);

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void restyle() override;
  void sync() override;
  bool key(QKeyEvent& event) override;
  bool hasTyping() const override { return mTyping; }
  void commit() override;

 protected:
  int fieldWidth() const override;
  void dropTyping() override;

 private:
  bool isMeasured() const;
  QLineEdit* mField;
  bool mTyping = false;
};

}  // namespace ostrand
