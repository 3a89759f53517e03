#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Host.h"
#include "platform/base/Signal.h"
#include "platform/controls/Ne107.h"

namespace ostrand {

// What one device says of itself: asks it for its status bits from time to time while nothing else is on the bus, and
// listens to what it answers to others. A bit counts if its mapping in the data set names a category; the others last until
// they have been seen, and are left to the views.
class DeviceStatus : private HostObserver {
 public:
  explicit DeviceStatus(Host& host);
  ~DeviceStatus();

  // What comes first in the order of the signals in force; nothing while nobody knows.
  std::optional<Ne107> state(const std::vector<Ne107>& order) const;
  // The bits that are set and say something, by name.
  const std::map<std::string, Ne107>& inForce() const { return mInForce; }
  bool answers() const { return mAnswers; }
  // Asks now.
  void refresh();

  Signal<> changed;

 private:
  void requestFinished(const Request& request, Outcome outcome) override;
  void requestAnswered(const Request& request, const Document& answer) override;
  void tick();
  void ask();
  void heard(bool answers);
  std::optional<Ne107> categoryOf(const std::string& parameter) const;

  Host& mHost;
  std::optional<Desktop::TimerId> mTimer;
  bool mAsking = false;
  bool mKnown = false;
  bool mAnswers = true;
  std::map<std::string, Ne107> mInForce;
  std::shared_ptr<int> mAlive = std::make_shared<int>();
};

}  // namespace ostrand
