#include "host/transcript/RecordingContainer.h"

namespace ostrand {

Result RecordingContainer::queryInterface(const Guid& id, void** out) noexcept {
  if (!out) return Result::BadPointer;
  *out = nullptr;
  if (offer<IObject>(id, static_cast<IHostContainer*>(this), out) || offer<IHostContainer>(id, this, out)) return Result::Ok;
  if (id == INotifyStatus::kId && query<INotifyStatus>(mHost.get())) return offer<INotifyStatus>(id, this, out), Result::Ok;
  return Result::NoInterface;
}

std::uint32_t RecordingContainer::release() noexcept {
  const std::uint32_t left = --mCount;
  if (left == 0) delete this;
  return left;
}

void RecordingContainer::DTMGUIDownload(const std::string& xml, const std::string& name, int one) {
  const Ref<IHostContainer> pin(this);
  listenedTo(mListener, {"DTMGUIDownload", argumentsText(name, one), name, xml, true}, [&] { mHost->DTMGUIDownload(xml, name, one); });
}

std::string RecordingContainer::DTMGUIGetXmlPath() {
  const Ref<IHostContainer> pin(this);
  return listenedTo(
      mListener, {"DTMGUIGetXmlPath", {}, {}, {}, false}, [&] { return mHost->DTMGUIGetXmlPath(); }, [](const std::string& path) { return path; });
}

void RecordingContainer::NotifyStatus(const std::string& key, int first, int second) {
  const Ref<IHostContainer> pin(this);
  listenedTo(mListener, {"NotifyStatus", argumentsText(key, first, second), key, {}, true}, [&] {
    if (const Ref<INotifyStatus> status = query<INotifyStatus>(mHost.get())) status->NotifyStatus(key, first, second);
  });
}

}  // namespace ostrand
