#include "benchmarks/Calibration.h"

#include <map>
#include <utility>

#include "component/Classes.h"
#include "host/Host.h"
#include "host/transcript/ControlPath.h"
#include "platform/base/NumberText.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrTextEdit.h"

namespace ostrand::bench {

namespace {

constexpr double kSampling = 25;
// The mill moves to another consistency 200 seconds after the start, and has got there 40 seconds later.
constexpr double kMoving = 215;

// The views that are linked, without their library.
struct LinkedViews final : ComponentSource {
  Ref<IObject> create(const std::string& className) override {
    for (const ComponentClass& known : componentClasses())
      if (known.name == className) return Ref<IObject>(static_cast<IPlaceable*>(known.create()));
    throw std::runtime_error("no view " + className);
  }
};

struct Consent final : UserPrompt {
  int ask(const std::string&, const std::string&, const Answers&) override { return kGoOn; }
  void show(const std::string&, const std::string&) override {}
};

struct Ear final : HostObserver {
  void viewHandedIn(const ViewSite&, DataPath path, const Document& document) override {
    if (path == DataPath::Online) heard.push_back(document.xml());
    if (path == DataPath::Error) throw std::runtime_error("the device has refused the calibration");
  }
  std::vector<std::string> heard;
};

template <class T>
T& controlOf(Component& view, const std::string& name) {
  if (T* const found = dynamic_cast<T*>(findControl(view.controls(), name))) return *found;
  throw std::runtime_error("the view has no control " + name);
}

}  // namespace

const Calibration& Calibration::of(const std::string& device) {
  static std::map<std::string, Calibration> recorded;
  const auto known = recorded.find(device);
  return known != recorded.end() ? known->second : recorded.emplace(device, Calibration(device)).first->second;
}

Calibration::Calibration(const std::string& device) {
  VirtualDesktop desktop;
  LinkedViews views;
  Consent consent;
  Ear ear;
  const std::filesystem::path data = OSTRAND_SOURCE_DIR "/data";
  Host host(desktop, views, consent, data);
  host.openDataSet(data / "devices" / (device + ".xml"));
  mDataSet = host.dataSet()->document().xml();
  host.connect(makeDevice(device, desktop, host.dataSet()->document(), 1));
  host.views().setLiveReading(false);
  const Ref<ViewSite> site = host.views().place("VwCalibration");
  host.views().open(*site, "sampling");
  host.observers().add(ear);

  const auto does = [&](Deed deed, std::string place, std::string value = {}, double then = 0) {
    mSteps.push_back({deed, std::move(place), std::move(value), {}});
    act(dynamic_cast<Component&>(*site->view()), mSteps.back());
    if (mSteps.back().place == "recipes") host.exchange().readGroup("recipes");
    while (!host.communication().idle()) desktop.wait(0.1);
    desktop.wait(then);
    mSteps.back().answers = std::exchange(ear.heard, {});
  };
  for (const char* const sample : {"Sample1Button", "Sample2Button"}) {
    does(Deed::Click, std::string(sample) + "(0)", {}, kSampling);
    does(Deed::Click, std::string(sample) + "(1)", {}, kMoving);
  }
  does(Deed::Show, "laboratoryResults");
  does(Deed::Choose, "cce_laboratoryResults(0)", "useBothSamples");
  does(Deed::Choose, "cce_laboratoryResults(1)", "recipe1");
  does(Deed::Type, "cte_laboratoryResults(0)", "0");
  for (const int sample : {1, 2})
    does(Deed::Type, "cte_laboratoryResults(" + std::to_string(sample) + ")",
         fixedText(host.communication().device()->laboratoryValue(sample).value_or(0), 2, '.'));
  does(Deed::Click, "LabCalibrateBtn");
  does(Deed::Show, "recipes");
  host.observers().remove(ear);
}

void Calibration::act(Component& view, const Step& step) {
  switch (step.deed) {
    case Deed::Show: return query<ITaviView>(&view)->SetSelectedView(step.place);
    case Deed::Click: return controlOf<CommandButton>(view, step.place).click();
    case Deed::Choose: return controlOf<CtrComboEdit>(view, step.place).choose(step.value);
    case Deed::Type: return controlOf<CtrTextEdit>(view, step.place).type(step.value);
  }
}

std::vector<std::string> Calibration::answers() const {
  std::vector<std::string> all;
  for (const Step& step : mSteps) all.insert(all.end(), step.answers.begin(), step.answers.end());
  return all;
}

std::unique_ptr<Placed> Calibration::makeView() const {
  for (const ComponentClass& known : componentClasses()) {
    if (known.name != "VwCalibration") continue;
    auto placed = std::make_unique<Placed>(known.create());
    offlineData(*placed, Document::read(mDataSet));
    placed->as<ITaviView>()->SetSelectedView("sampling");
    return placed;
  }
  throw std::runtime_error("no calibration view");
}

void Calibration::hold(const Placed& placed) const {
  for (const Step& step : mSteps) {
    act(*placed.view, step);
    for (const std::string& answer : step.answers) onlineData(placed, Document::read(answer));
  }
}

}  // namespace ostrand::bench
