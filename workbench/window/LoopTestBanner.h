#pragma once

#include <QLabel>
#include <string>

#include "host/Host.h"
#include "workbench/window/Texts.h"

namespace ostrand {

// Warns while a loop test may still drive a device's output: from the moment when a view tells that it is testing until the
// device has answered a test value of 0. A view that says that it has finished is not enough.
class LoopTestBanner : public QLabel, private HostObserver {
 public:
  // The host must outlive it.
  explicit LoopTestBanner(Host& host);
  ~LoopTestBanner() override;

  void setTexts(const Texts& texts);
  bool mayBeDriving() const { return mDriving; }

 private:
  void viewBusy(const std::string& view, const std::string& key) override;
  void requestAnswered(const Request& request, const Document& answer) override;
  void refresh();

  Host& mHost;
  Texts mTexts;
  bool mDriving = false;
};

}  // namespace ostrand
