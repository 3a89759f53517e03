#include "workbench/conversation/ConversationTap.h"

#include <vector>

#include "host/transcript/RecordingContainer.h"
#include "host/transcript/RecordingMessenger.h"

namespace ostrand {

using Kind = ConversationLog::Kind;

namespace {

Kind kindOf(const std::string& call) {
  static const std::map<std::string, Kind> kinds = {
      {"SendRequest", Kind::Request},
      {"ReadRequest", Kind::Request},
      {"SendRequestWithStatus", Kind::Request},
      {"DTMGUIDownload", Kind::Request},
      {"AskUser", Kind::Message},
      {"ShowMessage", Kind::Message},
      {"SetStatusLine", Kind::Message},
      {"SetProgress", Kind::Message},
      {"ReportError", Kind::Error},
      {"Log", Kind::Log},
      {"SetParameterStatus", Kind::Status},
      {"NotifyStatus", Kind::Message},
      {"AddChange", Kind::Change},
      {"ForwardValue", Kind::Change},
      {"SetBusAddress", Kind::Request},
      {"FocusOut", Kind::Host},
  };
  const auto found = kinds.find(call);
  return found == kinds.end() ? Kind::Host : found->second;
}

const char* wordOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::Done: return "done";
    case Outcome::Refused: return "refused by the device";
    case Outcome::NoAnswer: return "no answer";
    case Outcome::Cancelled: return "cancelled";
    case Outcome::Withdrawn: return "withdrawn, a stop has taken its place";
  }
  return "";
}

std::string nameOf(const Request& request) { return (request.write ? "write \"" : "read \"") + request.name + "\""; }

}  // namespace

// The calls of one view, from begin to end; they nest.
class ConversationTap::ViewCalls : public CallListener {
 public:
  ViewCalls(ConversationTap& tap, std::string view) : mTap(tap), mView(std::move(view)) {}

  Call begins(const CallText& call) override {
    // What only asks is not told, unless it fails.
    mOpen.push_back(call.told ? mTap.mLog.add({mTap.mDesktop.now(), kindOf(call.name), mView, call.line(), call.xml.value_or(""), {}}) : 0);
    mNames.push_back(call.name);
    return mOpen.size() - 1;
  }
  void returns(Call call, const std::string& answer) override {
    if (!answer.empty()) mTap.mLog.append(mOpen[call], " -> " + answer);
    close(call);
  }
  void fails(Call call, const ErrorText& error) override {
    const std::string text = " -> failed: " + error.description;
    if (mOpen[call] != 0)
      mTap.mLog.markFailed(mOpen[call], text);
    else
      mTap.say(Kind::Error, mView, mNames[call] + text);
    close(call);
  }

 private:
  // Calls end in the opposite order of their begin.
  void close(Call call) {
    mOpen.resize(call);
    mNames.resize(call);
  }

  ConversationTap& mTap;
  std::string mView;
  std::vector<ConversationLog::Number> mOpen;
  std::vector<std::string> mNames;
};

ConversationTap::ConversationTap(ConversationLog& log, Desktop& desktop) : mLog(log), mDesktop(desktop) {}

ConversationTap::~ConversationTap() = default;

Views::Taps ConversationTap::taps(Views::Taps inner) {
  Views::Taps taps;
  taps.messenger = [this, inner = inner.messenger](ViewSite& site, Ref<Messenger> host) {
    return Ref<Messenger>(new RecordingMessenger(callsOf(site), inner ? inner(site, std::move(host)) : std::move(host)));
  };
  taps.container = [this, inner = inner.container](ViewSite& site, Ref<IHostContainer> host) {
    return Ref<IHostContainer>(new RecordingContainer(callsOf(site), inner ? inner(site, std::move(host)) : std::move(host)));
  };
  return taps;
}

void ConversationTap::attach(Host& host) { host.observers().add(*this); }

ConversationTap::ViewCalls& ConversationTap::callsOf(const ViewSite& site) {
  std::unique_ptr<ViewCalls>& calls = mCalls[site.name()];
  if (!calls) calls = std::make_unique<ViewCalls>(*this, site.name());
  return *calls;
}

void ConversationTap::say(Kind kind, const std::string& view, std::string text, std::string xml) {
  mLog.add({mDesktop.now(), kind, view, std::move(text), std::move(xml), {}});
}

void ConversationTap::userDid(const std::string& view, const std::string& input) { say(Kind::User, view, input); }

void ConversationTap::note(Kind kind, const std::string& text, const std::string& xml) { say(kind, {}, text, xml); }

// --- the road to the device

// What the host asks for its own ends is nobody's conversation.

void ConversationTap::requestSent(const Request& request) {
  if (!request.quiet) say(Kind::Bus, request.asker, "sent: " + nameOf(request), request.document.xml());
}

void ConversationTap::requestAnswered(const Request& request, const Document& answer) {
  if (!request.quiet) say(Kind::Bus, request.asker, "answer: " + nameOf(request), answer.xml());
}

void ConversationTap::requestFinished(const Request& request, Outcome outcome) {
  if (!request.quiet && outcome != Outcome::Done) say(Kind::Bus, request.asker, nameOf(request) + ": " + wordOf(outcome));
}

void ConversationTap::requestRefused(const Request& request, const std::string& reason) {
  say(Kind::Error, request.asker, nameOf(request) + " was not sent: " + reason);
}

void ConversationTap::strayAnswer(const Document& answer) { say(Kind::Bus, {}, "an answer that nobody waits for", answer.xml()); }

void ConversationTap::logged(const std::string& view, char category, const std::string& text) {
  if (view.empty()) say(Kind::Log, view, std::string(1, category) + " " + text);
}

void ConversationTap::errorUnhandled(const std::string& view, int number, const std::string& description) {
  say(Kind::Error, view, "Unhandled " + argumentsText(number, description));
}

// --- what the views are told

void ConversationTap::viewPlaced(const ViewSite& site) {
  say(Kind::Host, site.name(), "create " + site.className() + (site.tag().empty() ? "" : " tag=" + site.tag()));
}

void ConversationTap::viewLocalized(const ViewSite& site, const std::string& language) { say(Kind::Host, site.name(), "localize " + language); }

void ConversationTap::viewSelected(const ViewSite& site, const std::string& key) { say(Kind::Host, site.name(), "select " + key); }

void ConversationTap::viewFocused(const ViewSite& site) { say(Kind::Host, site.name(), "focus"); }

void ConversationTap::viewHandedIn(const ViewSite& site, DataPath path, const Document& document) {
  static constexpr const char* kPaths[] = {"import", "offline", "online", "error"};
  std::string text = kPaths[static_cast<int>(path)];
  if (const AnswerHead head = headOf(document); head.valid) text += " \"" + head.name + "\"" + (head.errorCode.empty() ? "" : " " + head.errorCode);
  say(Kind::Data, site.name(), std::move(text), document.xml());
}

void ConversationTap::viewEvent(const std::string& view, const ViewEvent& event) {
  switch (event.kind) {
    case ViewEvent::Kind::SetCommunicationMode: say(Kind::Host, view, "mode " + std::to_string(event.mode)); break;
    case ViewEvent::Kind::ReceiveValue: say(Kind::Change, view, "receive " + argumentsText(event.tag, event.value)); break;
    case ViewEvent::Kind::SetUnits: say(Kind::Host, view, "units"); break;
    case ViewEvent::Kind::GetChanges: say(Kind::Change, view, "changes " + std::to_string(event.mode)); break;
  }
}

void ConversationTap::viewAskedToLeave(const ViewSite& site) { say(Kind::Host, site.name(), "leave"); }

void ConversationTap::viewReleased(const ViewSite& site) { say(Kind::Host, site.name(), "release"); }

}  // namespace ostrand
