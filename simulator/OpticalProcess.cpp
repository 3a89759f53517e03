#include "simulator/OpticalProcess.h"

namespace ostrand::simulator {

namespace {

// What a light loses to one per cent of fibres and of filler, and its voltage in clean water.
struct Light {
  double toFibres, toFiller;
  double inWater;  // V
};

constexpr std::array<Light, OpticalProcess::kLights> kProperties = {{
    {0.90, 0.50, 3.20},  // DLed
    {1.60, 0.70, 4.10},  // ALed
    {0.50, 1.40, 2.60},  // SLed
    {1.20, 0.40, 4.40},  // ALaser
    {0.35, 1.90, 2.90},  // SLaser
}};

constexpr double kFillerPart = 0.24;      // of the stock
constexpr double kTotalRetention = 0.78;  // of what the headbox delivers stays in the web
constexpr double kFillerRetention = 0.52;
constexpr double kFloc = 2.4;           // %
constexpr double kSignalNoise = 0.003;  // of the voltage
constexpr double kWaterNoise = 0.002;

// The lights take turns in a sequence.
constexpr std::int64_t ofLight(std::size_t light, std::int64_t tick) {
  return tick * static_cast<std::int64_t>(OpticalProcess::kLights) + static_cast<std::int64_t>(light);
}

}  // namespace

OpticalProcess::Stock OpticalProcess::headbox(std::int64_t tick) const {
  const double consistency = mFlow.consistency(tick);
  return {consistency, consistency * kFillerPart * (1 + 0.08 * mFiller.smooth(tick, PulpFlow::ticks(240)))};
}

OpticalProcess::Stock OpticalProcess::whiteWater(std::int64_t tick) const {
  const Stock stock = headbox(tick);
  const double change = 0.02 * mRetention.smooth(tick, PulpFlow::ticks(180)) + 0.002 * mRetention.normal(tick);
  return {stock.consistency * (1 - kTotalRetention - change), stock.ash * (1 - kFillerRetention - 1.5 * change)};
}

double OpticalProcess::floc(std::int64_t tick) const {
  return kFloc * mFlow.unsteadiness() * (1 + 0.15 * mSignal.smooth(tick, PulpFlow::ticks(60)) + 0.02 * mSignal.normal(tick));
}

double OpticalProcess::lightSource(std::size_t light, std::int64_t tick) const {
  const std::int64_t own = tick + static_cast<std::int64_t>(light) * PulpFlow::ticks(1e6);
  return kProperties[light].inWater * (1 - mFouling) * (1 + 0.015 * mAge.smooth(own, PulpFlow::ticks(6 * 3600)));
}

double OpticalProcess::voltage(std::size_t light, std::int64_t tick) const {
  const Stock stock = headbox(tick);
  const Light& each = kProperties[light];
  const double loss = each.toFibres * (stock.consistency - stock.ash) + each.toFiller * stock.ash;
  return lightSource(light, tick) / (1 + loss) * (1 + kSignalNoise * mSignal.normal(ofLight(light, tick)));
}

double OpticalProcess::voltageInWater(std::size_t light, std::int64_t tick) const {
  return lightSource(light, tick) * (1 + kWaterNoise * mAge.normal(ofLight(light, tick)));
}

}  // namespace ostrand::simulator
