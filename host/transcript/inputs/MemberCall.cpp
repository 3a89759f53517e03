#include "host/transcript/inputs/MemberCall.h"

#include <functional>

#include "host/transcript/TranscriptStage.h"
#include "platform/base/NumberText.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrGraphMenu.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Members.h"
#include "platform/controls/Nested.h"
#include "platform/types/Query.h"

namespace ostrand::inputs {

namespace {

using Values = MemberArguments;
using Answer = MemberAnswer;

float single(const Value& value) { return static_cast<float>(requireNumber(asText(value), '.')); }

// clang-format off
const Member<Control> kOfControls[] = {
    {"Move",             "iiii", [](Control& at, const Values& v) -> Answer { at.Move(asInt(v[0]), asInt(v[1]), asInt(v[2]), asInt(v[3])); return {}; }},
    {"ZOrder",           "i",    [](Control& at, const Values& v) -> Answer { at.ZOrder(asInt(v[0])); return {}; }},
    {"SetFocus",         "",     [](Control& at, const Values&) -> Answer { at.SetFocus(); return {}; }},
    {"handleError",      "t",    [](Control& at, const Values& v) -> Answer { at.handleError(asText(v[0])); return {}; }},
};
const Member<EditControl> kOfEdits[] = {
    {"MarkEdited",       "b",    [](EditControl& at, const Values& v) -> Answer { at.MarkEdited(asBool(v[0])); return {}; }},
    {"ValueIsValid",     "",     [](EditControl& at, const Values&) -> Answer { return Value(at.ValueIsValid()); }},
    {"HasParameter",     "",     [](EditControl& at, const Values&) -> Answer { return Value(at.HasParameter()); }},
};
const Member<CtrTextEdit> kOfTextEdits[] = {
    {"SetTextOption",       "b",  [](CtrTextEdit& at, const Values& v) -> Answer { at.SetTextOption(asBool(v[0])); return {}; }},
    {"ClearValueRelations", "",   [](CtrTextEdit& at, const Values&) -> Answer { at.ClearValueRelations(); return {}; }},
};
const Member<CtrComboEdit> kOfCombos[] = {
    {"SetAllItemsAllowed", "b",   [](CtrComboEdit& at, const Values& v) -> Answer { at.SetAllItemsAllowed(asBool(v[0])); return {}; }},
    {"SetItemAllowed",     "tb",  [](CtrComboEdit& at, const Values& v) -> Answer { at.SetItemAllowed(asText(v[0]), asBool(v[1])); return {}; }},
    {"ApplyItemFilter",    "",    [](CtrComboEdit& at, const Values&) -> Answer { at.ApplyItemFilter(); return {}; }},
};
const Member<ListView> kOfLists[] = {
    {"AddColumn",        "ti",   [](ListView& at, const Values& v) -> Answer { at.AddColumn(asText(v[0]), asInt(v[1])); return {}; }},
    {"AddRow",           "",     [](ListView& at, const Values&) -> Answer { at.AddRow(); return {}; }},
    {"RemoveRow",        "i",    [](ListView& at, const Values& v) -> Answer { at.RemoveRow(asInt(v[0])); return {}; }},
    {"Clear",            "",     [](ListView& at, const Values&) -> Answer { at.Clear(); return {}; }},
};
const Member<Chart> kOfCharts[] = {
    {"XValue",           "iit",  [](Chart& at, const Values& v) -> Answer { at.XValue(asInt(v[0]), asInt(v[1]), single(v[2])); return {}; }},
    {"YValue",           "iit",  [](Chart& at, const Values& v) -> Answer { at.YValue(asInt(v[0]), asInt(v[1]), single(v[2])); return {}; }},
    {"PointType",        "iii",  [](Chart& at, const Values& v) -> Answer { at.PointType(asInt(v[0]), asInt(v[1]), asInt(v[2])); return {}; }},
    {"SeriesLabel",      "it",   [](Chart& at, const Values& v) -> Answer { at.SeriesLabel(asInt(v[0]), asText(v[1])); return {}; }},
    {"Rebuild",          "i",    [](Chart& at, const Values& v) -> Answer { at.Rebuild(asInt(v[0])); return {}; }},
    {"Maximize",         "",     [](Chart& at, const Values&) -> Answer { at.Maximize(); return {}; }},
};
const Member<CtrGraphMenu> kOfMenus[] = {
    {"Enabled",          "i",    [](CtrGraphMenu& at, const Values& v) -> Answer { return Value(at.Enabled(asInt(v[0]))); }},
    {"Enabled",          "ib",   [](CtrGraphMenu& at, const Values& v) -> Answer { at.Enabled(asInt(v[0]), asBool(v[1])); return {}; }},
};
const Member<ITaviView> kOfViews[] = {
    {"GetSelectedView",   "",    [](ITaviView& at, const Values&) -> Answer { return Value(at.GetSelectedView()); }},
    {"SetSelectedView",   "t",   [](ITaviView& at, const Values& v) -> Answer { at.SetSelectedView(asText(v[0])); return {}; }},
    {"LeaveSelectedView", "",    [](ITaviView& at, const Values&) -> Answer { return Value(at.LeaveSelectedView()); }},
    {"RequestFocus",      "",    [](ITaviView& at, const Values&) -> Answer { at.RequestFocus(); return {}; }},
    {"PrepareToRelease",  "",    [](ITaviView& at, const Values&) -> Answer { at.PrepareToRelease(); return {}; }},
};
const Member<ITaviDataEditor> kOfDataEditors[] = {
    {"GetXmlItem",        "",    [](ITaviDataEditor& at, const Values&) -> Answer { return at.GetXmlItem(false); }},
    {"GetXmlItem",        "b",   [](ITaviDataEditor& at, const Values& v) -> Answer { return at.GetXmlItem(asBool(v[0])); }},
};
// clang-format on

// Of a component: what its class offers by name, and its interfaces.
std::function<Answer()> operationOf(IObject* object, std::string_view name, const Values& values) {
  const Ref<IPlaceable> placeable = query<IPlaceable>(object);
  if (auto* const component = dynamic_cast<Component*>(placeable.get()))
    if (auto found = component->member(name, values)) return found;
  if (auto found = findMember<ITaviView>(kOfViews, query<ITaviView>(object).get(), name, values)) return found;
  return findMember<ITaviDataEditor>(kOfDataEditors, query<ITaviDataEditor>(object).get(), name, values);
}

[[noreturn]] void reject(const std::string& why) { throw RuntimeError(RuntimeError::NoSuchMember, why); }

std::function<Answer()> operationOf(Control& control, std::string_view name, const Values& values) {
  if (auto found = findMember<EditControl>(kOfEdits, dynamic_cast<EditControl*>(&control), name, values)) return found;
  if (auto found = findMember<CtrTextEdit>(kOfTextEdits, dynamic_cast<CtrTextEdit*>(&control), name, values)) return found;
  if (auto found = findMember<CtrComboEdit>(kOfCombos, dynamic_cast<CtrComboEdit*>(&control), name, values)) return found;
  if (auto found = findMember<ListView>(kOfLists, dynamic_cast<ListView*>(&control), name, values)) return found;
  if (auto found = findMember<Chart>(kOfCharts, dynamic_cast<Chart*>(&control), name, values)) return found;
  if (auto found = findMember<CtrGraphMenu>(kOfMenus, dynamic_cast<CtrGraphMenu*>(&control), name, values)) return found;
  if (auto found = operationOf(control.Object(), name, values)) return found;
  return findMember<Control>(kOfControls, &control, name, values);
}

// As a trace tells the property: "Cell(2,1)".
std::string withIndices(std::string property, std::span<const int> indices) {
  for (std::size_t i = 0; i < indices.size(); ++i) property += (i ? "," : "(") + std::to_string(indices[i]);
  return indices.empty() ? property : property + ")";
}

// The indices that a property takes, of the arguments that may be theirs. RuntimeError 438 if there is no such property.
std::vector<int> indicesOf(const Control& control, const std::string& property, const Values& values) {
  std::vector<int> indices;
  for (;;) {
    try {
      control.get(property, indices);
      return indices;
    } catch (const RuntimeError& error) {
      const bool takesOthers = error.number() == RuntimeError::NoSuchMember || error.number() == RuntimeError::BadArgument;
      if (!takesOthers) return indices;
      if (indices.size() == values.size() || !std::holds_alternative<int>(values[indices.size()])) reject(error.description());
    }
    indices.push_back(std::get<int>(values[indices.size()]));
  }
}

// Sets a property as code would. The setting is ours; what the view does about it is not.
void setProperty(TranscriptStage& stage, Control& control, const std::string& property, std::span<const int> indices, const Value& value) {
  const Ref<Component> pin(control.owner());
  const TranscriptOutput::Ours ours(stage.output, control, withIndices(property, indices));
  control.set(property, indices, value);
}

std::function<Answer()> propertyOf(TranscriptStage& stage, Control& control, const std::string& name, const Values& values) {
  const std::vector<int> indices = indicesOf(control, name, values);
  if (values.size() == indices.size()) return [&control, name, indices] { return Answer(control.get(name, indices)); };
  if (values.size() > indices.size() + 1) reject(name + " takes fewer arguments");
  return [&stage, &control, name, indices, value = values.back()] {
    setProperty(stage, control, name, indices, value);
    return Answer();
  };
}

Value valueOf(const TranscriptWord& word) {
  if (word.quoted) return word.text;
  if (word.text == "true" || word.text == "false") return word.text == "true";
  return numberOf(word);
}

// A word in the kind of the property that it is meant for.
Value valueLike(const Value& model, const TranscriptWord& word) {
  if (std::holds_alternative<bool>(model)) {
    if (word.text == "true" || word.text == "false") return word.text == "true";
  } else if (std::holds_alternative<int>(model)) {
    if (const auto number = parseInteger(word.text); number && *number >= INT32_MIN && *number <= INT32_MAX) return static_cast<int>(*number);
  }
  return word.text;
}

void printAnswer(TranscriptOutput& output, const Answer& answer) {
  if (const auto* const value = std::get_if<Value>(&answer)) output.printValue(toText(*value));
  if (const auto* const node = std::get_if<Node>(&answer)) output.printNode(*node);
}

}  // namespace

void call(TranscriptStage& stage, const TranscriptInput& input) {
  const std::string& text = input.words[1].text;
  const std::size_t point = text.rfind('.');
  const std::string member = point == text.npos ? text : text.substr(point + 1);
  Values values;
  for (std::size_t i = 2; i < input.words.size(); ++i) values.push_back(valueOf(input.words[i]));

  if (point == text.npos) {
    const std::function<Answer()> found = operationOf(stage.current().object.get(), member, values);
    if (!found) reject(stage.current().className + " has no " + member);
    return stage.onView([&] { printAnswer(stage.output, found()); });
  }
  Control& control = stage.control(text.substr(0, point));
  const Ref<Component> pin(control.owner());
  if (const std::function<Answer()> found = operationOf(control, member, values)) {
    stage.onView([&] {
      Answer answer;
      {
        const TranscriptOutput::Ours ours(stage.output, control, member);
        answer = found();
      }
      printAnswer(stage.output, answer);
    });
    return;
  }
  const std::function<Answer()> found = propertyOf(stage, control, member, values);
  stage.onView([&] { printAnswer(stage.output, found()); });
}

void set(TranscriptStage& stage, const TranscriptInput& input) {
  const PropertyName name = *PropertyName::read(input.words[1].text);
  Control& target = stage.control(name.control);
  const Value value = valueLike(target.get(name.property, name.indices), input.words[2]);
  try {
    setProperty(stage, target, name.property, name.indices, value);
  } catch (const RuntimeError& error) {
    switch (error.number()) {
      case RuntimeError::BadArgument:
      case RuntimeError::OutOfRange:
      case RuntimeError::NotConvertible:
      case RuntimeError::NoSuchMember: throw;
      default: stage.output.printUnhandled({error.number(), error.description()});
    }
  } catch (...) {
    stage.output.printUnhandled(currentError());
  }
}

}  // namespace ostrand::inputs
