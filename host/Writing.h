#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/Communication.h"
#include "host/Transfer.h"

namespace ostrand {

// A value that did not leave with the others, and why.
struct LeftOut {
  enum class Why {
    NoParameter,  // a value that the data set does not have, or several in one that cannot leave now
    ByButton,     // it makes the device act, and leaves by a button of its own only
    ByPage,       // it makes the device act, and leaves by applying its own page only
    Declined,     // the user was asked, and said no
  } why;
  std::string name;
  std::string caption;  // as the view told it; may be empty
};

// What the host writes by itself: changes that it has collected, and values of the data set. What makes the device act as
// soon as it is written never leaves among others (ActingValues.h); whatever is left out is told.
class Writing {
 public:
  // Asks the user whether these values may leave now.
  using Confirm = std::function<bool(const std::vector<Change>&)>;
  // The values behind a change that stands for several: a record, which leaves whole and under the change's own group.
  using Record = std::function<std::vector<MessageItem>(const Change&)>;

  // Both must outlive it.
  Writing(Communication& communication, Transfer& transfer, Confirm confirm, Record record);

  // Sends changes to the device by group, or with local acceptance takes them into the data set. `page` is the group whose page
  // the user applies: values of it that act leave with it when he has confirmed them. Error 91 without a data set.
  std::vector<LeftOut> applyChanges(std::vector<Change> changes, std::function<void()> finished, const std::string& page);
  // The edits of the data set, or its values where there is none.
  std::vector<LeftOut> writeParameters(const std::vector<std::string>& names, std::function<void()> finished);
  // Takes changes into the data set as edits, and sends nothing: for who saves it. A value with a button of its own is none.
  std::vector<LeftOut> keep(const std::vector<Change>& changes);

 private:
  DataSet& dataSet() const;
  std::vector<LeftOut> sortOut(std::vector<Change>& changes, const std::string& page) const;
  // Whether a change stands for a record that can leave: to the device only, since the data set holds one record at a time.
  bool isRecord(const Change& change) const;
  std::vector<Transfer::Job> jobsFor(const std::vector<Change>& changes) const;

  Communication& mCommunication;
  Transfer& mTransfer;
  Confirm mConfirm;
  Record mRecord;
};

}  // namespace ostrand
