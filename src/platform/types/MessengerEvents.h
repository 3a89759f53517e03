#pragma once

#include <string>

namespace ostrand {

// Who listens to a Messenger overrides what it cares for. An error that leaves a handler goes to whoever
// raised the event.
class MessengerEvents {
 public:
  // 10 local acceptance, 11 download to the device, 20 busy, 21 free.
  virtual void ViewSetCommunicationMode(int mode) { (void)mode; }
  virtual void ViewReceiveValue(const std::string& tag, const std::string& value) { (void)tag, (void)value; }
  virtual void ViewSetUnits() {}
  // 1 collects all items, 2 the modified ones.
  virtual void ViewGetChanges(int& mode) { (void)mode; }

 protected:
  ~MessengerEvents() = default;
};

}  // namespace ostrand
