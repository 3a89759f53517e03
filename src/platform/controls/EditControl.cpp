#include "platform/controls/EditControl.h"

#include <exception>
#include <utility>

#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"
#include "platform/trap/Procedure.h"
#include "platform/types/Listening.h"
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
  mark(modified);
}

void EditControl::MarkEdited(bool edited) {
  if (probe()) announce("MarkEdited", edited ? " true" : " false");
  mark(edited);
}

void EditControl::mark(bool edited) {
  const Ref<Component> pin(owner());
  if (!edited)
    if (auto value = told()) mValue.store(std::move(*value));
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
  const std::optional<std::string> value = told();
  const Ref<Tree> tree(new Tree);
  pugi::xml_node item = tree->document.append_child("item");
  item.append_attribute("name").set_value(std::string(parameterName()).c_str());
  // What cannot be told in the data set's unit bears the one in which it stands on the screen.
  item.append_attribute("unit").set_value((value ? info().unit : displayUnit()).c_str());
  item.append_child(info().wireType().c_str()).append_child(pugi::node_pcdata).set_value(value.value_or(mText).c_str());
  return {tree, item};
}

// --- documents

void EditControl::takeParameter(const Node& parameter) {
  const Ref<Component> pin(owner());
  AllSteps all;
  mHasParameter = static_cast<bool>(parameter);
  const ParameterValues values = mValue.describe(parameter);
  std::string stored = mValue.documentText(values.value);
  const std::string offline = mValue.documentText(values.offlineValue);
  all.step([&] { parameterChanged(); });
  if (mReadOnly != info().readOnly) {
    mReadOnly = info().readOnly;
    changedNow();
  }
  if (offline.empty() || offline == stored) {
    all.step([&] { load(std::move(stored)); });
  } else {
    // What was edited without the device comes back as an edit.
    clearError();
    mValue.store(std::move(stored));
    all.step([&] { loadEdit(offline); });
  }
  all.done();
}

void EditControl::takeOnlineData(const Node& item) {
  const Ref<Component> pin(owner());
  if (!item || !loadItem(item)) return;
  mLastRead = desktop().now();
  forwardSyncChanges(parameterName(), true, mSyncWord, mMessenger);
}

void EditControl::takeLocalData(const Node& item) {
  const Ref<Component> pin(owner());
  if (item) loadItem(item);
}

bool EditControl::loadItem(const Node& item) {
  auto received = mValue.received(item, *this);
  if (received) load(std::move(received->text));
  return received.has_value();
}

void EditControl::clearError() {
  if (mError.empty()) return;
  mError.clear();
  changedNow();
}

void EditControl::load(std::string documentText) {
  dropEdit();
  clearError();
  mValue.store(std::move(documentText));
  update(storedText(), false);
}

void EditControl::takeError(const std::string& code) {
  const Ref<Component> pin(owner());
  if (mError != code) {
    mError = code;
    changedNow();
  }
  forwardSyncChanges(parameterName(), false, mSyncWord, mMessenger);
}

// --- state

void EditControl::update(std::string text, bool edited) {
  const Ref<Component> pin(owner());
  AllSteps all;
  const bool newText = text != mText;
  const bool newState = edited != mModified;
  if (newText) mText = std::move(text);
  mModified = edited;
  all.step([&] { recheck(); });
  all.step([&] { recheckOthers(); });
  if (newText || newState) changedNow();
  // A copy: a listener may set another text while the others still hear of this one.
  if (newText) all.step([&, now = mText] { Change(now); });
  all.done();
}

void EditControl::recheck() {
  const Ref<Component> pin(owner());
  const bool correct = passes();
  if (correct != mCorrect) {
    mCorrect = correct;
    changedNow();
  }
  forwardEditChanges(parameterName(), mModified, mCorrect, mEditWord, mMessenger);
}

void EditControl::requireEditable() const {
  requireUsable();
  if (mReadOnly) throw RuntimeError(RuntimeError::PermissionDenied, name() + " is read only");
}

void EditControl::restore() {
  requireEditable();
  showStored();
}

void EditControl::showStored() {
  const Ref<Component> pin(owner());
  dropEdit();
  update(storedText(), false);
}

void EditControl::leave() {
  const Ref<Component> pin(owner());
  if (owner() && owner()->focused() == this)
    owner()->moveFocus(nullptr);
  else
    LostFocus();
}

// --- the host

Ref<IUnitConverter> EditControl::converter() const {
  const Ref<Messenger> host = mMessenger;
  return host ? host->GetUnitConverter() : nullptr;
}

void EditControl::SetMessenger(const Ref<Messenger>& messenger) {
  const Ref<Component> pin(owner());
  changeMessenger(mMessenger, messenger, *this);
}

void EditControl::detach() {
  stopListening(std::exchange(mMessenger, nullptr), *this);
  mTextTable = nullptr;
}

void EditControl::Localize(const Ref<ITextTable>& textTable) {
  const Ref<Component> pin(owner());
  mTextTable = textTable;
  unitsChanged();
  changedNow();
}

void EditControl::ViewSetUnits() {
  const Ref<Component> pin(owner());
  const std::string prefix = std::string(className()) + " mMessenger_ViewSetUnits: ";
  Procedure proc(mMessenger, nullptr, prefix);
  proc.all([&] { unitsChanged(); });
}

void EditControl::ViewGetChanges(int& mode) {
  constexpr int kAllItems = 1;
  constexpr int kModifiedItems = 2;
  if (mKeepLocal || mExplicitApply || mReadOnly || !mHasParameter || !mCorrect) return;
  if (mode != kAllItems && !(mode == kModifiedItems && mModified)) return;
  const Ref<Component> pin(owner());
  const std::string prefix = std::string(className()) + " mMessenger_ViewGetChanges: ";
  Procedure proc(mMessenger, nullptr, prefix);
  proc.all([&] {
    const std::string name(parameterName());
    const auto value = told();
    if (!value) return;
    const Ref<ITextTable> texts = mTextTable;
    const std::string caption = texts ? texts->GetLabel(name) : name;
    const std::string before = stored(), unit = info().unit, type = info().type, group = mContextTag;
    proc.messenger().AddChange(name, caption, before, *value, unit, type, group);
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
