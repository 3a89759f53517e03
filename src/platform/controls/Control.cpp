#include "platform/controls/Control.h"

#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"
#include "platform/types/Query.h"

namespace ostrand {

namespace {

// The interface without its count: an Object lives as long as its control.
template <class I>
I* found(IObject* object) {
  return query<I>(object).get();
}

}  // namespace

std::string traced(const Node& node) {
  if (!node) return " nothing";
  return " " + inQuotes(std::string(node.findAttribute("name").value_or("")));
}

Control::Kind Control::kind() const {
  if (mKind >= 0) return static_cast<Kind>(mKind);
  Kind kind = ownKind();
  if (!isEdit(kind) && kind != Kind::DateLabel) kind = kindOfClass(className()).value_or(kind);
  mKind = static_cast<int>(kind);
  return kind;
}

void Control::findInterfaces() const {
  IObject* const object = Object();
  if (!object) return;  // a nested component may come later
  mInterfaces = {true,
                 found<ITaviView>(object),
                 found<ITaviDataUser>(object),
                 found<ITaviComponent>(object),
                 found<ILocalizable>(object),
                 found<ITaviDataEditor>(object)};
}

std::string_view Control::parameterName() const {
  constexpr std::string_view kPrefix = "ctr_";
  const std::string_view tag = mTag;
  return tag.starts_with(kPrefix) ? tag.substr(kPrefix.size()) : std::string_view();
}

ControlProbe* Control::probe() const { return mOwner ? mOwner->desktop().probe() : nullptr; }

Desktop& Control::desktop() const {
  if (!mOwner) throwNothingThere("the control's owner");
  return mOwner->desktop();
}

void Control::announce(std::string_view operation, const std::string& arguments) const {
  if (ControlProbe* listener = probe()) listener->operation(const_cast<Control&>(*this), operation, arguments);
}

void Control::probeSetting(std::string_view property, const Value& value) {
  if (ControlProbe* listener = probe()) listener->setting(*this, property, toText(value));
}

void Control::write(Color& field, Color value, std::string_view property) {
  if (probe()) probeSetting(property, value.rgb);
  if (field == value) return;
  field = value;
  changedNow();
}

void Control::Move(int left, int top, int width, int height) {
  if (probe()) announce("Move", " " + std::to_string(left) + " " + std::to_string(top) + " " + std::to_string(width) + " " + std::to_string(height));
  if (left == mLeft && top == mTop && width == mWidth && height == mHeight) return;
  mLeft = left, mTop = top, mWidth = width, mHeight = height;
  changedNow();
}

void Control::ZOrder(int position) {
  if (probe()) announce("ZOrder", " " + std::to_string(position));
  if (mOwner && position == 0) mOwner->bringToFront(*this);
}

void Control::SetFocus() {
  announce("SetFocus");
  if (!mOwner) throwNothingThere("the control's owner");
  if (!mVisible || !mEnabled)
    throw RuntimeError(RuntimeError::BadArgument, mName + " cannot take the focus: it is " + (mVisible ? "disabled" : "hidden"));
  mOwner->moveFocus(this);
}

void Control::setImportData(const Node& parameter) {
  if (probe()) announce("setImportData", traced(parameter));
  takeImportData(parameter);
}
void Control::setOfflineData(const Node& parameter) {
  if (probe()) announce("setOfflineData", traced(parameter));
  takeOfflineData(parameter);
}
void Control::SetOnlineData(const Node& item) {
  if (probe()) announce("SetOnlineData", traced(item));
  takeOnlineData(item);
}
void Control::setLocalData(const Node& item) {
  if (probe()) announce("setLocalData", traced(item));
  takeLocalData(item);
}
void Control::SetMappings(const Node& mapping) {
  if (probe()) announce("SetMappings", traced(mapping));
  takeMappings(mapping);
}
void Control::handleError(const std::string& code) {
  if (probe()) announce("handleError", " " + inQuotes(code));
  takeError(code);
}

void Control::takeImportData(const Node&) { noSuchMember("setImportData"); }
void Control::takeOfflineData(const Node&) { noSuchMember("setOfflineData"); }
void Control::takeOnlineData(const Node&) { noSuchMember("SetOnlineData"); }
void Control::takeLocalData(const Node&) { noSuchMember("setLocalData"); }
void Control::takeMappings(const Node&) { noSuchMember("SetMappings"); }
void Control::takeError(const std::string&) { noSuchMember("handleError"); }

void Control::noSuchMember(std::string_view member) const {
  throw RuntimeError(RuntimeError::NoSuchMember, std::string(className()) + " has no " + std::string(member));
}

void Control::requireUsable() const {
  const char* why = !mVisible ? "hidden" : !mEnabled ? "disabled" : nullptr;
  if (why) throw RuntimeError(RuntimeError::PermissionDenied, mName + " is " + why);
}

Value Control::get(std::string_view property, std::span<const int>) const {
  if (property == "Tag") return mTag;
  if (property == "ContextTag") return mContextTag;
  if (property == "Enabled") return mEnabled;
  if (property == "TabStop") return mTabStop;
  if (property == "Visible") return mVisible;
  if (property == "Left") return mLeft;
  if (property == "Top") return mTop;
  if (property == "Width") return mWidth;
  if (property == "Height") return mHeight;
  if (property == "BackColor") return mBackColor.rgb;
  noSuchMember(property);
}

void Control::set(std::string_view property, std::span<const int>, const Value& value) {
  if (property == "Tag") return Tag(asText(value));
  if (property == "ContextTag") return ContextTag(asText(value));
  if (property == "Enabled") return Enabled(asBool(value));
  if (property == "TabStop") return TabStop(asBool(value));
  if (property == "Visible") return Visible(asBool(value));
  if (property == "Left") return Left(asInt(value));
  if (property == "Top") return Top(asInt(value));
  if (property == "Width") return Width(asInt(value));
  if (property == "Height") return Height(asInt(value));
  if (property == "BackColor") return BackColor({Color::Role::Given, asInt(value)});
  noSuchMember(property);
}

void Control::design(const char* property, std::string) { noSuchMember(property); }

}  // namespace ostrand
