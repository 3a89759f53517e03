#pragma once

#include <string>
#include <vector>

#include "platform/base/Ref.h"
#include "platform/types/IObject.h"

namespace ostrand {

class Control;
class Messenger;

// The controls of a view in their one order: frame by frame as declared, in each the frame, its title, its
// date label, its rows (label before control), then nested panels. Valid while the view lives.
using ControlCollection = std::vector<Control*>;

// How a host drives a view. No member throws: failures go to the Messenger's ReportError.
class ITaviView : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a07");

  virtual const ControlCollection& GetControls() = 0;
  virtual Ref<Messenger> GetMessenger() = 0;
  virtual std::string GetSelectedView() = 0;
  virtual void SetSelectedView(const std::string& key) = 0;
  virtual bool LeaveSelectedView() = 0;
  virtual void RequestFocus() = 0;
  virtual void PrepareToRelease() = 0;
};

}  // namespace ostrand
