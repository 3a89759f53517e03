#include "benchmarks/Rows.h"

#include "benchmarks/CalibrationWorks.h"
#include "benchmarks/DiagnosticsWorks.h"
#include "benchmarks/RecipeWorks.h"
#include "benchmarks/Works.h"

namespace ostrand::bench {

namespace {

constexpr int kParameters[] = {100, 500, 2000, 5000};
constexpr int kControls[] = {20, 60, 130};

std::string parameters(int count) { return std::to_string(count) + " parameters"; }
std::string controls(int count) { return std::to_string(count) + " controls"; }

Figure faster(std::optional<double> atLeast = {}) { return {Figure::TimesFaster, atLeast}; }
Figure share(std::optional<double> atMost = {}) { return {Figure::Share, atMost}; }

Row number(std::string what, std::function<double()> ours, double atMost, std::string peer = {}, std::function<double()> theirs = {}) {
  return {std::move(what), {}, std::move(peer), {}, {Figure::Number, atMost}, std::move(ours), std::move(theirs)};
}

Section firstWalks() {
  Section section{"First walk of a data set, against one path per control and lookup", {}};
  for (const int p : kParameters)
    for (const int c : kControls) {
      const bool judged = p == 5000 && c == 60;
      const std::string what = parameters(p) + ", " + controls(c);
      const auto limit = [&](double of) { return judged ? std::optional(of) : std::nullopt; };
      section.rows.push_back({what, firstWalk(By::Ostrand, p, c), "libxml2", firstWalk(By::Libxml, p, c), faster(limit(200))});
      section.rows.push_back({what, firstWalk(By::Ostrand, p, c), "pugixml", firstWalk(By::Pugixml, p, c), faster(limit(10))});
    }
  return section;
}

Section sharesOfTheParse() {
  Section section{"As a share of pugixml's parse of the same text", {}};
  for (const int p : {2000, 5000}) {
    const Work walk = firstWalk(By::Ostrand, p, 60), views = sixViews(p), reading = read(By::Ostrand, p);
    const Work parse = read(By::Pugixml, p), inPlace = readInPlace(p);
    section.rows.push_back({"first walk, 60 controls, " + parameters(p), walk, "parse", parse, share(p == 2000 ? 0.6 : 0.5)});
    section.rows.push_back({"first walk, 60 controls, " + parameters(p), walk, "parse in place", inPlace, share()});
    section.rows.push_back({"six views of 60 controls, " + parameters(p), views, "parse", parse, share(p == 2000 ? 1.0 : 0.7)});
    section.rows.push_back(
        {"110 further controls, " + parameters(p), furtherWalk(p, 110), "parse", parse, share(p == 2000 ? std::optional(0.2) : std::nullopt)});
    section.rows.push_back({"reading a document, " + parameters(p), reading, "parse", parse, share()});
  }
  return section;
}

Section answers() {
  Section section{"A live answer to a view of 60 controls, reading included", {}};
  for (const int items : {8, 200}) {
    const std::string what = std::to_string(items) + " items";
    section.rows.push_back({what, answer(By::Ostrand, items), "libxml2", answer(By::Libxml, items), faster(20)});
    section.rows.push_back({what, answer(By::Ostrand, items), "pugixml", answer(By::Pugixml, items), faster()});
  }
  section.rows.push_back({"an error, 2000 items, 130 controls", errorAnswer(2000, 130), "5 ms", {}, {Figure::Seconds, 0.005}});
  section.rows.push_back(number(
      "signals raised by the same answer again", [] { return signalsOfSameAnswer(200); }, 0));
  return section;
}

Section growth() {
  Section section{"Growth: a sum, not a product", {}};
  for (const int c : kControls)
    section.rows.push_back({"first walk, 5000 parameters, " + controls(c) + " (exponent)",
                            firstWalk(By::Ostrand, 5000, c),
                            "100 parameters",
                            firstWalk(By::Ostrand, 100, c),
                            {Figure::Exponent, 1.1, 50}});
  section.rows.push_back({"one more among 40,000 of its name", insertionAmong(40000), "half a ms", {}, {Figure::Seconds, 0.0005}});
  return section;
}

Section memoryAndLife() {
  Section section{"Memory, and the life of a view", {}};
  for (const int p : {2000, 5000})
    section.rows.push_back(number(
        "bytes for each of " + parameters(p) + ", open", [=] { return bytesPerParameter(By::Ostrand, p); }, 1050, "libxml2",
        [=] { return bytesPerParameter(By::Libxml, p); }));
  const Work largest = lifeOfLargestView(), many = lifeOfView(130);
  section.rows.push_back({nameOfLargestView() + ", made to released", largest, "a millisecond", {}, {Figure::Seconds, 0.001}});
  section.rows.push_back({"130 controls, made to released", many, "a millisecond", {}, {Figure::Seconds, 0.001}});
  section.rows.push_back(number(
      nameOfLargestView() + ", allocations left", [=] { return blocksLeftBy(largest); }, 0));
  section.rows.push_back(number(
      "130 controls, allocations left", [=] { return blocksLeftBy(many); }, 0));
  return section;
}

Section calibrations() {
  Section section{"A whole laboratory calibration, without device and bus, against libxml2's parse of its answers", {}};
  for (const char* const device : {"hartBlade", "profibusBlade"})
    section.rows.push_back({device, calibration(By::Ostrand, device), "libxml2, parse", calibration(By::Libxml, device), share(1.5)});
  // The heap may round a block up by what is left behind it, no more.
  section.rows.push_back({"bytes of the view after 10,000",
                          {},
                          "after 10",
                          {},
                          share(1.01),
                          [] { return bytesAfterCalibrations(10000); },
                          [] { return bytesAfterCalibrations(10); }});
  return section;
}

Section diagnostics() {
  Section section{"An answer to the diagnostics view, reading included, against one path per item", {}};
  section.rows.push_back({"event log, 48 items", eventLog(By::Ostrand), "libxml2", eventLog(By::Libxml), faster(10)});
  section.rows.push_back({"device status, 200 bits", deviceStatus(By::Ostrand, 200), "libxml2", deviceStatus(By::Libxml, 200), faster(20)});
  section.rows.push_back({"status tree of 1000 bits (exponent)",
                          deviceStatus(By::Ostrand, 1000),
                          "100 bits",
                          deviceStatus(By::Ostrand, 100),
                          {Figure::Exponent, 1.1, 10}});
  section.rows.push_back(
      {"status tree of 100 bits (exponent)", deviceStatus(By::Ostrand, 100), "10 bits", deviceStatus(By::Ostrand, 10), {Figure::Exponent, 1.1, 10}});
  return section;
}

Section recipes() {
  Section section{"The recipe control of a GYRE transmitter, 34 editors with 204 items", {}};
  const Work one = recipeWalk(By::Ostrand, 1), four = recipeWalk(By::Ostrand, 4), parse = recipeWalk(By::Pugixml, 1);
  section.rows.push_back({"first walk of a data set", one, "1.5 us an item", {}, {Figure::Seconds, kRecipeItems * 1.5e-6}});
  section.rows.push_back({"first walk of a data set", one, "pugixml, parse", parse, share()});
  section.rows.push_back({"four controls, one after another", four, "one", one, share(4.2)});
  section.rows.push_back({"17 records in 34 answers, to a settled chart", recipeHistory(), "4 ms", {}, {Figure::Seconds, 0.004}});
  return section;
}

}  // namespace

std::vector<Section> sections() {
  return {firstWalks(), sharesOfTheParse(), answers(), calibrations(), diagnostics(), growth(), memoryAndLife(), recipes()};
}

}  // namespace ostrand::bench
