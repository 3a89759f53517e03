#pragma once

#include <map>
#include <memory>

#include "platform/controls/Nested.h"
#include "workbench/render/ControlRenderer.h"

namespace ostrand {

// A component in the component: its own controls, or those of the frame that it has in front itself.
class NestedRenderer : public ControlRenderer {
 public:
  NestedRenderer(FormPage& page, NestedControl& control);
  ~NestedRenderer() override;

  std::vector<QWidget*> widgets() const override;
  void restyle() override;
  void sync() override;
  Extent extent() const override;
  void arrange(const Position& position) override;
  const FormPage* inside() const override;
  bool fills() const override { return true; }

 private:
  FormPage& current();
  NestedControl& mModel;
  Signal<>::Id mListening = 0;
  QWidget* mGround;
  std::map<const Control*, FormPage*> mPages;  // by what is in front
  FormPage* mCurrent = nullptr;
};

}  // namespace ostrand
