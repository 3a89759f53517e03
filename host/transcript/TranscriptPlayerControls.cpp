// What the user does to controls, and what is looked at.

#include <algorithm>
#include <array>
#include <set>

#include "host/transcript/ControlText.h"
#include "host/transcript/TranscriptPlayer.h"
#include "platform/base/NumberText.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Component.h"
#include "platform/controls/CtrCheckEdit.h"
#include "platform/controls/CtrOptionEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/ListView.h"
#include "platform/controls/MomentEdit.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/Slider.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/UserActions.h"
#include "platform/types/ITaviDeviceSpecific.h"

namespace ostrand {

namespace {

int integer(const Word& word) { return static_cast<int>(parseInteger(word.text).value_or(0)); }

bool isOn(const Control& control, const char* property) { return asBool(control.get(property, {})); }

[[noreturn]] void reject(const std::string& why) { throw RuntimeError(RuntimeError::PermissionDenied, why); }

template <class T>
T& as(Control& control, const char* what) {
  T* const found = dynamic_cast<T*>(&control);
  if (!found) reject(control.name() + " is no " + what);
  return *found;
}

// FNV-1a, 64 bits, as hexadecimal digits.
std::string digestOf(std::string_view bytes) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
  std::string digits;
  for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[hash >> shift & 0xF];
  return digits;
}

// A word in the kind of the property that it is meant for.
Value valueLike(const Value& model, const Word& word) {
  if (std::holds_alternative<bool>(model)) {
    if (word.text == "true" || word.text == "false") return word.text == "true";
  } else if (std::holds_alternative<int>(model)) {
    if (const auto number = parseInteger(word.text); number && *number >= INT32_MIN && *number <= INT32_MAX) return static_cast<int>(*number);
  }
  return word.text;
}

}  // namespace

// --- the user

const ControlCollection& TranscriptPlayer::controls() { return need<ITaviView>("ITaviView")->GetControls(); }

const Component* TranscriptPlayer::component() {
  const ControlCollection& all = controls();
  return all.empty() ? nullptr : all.front()->owner();
}

Control& TranscriptPlayer::control(const std::string& name) {
  if (Control* const found = findControl(controls(), name)) return *found;
  mConversation.print("NoSuchControl", name);
  throw InputEnded();
}

void TranscriptPlayer::requireReachable(const Control& control) {
  if (!isOn(control, "Visible")) reject(control.name() + " is hidden");
  if (!isOn(control, "Enabled")) reject(control.name() + " is disabled");
}

void TranscriptPlayer::requireEditable(const Control& control) {
  requireReachable(control);
  if (isOn(control, "ReadOnly")) reject(control.name() + " is read only");
}

template <class Action>
void TranscriptPlayer::userAction(Control& control, Action action) {
  auto* taker = dynamic_cast<UserActions*>(&control);
  if (!taker) taker = dynamic_cast<UserActions*>(nestedIn(control));
  if (!taker) reject(control.name() + " is a " + std::string(control.className()) + " and does not take this action");
  const Ref<Component> pin(control.owner());
  try {
    action(*taker);
  } catch (const RuntimeError& error) {
    const bool isRejection = error.number() == RuntimeError::NoSuchMember || error.number() == RuntimeError::PermissionDenied;
    if (isRejection) throw;
    mConversation.printUnhandled({error.number(), error.description()});
  } catch (...) {
    mConversation.printUnhandled(currentError());
  }
}

void TranscriptPlayer::click(const TranscriptInput& input) {
  Control& target = control(input.words[1].text);
  if (auto* const button = dynamic_cast<CommandButton*>(&target)) {
    requireReachable(target);
    onView([&] { button->click(); });
  } else if (auto* const option = dynamic_cast<OptionButton*>(&target)) {
    requireReachable(target);
    onView([&] { option->click(); });
  } else if (auto* const box = dynamic_cast<CheckBox*>(&target)) {
    requireReachable(target);
    onView([&] { box->click(); });
  } else if (auto* const edit = dynamic_cast<CtrCheckEdit*>(&target)) {
    requireEditable(target);
    onView([&] { edit->click(); });
  } else {
    userAction(target, [](UserActions& taker) { taker.click(); });
  }
}

void TranscriptPlayer::type(const TranscriptInput& input) {
  Control& target = control(input.words[1].text);
  const std::string& text = input.words[2].text;
  auto* const edit = dynamic_cast<EditControl*>(&target);
  const Ref<Component> pin(target.owner());
  if (auto* const textEdit = dynamic_cast<CtrTextEdit*>(&target)) {
    requireEditable(target);
    onView([&] { textEdit->type(text); });
  } else if (auto* const momentEdit = dynamic_cast<MomentEdit*>(&target)) {
    requireEditable(target);
    onView([&] { momentEdit->type(text); });
  } else if (auto* const box = dynamic_cast<TextBox*>(&target)) {
    return onView([&] { box->type(text); });
  } else {
    return userAction(target, [&](UserActions& taker) { taker.type(text); });
  }
  onView([&] { edit->leave(); });
}

void TranscriptPlayer::choose(const TranscriptInput& input) {
  Control& target = control(input.words[1].text);
  const std::string& key = input.words[2].text;
  auto* const edit = dynamic_cast<ChoiceEdit*>(&target);
  if (!edit) return userAction(target, [&](UserActions& taker) { taker.choose(key); });
  const auto& choices = edit->choices();
  const bool offered =
      choices.empty() || std::any_of(choices.begin(), choices.end(), [&](const auto& each) { return each.key == key && each.offered; });
  // An option edit has no display, so the user reaches it by other controls only; its value may be chosen all the same.
  if (dynamic_cast<CtrOptionEdit*>(edit)) {
    if (isOn(target, "ReadOnly")) reject(target.name() + " is read only");
  } else {
    requireEditable(target);
  }
  if (!offered) reject(target.name() + " does not offer " + inQuotes(key));
  if (isOn(target, "Visible") && isOn(target, "Enabled")) {
    onView([&] { edit->choose(key); });
  } else {
    mConversation.expectSetting(target, "Text");
    onView([&] { edit->Text(key); });
    mConversation.expectNothing();
  }
}

void TranscriptPlayer::check(const TranscriptInput& input) {
  auto& list = as<ListView>(control(input.words[1].text), "list");
  requireReachable(list);
  if (!list.CheckBoxes()) reject(list.name() + " has no boxes");
  const int row = integer(input.words[2]);
  list.get("Checked", std::array{row});
  onView([&] { list.check(row, input.command() == "check"); });
}

void TranscriptPlayer::edit(const TranscriptInput& input) {
  auto& list = as<ListView>(control(input.words[1].text), "list");
  requireReachable(list);
  if (!list.LabelEdit()) reject(list.name() + " cannot be edited in place");
  const int row = integer(input.words[2]);
  list.get("Checked", std::array{row});
  onView([&] { list.editRow(row, input.words[3].text); });
}

void TranscriptPlayer::slide(const TranscriptInput& input) {
  auto& slider = as<Slider>(control(input.words[1].text), "slider");
  requireReachable(slider);
  const int value = integer(input.words[2]);
  if (value < asInt(slider.get("Min", {})) || value > asInt(slider.get("Max", {})))
    reject(slider.name() + " cannot stand at " + std::to_string(value));
  onView([&] { slider.slide(value); });
}

void TranscriptPlayer::leaveField(const TranscriptInput& input) {
  Control& target = control(input.words[1].text);
  for (std::size_t i = 2; i < input.words.size(); ++i) (input.words[i].text == "tab" ? mDesktop.tabDown : mDesktop.shiftDown) = true;
  onView([&] {
    const Ref<Component> owner(target.owner());
    if (owner && owner->focused() == &target)
      owner->moveFocus(nullptr);
    else
      target.LostFocus();
  });
  mDesktop.tabDown = mDesktop.shiftDown = false;
}

void TranscriptPlayer::hotspot(const TranscriptInput& input) {
  userAction(control(input.words[1].text),
             [&](UserActions& taker) { taker.hotspot(integer(input.words[2]), integer(input.words[3]), input.words.size() > 4); });
}

void TranscriptPlayer::menu(const TranscriptInput& input) {
  userAction(control(input.words[1].text), [](UserActions& taker) { taker.menu(); });
}

// --- looking

void TranscriptPlayer::get(const TranscriptInput& input) {
  const Conversation::Quiet quiet(mConversation);
  for (std::size_t i = 1; i < input.words.size(); ++i) {
    const PropertyName name = *PropertyName::read(input.words[i].text);
    if (name.control == "view" && name.property == "Keys") {
      // A frame may hold a panel that is selected in its place, under the same key or without one of its own.
      std::set<std::string> told;
      for (const Control* const item : selectableItems(controls()))
        if (const std::string key = toText(item->get("Tag", {})); key != inQuotes("") && told.insert(key).second) mConversation.printValue(key);
      continue;
    }
    const Control* const found = findControl(controls(), name.control);
    if (!found) {
      mConversation.print("NoSuchControl", name.control);
      continue;
    }
    try {
      mConversation.printValue(toText(found->get(name.property, name.indices)));
    } catch (const RuntimeError& error) {
      mConversation.print("Rejected", error.description());
    }
  }
}

void TranscriptPlayer::set(const TranscriptInput& input) {
  const PropertyName name = *PropertyName::read(input.words[1].text);
  Control& target = control(name.control);
  const Value value = valueLike(target.get(name.property, name.indices), input.words[2]);
  // The setting is ours; what the view does about it is not.
  std::string member = name.property;
  for (std::size_t i = 0; i < name.indices.size(); ++i) member += (i ? "," : "(") + std::to_string(name.indices[i]);
  mConversation.expectSetting(target, name.indices.empty() ? member : member + ")");
  const Ref<Component> pin(target.owner());
  try {
    target.set(name.property, name.indices, value);
    mConversation.expectNothing();
  } catch (const RuntimeError& error) {
    mConversation.expectNothing();
    switch (error.number()) {
      case RuntimeError::BadArgument:
      case RuntimeError::OutOfRange:
      case RuntimeError::NotConvertible:
      case RuntimeError::NoSuchMember: throw;
      default: mConversation.printUnhandled({error.number(), error.description()});
    }
  } catch (...) {
    mConversation.expectNothing();
    mConversation.printUnhandled(currentError());
  }
}

void TranscriptPlayer::front(const TranscriptInput&) {
  const Component* const view = component();
  const Control* const item = view ? view->front() : nullptr;
  mConversation.printValue(item ? toText(item->get("Tag", {})) : inQuotes(""));
}

void TranscriptPlayer::selected(const TranscriptInput&) {
  const Ref<ITaviView> view = need<ITaviView>("ITaviView");
  onView([&] { mConversation.printValue(inQuotes(view->GetSelectedView())); });
}

void TranscriptPlayer::focused(const TranscriptInput&) {
  const Component* const view = component();
  const Control* const found = view ? view->focused() : nullptr;
  mConversation.printValue(inQuotes(found ? nameOfControl(controls(), *found) : std::string()));
}

void TranscriptPlayer::show(const TranscriptInput&) {
  const Conversation::Quiet quiet(mConversation);
  const Component* const view = component();
  if (!view) return;
  for (std::string& line : frontAsText(*view)) mConversation.printValue(std::move(line));
}

void TranscriptPlayer::document(const TranscriptInput& input) {
  const int number = integer(input.words[1]);
  if (number < 1 || number > static_cast<int>(mDocuments.size()))
    throw RuntimeError(RuntimeError::OutOfRange, "there is no document " + std::to_string(number));
  const Document& document = mDocuments[static_cast<std::size_t>(number) - 1];
  if (input.words.size() == 2) return mConversation.printDocument(document.xml());
  if (const auto text = document.selectText(input.words[2].text)) mConversation.printValue(inQuotes(*text));
}

void TranscriptPlayer::now(const TranscriptInput&) { mConversation.printValue(standardDateAndTime(mDesktop.now())); }

void TranscriptPlayer::picture(const TranscriptInput& input) {
  const Ref<ITaviDeviceSpecific> specific = need<ITaviDeviceSpecific>("ITaviDeviceSpecific");
  const std::string argument = input.words.size() > 2 ? input.words[2].text : std::string();
  onView([&] {
    const Picture picture = input.words[1].text == "image" ? specific->GetDeviceImage(argument) : specific->GetDeviceLogo(argument);
    mConversation.printValue(std::to_string(picture.width) + " " + std::to_string(picture.height) + " " + inQuotes(digestOf(picture.svg)));
  });
}

}  // namespace ostrand
