#include "support/FakeMessenger.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/controls/Value.h"

namespace ostrand::test {

namespace {

// One line of the record: the call and its arguments, texts in quotes.
template <class... Args>
std::string line(const std::string& call, const Args&... args) {
  std::string text = call;
  ((text += " " + toText(Value(args))), ...);
  return text;
}

std::string reportLine(const std::string& prefix, int number) { return line("ReportError", prefix, number); }

}  // namespace

FakeMessenger::~FakeMessenger() {
  for (const std::string& report : mUnannounced) ADD_FAILURE() << "a report that nobody announced: " << report;
  for (const std::string& report : mAnnounced) ADD_FAILURE() << "an announced report that never came: " << report;
}

void FakeMessenger::announce(const std::string& prefix, int number) { mAnnounced.push_back(reportLine(prefix, number)); }

template <class Raise>
void FakeMessenger::raise(Raise each) {
  const Ref<FakeMessenger> pin(this);
  const std::vector<MessengerEvents*> snapshot = mListeners;
  for (MessengerEvents* listener : snapshot)
    if (std::find(mListeners.begin(), mListeners.end(), listener) != mListeners.end()) each(*listener);
}

void FakeMessenger::raiseMode(int newMode) {
  mode = newMode;
  raise([&](MessengerEvents& listener) { listener.ViewSetCommunicationMode(newMode); });
}

void FakeMessenger::raiseReceiveValue(const std::string& tag, const std::string& value) {
  raise([&](MessengerEvents& listener) { listener.ViewReceiveValue(tag, value); });
}

void FakeMessenger::raiseUnits() {
  raise([&](MessengerEvents& listener) { listener.ViewSetUnits(); });
}

void FakeMessenger::raiseGetChanges(int changesMode) {
  raise([&](MessengerEvents& listener) { listener.ViewGetChanges(changesMode); });
}

void FakeMessenger::SendRequest(const std::string& xml, const std::string& name) {
  calls.arrive("SendRequest", line("SendRequest", name) + " | " + xml);
}

void FakeMessenger::ReadRequest(const std::string& xml, int zero) { calls.arrive("ReadRequest", line("ReadRequest", zero) + " | " + xml); }

bool FakeMessenger::SendRequestWithStatus(const std::string& xml, const std::string& statusKey, int first, int second) {
  calls.arrive("SendRequestWithStatus", line("SendRequestWithStatus", statusKey, first, second) + " | " + xml);
  if (accepted.empty()) return true;
  const bool answer = accepted.front();
  accepted.pop_front();
  return answer;
}

int FakeMessenger::GetCommunicationMode() { return calls.arrive("GetCommunicationMode"), mode; }

void FakeMessenger::SetParameterStatus(const std::string& name, const std::string& word) {
  calls.arrive("SetParameterStatus", line("SetParameterStatus", name, word));
}

int FakeMessenger::AddChange(const std::string& name, const std::string& caption, const std::string& oldText, const std::string& newText,
                             const std::string& unit, const std::string& type, const std::string& contextTag) {
  calls.arrive("AddChange", line("AddChange", name, caption, oldText, newText, unit, type, contextTag));
  return 0;
}

void FakeMessenger::ForwardValue(const std::string& tag, const std::string& value) { calls.arrive("ForwardValue", line("ForwardValue", tag, value)); }

Ref<IAddressService> FakeMessenger::GetAddressService() { return calls.arrive("GetAddressService"), addressService; }
Ref<IUnitConverter> FakeMessenger::GetUnitConverter() { return calls.arrive("GetUnitConverter"), Ref<IUnitConverter>(converter); }
Ref<ITextTable> FakeMessenger::GetTextTable() { return calls.arrive("GetTextTable"), Ref<ITextTable>(textTable); }
Document FakeMessenger::GetTreeDocument() { return calls.arrive("GetTreeDocument"), treeDocument; }
int FakeMessenger::GetUserLevel() { return calls.arrive("GetUserLevel"), userLevel; }
bool FakeMessenger::GetMaximizeAllowed() { return calls.arrive("GetMaximizeAllowed"), maximizeAllowed; }

int FakeMessenger::AskUser(const std::string& title, const std::string& message) {
  calls.arrive("AskUser", line("AskUser", title, message));
  if (answers.empty()) return 4;
  const int answer = answers.front();
  answers.pop_front();
  return answer;
}

void FakeMessenger::ShowMessage(const std::string& title, const std::string& message) {
  calls.arrive("ShowMessage", line("ShowMessage", title, message));
}
void FakeMessenger::SetStatusLine(const std::string& text, const std::string& code) {
  calls.arrive("SetStatusLine", line("SetStatusLine", text, code));
}
void FakeMessenger::SetProgress(const std::string& text, int first, int second) {
  calls.arrive("SetProgress", line("SetProgress", text, first, second));
}
void FakeMessenger::FocusOut() { calls.arrive("FocusOut", "FocusOut"); }

void FakeMessenger::ReportError(const std::string& prefix, int number, const std::string& description) {
  mLastDescription = description;
  if (mDropReports) return calls.arrive("ReportError");
  const std::string report = reportLine(prefix, number);
  const auto announced = std::find(mAnnounced.begin(), mAnnounced.end(), report);
  if (announced != mAnnounced.end())
    mAnnounced.erase(announced);
  else
    mUnannounced.push_back(report + " " + description);
  calls.arrive("ReportError", report);
}

void FakeMessenger::Log(int category, const std::string& text) { calls.arrive("Log", line("Log", category, text)); }

void FakeMessenger::Subscribe(MessengerEvents& listener) {
  calls.arrive("Subscribe");
  mListeners.push_back(&listener);
}

void FakeMessenger::Unsubscribe(MessengerEvents& listener) {
  // Leaves before it fails: what comes after is the test's, not a dead listener's.
  std::erase(mListeners, &listener);
  calls.arrive("Unsubscribe");
}

}  // namespace ostrand::test
