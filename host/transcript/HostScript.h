#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "host/HostObject.h"
#include "host/HostObserver.h"
#include "host/transcript/MessengerListeners.h"
#include "platform/base/Ref.h"
#include "platform/base/RuntimeError.h"
#include "platform/types/IHostContainer.h"
#include "platform/types/Messenger.h"

namespace ostrand {

class ScriptedMessenger;

// What the host of a transcript answers, as the transcript sets it. It is shared by the messengers and containers of all
// views.
class HostScript : public Counted {
 public:
  int level = 3;
  int mode = 11;
  bool maximizeAllowed = true;
  std::deque<int> answers;   // of the next questions; 4 when none is left
  std::deque<bool> accepts;  // of the next requests with a status; true when none is left
  Ref<ITextTable> texts;
  Ref<IUnitConverter> units;
  Document tree;
  std::uint8_t address = 0;
  bool addressIsOk = true;
  bool offersNotifyStatus = true;
  bool offersDownload = true;
  std::function<std::string()> xmlPath;
  // An error that left the handler of an event.
  std::function<void(const ErrorText&)> unhandled;

  int takeAnswer();
  bool takeAccept();

  // The messengers of the views, in the order in which they were made.
  void raise(const ViewEvent& event);
  void forward(const ScriptedMessenger& from, const std::string& tag, const std::string& value);

 private:
  friend class ScriptedMessenger;
  std::vector<ScriptedMessenger*> mMessengers;
};

// The Messenger of one view before a host that does nothing by itself: it accepts every request, and forwards values to the
// other views.
class ScriptedMessenger : public HostObject<Messenger> {
 public:
  explicit ScriptedMessenger(Ref<HostScript> script);

  void raise(const ViewEvent& event);

  void SendRequest(const std::string&, const std::string&) override {}
  void ReadRequest(const std::string&, int) override {}
  bool SendRequestWithStatus(const std::string&, const std::string&, int, int) override { return mScript->takeAccept(); }
  int GetCommunicationMode() override { return mScript->mode; }
  void SetParameterStatus(const std::string&, const std::string&) override {}
  int AddChange(const std::string&, const std::string&, const std::string&, const std::string&, const std::string&, const std::string&,
                const std::string&) override {
    return 0;
  }
  void ForwardValue(const std::string& tag, const std::string& value) override { mScript->forward(*this, tag, value); }
  Ref<IAddressService> GetAddressService() override;
  Ref<IUnitConverter> GetUnitConverter() override { return mScript->units; }
  Ref<ITextTable> GetTextTable() override { return mScript->texts; }
  Document GetTreeDocument() override { return mScript->tree; }
  int GetUserLevel() override { return mScript->level; }
  bool GetMaximizeAllowed() override { return mScript->maximizeAllowed; }
  int AskUser(const std::string&, const std::string&) override { return mScript->takeAnswer(); }
  void ShowMessage(const std::string&, const std::string&) override {}
  void SetStatusLine(const std::string&, const std::string&) override {}
  void SetProgress(const std::string&, int, int) override {}
  void FocusOut() override {}
  void ReportError(const std::string&, int, const std::string&) override {}
  void Log(int, const std::string&) override {}
  void Subscribe(MessengerEvents& listener) override { mListeners.add(listener); }
  void Unsubscribe(MessengerEvents& listener) override { mListeners.remove(listener); }

 protected:
  ~ScriptedMessenger() override;
  Ref<HostScript> mScript;

 private:
  MessengerListeners mListeners;
};

class ScriptedContainer : public HostObject<IHostContainer, INotifyStatus> {
 public:
  explicit ScriptedContainer(Ref<HostScript> script) : mScript(std::move(script)) {}

  Result queryInterface(const Guid& id, void** out) noexcept override;
  // RuntimeError 438 while the parent does not offer it.
  void DTMGUIDownload(const std::string& xml, const std::string& name, int one) override;
  std::string DTMGUIGetXmlPath() override { return mScript->xmlPath(); }
  void NotifyStatus(const std::string&, int, int) override {}

 protected:
  Ref<HostScript> mScript;
};

}  // namespace ostrand
