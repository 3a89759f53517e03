#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "anyedit/AnyItem.h"
#include "anyedit/LimitTip.h"
#include "platform/base/Signal.h"
#include "platform/controls/Component.h"
#include "platform/controls/DeviceValue.h"
#include "platform/controls/Label.h"
#include "platform/controls/StatusWords.h"
#include "platform/types/ILocalizable.h"
#include "platform/types/ITaviComponent.h"
#include "platform/types/ITaviDataEditor.h"
#include "platform/types/ITaviDataUser.h"
#include "platform/types/MessengerEvents.h"

namespace ostrand {

// One editor behind many values. Whoever holds it registers items by tag, shows and edits their texts in widgets of its own, and
// hands in each typed text; the control does what an edit does for one value: limits, decimals, units, what is modified, what is
// read. To the host it has one edit word and one sync word, for all items together, under the Tag of the component around it. On
// the screen it is two small marks.
//
// It stands in a form as Nested<CtrAnyEdit>. An `itemTag` is a parameter's name, with or without "ctr_". Texts are in the user's
// unit, with the decimal separator that was the locale's when the control was placed.
//
// No member throws. Each has one trap that ends it at an error, which is reported as "CtrAnyEdit " and what the member is called;
// a property that is read is then empty or false.
class CtrAnyEdit : public Component,
                   public ITaviComponent,
                   public ITaviDataUser,
                   public ITaviDataEditor,
                   public ILocalizable,
                   public MessengerEvents,
                   private UnitSource {
 public:
  static constexpr std::string_view kClassName = "CtrAnyEdit";
  ~CtrAnyEdit() override;

  // Of an item whether its last check passed; of any other tag, also an empty one, whether no error mark is shown.
  bool Correct(const std::string& itemTag) const;
  // Shows or hides the error mark, whatever the tag. No item is touched.
  void Correct(const std::string& itemTag, bool correct);
  // Of an item whether its text differs from the last one read; of any other tag whether the mark is shown.
  bool Modified(const std::string& itemTag) const;
  // False takes the text for the last one read: of the item, or for any other tag of all items. Those keep their own flags then, so
  // that the next check of one shows the mark again.
  void Modified(const std::string& itemTag, bool modified);
  // An unknown tag is error 9, for the members below too.
  std::string Text(const std::string& itemTag) const;
  // A computed value, which does not count as changed: it is formatted and not checked, and raises no Change.
  void Text(const std::string& itemTag, const std::string& text);
  std::string ToolTipText(const std::string& itemTag) const;
  void ToolTipText(const std::string& itemTag, const std::string& text);
  // The request group.
  const std::string& ContextTag() const { return mContextTag; }
  void ContextTag(const std::string& tag) { mContextTag = tag; }

  // Registers an item. One that is there already gets a second slot, which nobody finds.
  void AddAny(const std::string& itemTag);
  // Takes over and checks what the user has typed.
  void VerifyEdit(const std::string& tag, const std::string& value);

  // A document has brought an item another text, or the unit has changed: the name, the text. It is raised inside the data paths,
  // item by item; a listener may use every member, and may end the control, which ends the path.
  Signal<const std::string&, const std::string&> Change;

  // ITaviDataEditor: `items` with an `item` each, also of those that are read only or have not changed.
  Node GetXmlItem(bool ignoreErrors) override;

  // ITaviDataUser
  void SetErrorData(const Document&) override {}
  void SetImportData(const Document& doc) override;
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

  void SetMessenger(const Ref<Messenger>& messenger) override;
  void Localize(const Ref<ITextTable>& textTable) override;
  void ViewSetUnits() override;
  void ViewGetChanges(int& mode) override;

  // "original", "edited", "editedError", "corrected"; "notRead", "sync", "syncError", "reSync".
  const std::string& editWord() const { return mEditState; }
  const std::string& syncWord() const { return mSyncState; }

  std::string_view objectName() const override { return kClassName; }
  std::function<MemberAnswer()> member(std::string_view name, const MemberArguments& arguments) override;
  void listenToEvents(EventListener listener) override;

 protected:
  void declare(Form& form) override;
  void initialize() override;
  void resized() override;
  void terminate() override;
  bool offerInterface(const Guid& id, void** out) noexcept override;

 private:
  // Runs a procedure to its end or to its first error; the prefix is borrowed.
  template <class F>
  bool run(std::string_view prefix, F&& body) const {
    const Ref<IObject> pin(const_cast<CtrAnyEdit*>(this));
    return Procedure(mMessenger, lastError(), prefix).all(std::forward<F>(body));
  }
  // Calls `visit` for the items that are there now, and ends when it answers false or when the control is released meanwhile. Items
  // stay where they are when others are added.
  template <class F>
  void eachItem(F visit) const {
    const int release = mReleases;
    for (std::size_t i = 0, count = mItems.size(); i < count && release == mReleases; ++i)
      if (AnyItem& item = mItems[i]; !item.name.empty() && !visit(item)) return;
  }

  std::size_t GetIndex(std::string_view tag) const;
  bool isKnown(const std::string& tag) const { return !tag.empty() && GetIndex(tag) < mItems.size(); }
  // Error 9 for an unknown tag.
  AnyItem& itemOf(const std::string& tag) const;

  // --- CtrAnyEditCheck.cpp
  void CheckValue(AnyItem& item);
  void judge(AnyItem& item);
  void judgeNumber(AnyItem& item, double number);
  void showMarks();
  void forwardChanges();
  void forwardSyncChanges();
  std::string FormatForCommunication(const AnyItem& item) const;

  // --- CtrAnyEditData.cpp
  bool takeOffline(AnyItem& item, const Document& doc, LimitTip& tip);
  void describe(AnyItem& item, const Node& parameter, std::string& value, LimitTip& tip);
  void takeImport(AnyItem& item, const Document& doc);
  void takeOnline(AnyItem& item, const Document& doc);
  void convertAnswer(AnyItem& item, const Node& answer, std::string& value);
  void makeOwnCopy(AnyItem& item);
  void changeUnit(AnyItem& item);
  void convertText(AnyItem& item, const std::string& unit);
  void tellConvertedLimits(AnyItem& item, const std::string& unit, LimitTip& tip) const;
  std::string userUnit(const AnyItem& item) const;
  std::string attributeText(const Node& node, const char* name) const;
  void tellMissing(const Node& node, const std::string& path) const;
  void raiseChange(const AnyItem& item);

  // A conversion in single precision; a number that no single holds cannot be converted.
  std::optional<float> convertedSingle(double value, const std::string& from, const std::string& to) const;
  Ref<IUnitConverter> converter() const override;

  Label lblError{"lblError", Color::errorText()};
  Label lblModified{"lblModified", Color::editedText()};
  Document mItemsDocument;  // of the last GetXmlItem
  mutable std::deque<AnyItem> mItems;
  std::string mContextTag;
  std::string mCaption;
  char mDecimalSeparator = '.';
  std::string mEditState = EditWord::kOriginal;
  std::string mSyncState = SyncWord::kNotRead;
  int mReleases = 0;
};

}  // namespace ostrand
