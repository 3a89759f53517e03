#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/HostObserver.h"
#include "host/Writing.h"

namespace ostrand {

class Host;

// What is typed in the views and not applied, and what of it the data set keeps.
class Edits {
 public:
  explicit Edits(Host& host) : mHost(host) {}
  Edits(const Edits&) = delete;
  Edits& operator=(const Edits&) = delete;

  // What the views' edits hold. 1 collects all items, 2 the modified ones.
  std::vector<Change> collect(int mode = 2);
  // Takes what is typed and not applied into the data set, so that it is in the file that is saved.
  std::vector<LeftOut> keepTyped();
  // Takes back the data set's edits and those in the views: these then hold what the device last said, and nothing where it
  // has said nothing. Error 70 while a loop test may still drive an output.
  void discard();
  // Whether a view shows an edit of this parameter.
  bool isShown(const std::string& parameter) const;

  // --- the views' words

  // Gives the change's number in the collection from 1, or 0 when nobody collects.
  int add(Change change);
  // Whether a value is being edited.
  void noteStatus(const std::string& view, const std::string& parameter, const std::string& word);
  // The view is gone.
  void forget(const std::string& view) { mShown.erase(view); }

 private:
  Host& mHost;
  std::map<std::string, std::set<std::string>> mShown;  // by view: the parameters of which it shows an edit
  std::vector<Change>* mCollecting = nullptr;
};

}  // namespace ostrand
