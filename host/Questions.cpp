#include "host/Questions.h"

#include <vector>

#include "host/OutputRules.h"
#include "platform/controls/EditControl.h"

namespace ostrand {

namespace {

struct Question {
  const char* key;
  const char* goOn;
  const char* stop;
};

constexpr Question kQuestions[] = {
    {"samplingExitWarning", "answerLeaveAndStopSampling", "answerStayHere"},
    {"loopTestExitWarning", "answerLeaveAndStopTest", "answerStayHere"},
    {"loopTestWarning", "answerStartTest", "answerStartNothing"},
    {"checkThatRecipeToBeCalibratedIsActive", "answerTakeSample", "answerStartNothing"},
    {"temperatureCalibrationWillChangeDeviceOutput", "answerCalibrate", "answerChangeNothing"},
    {"loopShouldBeRemovedFromAutomaticControl", "answerLoopIsInManual", "answerChangeNothing"},
    {"actingValuesWarning", "answerWriteThem", "answerLeaveThemOut"},
};
constexpr Question kAnyOther = {"", "answerGoOn", "answerStop"};

constexpr const char* kLoopTestWarning = "loopTestWarning";
constexpr const char* kUnitSection = "unit";

void collect(ITaviView& view, std::vector<EditControl*>& edits) {
  for (Control* const control : view.GetControls()) {
    const OutputRule* const rule = outputRule(control->parameterName());
    if (auto* const edit = dynamic_cast<EditControl*>(control); edit && rule && rule->kind == OutputKind::LoopTest) edits.push_back(edit);
    if (ITaviView* const nested = control->view(); nested && nested != &view) collect(*nested, edits);
  }
}

// A view with one test value sends what stands there; one with several sends those that were typed and are right.
std::string testValues(ITextTable& texts, ITaviView& view) {
  std::vector<EditControl*> edits;
  collect(view, edits);
  std::string lines;
  for (EditControl* const edit : edits) {
    const bool goes = edits.size() == 1 ? !edit->displayText().empty() : edit->Modified() && edit->ValueIsValid();
    if (goes) lines += "\r\n" + wordedValue(texts, std::string(edit->parameterName()), edit->displayText(), edit->displayUnit());
  }
  return "\r\n\r\n" + texts.GetText("wouldBeSent") + (lines.empty() ? " " + texts.GetText("nothingWouldBeSent") : lines);
}

}  // namespace

UserPrompt::Answers answersTo(ITextTable& texts, const std::string& question) {
  for (const Question& each : kQuestions)
    if (question == each.key) return {texts.GetText(each.goOn), texts.GetText(each.stop)};
  return {texts.GetText(kAnyOther.goOn), texts.GetText(kAnyOther.stop)};
}

std::string wordedQuestion(ITextTable& texts, const std::string& question, ITaviView* asking) {
  const std::string text = texts.GetText(question);
  return question == kLoopTestWarning && asking ? text + testValues(texts, *asking) : text;
}

std::string wordedChoice(ITextTable& texts, const Node& mapping, const std::string& value) {
  for (Node each = mapping ? mapping.firstChild() : nullptr; each; each = each.nextSibling())
    if (each.findAttribute("value") == value) return texts.GetText(std::string(each.findAttribute("key").value_or(value)));
  return value;
}

std::string wordedValue(ITextTable& texts, const std::string& parameter, const std::string& value, const std::string& unit) {
  const std::string shownUnit = unit.empty() || unit == "noUnit" ? "" : " " + texts.GetSectionText(unit, kUnitSection);
  return texts.GetText(parameter) + ": " + value + shownUnit;
}

}  // namespace ostrand
