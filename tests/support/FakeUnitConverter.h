#pragma once

#include <map>
#include <string>

#include "support/FakeCalls.h"
#include "platform/types/IUnitConverter.h"

namespace ostrand::test {

// Converts between units of one quantity, and knows the user's unit of the names that a test tells.
class FakeUnitConverter : public FakeObject<IUnitConverter> {
 public:
  explicit FakeUnitConverter(FakeCalls& calls) : mCalls(calls) {}

  bool ConvertValue(double value, const std::string& from, const std::string& to, double& result) override {
    mCalls.arrive("ConvertValue");
    const auto a = mUnits.find(from), b = mUnits.find(to);
    if (a == mUnits.end() || b == mUnits.end() || a->second.quantity != b->second.quantity) return false;
    result = (value * a->second.factor + a->second.offset - b->second.offset) / b->second.factor;
    return true;
  }
  bool GetUnitInfo(const std::string& name, std::string& unit) override {
    mCalls.arrive("GetUnitInfo");
    const auto found = userUnits.find(name);
    if (found == userUnits.end()) return false;
    unit = found->second;
    return true;
  }

  std::map<std::string, std::string> userUnits;  // by parameter name

 private:
  struct Unit {
    char quantity;
    double factor;
    double offset;
  };
  const std::map<std::string, Unit> mUnits{
      {"degC", {'t', 1, 0}},   {"degF", {'t', 5.0 / 9.0, -160.0 / 9.0}}, {"K", {'t', 1, -273.15}}, {"Nm", {'m', 1, 0}},
      {"kNm", {'m', 1000, 0}}, {"ftlbf", {'m', 1.3558179483314, 0}},     {"s", {'s', 1, 0}},       {"min", {'s', 60, 0}},
  };
  FakeCalls& mCalls;
};

}  // namespace ostrand::test
