#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/DataSet.h"
#include "host/HostObserver.h"
#include "host/RequestQueue.h"
#include "host/SampleWatch.h"
#include "host/UserSession.h"

namespace ostrand {

// Who may say what to the device, and where the answers go.
//
// - Download: a request goes to the device. Its answers are written into the data set, then handed to the views. Where the
//   device gives no answer, or nonsense, the views get a final answer with the error "communicationError".
// - LocalAcceptance: nothing goes to the device. A write is taken into the data set as an edit, a read is answered from it;
//   the answer bears responseStatus "local". What only the device can do is refused: a write without items, of items that the
//   data set does not have, of values that are there to be written only, or of any that makes the device act.
// - Busy: every new request is refused, until Free. Those that were accepted before go on.
//
// Below user level 3 what would change the device is refused. A stop is refused by no mode and at no level: it goes to the
// device, and before all that wait. Requests are otherwise kept in order, however many there are; a second one is no reason
// for a refusal.
class Communication {
 public:
  // Hands an answer to the views that it is for.
  using Deliver = std::function<void(const Request& request, const Document& answer)>;

  // All but `deliver` must outlive it.
  Communication(Desktop& desktop, const Observers& observers, const UserSession& session, const SampleWatch& samples, Deliver deliver);
  ~Communication();
  Communication(const Communication&) = delete;
  Communication& operator=(const Communication&) = delete;

  void setDataSet(std::optional<DataSet> dataSet) { mDataSet = std::move(dataSet); }
  DataSet* dataSet() { return mDataSet ? &*mDataSet : nullptr; }
  const DataSet* dataSet() const { return mDataSet ? &*mDataSet : nullptr; }
  void setUnits(Ref<IUnitConverter> units) { mUnits = std::move(units); }
  // Cancels what was for the device before; no device: every request to it is refused.
  void connect(std::unique_ptr<Device> device) { mQueue.connect(std::move(device)); }
  Device* device() const { return mQueue.device(); }

  void setMode(CommunicationMode mode);
  // The mode that was set last.
  CommunicationMode mode() const { return mMode; }
  bool isLocal() const { return mAcceptance == CommunicationMode::LocalAcceptance; }
  bool isBusy() const { return mBusy; }

  // Gives every request its number, its counts, and its place in the queue. An empty text if it was accepted, else the reason why not.
  std::string submit(Request request);
  // Stops stay.
  void cancelWaiting() { mQueue.cancelWaiting(); }
  const Request* underWay() const { return mQueue.underWay(); }
  std::size_t waiting() const { return mQueue.waiting(); }
  // Nothing under way, waiting, or answered locally and not yet told.
  bool idle() const { return mQueue.idle() && mLocalAnswers == 0; }

 private:
  std::string reasonAgainst(const Request& request) const;
  bool goesToDevice(const Request& request) const;
  void answerLocally(Request request);
  void showProgress(const Request& request);
  void arrived(const Request& request, const Document& answer);
  void answered(const Request& request, const Document& answer);
  void finished(const Request& request, Outcome outcome);

  Desktop& mDesktop;
  const Observers& mObservers;
  const UserSession& mSession;
  const SampleWatch& mSamples;
  Deliver mDeliver;
  std::optional<DataSet> mDataSet;
  Ref<IUnitConverter> mUnits;
  CommunicationMode mMode = CommunicationMode::Download;
  CommunicationMode mAcceptance = CommunicationMode::Download;
  bool mBusy = false;
  int mLastId = 0;
  int mLocalAnswers = 0;
  // Gone with this object: an answer from the event pump sees that nobody is there.
  std::shared_ptr<int> mAlive = std::make_shared<int>();
  RequestQueue mQueue;
};

}  // namespace ostrand
