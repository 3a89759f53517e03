#pragma once

#include <string>

#include "host/HostObject.h"
#include "host/transcript/CallListener.h"
#include "platform/types/Messenger.h"

namespace ostrand {

// Stands before a Messenger and lets a listener hear of every call, those on its text table, unit service and address
// service too. The listener must outlive it.
class RecordingMessenger : public HostObject<Messenger> {
 public:
  RecordingMessenger(CallListener& listener, Ref<Messenger> host) : mListener(listener), mHost(std::move(host)) {}

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
  // Who listens is the host's affair.
  void Subscribe(MessengerEvents& listener) override { mHost->Subscribe(listener); }
  void Unsubscribe(MessengerEvents& listener) override { mHost->Unsubscribe(listener); }

 private:
  CallListener& mListener;
  Ref<Messenger> mHost;
};

// The same for the text table that Localize is handed.
Ref<ITextTable> recordingTextTable(CallListener& listener, Ref<ITextTable> texts);

}  // namespace ostrand
