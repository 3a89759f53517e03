#include "simulator/Device.h"

#include "platform/base/RuntimeError.h"
#include "simulator/BladeTransmitter.h"
#include "simulator/GyreTransmitter.h"
#include "simulator/HartSlave.h"
#include "simulator/OpticalTransmitter.h"
#include "simulator/ProfibusSlave.h"

namespace ostrand {

const std::vector<DeviceKind>& deviceKinds() {
  static const std::vector<DeviceKind> kinds = {
      {"hartBlade", "devices/hartBlade.xml", "a blade transmitter on HART, in a line with about 3.4 % of bleached softwood"},
      {"profibusBlade", "devices/profibusBlade.xml", "a blade transmitter on PROFIBUS, in a line with about 4 % of softwood"},
      {"hartFjell", "devices/hartFjell.xml", "a low-consistency blade transmitter on HART, with flushing, in a line with about 1.4 %"},
      {"hartQX5", "devices/hartQX5.xml", "an optical transmitter of six channels on HART, at a headbox with about 0.9 % and a fourth of it filler"},
      {"hartGYRE", "devices/hartGYRE.xml", "a GYRE transmitter on HART, with its samples, in a line with about 6 % of bleached softwood"},
  };
  return kinds;
}

const std::vector<FaultKind>& Device::faults() {
  static const std::vector<FaultKind> faults = {
      {"none", "", "all faults end"},
      {"silent", "[REQUEST]", "requests, or those of this name, get no answer"},
      {"refuse", "REQUEST [KEY]", "requests of this name are refused, with this error key"},
      {"nan", "ITEM", "the device has no value for this item"},
      {"value", "ITEM TEXT", "this item reads this text, whatever it may be"},
      {"slow", "FACTOR", "transactions take so many times as long"},
      {"twice", "", "each answer comes twice"},
      {"foreign", "REQUEST", "answers bear this name instead of their request's"},
      {"unfinished", "", "no answer says that it is the last one"},
      {"garbage", "", "answers are damaged"},
      {"failure", "PART",
       "a part fails: sensor, temperatureSensor, electronics, memory, currentOutput or supplyVoltage; in an optical one also led or laser, in a GYRE one motor"},
      {"unsteady", "FACTOR", "the pulp is so many times as uneven"},
      {"heat", "DEGREES", "the process is so many degrees hotter"},
      {"drift", "PERCENT", "the sensor delivers so much less than it should: a worn blade, dirty windows"},
      {"software", "REVISION", "the device runs this software"},
      {"lacks", "ITEM", "the device has no command for this item"},
      {"powerCycle", "", "the device is switched off and on again, once"},
      {"writeProtected", "", "the device takes no writes"},
  };
  return faults;
}

std::unique_ptr<Device> makeDevice(std::string_view name, Desktop& desktop, const Document& dataSet, unsigned seed) {
  using namespace simulator;
  using Bus = BladeTransmitter::Bus;
  const auto transmitter = [&](const BladeTransmitter::Settings& settings) {
    return std::make_unique<BladeTransmitter>(desktop, dataSet, settings, seed);
  };
  if (name == "hartBlade") return std::make_unique<HartSlave>(desktop, transmitter({.bus = Bus::Hart}));
  if (name == "profibusBlade") {
    constexpr PulpLine kLine{.consistency = 4.0, .swing = 0.3, .flocs = 0.04, .temperature = 58.0};
    return std::make_unique<ProfibusSlave>(desktop, transmitter({.bus = Bus::Profibus, .line = kLine}));
  }
  if (name == "hartFjell") {
    constexpr PulpLine kLine{.consistency = 1.4, .swing = 0.15, .flocs = 0.012, .temperature = 46.0};
    return std::make_unique<HartSlave>(desktop, transmitter({.bus = Bus::Hart, .line = kLine, .blade = "bladeTypeLowConsistency"}));
  }
  if (name == "hartQX5") {
    constexpr PulpLine kLine{.consistency = 0.9, .swing = 0.06, .flocs = 0.008, .temperature = 47.0};
    return std::make_unique<HartSlave>(desktop, std::make_unique<OpticalTransmitter>(desktop, dataSet, kLine, seed));
  }
  if (name == "hartGYRE") {
    constexpr PulpLine kLine{.consistency = 6.0, .swing = 1.4, .flocs = 0.06, .temperature = 54.0};
    return std::make_unique<HartSlave>(desktop, std::make_unique<GyreTransmitter>(desktop, dataSet, kLine, seed));
  }
  throw RuntimeError(RuntimeError::BadArgument, "no such device: \"" + std::string(name) + "\"");
}

}  // namespace ostrand
