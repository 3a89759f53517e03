#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/modView.h"
#include "platform/controls/Component.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/CtrDateLabel.h"
#include "platform/controls/Form.h"
#include "platform/controls/PlainControls.h"

namespace ostrand {

// The skeleton of every view: a stack of full-size frames, one for each node of the host's tree, of which
// the host brings one to front. A view declares its form and adds its own steps around the walks.
class View : public Component, public ITaviView, public ITaviDataUser, public ITaviComponent, public ILocalizable, public MessengerEvents {
 public:
  const ControlCollection& GetControls() override { return controls(); }
  Ref<Messenger> GetMessenger() override { return mMessenger; }
  std::string GetSelectedView() override { return mSelectedView; }
  void SetSelectedView(const std::string& key) override;
  bool LeaveSelectedView() override { return true; }
  void RequestFocus() override;
  void PrepareToRelease() override;

  void SetErrorData(const Document& doc) override;
  void SetImportData(const Document& doc) override;
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

  void SetMessenger(const Ref<Messenger>& messenger) final;
  void Localize(const Ref<ITextTable>& textTable) override;

  std::string_view objectName() const override { return mObjectName; }
  void dropped(const std::string& text) override;

 protected:
  // `objectName` leads the prefixes of the error reports; `treeName` is the Tag of the whole view unless the
  // host gives it another.
  View(std::string_view objectName, std::string_view treeName) : mObjectName(objectName), mTreeName(treeName) {}
  ~View() override;

  // A frame with its heading (the frame's key once more) and its stamp.
  FrameForm frame(Form& form, const std::string& key, const std::string& stampTag);

  void initialize() override;
  void resized() override;
  void terminate() override { clear(); }
  bool offerInterface(const Guid& id, void** out) noexcept override;
  // The messenger has been taken over: what the view asks it at once.
  virtual void messengerTaken(Procedure& proc) { (void)proc; }
  // What PrepareToRelease and the end of the view drop.
  virtual void clear();
  // Whether the host has taken its messenger back since this entry began.
  bool isReleased(const Procedure& proc) const { return proc.pinnedMessenger() && !mMessenger; }
  // Whether the frame with this key is in front, whatever was selected last.
  bool isInFront(std::string_view key) const { return front() && front()->Tag() == key; }

  // A button that writes to the device: enabled from kWritingLevel on.
  void enableByLevel(Procedure& proc, CommandButton& button);
  // A button that writes to the device follows the communication mode.
  void followMode(Procedure& proc, int mode, CommandButton& button);
  // Gives a button another tag, and the caption that goes with it.
  void setCaption(Procedure& proc, CommandButton& button, const std::string& tag);
  // A control at an edge of the tab order has lost the focus.
  void leaveByTab(std::string_view procedure, modView::TabPosition position);

  ControlArray<Frame> frmViews{"frmViews"};
  ControlArray<Label> lblTitle{"lblTitle"};
  ControlArray<CtrDateLabel> ctrDateLabels{"ctrDateLabels"};

  std::vector<Control*> mViews;                                 // the selectable items, in index order
  std::vector<std::pair<std::string_view, Control*>> mFocusOn;  // by frame key: what RequestFocus goes to
  std::string mSelectedView;

 private:
  void captionFromTag(Procedure& proc, CommandButton& button);

  std::string_view mObjectName;
  std::string_view mTreeName;
};

}  // namespace ostrand
