#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/Communication.h"
#include "host/HostObserver.h"
#include "host/OutputRules.h"
#include "host/SampleWatch.h"
#include "platform/base/Signal.h"

namespace ostrand {

struct ForcedOutput {
  std::string item;
  OutputKind kind;
  bool confirmed;  // the device has said that it is so; else it may be
};

// Knows which outputs of the device may be forced: each from the moment when a value that forces it is sent, or the device
// tells of one, until the device has confirmed a value that frees it; whatever the views tell, and whether or not they are
// still there. Neither silence nor a fault of the communication says anything about an output.
class OutputWatch : private HostObserver {
 public:
  // All must outlive it.
  OutputWatch(Observers& observers, Communication& communication, SampleWatch& samples);
  ~OutputWatch();
  OutputWatch(const OutputWatch&) = delete;
  OutputWatch& operator=(const OutputWatch&) = delete;

  bool mayBeForced() const { return !mForced.empty(); }
  bool mayBeForced(OutputKind kind) const;
  std::vector<ForcedOutput> forced() const;
  // A start of a sample has been sent, and no stop of it completed.
  bool sampling() const { return mSamples.running().has_value(); }

  // Sends for each watched item what frees it. Needs no view. `finished` hears, when all of it has been answered, refused or
  // given up, whether no output is forced any more.
  void freeOutput(std::function<void(bool free)> finished = {});
  // Stops the sample that may be running. `finished` hears whether none is running any more.
  void stopSampling(std::function<void(bool stopped)> finished = {});

  // Whether an offline document must not be repeated to the views: it would empty the edits from which a view stops its test.
  bool holdsDocuments() const;
  // RuntimeError 70 while it must not.
  void requireNoLoopTest() const;
  // The user has seen at the device that the output is free: documents may be handed in again. The watch itself goes on.
  void confirmedByUser();

  Signal<> changed;

 private:
  struct Watched {
    OutputKind kind;
    int request;  // that asked for it first; 0 once the device has confirmed it
    bool seenFreeByUser = false;
  };

  void requestQueued(const Request& request) override;
  void requestSent(const Request& request) override;
  void requestFinished(const Request& request, Outcome outcome) override;
  void requestAnswered(const Request& request, const Document& answer) override;

  void take(const Request& request, const Document& answer);
  void forgetRefused(const Request& request, const Document& answer);

  Observers& mObservers;
  Communication& mCommunication;
  SampleWatch& mSamples;
  Signal<>::Id mListening;
  std::map<std::string, Watched> mForced;  // by item
  std::set<int> mTestsWaiting;             // requests with a test value that have not been sent yet
  std::shared_ptr<int> mAlive = std::make_shared<int>();
};

}  // namespace ostrand
