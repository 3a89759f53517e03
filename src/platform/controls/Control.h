#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/base/Signal.h"
#include "platform/controls/Color.h"
#include "platform/controls/ControlKind.h"
#include "platform/controls/Value.h"
#include "platform/desktop/Desktop.h"
#include "platform/types/ILocalizable.h"
#include "platform/types/ITaviComponent.h"
#include "platform/types/ITaviDataEditor.h"
#include "platform/types/ITaviDataUser.h"
#include "platform/types/ITaviView.h"

namespace ostrand {

class Component;

// A control is a model: properties and operations that a view uses, one signal for whoever shows it, and
// the user's actions in the derived classes (click, type, choose ...). Sizes are in twips.
//
// Every property and operation with a capital letter belongs to the contract and passes the desktop's
// probe when a view uses it; nothing else does. Operations that a class does not have throw RuntimeError
// 438.
class Control {
 public:
  using Kind = ControlKind;

  explicit Control(std::string name) : mName(std::move(name)) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  // The name in the code, with the index of a control array: "cte_sampling(3)".
  const std::string& name() const { return mName; }
  virtual std::string_view className() const = 0;
  // What the walks take it for: its own kind, or the one that its class name tells. Found once.
  Kind kind() const;

  const std::string& Tag() const { return read(mTag, "Tag"); }
  void Tag(std::string tag) { write(mTag, std::move(tag), "Tag"); }
  const std::string& ContextTag() const { return read(mContextTag, "ContextTag"); }
  void ContextTag(std::string tag) { write(mContextTag, std::move(tag), "ContextTag"); }
  bool Enabled() const { return read(mEnabled, "Enabled"); }
  void Enabled(bool enabled) { write(mEnabled, enabled, "Enabled"); }
  bool TabStop() const { return read(mTabStop, "TabStop"); }
  void TabStop(bool stop) { write(mTabStop, stop, "TabStop"); }
  bool Visible() const { return read(mVisible, "Visible"); }
  void Visible(bool visible) { write(mVisible, visible, "Visible"); }
  int Left() const { return read(mLeft, "Left"); }
  void Left(int left) { write(mLeft, left, "Left"); }
  int Top() const { return read(mTop, "Top"); }
  void Top(int top) { write(mTop, top, "Top"); }
  int Width() const { return read(mWidth, "Width"); }
  void Width(int width) { write(mWidth, width, "Width"); }
  int Height() const { return read(mHeight, "Height"); }
  void Height(int height) { write(mHeight, height, "Height"); }
  Color BackColor() const { return read(mBackColor, "BackColor"); }
  void BackColor(Color color) { write(mBackColor, color, "BackColor"); }

  void Move(int left, int top, int width, int height);
  // 0 brings the control in front of its siblings.
  void ZOrder(int position);
  // Error 5 if the control cannot take the focus now: hidden or disabled.
  void SetFocus();

  void setImportData(const Node& parameter);
  void setOfflineData(const Node& parameter);
  void SetOnlineData(const Node& item);
  void setLocalData(const Node& item);
  void SetMappings(const Node& mapping);
  void handleError(const std::string& code);

  // The interfaces of the control's `Object`; nullptr where it has none of this kind, or no Object at all.
  ITaviView* view() const { return interfaces().view; }
  ITaviDataUser* dataUser() const { return interfaces().dataUser; }
  ITaviComponent* component() const { return interfaces().component; }
  ILocalizable* localizable() const { return interfaces().localizable; }
  ITaviDataEditor* dataEditor() const { return interfaces().dataEditor; }
  virtual IObject* Object() const { return nullptr; }
  // Lets the probe hear of a call on an interface of the Object, before the view makes it.
  void announce(std::string_view operation, const std::string& arguments = {}) const;

  // A property by its name; RuntimeError 438 if the class has none of this name. Indices count from 1.
  virtual Value get(std::string_view property, std::span<const int> indices) const;
  virtual void set(std::string_view property, std::span<const int> indices, const Value& value);

  // "ctr_" + name gives the name, any other tag an empty one.
  std::string_view parameterName() const;

  Signal<> changed;    // something to show has changed
  Signal<> LostFocus;  // raised while the keys that moved the focus are down

  // The component whose control this is, or nullptr before the form is closed.
  Component* owner() const { return mOwner; }
  // The frame on which the form has put it; nullptr for what stands on the panel by itself.
  const Control* frame() const { return mFrame; }
  // The end of the owner's use: drops what the control holds of the host.
  virtual void detach() {}

 protected:
  virtual Kind ownKind() const = 0;
  // What a form declares, without a probe.
  virtual void design(const char* property, std::string text);
  virtual void takeImportData(const Node& parameter);
  virtual void takeOfflineData(const Node& parameter);
  virtual void takeOnlineData(const Node& item);
  virtual void takeLocalData(const Node& item);
  virtual void takeMappings(const Node& mapping);
  virtual void takeError(const std::string& code);

  ControlProbe* probe() const;
  Desktop& desktop() const;
  void changedNow() { changed(); }
  // Throws RuntimeError 70 with the reason when the user cannot reach the control.
  void requireUsable() const;
  [[noreturn]] void noSuchMember(std::string_view member) const;

  template <class T>
  const T& read(const T& field, std::string_view property) const {
    if (ControlProbe* listener = probe()) listener->reading(const_cast<Control&>(*this), property);
    return field;
  }
  void probeSetting(std::string_view property, const Value& value);
  template <class T>
  void write(T& field, T value, std::string_view property) {
    if (probe()) probeSetting(property, Value(value));
    if (field == value) return;
    field = std::move(value);
    changedNow();
  }
  void write(Color& field, Color value, std::string_view property);

  std::string mTag;
  std::string mContextTag;
  bool mEnabled = true;
  bool mTabStop = true;
  bool mVisible = true;

 private:
  friend class Form;
  friend class FrameForm;
  friend class Component;
  struct Interfaces {
    bool known = false;
    ITaviView* view = nullptr;
    ITaviDataUser* dataUser = nullptr;
    ITaviComponent* component = nullptr;
    ILocalizable* localizable = nullptr;
    ITaviDataEditor* dataEditor = nullptr;
  };
  const Interfaces& interfaces() const {
    if (!mInterfaces.known) findInterfaces();
    return mInterfaces;
  }
  void findInterfaces() const;

  std::string mName;
  Component* mOwner = nullptr;
  const Control* mFrame = nullptr;
  int mLeft = 0;
  int mTop = 0;
  int mWidth = 0;
  int mHeight = 0;
  Color mBackColor;
  mutable Interfaces mInterfaces;
  mutable int mKind = -1;
};

// As a trace line tells a node: its name in double quotes, or `nothing`.
std::string traced(const Node& node);

}  // namespace ostrand
