#include "host/DeviceStatus.h"

#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr double kPeriod = 10.0;
constexpr double kSoon = 0.5;
constexpr const char* kGroup = "deviceStatus";

}  // namespace

DeviceStatus::DeviceStatus(Host& host) : mHost(host) {
  mHost.observers().add(*this);
  refresh();
}

DeviceStatus::~DeviceStatus() {
  mHost.observers().remove(*this);
  if (mTimer) mHost.desktop().cancel(*mTimer);
}

std::optional<Ne107> DeviceStatus::state(const std::vector<Ne107>& order) const {
  if (!mAnswers || !mKnown) return std::nullopt;
  std::vector<Ne107> signalled;
  for (const auto& [name, state] : mInForce) signalled.push_back(state);
  return foremost(signalled, order);
}

void DeviceStatus::refresh() {
  if (mTimer) mHost.desktop().cancel(*mTimer);
  mTimer = mHost.desktop().schedule(kSoon, [this] { tick(); });
}

void DeviceStatus::tick() {
  Communication& communication = mHost.communication();
  const bool free = communication.idle() && communication.device() && !communication.isLocal() && !communication.isBusy();
  if (free && !mAsking && mHost.dataSet()) ask();
  mTimer = mHost.desktop().schedule(free ? kPeriod : kSoon, [this] { tick(); });
}

// The same that the page with the device's status shows.
std::optional<Ne107> DeviceStatus::categoryOf(const std::string& parameter) const {
  if (!parameter.starts_with("status") || !mHost.dataSet()) return std::nullopt;
  return ne107OfRaised(mappingByTail(mHost.dataSet()->document(), parameter));
}

void DeviceStatus::ask() {
  std::vector<MessageItem> items;
  for (const std::string& name : mHost.dataSet()->parametersOf(kGroup))
    if (categoryOf(name)) items.push_back(mHost.dataSet()->item(name, false));
  if (items.empty()) return;
  Request request;
  request.name = kGroup;
  request.document = makeReadRequest(kGroup, items);
  request.quiet = true;
  request.onFinished = [this, alive = std::weak_ptr(mAlive)](Outcome) {
    if (!alive.expired()) mAsking = false;
  };
  mAsking = mHost.communication().submit(std::move(request)).empty();
}

void DeviceStatus::requestAnswered(const Request&, const Document& answer) {
  bool moved = false;
  const Node response = ostrand::response(answer);
  if (!response) return;
  for (Node item = response.firstChild(); item; item = item.nextSibling()) {
    const std::string name(item.findAttribute("name").value_or(""));
    const std::optional<Ne107> category = categoryOf(name);
    if (!category) continue;
    const Node value = item.firstChild();
    if (!value) continue;
    mKnown = moved = true;
    if (value.text() == "0")
      mInForce.erase(name);
    else
      mInForce[name] = *category;
  }
  if (moved) changed();
}

void DeviceStatus::requestFinished(const Request& request, Outcome outcome) {
  if (outcome == Outcome::Cancelled || outcome == Outcome::Withdrawn) return;
  heard(outcome != Outcome::NoAnswer);
  // What a view has asked for may have changed what the device says of itself: a sample, a test, a reset.
  if (!request.quiet && !request.asker.empty()) refresh();
}

void DeviceStatus::heard(bool answers) {
  if (answers == mAnswers) return;
  mAnswers = answers;
  changed();
}

}  // namespace ostrand
