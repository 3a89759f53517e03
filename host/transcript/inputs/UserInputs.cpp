#include "host/transcript/inputs/UserInputs.h"

#include <algorithm>
#include <array>

#include "host/transcript/TranscriptStage.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/CtrCheckEdit.h"
#include "platform/controls/CtrOptionEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/ListView.h"
#include "platform/controls/MomentEdit.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/Slider.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/UserActions.h"

namespace ostrand::inputs {

namespace {

bool isOn(const Control& control, const char* property) { return asBool(control.get(property, {})); }

[[noreturn]] void reject(const std::string& why) { throw RuntimeError(RuntimeError::PermissionDenied, why); }

template <class T>
T& as(Control& control, const char* what) {
  T* const found = dynamic_cast<T*>(&control);
  if (!found) reject(control.name() + " is no " + what);
  return *found;
}

void requireReachable(const Control& control) {
  if (!isOn(control, "Visible")) reject(control.name() + " is hidden");
  if (!isOn(control, "Enabled")) reject(control.name() + " is disabled");
}

void requireEditable(const Control& control) {
  requireReachable(control);
  if (isOn(control, "ReadOnly")) reject(control.name() + " is read only");
}

// An action for which the control's class has no function of its own.
template <class Action>
void userAction(TranscriptStage& stage, Control& control, Action action) {
  auto* taker = dynamic_cast<UserActions*>(&control);
  if (!taker) taker = dynamic_cast<UserActions*>(nestedIn(control));
  if (!taker) reject(control.name() + " is a " + std::string(control.className()) + " and does not take this action");
  const Ref<Component> pin(control.owner());
  try {
    action(*taker);
  } catch (const RuntimeError& error) {
    const bool isRejection = error.number() == RuntimeError::NoSuchMember || error.number() == RuntimeError::PermissionDenied;
    if (isRejection) throw;
    stage.output.printUnhandled({error.number(), error.description()});
  } catch (...) {
    stage.output.printUnhandled(currentError());
  }
}

}  // namespace

void click(TranscriptStage& stage, const TranscriptInput& input) {
  Control& target = stage.control(input.words[1].text);
  if (auto* const button = dynamic_cast<CommandButton*>(&target)) {
    requireReachable(target);
    stage.onView([&] { button->click(); });
  } else if (auto* const option = dynamic_cast<OptionButton*>(&target)) {
    requireReachable(target);
    stage.onView([&] { option->click(); });
  } else if (auto* const box = dynamic_cast<CheckBox*>(&target)) {
    requireReachable(target);
    stage.onView([&] { box->click(); });
  } else if (auto* const edit = dynamic_cast<CtrCheckEdit*>(&target)) {
    requireEditable(target);
    stage.onView([&] { edit->click(); });
  } else {
    userAction(stage, target, [](UserActions& taker) { taker.click(); });
  }
}

void type(TranscriptStage& stage, const TranscriptInput& input) {
  Control& target = stage.control(input.words[1].text);
  const std::string& text = input.words[2].text;
  auto* const edit = dynamic_cast<EditControl*>(&target);
  const Ref<Component> pin(target.owner());
  if (auto* const textEdit = dynamic_cast<CtrTextEdit*>(&target)) {
    requireEditable(target);
    stage.onView([&] { textEdit->type(text); });
  } else if (auto* const momentEdit = dynamic_cast<MomentEdit*>(&target)) {
    requireEditable(target);
    stage.onView([&] { momentEdit->type(text); });
  } else if (auto* const box = dynamic_cast<TextBox*>(&target)) {
    return stage.onView([&] { box->type(text); });
  } else {
    return userAction(stage, target, [&](UserActions& taker) { taker.type(text); });
  }
  stage.onView([&] { edit->leave(); });
}

void choose(TranscriptStage& stage, const TranscriptInput& input) {
  Control& target = stage.control(input.words[1].text);
  const std::string& key = input.words[2].text;
  auto* const edit = dynamic_cast<ChoiceEdit*>(&target);
  if (!edit) return userAction(stage, target, [&](UserActions& taker) { taker.choose(key); });
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
    stage.onView([&] { edit->choose(key); });
  } else {
    const TranscriptOutput::Ours ours(stage.output, target, "Text");
    stage.onView([&] { edit->Text(key); });
  }
}

void check(TranscriptStage& stage, const TranscriptInput& input) {
  auto& list = as<ListView>(stage.control(input.words[1].text), "list");
  requireReachable(list);
  if (!list.CheckBoxes()) reject(list.name() + " has no boxes");
  const int row = numberOf(input.words[2]);
  list.get("Checked", std::array{row});
  stage.onView([&] { list.check(row, input.command() == "check"); });
}

void edit(TranscriptStage& stage, const TranscriptInput& input) {
  auto& list = as<ListView>(stage.control(input.words[1].text), "list");
  requireReachable(list);
  if (!list.LabelEdit()) reject(list.name() + " cannot be edited in place");
  const int row = numberOf(input.words[2]);
  list.get("Checked", std::array{row});
  stage.onView([&] { list.editRow(row, input.words[3].text); });
}

void slide(TranscriptStage& stage, const TranscriptInput& input) {
  auto& slider = as<Slider>(stage.control(input.words[1].text), "slider");
  requireReachable(slider);
  const int value = numberOf(input.words[2]);
  if (value < asInt(slider.get("Min", {})) || value > asInt(slider.get("Max", {})))
    reject(slider.name() + " cannot stand at " + std::to_string(value));
  stage.onView([&] { slider.slide(value); });
}

void leaveField(TranscriptStage& stage, const TranscriptInput& input) {
  Control& target = stage.control(input.words[1].text);
  for (std::size_t i = 2; i < input.words.size(); ++i) (input.words[i].text == "tab" ? stage.desktop.tabDown : stage.desktop.shiftDown) = true;
  stage.onView([&] {
    const Ref<Component> owner(target.owner());
    if (owner && owner->focused() == &target)
      owner->moveFocus(nullptr);
    else
      target.LostFocus();
  });
  stage.desktop.tabDown = stage.desktop.shiftDown = false;
}

void hotspot(TranscriptStage& stage, const TranscriptInput& input) {
  userAction(stage, stage.control(input.words[1].text),
             [&](UserActions& taker) { taker.hotspot(numberOf(input.words[2]), numberOf(input.words[3]), input.words.size() > 4); });
}

void menu(TranscriptStage& stage, const TranscriptInput& input) {
  userAction(stage, stage.control(input.words[1].text), [](UserActions& taker) { taker.menu(); });
}

}  // namespace ostrand::inputs
