#pragma once

#include <vector>

#include "platform/controls/Label.h"
#include "platform/controls/Nested.h"
#include "workbench/render/ControlRenderer.h"

class QHBoxLayout;

namespace ostrand {

// A component that is nothing but a few small marks beside each other, each in its own colour.
class MarksRenderer : public ControlRenderer {
 public:
  MarksRenderer(FormPage& page, NestedControl& control);
  ~MarksRenderer() override;

  std::vector<QWidget*> widgets() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;
  QString explanation() const override;

 private:
  struct Mark {
    Label* model;
    QLabel* shown;
    Signal<>::Id listening;
  };

  Ref<Component> mComponent;  // outlives the marks
  QWidget* mGround;
  std::vector<Mark> mMarks;
};

}  // namespace ostrand
