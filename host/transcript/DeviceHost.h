#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "host/Host.h"
#include "host/transcript/CallListener.h"
#include "host/transcript/HostScript.h"

namespace ostrand {

// The real host behind the views of a transcript, with a simulated device: it takes requests and changes, and raises the
// events. What it knows of the user (level, language, answers, units' choice) is the script's.
class DeviceHost : private HostObserver {
 public:
  struct Events {
    std::function<void(const ErrorText&)> unhandled;
    std::function<void(const Document&)> handedIn;
    // A component has been made; it is placed when this returns.
    std::function<void(ViewSite&)> created;
  };

  // All but `events` must outlive it.
  DeviceHost(Desktop& desktop, ComponentSource& components, const std::filesystem::path& data, CallListener& listener, Ref<HostScript> script,
             Events events);
  ~DeviceHost();

  // A device by its name, with its data set. RuntimeError 5 if there is none of this name.
  void connect(const std::string& name, unsigned seed);
  // RuntimeError 5 for a fault that there is not, or an argument that it cannot use.
  void setFault(const std::string& name, const std::string& argument);

  Host& host() { return mHost; }
  Ref<Messenger> messengerOf(ViewSite& site) { return mHost.views().messengerFor(site); }
  void raise(const ViewEvent& event);
  // Opens a data set; one that is open already is handed to this view as the host has it now.
  void setOfflineData(ViewSite& site, const std::string& text);
  // Moves the clock by `advance` for so long, or until nothing is under way.
  void run(std::optional<double> seconds, const std::function<void(double)>& advance);

 private:
  void errorUnhandled(const std::string& view, int number, const std::string& description) override {
    // What belongs to no view has been heard from the desktop.
    if (!view.empty()) mEvents.unhandled({number, description});
  }
  void viewHandedIn(const ViewSite&, DataPath, const Document& document) override { mEvents.handedIn(document); }

  class Prompt : public UserPrompt {
   public:
    // The script answers before anybody is asked.
    int ask(const std::string&, const std::string&, const Answers&) override { return kGoOn; }
    void show(const std::string&, const std::string&) override {}
  };

  Desktop& mDesktop;
  std::filesystem::path mData;
  Events mEvents;
  std::string mOpenText;
  Prompt mPrompt;
  Host mHost;
};

}  // namespace ostrand
