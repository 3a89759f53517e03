#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/Communication.h"

namespace ostrand {

// A run of requests of the host itself: groups that are read, values that are written. Tells how far it is, item by item
// what failed, and can try again what did.
class Transfer {
 public:
  // One request: a group's name and the items that are asked for, or written with their values.
  struct Job {
    std::string group;
    bool write = false;
    std::vector<MessageItem> items;
  };
  struct Failure {
    std::string group;
    std::string item;
    std::string errorCode;  // a key of the text table
    std::string reason;     // instead of a key: why the request was refused by the host
  };

  // A quiet run changes neither data set nor views. The communication must outlive the transfer.
  explicit Transfer(Communication& communication, bool quiet = false) : mCommunication(communication), mQuiet(quiet) {}
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  // Ends what is still going on as far as this object is concerned. Jobs without items are passed over. `finished` is called
  // once, out of the event pump if anything was sent; it may start the next run.
  void start(std::vector<Job> jobs, std::function<void()> finished = {});
  // Starts again with the items that failed; does nothing but tell that it has finished if none did.
  void retry(std::function<void()> finished = {});

  bool running() const { return mRun && mRun->done < mRun->total; }
  int total() const { return mRun ? mRun->total : 0; }  // requests
  int done() const { return mRun ? mRun->done : 0; }
  const std::vector<Failure>& failures() const { return mFailures; }
  // What the device said, by item, as its answers had it.
  const std::map<std::string, Node>& values() const { return mValues; }

 private:
  struct Run {
    std::vector<Job> jobs;
    int total = 0;
    int done = 0;
    std::function<void()> finished;
  };

  void submit(const std::shared_ptr<Run>& run, std::size_t job);
  void take(const Job& job, std::vector<std::string>& open, const Document& answer);
  void finishJob(const std::shared_ptr<Run>& run);

  Communication& mCommunication;
  bool mQuiet;
  std::shared_ptr<Run> mRun;  // what is told to a run before is not meant for us any more
  std::vector<Failure> mFailures;
  std::map<std::string, Node> mValues;
};

}  // namespace ostrand
