#pragma once

#include <vector>

#include "host/HostObject.h"
#include "platform/types/IHostContainer.h"
#include "platform/types/Messenger.h"

namespace ostrand::bench {

// Shows the keys themselves.
class QuietTexts final : public HostObject<ITextTable> {
 public:
  std::string GetText(const std::string& key) override { return key; }
  std::string GetLabel(const std::string& key) override { return key; }
  std::string GetSectionText(const std::string& key, const std::string&) override { return key; }
};

// The user reads temperatures in degrees Fahrenheit.
class QuietUnits final : public HostObject<IUnitConverter> {
 public:
  bool ConvertValue(double value, const std::string& from, const std::string& to, double& result) override {
    if (from == to)
      result = value;
    else if (from == "degC" && to == "degF")
      result = value * 1.8 + 32;
    else if (from == "degF" && to == "degC")
      result = (value - 32) / 1.8;
    else
      return false;
    return true;
  }
  bool GetUnitInfo(const std::string&, std::string& unit) override { return unit = "degF", true; }
};

// A place for a view whose requests go nowhere.
class QuietContainer final : public HostObject<IHostContainer> {
 public:
  void DTMGUIDownload(const std::string&, const std::string&, int) override {}
  std::string DTMGUIGetXmlPath() override { return {}; }
};

// A host that costs next to nothing: it sends nothing and remembers nothing but the first error.
class QuietMessenger final : public HostObject<Messenger> {
 public:
  void SendRequest(const std::string&, const std::string&) override {}
  void ReadRequest(const std::string&, int) override {}
  bool SendRequestWithStatus(const std::string&, const std::string&, int, int) override { return true; }
  int GetCommunicationMode() override { return 11; }
  void SetParameterStatus(const std::string&, const std::string&) override {}
  int AddChange(const std::string&, const std::string&, const std::string&, const std::string&, const std::string&, const std::string&,
                const std::string&) override {
    return 0;
  }
  void ForwardValue(const std::string&, const std::string&) override {}
  Ref<IAddressService> GetAddressService() override { return nullptr; }
  Ref<IUnitConverter> GetUnitConverter() override { return units; }
  Ref<ITextTable> GetTextTable() override { return mTexts; }
  Document GetTreeDocument() override { return tree; }
  int GetUserLevel() override { return 3; }
  bool GetMaximizeAllowed() override { return true; }
  int AskUser(const std::string&, const std::string&) override { return 4; }
  void ShowMessage(const std::string&, const std::string&) override {}
  void SetStatusLine(const std::string&, const std::string&) override {}
  void SetProgress(const std::string&, int, int) override {}
  void FocusOut() override {}
  void ReportError(const std::string& prefix, int number, const std::string& description) override {
    if (error.empty()) error = prefix + std::to_string(number) + " " + description;
  }
  void Log(int, const std::string&) override {}
  void Subscribe(MessengerEvents& listener) override { mListeners.push_back(&listener); }
  void Unsubscribe(MessengerEvents& listener) override { std::erase(mListeners, &listener); }

  std::string error;  // the first one
  Ref<IUnitConverter> units{new QuietUnits};
  Document tree;

 private:
  Ref<ITextTable> mTexts{new QuietTexts};
  std::vector<MessengerEvents*> mListeners;
};

}  // namespace ostrand::bench
