#pragma once

#include <functional>

#include "host/Host.h"

namespace ostrand {

// Hears when the keyboard focus leaves a view of a host by the view's own wish.
class FocusWatch : private HostObserver {
 public:
  // The host must outlive it.
  FocusWatch(Host& host, std::function<void()> left) : mHost(host), mLeft(std::move(left)) { mHost.observers().add(*this); }
  ~FocusWatch() { mHost.observers().remove(*this); }
  FocusWatch(const FocusWatch&) = delete;
  FocusWatch& operator=(const FocusWatch&) = delete;

 private:
  void focusLeft(const std::string&) override { mLeft(); }

  Host& mHost;
  std::function<void()> mLeft;
};

}  // namespace ostrand
