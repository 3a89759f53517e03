#pragma once

#include <optional>
#include <string>

#include "platform/controls/Control.h"
#include "platform/controls/DeviceValue.h"
#include "platform/controls/StatusWords.h"
#include "platform/types/Messenger.h"
#include "platform/types/MessengerEvents.h"

namespace ostrand {

// What all edits share: one value of the device, its state, and its way to the host. The value as the documents have it
// (mValue) and the text on the screen (mText) are two things; the derived class translates between them.
//
// A value counts as edited from the user's action (or MarkEdited) until a document brings a new one, or until it is the stored
// one again.
class EditControl : public Control, public ITaviComponent, public ITaviDataEditor, public ILocalizable, public MessengerEvents, protected UnitSource {
 public:
  using Control::Control;
  ~EditControl() override { detach(); }

  // What is on the screen: a text, or the key of the choice. A text that code sets leaves Modified as it was, but an empty one, or
  // one that tells the stored value, clears it.
  const std::string& Text() const { return read(mText, "Text"); }
  void Text(const std::string& text);
  // The value differs from the stored one.
  bool Modified() const { return read(mModified, "Modified"); }
  void Modified(bool modified);
  // The value passes its limits.
  bool Correct() const { return read(mCorrect, "Correct"); }
  void Correct(bool correct) { write(mCorrect, correct, "Correct"); }
  bool ValueIsValid() const;
  void MarkEdited(bool edited);
  bool HasParameter() const;
  // Held back from the host's change collection.
  bool KeepLocal() const { return read(mKeepLocal, "KeepLocal"); }
  void KeepLocal(bool keep) { write(mKeepLocal, keep, "KeepLocal"); }
  // Travels by a button of the view and not with the host's collection.
  bool ExplicitApply() const { return read(mExplicitApply, "ExplicitApply"); }
  void ExplicitApply(bool apply) { write(mExplicitApply, apply, "ExplicitApply"); }
  bool ReadOnly() const { return read(mReadOnly, "ReadOnly"); }
  void ReadOnly(bool readOnly) { write(mReadOnly, readOnly, "ReadOnly"); }
  // The key of the last failed read or write, empty after a good one.
  const std::string& Error() const { return read(mError, "Error"); }

  // ITaviDataEditor. The item holds whatever the edit holds, with or without the flag: what may be sent is decided by who asks.
  Node GetXmlItem(bool ignoreErrors) override;
  Node GetXmlItem() { return GetXmlItem(false); }

  Signal<const std::string&> Change;  // the text has changed, whoever changed it

  // The user takes back the edit; code does.
  void restore();
  void showStored();
  // What happens when the user leaves the control: LostFocus, with the keys that are down.
  void leave();

  // For whoever shows the control.
  const ParameterInfo& info() const { return mValue.info(); }
  const std::string& editWord() const { return mEditWord; }
  const std::string& syncWord() const { return mSyncWord; }
  const std::string& stored() const { return mValue.stored(); }
  // What the screen shows when nothing is edited.
  std::string storedText() const { return shown(stored()); }
  const std::optional<LocalTime>& lastRead() const { return mLastRead; }
  // What the user reads: for a choice its text in the user's language.
  virtual std::string displayText() const { return mText; }
  std::string displayUnit() const { return mValue.displayUnit(); }

  Value get(std::string_view property, std::span<const int> indices) const override;
  void set(std::string_view property, std::span<const int> indices, const Value& value) override;

  // The Object of an edit is the edit itself; its count is its owner's.
  IObject* Object() const override { return const_cast<EditControl*>(this); }
  Result queryInterface(const Guid& id, void** out) noexcept override;
  std::uint32_t addRef() noexcept override;
  std::uint32_t release() noexcept override;

  void SetMessenger(const Ref<Messenger>& messenger) override;
  void Localize(const Ref<ITextTable>& textTable) override;
  void ViewSetUnits() override;
  void ViewGetChanges(int& mode) override;
  void detach() override;

 protected:
  void takeImportData(const Node& parameter) override { takeParameter(parameter); }
  void takeOfflineData(const Node& parameter) override { takeParameter(parameter); }
  void takeOnlineData(const Node& item) override;
  void takeLocalData(const Node& item) override;
  void takeError(const std::string& code) override;

  // Document text to screen text.
  virtual std::string shown(const std::string& documentText) const = 0;
  // The value on the screen as document text; nothing if it cannot be told.
  virtual std::optional<std::string> told() const = 0;
  // Whether the value on the screen passes its limits.
  virtual bool passes() const = 0;
  virtual void parameterChanged() {}                   // info() is new
  virtual void unitsChanged() {}                       // the user has chosen other units, or another locale
  virtual void dropEdit() { mValue.dropEdit(); }       // the screen shows what is stored
  virtual void takeText(const std::string& text) = 0;  // a text set by code

  // The screen shows this document text as an edit of the user, although another one is stored.
  virtual void loadEdit(const std::string& documentText) {
    takeText(shown(documentText));
    update(mText, true);
  }
  virtual void recheckOthers() {}  // the edits whose correctness depends on this value

  // Puts the screen right: `text` replaces the text, the state follows, and whoever listens is told.
  void update(std::string text, bool edited);
  void recheck();
  void requireEditable() const;
  const Locale& locale() const { return desktop().locale(); }
  Ref<IUnitConverter> converter() const override;
  const Ref<ITextTable>& textTable() const { return mTextTable; }

  DeviceValue mValue;
  std::string mText;
  bool mModified = false;
  bool mCorrect = true;

 private:
  void mark(bool edited);
  void takeParameter(const Node& parameter);
  bool loadItem(const Node& item);
  void load(std::string documentText);
  void clearError();

  Ref<Messenger> mMessenger;
  Ref<ITextTable> mTextTable;
  bool mHasParameter = false;
  bool mKeepLocal = false;
  bool mExplicitApply = false;
  bool mReadOnly = false;
  std::string mError;
  std::string mEditWord = EditWord::kOriginal;
  std::string mSyncWord = SyncWord::kNotRead;
  std::optional<LocalTime> mLastRead;
};

}  // namespace ostrand
