#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/HostObject.h"
#include "host/HostObserver.h"
#include "platform/types/Messenger.h"

namespace ostrand {

class Host;

// The Messenger of one view. Each view has its own, so that the host knows who speaks: a forwarded value goes to the other
// views only, and what is shown or recorded bears the view's name. All of them stand before the same host.
//
// - SendRequest and ReadRequest fail with RuntimeError 70 and the reason when the host refuses, SendRequestWithStatus answers
//   false; a text that is no request is error 5 in all three. The communication tells when a request is refused.
// - AskUser and ShowMessage return when the user has answered; other views and answers may come in between.
// - AddChange gives the change's number in the host's collection from 1, or 0 when nobody collects.
// - Once the host has ended every operation that asks for something fails with error 91; the rest is dropped.
class HostMessenger : public HostObject<Messenger> {
 public:
  HostMessenger(Host& host, std::string view) : mHost(&host), mView(std::move(view)) {}

  const std::string& view() const { return mView; }
  // The host ends, or the view is released.
  void detach() { mHost = nullptr; }
  // Raises an event on every listener in the order in which they subscribed, over a snapshot, passing over those that have
  // left meanwhile. What leaves a handler is told to the host's observers, and the next listener hears the event. Gives the
  // mode of the event as the listeners left it.
  int raise(const ViewEvent& event);

  void SendRequest(const std::string& xml, const std::string& name) override;
  void ReadRequest(const std::string& xml, int zero) override;
  bool SendRequestWithStatus(const std::string& xml, const std::string& statusKey, int first, int second) override;
  int GetCommunicationMode() override;
  void SetParameterStatus(const std::string& name, const std::string& word) override;
  int AddChange(const std::string& name, const std::string& caption, const std::string& oldText, const std::string& newText, const std::string& unit,
                const std::string& type, const std::string& contextTag) override;
  void ForwardValue(const std::string& tag, const std::string& value) override;
  Ref<IAddressService> GetAddressService() override;
  Ref<IUnitConverter> GetUnitConverter() override;
  Ref<ITextTable> GetTextTable() override;
  Document GetTreeDocument() override;
  int GetUserLevel() override;
  bool GetMaximizeAllowed() override;
  int AskUser(const std::string& title, const std::string& message) override;
  void ShowMessage(const std::string& title, const std::string& message) override;
  void SetStatusLine(const std::string& text, const std::string& code) override;
  void SetProgress(const std::string& text, int first, int second) override;
  void FocusOut() override;
  void ReportError(const std::string& prefix, int number, const std::string& description) override;
  void Log(int category, const std::string& text) override;
  void Subscribe(MessengerEvents& listener) override;
  void Unsubscribe(MessengerEvents& listener) override;

 private:
  Host& host() const;
  void tell(const std::function<void(HostObserver&)>& what) const;

  Host* mHost;
  std::string mView;
  struct Listener {
    MessengerEvents* events;
    std::size_t id;
  };
  std::vector<Listener> mListeners;
  std::size_t mLastId = 0;
};

}  // namespace ostrand
