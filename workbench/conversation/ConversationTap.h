#pragma once

#include <map>
#include <memory>
#include <string>

#include "host/Host.h"
#include "host/transcript/CallListener.h"
#include "workbench/conversation/ConversationLog.h"

namespace ostrand {

// Writes into the log what goes on in one host: every call of its views, what they are told, and the road to the device. It
// must outlive the host.
class ConversationTap : private HostObserver {
 public:
  ConversationTap(ConversationLog& log, Desktop& desktop);
  ~ConversationTap();
  ConversationTap(const ConversationTap&) = delete;
  ConversationTap& operator=(const ConversationTap&) = delete;

  // What stands between the views and the host. `inner` stands behind it and may be empty.
  Views::Taps taps(Views::Taps inner = {});
  void attach(Host& host);
  void detach(Host& host) { host.observers().remove(*this); }

  // What the user does in a view, as a transcript tells it: `click cmdActiveRecipeSetButton`.
  void userDid(const std::string& view, const std::string& input);
  // A line of the program's own.
  void note(ConversationLog::Kind kind, const std::string& text, const std::string& xml = {});

 private:
  class ViewCalls;

  void say(ConversationLog::Kind kind, const std::string& view, std::string text, std::string xml = {});
  ViewCalls& callsOf(const ViewSite& site);

  void requestSent(const Request& request) override;
  void requestAnswered(const Request& request, const Document& answer) override;
  void requestFinished(const Request& request, Outcome outcome) override;
  void requestRefused(const Request& request, const std::string& reason) override;
  void strayAnswer(const Document& answer) override;
  void logged(const std::string& view, char category, const std::string& text) override;
  void errorUnhandled(const std::string& view, int number, const std::string& description) override;
  void viewPlaced(const ViewSite& site) override;
  void viewLocalized(const ViewSite& site, const std::string& language) override;
  void viewSelected(const ViewSite& site, const std::string& key) override;
  void viewFocused(const ViewSite& site) override;
  void viewHandedIn(const ViewSite& site, DataPath path, const Document& document) override;
  void viewEvent(const std::string& view, const ViewEvent& event) override;
  void viewAskedToLeave(const ViewSite& site) override;
  void viewReleased(const ViewSite& site) override;

  ConversationLog& mLog;
  Desktop& mDesktop;
  std::map<std::string, std::unique_ptr<ViewCalls>> mCalls;  // by the view's name; a view may outlive its site
};

}  // namespace ostrand
