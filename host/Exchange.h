#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/Communication.h"
#include "host/Comparison.h"
#include "host/Transfer.h"
#include "host/UserPrompt.h"
#include "host/Writing.h"

namespace ostrand {

class User;

// What is read from the device and written to it, for the views and by the host itself. The transfer tells how far a run of
// the host is and what failed.
class Exchange {
 public:
  // All must outlive it.
  Exchange(Communication& communication, const User& user, UserPrompt& prompt, Writing::Record record);
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  // A view's request. Empty if it was accepted, else why not. RuntimeError 5 for a text that is no request.
  std::string submit(const std::string& view, const std::string& xml, const std::string& name, const std::string& statusKey, int first, int second);

  // Error 91 without a data set, as in all that follows.
  void readGroup(const std::string& group, std::function<void()> finished = {});
  void readAll(std::function<void()> finished = {});
  // Each parameter in a request of its home group. A write sends the edit, or the data set's value where there is none, and
  // leaves out what makes the device act.
  void readParameters(const std::vector<std::string>& names, std::function<void()> finished = {});
  std::vector<LeftOut> writeParameters(const std::vector<std::string>& names, std::function<void()> finished = {});
  Transfer& transfer() { return mTransfer; }
  Comparison& comparison() { return mComparison; }

  // Sends changes to the device, or with local acceptance takes them into the data set. Values that make the device act are
  // left out, but for those of `page`, the group whose page is applied, when the user has confirmed them.
  std::vector<LeftOut> applyChanges(const std::vector<Change>& changes, std::function<void()> finished = {}, const std::string& page = {});
  // Takes changes into the data set, and sends nothing.
  std::vector<LeftOut> keepChanges(const std::vector<Change>& changes);

 private:
  DataSet& dataSet() const;
  bool confirms(const std::vector<Change>& acting);

  Communication& mCommunication;
  const User& mUser;
  UserPrompt& mPrompt;
  Transfer mTransfer;
  Writing mWriting;
  Comparison mComparison;
};

}  // namespace ostrand
