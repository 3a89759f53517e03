#pragma once

#include <string>

#include "host/transcript/CallListener.h"
#include "platform/types/IHostContainer.h"
#include "platform/types/Query.h"

namespace ostrand {

// Stands before the container of a view and lets a listener hear of every call. It offers what the container behind it
// offers. The listener must outlive it.
class RecordingContainer final : public IHostContainer, public INotifyStatus {
 public:
  RecordingContainer(CallListener& listener, Ref<IHostContainer> host) : mListener(listener), mHost(std::move(host)) {}
  RecordingContainer(const RecordingContainer&) = delete;
  RecordingContainer& operator=(const RecordingContainer&) = delete;

  Result queryInterface(const Guid& id, void** out) noexcept override;
  std::uint32_t addRef() noexcept override { return ++mCount; }
  std::uint32_t release() noexcept override;

  void DTMGUIDownload(const std::string& xml, const std::string& name, int one) override;
  std::string DTMGUIGetXmlPath() override;
  void NotifyStatus(const std::string& key, int first, int second) override;

 private:
  ~RecordingContainer() = default;

  CallListener& mListener;
  Ref<IHostContainer> mHost;
  std::uint32_t mCount = 0;
};

}  // namespace ostrand
