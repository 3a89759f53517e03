#include "host/HostMessenger.h"

#include <algorithm>

#include "host/Host.h"
#include "host/Questions.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

Host& HostMessenger::host() const {
  if (!mHost) throwNothingThere("the host");
  return *mHost;
}

void HostMessenger::tell(const std::function<void(HostObserver&)>& what) const {
  if (mHost) mHost->observers().tell(what);
}

// --- requests

void HostMessenger::SendRequest(const std::string& xml, const std::string& name) {
  const std::string reason = host().exchange().submit(mView, xml, name, {}, 0, 0);
  if (!reason.empty()) throw RuntimeError(RuntimeError::PermissionDenied, "the request was refused: " + reason);
}

void HostMessenger::ReadRequest(const std::string& xml, int) { SendRequest(xml, {}); }

bool HostMessenger::SendRequestWithStatus(const std::string& xml, const std::string& statusKey, int first, int second) {
  return host().exchange().submit(mView, xml, {}, statusKey, first, second).empty();
}

int HostMessenger::GetCommunicationMode() { return static_cast<int>(host().communication().mode()); }

// --- values

void HostMessenger::SetParameterStatus(const std::string& name, const std::string& word) {
  if (mHost) mHost->edits().noteStatus(mView, name, word);
  tell([&](HostObserver& each) { each.parameterStatus(mView, name, word); });
}

int HostMessenger::AddChange(const std::string& name, const std::string& caption, const std::string& oldText, const std::string& newText,
                             const std::string& unit, const std::string& type, const std::string& contextTag) {
  return host().edits().add({mView, name, caption, oldText, newText, unit, type, contextTag});
}

void HostMessenger::ForwardValue(const std::string& tag, const std::string& value) { host().views().forward(*this, tag, value); }

// --- services

Ref<IAddressService> HostMessenger::GetAddressService() { return host().addressService(); }

Ref<IUnitConverter> HostMessenger::GetUnitConverter() { return host().user().units(); }

Ref<ITextTable> HostMessenger::GetTextTable() { return host().user().textTable(); }

Document HostMessenger::GetTreeDocument() { return host().treeDocument(); }

int HostMessenger::GetUserLevel() { return host().user().session().level; }

bool HostMessenger::GetMaximizeAllowed() { return host().user().session().maximizeAllowed; }

// --- the user

int HostMessenger::AskUser(const std::string& title, const std::string& message) {
  const Ref<HostMessenger> pin(this);
  const Ref<ITextTable> texts = host().user().textTable();
  const std::string question = wordedQuestion(*texts, message, host().views().viewOf(mView));
  const int answer = host().prompt().ask(texts->GetText(title), question, answersTo(*texts, message));
  tell([&](HostObserver& each) { each.questionAsked(mView, title, message, answer); });
  return answer;
}

void HostMessenger::ShowMessage(const std::string& title, const std::string& message) {
  const Ref<HostMessenger> pin(this);
  Host& shown = host();
  tell([&](HostObserver& each) { each.messageShown(mView, title, message); });
  shown.prompt().show(shown.user().textTable()->GetText(title), shown.user().textTable()->GetText(message));
}

void HostMessenger::SetStatusLine(const std::string& text, const std::string& code) {
  tell([&](HostObserver& each) { each.statusLine(mView, text, code); });
}

void HostMessenger::SetProgress(const std::string& text, int first, int second) {
  tell([&](HostObserver& each) { each.progress(text, first, second); });
}

void HostMessenger::FocusOut() {
  tell([&](HostObserver& each) { each.focusLeft(mView); });
}

void HostMessenger::ReportError(const std::string& prefix, int number, const std::string& description) {
  tell([&](HostObserver& each) { each.errorReported(mView, prefix, number, description); });
}

void HostMessenger::Log(int category, const std::string& text) {
  tell([&](HostObserver& each) { each.logged(mView, static_cast<char>(category), text); });
}

// --- events

void HostMessenger::Subscribe(MessengerEvents& listener) { mListeners.push_back({&listener, ++mLastId}); }

void HostMessenger::Unsubscribe(MessengerEvents& listener) {
  std::erase_if(mListeners, [&](const Listener& each) { return each.events == &listener; });
}

int HostMessenger::raise(const ViewEvent& event) {
  const Ref<HostMessenger> pin(this);
  tell([&](HostObserver& each) { each.viewEvent(mView, event); });
  int mode = event.mode;
  const auto snapshot = mListeners;
  for (const Listener& listener : snapshot) {
    const bool still = std::any_of(mListeners.begin(), mListeners.end(), [&](const Listener& each) { return each.id == listener.id; });
    if (!still) continue;
    try {
      switch (event.kind) {
        case ViewEvent::Kind::SetCommunicationMode: listener.events->ViewSetCommunicationMode(event.mode); break;
        case ViewEvent::Kind::ReceiveValue: listener.events->ViewReceiveValue(event.tag, event.value); break;
        case ViewEvent::Kind::SetUnits: listener.events->ViewSetUnits(); break;
        case ViewEvent::Kind::GetChanges: listener.events->ViewGetChanges(mode); break;
      }
    } catch (...) {
      const ErrorText error = currentError();
      tell([&](HostObserver& each) { each.errorUnhandled(mView, error.number, error.description); });
    }
  }
  return mode;
}

}  // namespace ostrand
