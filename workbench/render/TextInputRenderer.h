#pragma once

#include "platform/controls/TextBox.h"
#include "workbench/render/ControlRenderer.h"

class QLineEdit;

namespace ostrand {

// A text box that somebody listens to, a search for example: what is typed goes to the model letter by letter.
class TextInputRenderer : public ControlRenderer {
 public:
  TextInputRenderer(FormPage& page, TextBox& box);

  std::vector<QWidget*> widgets() const override;
  QWidget* focusWidget() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;
  bool key(QKeyEvent& event) override;

 private:
  void tell(const QString& text);
  TextBox& mModel;
  QLineEdit* mField;
};

}  // namespace ostrand
