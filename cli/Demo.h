#pragma once

#include <string>

#include "cli/Terminal.h"
#include "host/Host.h"
#include "host/transcript/CallListener.h"

namespace ostrand {

// A conversation that tells itself: a simulated blade transmitter, its data set open in the measurement view, live values,
// and the active recipe changed by what a user does to the controls. Every line says who spoke to whom.
class Demo : private HostObserver, private CallListener, private UserPrompt {
 public:
  // All must outlive it. The conversation takes its time on the desktop's clock.
  Demo(const Terminal& terminal, Desktop& desktop, ComponentSource& components);
  ~Demo();

  // RuntimeError if a file or the view is missing.
  void play(const std::string& language, unsigned seed);

 private:
  // Who speaks to whom; each pair has its colour.
  enum class Road { UserToView, ViewToHost, HostToDevice, DeviceToHost, HostToView, HostToUser };

  void scene(const std::string& title, const std::string& text);
  void say(Road road, const std::string& what, const std::string& more = {});
  void showFront();
  void showTail();
  std::size_t showLiveValues();
  // False if none comes.
  bool awaitReading();
  void watchLiveValues(int readings);
  void changeRecipe();
  void settle();
  // A moment to read, where somebody reads.
  void pause(double seconds);

  template <class T>
  T& control(const std::string& tag);
  std::string folded(const Document& message) const;
  // A value with what it means: the text of a choice, the unit of a number.
  std::string worded(const std::string& parameter, const std::string& value) const;
  std::string text(const std::string& key) const { return mHost.textTable()->GetText(key); }

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
  // UserPrompt
  int ask(const std::string& title, const std::string& message) override;
  void show(const std::string& title, const std::string& message) override;

  const Terminal& mTerminal;
  Desktop& mDesktop;
  LocalTime mStart;
  bool mQuiet = false;  // while the live values are watched
  int mReadings = 0;
  Host mHost;
  Ref<ViewSite> mSite;
};

}  // namespace ostrand
