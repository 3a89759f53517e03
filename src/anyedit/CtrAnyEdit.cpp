#include "anyedit/CtrAnyEdit.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "anyedit/AnyEditMembers.h"
#include "anyedit/Comparison.h"
#include "anyedit/NumberMask.h"
#include "platform/base/NumberText.h"
#include "platform/controls/Form.h"
#include "platform/types/Listening.h"
#include "platform/types/Query.h"

namespace ostrand {

namespace {

constexpr std::string_view kTagPrefix = "ctr_";

std::string_view nameOf(std::string_view tag) {
  if (tag.starts_with(kTagPrefix)) tag.remove_prefix(kTagPrefix.size());
  return tag;
}

std::string withoutBlanksAround(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == text.npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

// --- life

CtrAnyEdit::~CtrAnyEdit() { stopListening(mMessenger, *this); }

void CtrAnyEdit::declare(Form& form) { form.rows().row(lblError, "").caption(lblError, "!").cell(lblModified, "").caption(lblModified, "*"); }

void CtrAnyEdit::initialize() {
  run("CtrAnyEdit  UserControl_Initialize - Error: ", [&] {
    lblError.Visible(false);
    lblModified.Visible(false);
    mDecimalSeparator = desktop().locale().decimalSeparator;
    mItems.emplace_back();
  });
}

void CtrAnyEdit::resized() {
  run("CtrAnyEdit  UserControl_Resize: ", [&] {
    for (Label* const label : {&lblError, &lblModified}) label->Move(label->Left(), label->Top(), label->Width(), height());
  });
}

void CtrAnyEdit::terminate() {
  ++mReleases;
  for (AnyItem& item : mItems) item.parameterNode = nullptr;
  mItemsDocument = {};
  stopListening(std::exchange(mMessenger, nullptr), *this);
}

bool CtrAnyEdit::offerInterface(const Guid& id, void** out) noexcept {
  return offer<ITaviComponent>(id, this, out) || offer<ITaviDataUser>(id, this, out) || offer<ITaviDataEditor>(id, this, out) ||
         offer<ILocalizable>(id, this, out);
}

std::function<MemberAnswer()> CtrAnyEdit::member(std::string_view name, const MemberArguments& arguments) {
  return findMember<CtrAnyEdit>(anyEditMembers(), this, name, arguments);
}

void CtrAnyEdit::listenToEvents(EventListener listener) {
  Change.connect([listener = std::move(listener)](const std::string& name, const std::string& text) { listener("Change", {name, text}); });
}

void CtrAnyEdit::SetMessenger(const Ref<Messenger>& messenger) {
  const Ref<IObject> pin(this);
  const Ref<Messenger> joined = messenger;
  Procedure(joined, lastError(), "CtrAnyEdit  SetMessenger ").all([&] { changeMessenger(mMessenger, joined, *this); });
}

void CtrAnyEdit::Localize(const Ref<ITextTable>& textTable) {
  run("CtrAnyEdit  Localize ", [&, texts = textTable] {
    if (!texts) throwNothingThere("the text table");
    const std::string ownTag = tag();
    mCaption = texts->GetLabel(ownTag);
    eachItem([&](AnyItem& item) {
      const std::string name = item.name;
      item.caption = mCaption + " " + texts->GetLabel(name);
      return true;
    });
  });
}

// --- items

std::size_t CtrAnyEdit::GetIndex(std::string_view tag) const {
  const std::string_view name = nameOf(tag);
  return static_cast<std::size_t>(std::find_if(mItems.begin(), mItems.end(), [&](const AnyItem& item) { return item.name == name; }) -
                                  mItems.begin());
}

AnyItem& CtrAnyEdit::itemOf(const std::string& tag) const {
  const std::size_t index = GetIndex(tag);
  if (index >= mItems.size()) throw RuntimeError(RuntimeError::OutOfRange, "there is no item " + tag);
  return mItems[index];
}

void CtrAnyEdit::AddAny(const std::string& itemTag) {
  const std::string_view prefix = "CtrAnyEdit  AddAny ";
  const bool done = run(prefix, [&] {
    AnyItem item;
    item.name = nameOf(itemTag);
    if (const std::size_t free = GetIndex(""); free < mItems.size())
      mItems[free] = std::move(item);
    else
      mItems.push_back(std::move(item));
  });
  if (done) return;
  run(prefix, [&, error = lastError()->error] {
    if (const Ref<Messenger> host = mMessenger) host->ShowMessage("AddAny ", "Error " + std::to_string(error.number) + " :" + error.description);
  });
}

bool CtrAnyEdit::Correct(const std::string& itemTag) const {
  bool correct = false;
  run("CtrAnyEdit  Correct ", [&] { correct = isKnown(itemTag) ? itemOf(itemTag).correct : !lblError.Visible(); });
  return correct;
}

void CtrAnyEdit::Correct(const std::string&, bool correct) {
  run("CtrAnyEdit  Correct ", [&] { lblError.Visible(!correct); });
}

bool CtrAnyEdit::Modified(const std::string& itemTag) const {
  bool modified = false;
  run("CtrAnyEdit  Modified ", [&] { modified = isKnown(itemTag) ? itemOf(itemTag).modified : lblModified.Visible(); });
  return modified;
}

void CtrAnyEdit::Modified(const std::string& itemTag, bool modified) {
  run("CtrAnyEdit  Modified ", [&] {
    if (isKnown(itemTag)) {
      AnyItem& item = itemOf(itemTag);
      item.modified = modified;
      if (!modified) item.baselineText = item.text;
      lblModified.Visible(std::any_of(mItems.begin(), mItems.end(), [](const AnyItem& each) { return each.modified; }));
      return;
    }
    lblModified.Visible(modified);
    if (modified) return;
    for (AnyItem& item : mItems) item.baselineText = item.text;
  });
}

std::string CtrAnyEdit::Text(const std::string& itemTag) const {
  std::string text;
  run("CtrAnyEdit  Text ", [&] { text = itemOf(itemTag).text; });
  return text;
}

void CtrAnyEdit::Text(const std::string& itemTag, const std::string& text) {
  run("CtrAnyEdit  Text ", [&] {
    AnyItem& item = itemOf(itemTag);
    item.baselineText = item.isNumeric() ? masked(withSeparator(text, '.', mDecimalSeparator), item.format, mDecimalSeparator) : text;
    item.text = item.baselineText;
    forwardChanges();
  });
}

std::string CtrAnyEdit::ToolTipText(const std::string& itemTag) const {
  std::string text;
  run("CtrAnyEdit  ToolTipText ", [&] { text = itemOf(itemTag).toolTip; });
  return text;
}

void CtrAnyEdit::ToolTipText(const std::string& itemTag, const std::string& text) {
  run("CtrAnyEdit  ToolTipText ", [&] { itemOf(itemTag).toolTip = text; });
}

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
    // The node is gone where the control was released meanwhile.
    if (!item.ownCopy || !item.parameterNode) return;
    const std::string value = FormatForCommunication(item);
    if (!item.parameterNode) return;
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
    if (mEditState == EditWord::kOriginal && Modified("")) become(EditWord::kEdited);
    if (mEditState == EditWord::kEditedError && Correct("")) become(EditWord::kCorrected);
    if (mEditState == EditWord::kEdited || mEditState == EditWord::kCorrected) {
      if (!Correct(""))
        become(EditWord::kEditedError);
      else if (!Modified(""))
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

Node CtrAnyEdit::GetXmlItem(bool ignoreErrors) {
  Node result;
  run("CtrAnyEdit  ITaviDataEditor_GetXmlItem", [&] {
    if (!ignoreErrors && !Correct("")) return;
    const Ref<Tree> tree(new Tree);
    const Node items(tree, tree->document.append_child("items"));
    eachItem([&](const AnyItem& item) {
      if (item.typeName.empty()) return true;
      const Node node = items.appendElement("item");
      node.setAttribute("name", item.name);
      node.setAttribute("unit", item.dataUnit);
      node.appendElement(item.typeName.c_str()).setText(FormatForCommunication(item));
      return true;
    });
    mItemsDocument = Document(tree);
    result = items;
  });
  return result;
}

// The values are told as one pair of texts for the whole control, as they stand on the screen.
void CtrAnyEdit::ViewGetChanges(int& mode) {
  constexpr int kAllItems = 1;
  constexpr int kModifiedItems = 2;
  run("CtrAnyEdit  mMessenger_ViewGetChanges", [&] {
    std::string before, now;
    eachItem([&](const AnyItem& item) {
      const bool isMeant = mode == kAllItems || (mode == kModifiedItems && item.modified);
      if (!isMeant || !item.correct || item.readOnly) return true;
      before += item.baselineText + " ";
      now += item.text + " ";
      return true;
    });
    before = withoutBlanksAround(before);
    now = withoutBlanksAround(now);
    if (now.empty()) return;
    const std::string name = tag(), caption = mCaption, group = mContextTag;
    if (const Ref<Messenger> host = mMessenger) host->AddChange(name, caption, before, now, "", "stringVal", group);
  });
}

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
