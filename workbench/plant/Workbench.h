#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/base/Signal.h"
#include "workbench/conversation/ConversationLog.h"
#include "workbench/desktop/QtDesktop.h"
#include "workbench/desktop/QtPrompt.h"
#include "workbench/plant/PlantDevice.h"
#include "workbench/plant/Settings.h"
#include "workbench/words/Texts.h"

namespace ostrand {

// The simulated mill and its user, without a window: the devices with their hosts, the one that is looked at, and the settings
// that hold for all of them.
class Workbench {
 public:
  // RuntimeError for a data folder whose files are damaged.
  explicit Workbench(std::filesystem::path dataFolder) : Workbench(std::move(dataFolder), nullptr) {}
  // With other components than the registered ones; they must outlive it.
  Workbench(std::filesystem::path dataFolder, ComponentCatalog* components);
  ~Workbench();

  QtDesktop& desktop() { return mDesktop; }
  QtPrompt& prompt() { return mPrompt; }
  ComponentCatalog& components() { return mComponents; }
  ConversationLog& log() { return mLog; }
  const std::filesystem::path& dataFolder() const { return mDataFolder; }
  const std::vector<std::unique_ptr<PlantDevice>>& devices() const { return mDevices; }
  // The device that is looked at; there is always one.
  PlantDevice& current() const { return *mCurrent; }
  Host& host() const { return mCurrent->host(); }
  const Texts& texts() const { return mTexts; }
  const Settings& settings() const { return mSettings; }

  // Asks the view in front whether it may be left, then shows this frame of this device. False: nothing has changed.
  bool show(PlantDevice& device, const std::string& branch, const std::string& frame);
  // The device that a data set is for: the one of its type, else the current one.
  PlantDevice& deviceFor(const DataSet& dataSet) const;
  // Opens a data set in the device that it is for, whose views take it up.
  // RuntimeError 53, 70 or 5 leaves everything as it was.
  void openDataSet(const std::filesystem::path& file);

  // RuntimeError 5 for a language that there is not, or whose file is damaged: then everything stays.
  void setLanguage(const std::string& language);
  void setLocale(const std::string& name);
  void setLevel(int level);
  void setUnit(const std::string& quantity, const std::string& unit);
  void setTheme(Theme::Kind kind, double scale);
  void setPriorities(const std::vector<Ne107>& priorities);

  Signal<> deviceChanged;  // another one is current
  Signal<> valuesChanged;  // something about a device has changed: its data set, its state
  Signal<> settingsChanged;

 private:
  class Watch;

  std::filesystem::path mDataFolder;
  QtDesktop mDesktop;
  QtPrompt mPrompt;
  RegisteredComponents mRegistered;
  ComponentCatalog& mComponents;
  ConversationLog mLog;
  std::vector<std::unique_ptr<PlantDevice>> mDevices;
  std::vector<std::unique_ptr<Watch>> mWatches;
  PlantDevice* mCurrent = nullptr;
  Settings mSettings;
  Texts mTexts;
};

}  // namespace ostrand
