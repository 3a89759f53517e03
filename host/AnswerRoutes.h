#pragma once

#include <string>

#include "host/HostObserver.h"
#include "host/Request.h"

namespace ostrand {

class DataSet;

// Who gets what of an answer. A view takes an answer that is final and bears a name for the verdict on what it asked, so an
// answer is handed on whole to nobody but its asker:
//
// - The answer to a view's request goes to that view. The others get its values, as an answer named "values" that is not
//   final: what the data set has, without what the device says of the last action and of samples.
// - The answer to the host's own request goes to all. Where it is a reading of laboratory results or of a temperature
//   calibration it is not final: nobody has calibrated.
// - What was written locally is news to all of them, the asker included, and nothing that the device has said: values.
// - An error goes to the asker; one of the host's own requests to all.
class AnswerRoutes {
 public:
  // All must outlive it.
  AnswerRoutes(const Request& request, const Document& answer, const DataSet* dataSet);

  DataPath path() const { return mIsError ? DataPath::Error : DataPath::Online; }
  // A document of the view's own, for it may change what it is handed; empty if there is nothing for it.
  Document forView(const std::string& view) const;

 private:
  Document whole() const;
  Document values() const;

  const Request& mRequest;
  const Document& mAnswer;
  const DataSet* mDataSet;
  bool mIsError;
  bool mIsLocalWrite;
};

}  // namespace ostrand
