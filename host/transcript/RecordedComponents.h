#pragma once

#include <functional>
#include <map>
#include <string>

#include "host/ComponentSource.h"
#include "host/Host.h"
#include "host/transcript/TranscriptRecorder.h"

namespace ostrand {

// Components whose whole conversation is recorded: what a host does to them by their interfaces, the events that it raises,
// and what they call. A program gives a host this source and these taps, and adds what its user does to the controls
// (TranscriptRecorder::input). The source behind it, the recorders and this object must outlive the components.
class RecordedComponents : public ComponentSource {
 public:
  // The recorder for a new component of this class.
  using RecorderFor = std::function<TranscriptRecorder&(const std::string& className)>;

  RecordedComponents(ComponentSource& components, RecorderFor recorderFor) : mComponents(components), mRecorderFor(std::move(recorderFor)) {}

  Ref<IObject> create(const std::string& className) override;
  Views::Taps taps();
  // nullptr for a component of another source.
  TranscriptRecorder* recorderOf(const IObject* component) const;

 private:
  ComponentSource& mComponents;
  RecorderFor mRecorderFor;
  std::map<const IObject*, TranscriptRecorder*> mRecorders;
};

}  // namespace ostrand
