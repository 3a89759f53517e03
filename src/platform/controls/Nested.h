#pragma once

#include "platform/controls/Component.h"

namespace ostrand {

// The control in which a component stands inside another one: position, visibility and Tag are the control's, everything
// else is the component's, behind Object. The form makes and places it.
class NestedControl : public Control {
 public:
  using Control::Control;
  // The component may be held longer by others.
  ~NestedControl() override {
    if (mComponent) mComponent->nest(nullptr, nullptr);
  }
  std::string_view className() const override { return mClassName; }
  IObject* Object() const override { return mComponent.get(); }
  const Ref<Component>& nested() const { return mComponent; }
  void detach() override {
    if (mComponent) mComponent->Terminate();
  }

  // For the form.
  virtual void make() = 0;

 protected:
  Kind ownKind() const override { return Kind::Nested; }
  Ref<Component> mComponent;
  std::string_view mClassName;
};

template <class T>
class Nested : public NestedControl {
 public:
  using NestedControl::NestedControl;
  T& operator*() const { return static_cast<T&>(*mComponent); }
  T* operator->() const { return static_cast<T*>(mComponent.get()); }

  void make() override {
    mComponent = Ref<Component>(new T);
    mClassName = T::kClassName;
  }
};

}  // namespace ostrand
