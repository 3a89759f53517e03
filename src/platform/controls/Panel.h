#pragma once

#include <string>

#include "platform/controls/Component.h"
#include "platform/types/ILocalizable.h"
#include "platform/types/ITaviComponent.h"
#include "platform/types/ITaviDataUser.h"

namespace ostrand {

// What the finished panels of the library share. A panel is a view of its own inside another one: it is
// selected under its Tag, has one frame's worth of controls, and lets itself be left at any time.
class Panel : public Component, public ITaviView, public ITaviDataUser, public ITaviComponent, public ILocalizable {
 public:
  const ControlCollection& GetControls() override { return controls(); }
  Ref<Messenger> GetMessenger() override { return mMessenger; }
  std::string GetSelectedView() override { return mSelectedView; }
  void SetSelectedView(const std::string& key) override { mSelectedView = key == tag() ? key : std::string(); }
  bool LeaveSelectedView() override { return true; }
  void PrepareToRelease() override;

  void SetImportData(const Document& doc) override { SetOfflineData(doc); }
  void SetMessenger(const Ref<Messenger>& messenger) override { mMessenger = messenger; }

 protected:
  void terminate() override;
  bool offerInterface(const Guid& id, void** out) noexcept override;

  // Until the panel is localized a key stands for its own text.
  std::string text(const std::string& key) const { return told(key, &ITextTable::GetText); }
  std::string label(const std::string& key) const { return told(key, &ITextTable::GetLabel); }

  Ref<ITextTable> mTextTable;

 private:
  // The key is a copy and the table is held: both may be changed while it is asked.
  std::string told(std::string key, std::string (ITextTable::*asked)(const std::string&)) const {
    const Ref<ITextTable> texts = mTextTable;
    return texts ? ((*texts).*asked)(key) : key;
  }

  std::string mSelectedView;
};

}  // namespace ostrand
