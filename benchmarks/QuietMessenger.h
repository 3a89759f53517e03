#pragma once

#include <vector>

#include "platform/types/Messenger.h"
#include "platform/types/Query.h"

namespace ostrand::bench {

// A host that costs next to nothing: no units, no texts, nothing sent.
class QuietMessenger final : public Messenger {
 public:
  Result queryInterface(const Guid& id, void** out) noexcept override {
    *out = nullptr;
    return offer<IObject>(id, this, out) || offer<Messenger>(id, this, out) ? Result::Ok : Result::NoInterface;
  }
  std::uint32_t addRef() noexcept override { return ++mCount; }
  std::uint32_t release() noexcept override {
    const std::uint32_t left = --mCount;
    if (left == 0) delete this;
    return left;
  }

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
  Ref<IUnitConverter> GetUnitConverter() override { return nullptr; }
  Ref<ITextTable> GetTextTable() override { return nullptr; }
  Document GetTreeDocument() override { return {}; }
  int GetUserLevel() override { return 3; }
  bool GetMaximizeAllowed() override { return true; }
  int AskUser(const std::string&, const std::string&) override { return 4; }
  void ShowMessage(const std::string&, const std::string&) override {}
  void SetStatusLine(const std::string&, const std::string&) override {}
  void SetProgress(const std::string&, int, int) override {}
  void FocusOut() override {}
  void ReportError(const std::string&, int, const std::string&) override { ++errors; }
  void Log(int, const std::string&) override {}
  void Subscribe(MessengerEvents& listener) override { mListeners.push_back(&listener); }
  void Unsubscribe(MessengerEvents& listener) override { std::erase(mListeners, &listener); }

  int errors = 0;

 private:
  std::uint32_t mCount = 0;
  std::vector<MessengerEvents*> mListeners;
};

}  // namespace ostrand::bench
