#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/RuntimeError.h"
#include "platform/types/IObject.h"

namespace ostrand::test {

// What the fakes of one host share: the record of calls as lines of text, and what a call of a name does
// the next time beside its work. Calls that only ask are not recorded.
class FakeCalls {
 public:
  std::vector<std::string> lines;

  // The lines since the last take.
  std::vector<std::string> take() { return std::exchange(lines, {}); }

  // The n-th next call of this name fails; "*" stands for every call but ReportError.
  void fail(const std::string& call, int n = 1, int number = RuntimeError::Unexpected, const std::string& description = "told to fail") {
    mFaults.emplace(call, Fault{n, number, description});
  }
  // From now on each call of this name fails; "*" stands for every call but ReportError.
  void failAlways(const std::string& call) { mAlways.insert(call); }
  // Runs inside the next call of this name, before it returns, once.
  void during(const std::string& call, std::function<void()> work) { mWork[call] = std::move(work); }

  // Runs inside every call, after what `during` asks for.
  std::function<void(const std::string& call)> onArrival;

  int arrived = 0;         // calls so far, whatever their names, but ReportError
  std::string lastFailed;  // the name of the call that failed last because it was told to

  // A call arrives. An empty line is not recorded.
  void arrive(const std::string& call, const std::string& line = {}) {
    const bool isAny = call != "ReportError";
    if (isAny) ++arrived;
    if (!line.empty()) lines.push_back(line);
    if (const auto work = mWork.find(call); work != mWork.end()) {
      const std::function<void()> body = std::move(work->second);
      mWork.erase(work);
      body();
    }
    // A copy: it may be replaced while it runs.
    if (const auto heard = onArrival) heard(call);
    std::optional<RuntimeError> failure;
    const auto countDown = [&](const std::string& name) {
      for (auto [fault, end] = mFaults.equal_range(name); fault != end;) {
        if (--fault->second.left == 0) {
          failure.emplace(fault->second.number, fault->second.description);
          fault = mFaults.erase(fault);
        } else {
          ++fault;
        }
      }
    };
    countDown(call);
    if (isAny) countDown("*");
    if (failure) {
      lastFailed = call;
      throw *failure;
    }
    if (mAlways.count(call) || (mAlways.count("*") && isAny)) throw RuntimeError(RuntimeError::Unexpected, call + " fails always");
  }

 private:
  struct Fault {
    int left;
    int number;
    std::string description;
  };
  std::multimap<std::string, Fault> mFaults;
  std::set<std::string> mAlways;
  std::map<std::string, std::function<void()>> mWork;
};

// An object of the host as a test keeps it: counted, and ended by its last reference.
template <class... Interfaces>
class FakeObject : public Interfaces... {
 public:
  Result queryInterface(const Guid&, void** out) noexcept override {
    *out = nullptr;
    return Result::NoInterface;
  }
  std::uint32_t addRef() noexcept override { return ++mCount; }
  std::uint32_t release() noexcept override {
    const std::uint32_t left = --mCount;
    if (left == 0) delete this;
    return left;
  }
  std::uint32_t count() const { return mCount; }

 protected:
  virtual ~FakeObject() = default;

 private:
  std::uint32_t mCount = 0;
};

}  // namespace ostrand::test
