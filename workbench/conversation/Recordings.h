#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "host/transcript/RecordedComponents.h"
#include "host/transcript/TranscriptRecorder.h"

namespace ostrand {

// The conversation of every view of one device from its creation on, so that it can be saved as a transcript at any time, and
// the settings of the user that a replay must begin with. It must outlive the views.
class Recordings {
 public:
  // Both must outlive it.
  Recordings(ComponentSource& components, const Desktop& desktop);

  RecordedComponents& components() { return mComponents; }
  Views::Taps taps() { return mComponents.taps(); }

  // The settings, for the views that are open and for those to come.
  void setLanguage(const std::string& language);
  void setLocale(const std::string& name);
  void setUnit(const std::string& quantity, const std::string& unit);

  // nullptr for a view that is not recorded.
  TranscriptRecorder* of(const ViewSite& site) const { return mComponents.recorderOf(site.component()); }

 private:
  struct Setting {
    std::string name;  // "locale", or the quantity
    std::string line;
  };
  TranscriptRecorder& begin();
  void set(const std::string& name, const std::string& line);

  const Desktop& mDesktop;
  RecordedComponents mComponents;
  std::string mLanguage = "keys";
  std::vector<Setting> mSettings;
  std::deque<std::unique_ptr<TranscriptRecorder>> mRecorders;
};

}  // namespace ostrand
