#pragma once

#include <set>
#include <string>
#include <vector>

#include "host/Host.h"
#include "platform/controls/Control.h"

namespace ostrand {

// Whether a data set, the views, the units and the text tables fit together: places views without a window, hands them the
// data set, and looks at what each control found there.
class BindingAudit {
 public:
  enum class Kind {
    TagWithoutParameter,  // a control speaks of a parameter or group that the data set does not have
    MappingMissing,       // a choice whose parameter is a code, and that found nothing to choose from
    UnitUnknown,          // a unit that the unit table does not have
    TextMissing,          // a key without a text in some language
    FrameMissing,         // the tree document has a node that its view cannot select
    ErrorReported,        // the view reported an error while it took in the data set
    ParameterUnbound,     // no control shows this parameter
    ViewMissing,          // the tree document names a class that nobody has registered
    ActsUnknown,          // a word in `acts` that there is not
    ActsMissing,          // a parameter without `acts` whose name says that it makes the device act
  };
  struct Finding {
    Kind kind;
    std::string view;     // where it was found; empty if it is about the data set alone
    std::string subject;  // tag, key, unit, parameter or class
    std::string detail;   // the control; the languages without the text
  };

  // The host must have its data set open. It is not to be used for anything else meanwhile.
  explicit BindingAudit(Host& host) : mHost(host) {}

  // Looks at views of these classes; what is no view is passed over. RuntimeError 5 for a class that there is not.
  void look(const std::vector<std::string>& classes);
  // Looks at the views of the host's tree document, and whether they have its nodes.
  void lookAtTree();

  const std::vector<std::string>& views() const { return mViews; }
  // Each finding once, by kind.
  std::vector<Finding> findings();

 private:
  void look(const std::string& className, const std::string& tag, const std::vector<std::string>& nodes);
  void see(const std::string& view, ITaviView& component);
  void see(const std::string& view, Control& control);
  void need(const std::string& key, const std::string& view) { mKeys.emplace_back(key, view); }
  std::vector<Finding> textFindings();
  std::vector<Finding> dataSetFindings();

  Host& mHost;
  std::vector<std::string> mViews;
  std::vector<Finding> mFindings;
  std::set<std::string> mBound;
  std::vector<std::pair<std::string, std::string>> mKeys;  // key, view that needs it
};

}  // namespace ostrand
