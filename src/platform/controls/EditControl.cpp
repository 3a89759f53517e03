#include "platform/controls/EditControl.h"

#include <exception>

#include "platform/base/Procedure.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"
#include "platform/types/Query.h"

namespace ostrand {

namespace {

// Lets every step of a change happen although one fails, and then tells the first failure.
class AllSteps {
 public:
  template <class F>
  void step(F&& body) {
    try {
      body();
    } catch (...) {
      if (!mFirst) mFirst = std::current_exception();
    }
  }
  void done() const {
    if (mFirst) std::rethrow_exception(mFirst);
  }

 private:
  std::exception_ptr mFirst;
};

}  // namespace

// --- the contract

void EditControl::Text(const std::string& text) {
  if (probe()) probeSetting("Text", text);
  takeText(text);
}

void EditControl::Modified(bool modified) {
  if (probe()) probeSetting("Modified", modified);
  if (!modified)
    if (const auto value = told()) mStored = *value;
  update(mText, modified);
}

void EditControl::MarkEdited(bool edited) {
  if (probe()) announce("MarkEdited", edited ? " true" : " false");
  if (!edited)
    if (const auto value = told()) mStored = *value;
  update(mText, edited);
}

bool EditControl::ValueIsValid() const {
  announce("ValueIsValid");
  return passes();
}

bool EditControl::HasParameter() const {
  announce("HasParameter");
  return mHasParameter;
}

Node EditControl::GetXmlItem(bool ignoreErrors) {
  if (probe()) announce("GetXmlItem", ignoreErrors ? " true" : "");
  if (!ignoreErrors && !mCorrect) return {};
  const std::string type = mInfo.type.empty() ? "stringVal" : mInfo.type;
  const Ref<Tree> tree(new Tree);
  pugi::xml_node item = tree->document.append_child("item");
  item.append_attribute("name").set_value(std::string(parameterName()).c_str());
  item.append_attribute("unit").set_value(mInfo.unit.c_str());
  item.append_child(type.c_str()).append_child(pugi::node_pcdata).set_value(told().value_or(mText).c_str());
  return {tree, item};
}

// --- documents

void EditControl::takeParameter(const Node& parameter) {
  AllSteps all;
  mHasParameter = static_cast<bool>(parameter);
  mInfo.read(parameter);
  all.step([&] { parameterChanged(); });
  if (mReadOnly != mInfo.readOnly) {
    mReadOnly = mInfo.readOnly;
    changedNow();
  }
  if (!parameter) {
    all.step([&] { load({}); });
    return all.done();
  }
  all.step([&] { load(std::string(parameter.findAttribute("value").value_or(""))); });
  // What was edited without the device comes back as an edit.
  const std::string offline(parameter.findAttribute("offlineValue").value_or(""));
  if (!offline.empty() && offline != mStored) {
    const std::string stored = mStored;
    all.step([&] { load(offline); });
    mStored = stored;
    const std::string text = mText;
    all.step([&] { takeText(text); });
    all.step([&] { update(mText, true); });
  }
  all.done();
}

void EditControl::takeOnlineData(const Node& item) {
  if (!item || !loadItem(item)) return;
  mLastRead = desktop().now();
  forwardSyncChanges(statusName(), true, mSyncWord, mMessenger.get());
}

void EditControl::takeLocalData(const Node& item) {
  if (item) loadItem(item);
}

bool EditControl::loadItem(const Node& item) {
  const Node element = valueElement(item, mInfo.type);
  if (!element) return false;
  load(received(item, element.text()));
  return true;
}

void EditControl::load(std::string documentText) {
  forgetTyped();
  if (!mError.empty()) {
    mError.clear();
    changedNow();
  }
  mStored = std::move(documentText);
  update(shown(mStored), false);
}

void EditControl::takeError(const std::string& code) {
  if (mError != code) {
    mError = code;
    changedNow();
  }
  forwardSyncChanges(statusName(), false, mSyncWord, mMessenger.get());
}

// --- state

void EditControl::update(std::string text, bool modified) {
  const Ref<Component> pin(owner());
  AllSteps all;
  const bool newText = text != mText;
  const bool newState = modified != mModified;
  if (newText) mText = std::move(text);
  mModified = modified;
  all.step([&] { recheck(); });
  if (newText || newState) changedNow();
  if (newText) all.step([&] { Change(mText); });
  all.done();
}

void EditControl::recheck() {
  const bool correct = passes();
  if (correct != mCorrect) {
    mCorrect = correct;
    changedNow();
  }
  forwardEditChanges(statusName(), mModified, mCorrect, mEditWord, mMessenger.get());
}

std::string EditControl::statusName() const { return std::string(parameterName()); }

void EditControl::requireEditable() const {
  requireUsable();
  if (mReadOnly) throw RuntimeError(RuntimeError::PermissionDenied, name() + " is read only");
}

void EditControl::restore() {
  requireEditable();
  forgetTyped();
  update(shown(mStored), false);
}

void EditControl::leave() {
  const Ref<Component> pin(owner());
  if (owner() && owner()->focused() == this)
    owner()->moveFocus(nullptr);
  else
    LostFocus();
}

// --- the host

Ref<IUnitConverter> EditControl::converter() const { return mMessenger ? mMessenger->GetUnitConverter() : nullptr; }

void EditControl::SetMessenger(const Ref<Messenger>& messenger) {
  if (mMessenger) mMessenger->Unsubscribe(*this);
  mMessenger = messenger;
  if (mMessenger) mMessenger->Subscribe(*this);
}

void EditControl::detach() {
  if (mMessenger) mMessenger->Unsubscribe(*this);
  mMessenger = nullptr;
  mTextTable = nullptr;
}

void EditControl::Localize(const Ref<ITextTable>& textTable) {
  mTextTable = textTable;
  unitsChanged();
  changedNow();
}

void EditControl::ViewSetUnits() {
  Procedure proc(mMessenger, nullptr, std::string(className()) + " mMessenger_ViewSetUnits: ");
  proc.all([&] { unitsChanged(); });
}

void EditControl::ViewGetChanges(int& mode) {
  constexpr int kAllItems = 1;
  constexpr int kModifiedItems = 2;
  if (mKeepLocal || mExplicitApply || mReadOnly || !mHasParameter || !mCorrect) return;
  if (mode != kAllItems && !(mode == kModifiedItems && mModified)) return;
  Procedure proc(mMessenger, nullptr, std::string(className()) + " mMessenger_ViewGetChanges: ");
  proc.all([&] {
    const std::string name = statusName();
    const auto value = told();
    if (!value) return;
    const std::string caption = mTextTable ? mTextTable->GetLabel(name) : name;
    proc.messenger().AddChange(name, caption, mStored, *value, mInfo.unit, mInfo.type, mContextTag);
  });
}

// --- the control as an object

Result EditControl::queryInterface(const Guid& id, void** out) noexcept {
  if (!out) return Result::BadPointer;
  *out = nullptr;
  if (offer<IObject>(id, this, out) || offer<ITaviComponent>(id, this, out) || offer<ITaviDataEditor>(id, this, out) ||
      offer<ILocalizable>(id, this, out))
    return Result::Ok;
  return Result::NoInterface;
}

std::uint32_t EditControl::addRef() noexcept { return owner() ? owner()->addRef() : 1; }

std::uint32_t EditControl::release() noexcept { return owner() ? owner()->release() : 1; }

Value EditControl::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Text") return mText;
  if (property == "Modified") return mModified;
  if (property == "Correct") return mCorrect;
  if (property == "KeepLocal") return mKeepLocal;
  if (property == "ExplicitApply") return mExplicitApply;
  if (property == "ReadOnly") return mReadOnly;
  if (property == "Error") return mError;
  return Control::get(property, indices);
}

void EditControl::set(std::string_view property, std::span<const int> indices, const Value& value) {
  if (property == "Text") return Text(asText(value));
  if (property == "Modified") return Modified(asBool(value));
  if (property == "KeepLocal") return KeepLocal(asBool(value));
  if (property == "ExplicitApply") return ExplicitApply(asBool(value));
  if (property == "ReadOnly") return ReadOnly(asBool(value));
  Control::set(property, indices, value);
}

}  // namespace ostrand
