#pragma once

#include <deque>
#include <map>
#include <memory>

#include "simulator/Device.h"
#include "simulator/Transmitter.h"

namespace ostrand::simulator {

// A transmitter on its bus: queues the requests, lets each transaction take its time, and words the answers. What differs
// from bus to bus is how fast it is, what it can be asked for, and how it refuses.
class BusSlave : public Device {
 public:
  BusSlave(const BusSlave&) = delete;
  BusSlave& operator=(const BusSlave&) = delete;
  ~BusSlave() override;

  void request(const Document& request, Answer answer) override;
  int underWay() const override { return static_cast<int>(mQueue.size()); }
  void cancelAll() override;
  void setFault(std::string_view name, std::string_view argument) override;
  double busTimePerTransaction() const override { return mTiming.secondsPerTransaction * mFaults.slow; }
  std::optional<double> laboratoryValue(int sample) const override { return mTransmitter->laboratoryValue(sample); }

 protected:
  struct Timing {
    double secondsPerTransaction;
    std::size_t itemsPerTransaction;
  };

  BusSlave(Desktop& desktop, std::unique_ptr<Transmitter> transmitter, Timing timing);

  // A key of the text table for anything but Accepted.
  virtual std::string_view errorKey(Verdict verdict) const = 0;
  // Whether the text can be a value of the parameter; then `value` is it.
  virtual Verdict check(const Parameter& parameter, std::string_view text, Value& value) const;
  // What a read of these items is answered with.
  virtual std::vector<std::string> answeredWith(std::vector<std::string> names) const { return names; }
  // Whether a read of the parameter is a command that carries nothing else.
  virtual bool isReadAlone(const Parameter&) const { return false; }
  // Whether a write of the parameter is a command that carries nothing else: it is taken over, or refused, by itself.
  virtual bool isCommandOfItsOwn(const Parameter&) const { return false; }
  // Whether the bus acknowledges a write of this name that the device refuses: then the device tells its verdict when it is
  // asked for it, and the acknowledgement has no items.
  virtual bool acknowledgesRefusal(std::string_view) const { return false; }

 private:
  struct Item {
    const Parameter* parameter;
    std::string text;  // of a write
  };
  struct Request {
    bool isRequest = false;
    std::string name, access;
    std::vector<Item> items;           // that the device has, each once
    std::vector<std::string> unknown;  // that it does not have, or has no command for, each once
    std::vector<Writing> writings;     // received and not yet taken over
    bool isSingly = false;             // each item is a command of its own
    std::size_t done = 0;              // items
    int unanswered = 0;                // transactions
    Answer answer;
  };
  struct Reply {
    std::vector<std::pair<const Parameter*, std::string>> values;
    std::vector<std::string> names;  // items without a value
    std::string errorCode;
    bool isFinal = false;
  };
  struct Faults {
    std::map<std::string, std::string, std::less<>> refused;  // request name, error key
    std::map<std::string, std::string, std::less<>> values;   // item, what it reads
    std::optional<std::string> silent;                        // request name, empty for all
    std::optional<std::string> foreign;                       // the name that answers bear
    double slow = 1;
    bool twice = false;
    bool unfinished = false;
    bool garbage = false;
  };

  Request understood(const Document& document) const;
  void scheduleTransaction();
  void transact();
  Reply carriedOut(Request& request);
  Reply readStep(Request& request);
  Reply writeStep(Request& request);
  // A key for items that cannot be read or written at all.
  std::string_view errorOfUnknown(const Request& request) const;
  std::string textOf(const Parameter& parameter);
  bool isSilentTo(const Request& request) const;
  Document worded(const Request& request, const Reply& reply);
  Document garbage(const Request& request);

  Desktop& mDesktop;
  std::unique_ptr<Transmitter> mTransmitter;
  Timing mTiming;
  std::deque<Request> mQueue;
  std::optional<Desktop::TimerId> mTimer;
  // Replaced by cancelAll: an answer on the stack sees that it is to be the last.
  std::shared_ptr<int> mEpoch = std::make_shared<int>();
  Faults mFaults;
  unsigned mGarbageCount = 0;
};

}  // namespace ostrand::simulator
