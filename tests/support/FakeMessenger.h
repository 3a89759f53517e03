#pragma once

#include <deque>
#include <string>
#include <vector>

#include "support/FakeCalls.h"
#include "support/FakeTextTable.h"
#include "support/FakeUnitConverter.h"
#include "platform/types/Messenger.h"

namespace ostrand::test {

// A host that records what it is told as lines of text, answers what the test sets, and raises its events
// when told. Every ReportError must have been announced, and every announced one must come: else the test
// fails when the messenger ends.
class FakeMessenger : public FakeObject<Messenger> {
 public:
  explicit FakeMessenger(FakeCalls& record) : calls(record), textTable(new FakeTextTable(record)), converter(new FakeUnitConverter(record)) {}

  FakeCalls& calls;
  Ref<FakeTextTable> textTable;
  Ref<FakeUnitConverter> converter;
  Document treeDocument;
  Ref<IAddressService> addressService;
  int userLevel = 3;
  int mode = 11;
  bool maximizeAllowed = true;
  std::deque<int> answers;    // of AskUser; 4 when none is left
  std::deque<bool> accepted;  // of SendRequestWithStatus; true when none is left

  // The next report that has not been announced yet has this prefix and number.
  void announce(const std::string& prefix, int number);
  // Reports are neither recorded nor checked from here on.
  void dropReports() { mDropReports = true; }
  // The description of the last report.
  const std::string& lastDescription() const { return mLastDescription; }

  // The events, over a snapshot of the listeners, passing over those that have left meanwhile.
  void raiseMode(int newMode);
  void raiseReceiveValue(const std::string& tag, const std::string& value);
  void raiseUnits();
  void raiseGetChanges(int changesMode);
  std::size_t listeners() const { return mListeners.size(); }

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

 protected:
  ~FakeMessenger() override;

 private:
  template <class Raise>
  void raise(Raise each);

  std::vector<MessengerEvents*> mListeners;
  std::deque<std::string> mAnnounced;
  std::vector<std::string> mUnannounced;
  std::string mLastDescription;
  bool mDropReports = false;
};

}  // namespace ostrand::test
