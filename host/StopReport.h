#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "host/HostObserver.h"
#include "host/OutputWatch.h"
#include "platform/desktop/Desktop.h"

namespace ostrand {

// Tells the user in words when a stop has not come through: refused by the host or the device, not answered, or acknowledged
// while the device does not confirm it. Also when a value of a loop test could not leave because it is no number. The view
// that asked may not be there any more, and nobody else would say it.
class StopReport : private HostObserver {
 public:
  // A title and a message, keys of the text table.
  using Show = std::function<void(const std::string& title, const std::string& message)>;

  // All but `show` must outlive it. The watch must have come to the observers before it.
  StopReport(Desktop& desktop, Observers& observers, const OutputWatch& outputs, Show show);
  ~StopReport();
  StopReport(const StopReport&) = delete;
  StopReport& operator=(const StopReport&) = delete;

 private:
  struct Words {
    const char* title;
    const char* message;
    friend bool operator<(const Words& a, const Words& b) { return std::string_view(a.message) < b.message; }
  };
  void requestRefused(const Request& request, const std::string& reason) override;
  void requestAnswered(const Request& request, const Document& answer) override;
  void requestFinished(const Request& request, Outcome outcome) override;

  bool isConfirmed(const Action& stop) const;
  void tell(const Words& words);
  void tellOfStop(const Action& stop);

  Desktop& mDesktop;
  Observers& mObservers;
  const OutputWatch& mOutputs;
  Show mShow;
  std::set<int> mConfirmed;  // stops, by number, that the device has confirmed
  std::set<Words> mToTell;
  std::optional<Desktop::TimerId> mTimer;
  std::shared_ptr<int> mAlive = std::make_shared<int>();
};

}  // namespace ostrand
