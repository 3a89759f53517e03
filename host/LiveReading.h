#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/Communication.h"

namespace ostrand {

// Reads a group again and again while somebody looks at its values. Never in the way of others: it waits while anything
// else is on its way to the device, and stays quiet while the communication takes no requests to the device. Nor does it
// read what the user is editing: the answer would take the edit away unasked. When it fails the views hear of it once, and
// not again until it has worked in between.
class LiveReading {
 public:
  // `wanted` gives the group that is to be read now, or an empty text; `edited` tells whether a parameter is being edited.
  // The desktop and the communication must outlive it.
  LiveReading(Desktop& desktop, Communication& communication, std::function<std::string()> wanted,
              std::function<bool(const std::string& parameter)> edited);
  ~LiveReading();
  LiveReading(const LiveReading&) = delete;
  LiveReading& operator=(const LiveReading&) = delete;

  // Seconds from the end of one reading to the begin of the next.
  double period() const { return mPeriod; }
  void setPeriod(double seconds);
  // Asks anew what is wanted, and begins at once if it was nothing before.
  void refresh();

 private:
  void tick();
  void next(double seconds);

  Desktop& mDesktop;
  Communication& mCommunication;
  std::function<std::string()> mWanted;
  std::function<bool(const std::string&)> mEdited;
  double mPeriod = 1.0;
  bool mFailing = false;
  std::optional<Desktop::TimerId> mTimer;
  std::shared_ptr<int> mReading;  // held while our own request is under way
};

}  // namespace ostrand
