#pragma once

#include <memory>
#include <string>

#include "support/FakeCalls.h"
#include "platform/types/ITextTable.h"

namespace ostrand::test {

// "T:key", "L:key", "S:key:section", with a mark of the language in front of it when there is one.
class FakeTextTable : public FakeObject<ITextTable> {
 public:
  explicit FakeTextTable(FakeCalls& calls, std::string language = {}) : mCalls(calls), mLanguage(std::move(language)) {}

  std::string GetText(const std::string& key) override { return asked("GetText", "T:" + key); }
  std::string GetLabel(const std::string& key) override { return asked("GetLabel", "L:" + key); }
  std::string GetSectionText(const std::string& key, const std::string& section) override {
    return asked("GetSectionText", "S:" + key + ":" + section);
  }

 private:
  std::string asked(const char* call, std::string text) {
    mCalls.arrive(call);
    return mLanguage + std::move(text);
  }
  FakeCalls& mCalls;
  std::string mLanguage;
};

}  // namespace ostrand::test
