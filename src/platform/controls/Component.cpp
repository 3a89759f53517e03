#include "platform/controls/Component.h"

#include "platform/base/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/types/Query.h"

namespace ostrand {

Component::Component() : mLastError(new LastError) {}

Component::~Component() = default;

std::uint32_t Component::release() noexcept {
  const std::uint32_t left = --mCount;
  if (left == 0) delete this;
  return left;
}

Result Component::queryInterface(const Guid& id, void** out) noexcept {
  if (!out) return Result::BadPointer;
  *out = nullptr;
  if (offer<IObject>(id, this, out) || offer<IPlaceable>(id, this, out) || offerInterface(id, out)) return Result::Ok;
  return Result::NoInterface;
}

void Component::Place(Desktop& desktop, const Ref<IHostContainer>& parent, const std::string& tag) {
  if (mDesktop) return;
  const Ref<Component> pin(this);
  mDesktop = &desktop;
  mParent = parent;
  if (!tag.empty()) mTag = tag;
  {
    Form form(*this);
    declare(form);
  }
  connect();
  initialize();
  resized();
}

void Component::Resize(int width, int height) {
  const Ref<Component> pin(this);
  mWidth = width;
  mHeight = height;
  resized();
  changed();
}

void Component::Terminate() {
  const Ref<Component> pin(this);
  Procedure proc(*this, "UserControl_Terminate");
  proc.step([&] { terminate(); });
  for (Control* control : mControls) proc.step([&] { control->detach(); });
  mParent = nullptr;
}

std::function<MemberAnswer()> Component::member(std::string_view, const MemberArguments&) { return nullptr; }

Desktop& Component::desktop() const {
  if (!mDesktop) throwNothingThere("the desktop");
  return *mDesktop;
}

IHostContainer& Component::container() const {
  if (!mParent) throwNothingThere("the parent");
  return *mParent;
}

Component& Component::outermost() const {
  Component* at = const_cast<Component*>(this);
  while (at->mOuter) at = at->mOuter;
  return *at;
}

std::vector<Control*> Component::controlsOf(const Control* item) const {
  if (!item) return mControls;
  std::vector<Control*> own;
  for (Control* const control : mControls)
    if (control == item || control->frame() == item) own.push_back(control);
  return own;
}

const FormFrame* Component::formOf(const Control* item) const {
  for (const FormFrame& frame : mFrames)
    if (frame.front == item) return &frame;
  return nullptr;
}

void Component::bringToFront(Control& item) {
  if (mFront == &item) return;
  mFront = &item;
  changed();
}

void Component::moveFocus(Control* control) {
  Component& top = outermost();
  const Ref<Component> pin(&top);
  if (top.mFocused == control) return;
  Control* const before = top.mFocused;
  top.mFocused = control;
  if (before) before->LostFocus();
  top.changed();
}

}  // namespace ostrand
