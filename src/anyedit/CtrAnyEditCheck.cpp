#include <algorithm>
#include <cmath>
#include <utility>

#include "anyedit/Comparison.h"
#include "anyedit/CtrAnyEdit.h"
#include "anyedit/NumberMask.h"
#include "platform/base/NumberText.h"

// What becomes of a text of a CtrAnyEdit: its check, what the host is told of it, and the form in which it goes out.
namespace ostrand {

// --- what the user types

void CtrAnyEdit::VerifyEdit(const std::string& tag, const std::string& value) {
  run("CtrAnyEdit  VerifyEdit ", [&] {
    AnyItem& item = itemOf(tag);
    item.text = value;
    // With two blanks behind the first word.
    const std::string line = "Checking  " + item.text + " of " + mContextTag + " " + tag;
    if (const Ref<Messenger> host = mMessenger) host->SetStatusLine(line, "a");
    CheckValue(item);
  });
}

// The one check behind every path.
void CtrAnyEdit::CheckValue(AnyItem& item) {
  run("CtrAnyEdit  CheckValue", [&] {
    judge(item);
    // A wrong text stays as it was typed.
    if (item.isNumeric() && item.correct) item.text = masked(item.text, item.format, mDecimalSeparator);
    forwardChanges();
    if (!item.ownCopy) return;
    const std::string value = FormatForCommunication(item);
    if (!item.parameterNode) return;  // the control was released meanwhile
    item.parameterNode.setAttribute("value", value);
    item.parameterNode.setAttribute("synchronised", "0");
  });
}

// An empty text, and one of an item that is no number, keep the verdict that they had.
void CtrAnyEdit::judge(AnyItem& item) {
  for (;;) {
    item.modified = item.text != item.baselineText;
    if (item.text.empty() || !item.isNumeric()) return;
    if (const auto number = parseNumber(item.text, mDecimalSeparator)) return judgeNumber(item, *number);
    if (item.text.find("NaN") != std::string::npos) {
      item.correct = item.maxVal == kNoMaximum || item.minVal == kNoMinimum;
      return;
    }
    item.correct = false;
    // The other separator will do as well; the text has it no more when it is looked at again.
    const char other = mDecimalSeparator == '.' ? ',' : '.';
    if (item.text.find(other) == std::string::npos) break;
    item.text = withSeparator(item.text, other, mDecimalSeparator);
  }
  const std::string line = mContextTag + " " + item.name + " not correct: " + item.text + " not numeric";
  if (const Ref<Messenger> host = mMessenger) host->SetStatusLine(line, "a");
}

// Limits are those of the data unit.
void CtrAnyEdit::judgeNumber(AnyItem& item, double number) {
  double value = number;
  if (item.dataUnit != item.displayUnit && item.hasConvertibleUnit()) {
    const std::string judged = item.text;
    if (const auto converted = convertedSingle(number, item.displayUnit, item.dataUnit)) value = *converted;
    if (item.text != judged) return;  // another text has come meanwhile, with a verdict of its own
  }
  item.correct = dblAComparedToB(value, item.minVal, item.decimals) >= 0 && dblAComparedToB(value, item.maxVal, item.decimals) <= 0;
  if (!item.correct || !item.isInteger()) return;
  item.correct = value == std::round(value);
  if (item.correct) return;
  const std::string message = item.caption + " not correct: " + plainText(value, mDecimalSeparator) + " should be integer";
  if (const Ref<Messenger> host = mMessenger) host->ShowMessage("Inappropriate input", message);
}

// --- what the host is told

void CtrAnyEdit::showMarks() {
  lblModified.Visible(std::any_of(mItems.begin(), mItems.end(), [](const AnyItem& item) { return item.modified; }));
  lblError.Visible(std::any_of(mItems.begin(), mItems.end(), [](const AnyItem& item) { return !item.correct; }));
}

// Each rule looks at the marks anew, since who is told of the one before may type meanwhile. A word has moved before the host is
// told of it: a host that fails is not told again.
void CtrAnyEdit::forwardChanges() {
  run("CtrAnyEdit  forwardChanges", [&] {
    if (!mMessenger) return;
    showMarks();
    const auto become = [&](const std::string& word) {
      mEditState = word;
      const std::string name = containerTag();
      if (const Ref<Messenger> host = mMessenger) host->SetParameterStatus(name, word);
    };
    if (mEditState == EditWord::kOriginal && lblModified.Visible()) become(EditWord::kEdited);
    if (mEditState == EditWord::kEditedError && !lblError.Visible()) become(EditWord::kCorrected);
    if (mEditState == EditWord::kEdited || mEditState == EditWord::kCorrected) {
      if (lblError.Visible())
        become(EditWord::kEditedError);
      else if (!lblModified.Visible())
        become(EditWord::kOriginal);
    }
  });
}

// The host is told once for every item that the device has answered, whether the word has moved or not.
void CtrAnyEdit::forwardSyncChanges() {
  run("CtrAnyEdit  forwardSyncChanges", [&] {
    eachItem([&](const AnyItem& item) {
      if (!item.synchronised) return true;
      if (mSyncState == SyncWord::kNotRead)
        mSyncState = SyncWord::kSync;
      else if (mSyncState == SyncWord::kSyncError)
        mSyncState = SyncWord::kReSync;
      const std::string name = containerTag(), word = mSyncState;
      if (const Ref<Messenger> host = mMessenger) host->SetParameterStatus(name, word);
      return true;
    });
  });
}

// The text for the device or the data document; empty after an error.
std::string CtrAnyEdit::FormatForCommunication(const AnyItem& item) const {
  std::string result;
  run("CtrAnyEdit  FormatForCommunication ", [&] {
    const std::string from = item.displayUnit, to = item.dataUnit;
    const auto number = parseNumber(item.text, mDecimalSeparator);
    std::string text = item.typeName == "floatVal" ? withSeparator(item.text, mDecimalSeparator, '.') : item.text;
    // What is no number has nothing to convert.
    if (from != to && from.find('%') == std::string::npos && number) {
      if (const auto value = converted(*number, from, to, *this))
        text = plainText(*value, '.');
      else if (const Ref<Messenger> host = mMessenger)
        host->ShowMessage("CtrAnyEdit Error", tag() + " unable to convert " + from + " to " + to);
    }
    result = std::move(text);
  });
  return result;
}

// --- units

Ref<IUnitConverter> CtrAnyEdit::converter() const {
  const Ref<Messenger> host = mMessenger;
  return host ? host->GetUnitConverter() : nullptr;
}

std::optional<float> CtrAnyEdit::convertedSingle(double value, const std::string& from, const std::string& to) const {
  const auto single = static_cast<float>(value);
  if (!std::isfinite(single)) return std::nullopt;
  const auto result = converted(single, from, to, *this);
  if (!result || !std::isfinite(static_cast<float>(*result))) return std::nullopt;
  return static_cast<float>(*result);
}

}  // namespace ostrand
