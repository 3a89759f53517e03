#pragma once

#include <algorithm>
#include <functional>
#include <string>

#include "host/Actions.h"
#include "platform/xml/Document.h"

namespace ostrand {

enum class Outcome {
  Done,       // the last answer came
  Refused,    // the device answered with an error
  NoAnswer,   // the device did not answer, or not to the end
  Cancelled,  // taken back before it was answered: by the user, or with the device
  Withdrawn,  // taken back before it was sent, for a stop about the same
};

// One request of a view or of the host, from the moment it was accepted until it is finished.
struct Request {
  int id = 0;
  std::string asker;  // the view's name, empty for the host itself
  std::string name;
  bool write = false;
  Document document;
  Action action;  // what it does at the device; told by the communication
  // Key of the text that is shown while it runs, and the two integers that came with it. The second is how many answers
  // are expected, 0 if nobody knows; the first is told to whoever shows the status, and means nothing to the host.
  std::string statusKey;
  int first = 0;
  int second = 0;
  // A request of the host that is to change neither data set nor views.
  bool quiet = false;
  // Off: the views are not told when it fails, for they have been told before.
  bool tellsFailure = true;

  int itemCount = 0;  // items asked for or written
  int answers = 0;    // answers that came so far
  int itemsDone = 0;  // items in them

  // Progress as answers of answers where the number of answers is known, else as items of items; `total` 0: not known.
  int progressTotal() const { return second > 0 ? second : itemCount; }
  int progressDone() const { return std::min(second > 0 ? answers : itemsDone, progressTotal()); }

  // For whoever submitted it: each answer, errors included, and the end. May be empty.
  std::function<void(const Document& answer)> onAnswer;
  std::function<void(Outcome outcome)> onFinished;
};

}  // namespace ostrand
