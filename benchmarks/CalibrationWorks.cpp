#include "benchmarks/CalibrationWorks.h"

#include <libxml/parser.h>

#include "benchmarks/Calibration.h"
#include "benchmarks/Heap.h"

namespace ostrand::bench {

Work calibration(By by, const std::string& device) {
  const Calibration& recorded = Calibration::of(device);
  const std::string name = workName(by, "calibration " + device);
  if (by == By::Ostrand) {
    const std::shared_ptr<Placed> placed = recorded.makeView();
    return {name, [=, &recorded](Meter& meter) { meter.measure([&] { recorded.hold(*placed); }); }};
  }
  return {name, [answers = recorded.answers()](Meter& meter) {
            meter.measure([&] {
              for (const std::string& answer : answers)
                xmlFreeDoc(xmlReadMemory(answer.data(), static_cast<int>(answer.size()), nullptr, nullptr, XML_PARSE_NOBLANKS));
            });
          }};
}

double bytesAfterCalibrations(int count) {
  const Calibration& recorded = Calibration::of("hartBlade");
  recorded.hold(*recorded.makeView());  // what is made at the first use stays
  const auto before = Heap::now().bytes;
  const auto placed = recorded.makeView();
  for (int i = 0; i < count; ++i) recorded.hold(*placed);
  return static_cast<double>(Heap::now().bytes - before);
}

}  // namespace ostrand::bench
