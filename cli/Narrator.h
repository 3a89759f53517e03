#pragma once

#include <map>
#include <optional>
#include <string>

#include "cli/Terminal.h"
#include "host/Host.h"
#include "host/transcript/CallListener.h"

namespace ostrand {

// Tells what goes on in a host, a line for each thing that is said: when, who speaks to whom, and the document folded to
// what matters in it. Of several views it follows the one in front. It answers for the user, and always goes on.
class Narrator : private HostObserver, private CallListener, public UserPrompt {
 public:
  // Who speaks to whom; each pair has its colour.
  enum class Road { UserToView, ViewToHost, HostToDevice, DeviceToHost, HostToView, HostToUser };

  // `clock` is the host's. The reader gets his moments on a clock of his own; without one there is nobody to wait for.
  Narrator(const Terminal& terminal, const Desktop& clock, Desktop* reader)
      : mTerminal(terminal), mClock(clock), mReader(reader), mStart(clock.now()) {}

  // For the host that is to be followed, which must end first.
  Views::Taps taps();
  void follow(Host& host);

  void scene(const std::string& title, const std::string& explanation);
  void say(Road road, const std::string& what, const std::string& more = {});
  void line(const std::string& text = {}, Terminal::Style style = Terminal::Style::Plain);
  // The form that is in front, as far as text can draw it.
  void drawForm(const ViewSite& site);
  void pause(double seconds);
  bool hasReader() const { return mReader != nullptr; }

  // What is not worth telling is left out until it is turned off again.
  void setQuiet(bool quiet);
  // How many requests of this name the device has carried out.
  int done(const std::string& request) const;

  // UserPrompt
  int ask(const std::string& title, const std::string& message, const Answers& answers) override;
  void show(const std::string& title, const std::string& message) override;

 private:
  // Words about parameters come in swarms: the first is told, and how many there were.
  struct Swarm {
    std::string time;
    std::string first;
    int others = 0;
  };

  std::string time() const;
  void print(const std::string& time, Road road, const std::string& what, const std::string& more);
  void endSwarm();
  std::string text(const std::string& key) const { return mHost->user().textTable()->GetText(key); }
  std::string folded(const Document& message) const;
  // A value with what it means: the text of a choice, the unit of a number.
  std::string worded(const std::string& parameter, const std::string& value) const;

  // HostObserver
  void requestSent(const Request& request) override;
  void requestAnswered(const Request& request, const Document& answer) override;
  void requestFinished(const Request& request, Outcome outcome) override;
  void viewPlaced(const ViewSite& site) override;
  void viewLocalized(const ViewSite& site, const std::string& language) override;
  void viewSelected(const ViewSite& site, const std::string& key) override;
  void viewHandedIn(const ViewSite& site, DataPath path, const Document& document) override;
  void viewEvent(const std::string& view, const ViewEvent& event) override;
  // CallListener
  Call begins(const CallText& call) override;
  void returns(Call, const std::string&) override {}
  void fails(Call, const ErrorText& error) override;

  const Terminal& mTerminal;
  const Desktop& mClock;
  Desktop* mReader;
  LocalTime mStart;
  Host* mHost = nullptr;
  bool mQuiet = false;
  bool mBetween = false;  // among the answers of one request
  std::string mLastTold;
  std::optional<Swarm> mSwarm;
  std::map<std::string, int> mDone;
};

}  // namespace ostrand
