#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/controls/FormModel.h"
#include "platform/controls/Members.h"
#include "platform/desktop/Desktop.h"
#include "platform/trap/Procedure.h"
#include "platform/types/IPlaceable.h"
#include "platform/types/ITaviView.h"

namespace ostrand {

class Form;

// What every component is beside its own interfaces: counted, placed on a desktop in a parent, holder of a
// form of controls, of the focus among them, and of the last error.
class Component : public IPlaceable, public Reporter {
 public:
  std::uint32_t addRef() noexcept override { return ++mCount; }
  std::uint32_t release() noexcept override;
  Result queryInterface(const Guid& id, void** out) noexcept override;

  void Place(Desktop& desktop, const Ref<IHostContainer>& parent, const std::string& tag) override;
  void Resize(int width, int height) override;
  void Terminate() override;

  // Error 91 before the component is placed.
  Desktop& desktop() const;
  const Ref<IHostContainer>& parent() const { return mParent; }
  // Where it is nested, that of the control in which it stands, in whatever moment.
  const std::string& tag() const { return mPlace ? mPlace->mTag : mTag; }
  const ControlCollection& controls() const { return mControls; }
  int width() const { return mWidth; }
  int height() const { return mHeight; }

  // The frame or nested panel in front; nullptr if there is none.
  Control* front() const { return mFront; }
  void bringToFront(Control& item);
  // What is seen while `item` is in front: a frame and the controls on it, a nested panel alone, or for nullptr all controls
  // of a component without frames. In the order of the controls.
  std::vector<Control*> controlsOf(const Control* item) const;
  // How the form has put together what is seen while `item` is in front; nullptr if it has declared nothing there.
  const FormFrame* formOf(const Control* item) const;
  // The control that has the focus, here or in a nested component; nullptr if none has.
  Control* focused() const { return outermost().mFocused; }
  // Moves the focus; the control that had it hears that it lost it.
  void moveFocus(Control* control);
  // Where the component is nested: the one around it, and there the control in which it stands; nullptr otherwise.
  void nest(Component* outer, const Control* place) { mOuter = outer, mPlace = place; }

  // The public members that a class has beside its interfaces, for callers that know them by name only: what calls one, or
  // nothing if there is none of this name. RuntimeError 438 for other arguments.
  virtual std::function<MemberAnswer()> member(std::string_view name, const MemberArguments& arguments);
  // Calls `listener` for every event that the class raises, with its name and its arguments.
  virtual void listenToEvents(EventListener listener) { (void)listener; }

  // Held until the component is gone: the component server counts its living objects so.
  void keep(Ref<Counted> token) { mToken = std::move(token); }

  Signal<> changed;  // another item is in front, the focus moved, or the size changed

  // Reporter
  const Ref<Messenger>& reportingTo() const override { return mMessenger; }
  const Ref<LastError>& lastError() const override { return mLastError; }
  IObject& self() override { return *this; }

 protected:
  Component();
  virtual ~Component();

  // The form at a glance: frames, rows, labels, tags.
  virtual void declare(Form& form) { (void)form; }
  // The handlers of the controls' events, all in this one place.
  virtual void connect() {}
  virtual void initialize() {}  // UserControl_Initialize
  virtual void resized() {}     // UserControl_Resize
  virtual void terminate() {}   // UserControl_Terminate
  // The queryInterface of the class itself, asked first.
  virtual bool offerInterface(const Guid& id, void** out) noexcept = 0;

  // The tag of the component around this one; empty where it stands by itself.
  std::string containerTag() const { return mOuter ? mOuter->tag() : std::string(); }
  // A call on the host's container: error 91 without one.
  IHostContainer& container() const;

  Ref<Messenger> mMessenger;

 private:
  friend class Form;
  friend class FrameForm;
  Component& outermost() const;

  std::uint32_t mCount = 0;
  Desktop* mDesktop = nullptr;
  Ref<IHostContainer> mParent;
  std::string mTag;
  ControlCollection mControls;
  std::vector<FormFrame> mFrames;
  std::vector<std::unique_ptr<Control>> mFocusTransfers;
  Control* mFront = nullptr;
  Control* mFocused = nullptr;
  Component* mOuter = nullptr;
  const Control* mPlace = nullptr;
  int mWidth = 14400;
  int mHeight = 7200;
  Ref<LastError> mLastError;
  Ref<Counted> mToken;
};

}  // namespace ostrand
