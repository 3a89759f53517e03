#include "anyedit/CtrAnyEdit.h"

#include <algorithm>
#include <utility>

#include "anyedit/AnyEditMembers.h"
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

// --- what the host asks for

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

}  // namespace ostrand
