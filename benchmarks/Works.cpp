#include "benchmarks/Works.h"

#include <map>
#include <memory>

#include "benchmarks/BenchView.h"
#include "benchmarks/Classic.h"
#include "benchmarks/Documents.h"
#include "benchmarks/Heap.h"
#include "benchmarks/Placed.h"
#include "component/Classes.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand::bench {

namespace {

constexpr int kControls = 60;
constexpr int kViews = 6;

// Written once: the works of one size share it.
const std::string& dataSet(int parameters) {
  static std::map<int, std::string> texts;
  std::string& text = texts[parameters];
  if (text.empty()) text = dataSetText(parameters);
  return text;
}

std::unique_ptr<Paths> readClassic(By by, const std::string& text) {
  if (by == By::Pugixml) return std::make_unique<PugixmlPaths>(text);
  return std::make_unique<LibxmlPaths>(text);
}

void pairWith(Paths& paths, const Document& twin) {
  if (auto* const theirs = dynamic_cast<LibxmlPaths*>(&paths)) theirs->pairWith(twin);
}

// A view that shows a data set whose first parameters are in the answers, and two answers that differ.
struct Live {
  explicit Live(int items) : texts{answerText(items, 1), answerText(items, 2)}, placed(new BenchView(kControls, kControls)) {
    offlineData(placed, Document::read(dataSet(kControls)));
    for (const std::string& text : texts) {
      answers.push_back(Document::read(text));
      onlineData(placed, answers.back());
    }
  }

  std::vector<std::string> texts;
  std::vector<Document> answers;
  Placed placed;
  std::size_t next = 0;
};

const ComponentClass& largestClass() {
  const ComponentClass* largest = nullptr;
  std::size_t most = 0;
  for (const ComponentClass& known : componentClasses()) {
    const Placed placed(known.create());
    std::size_t count = 0;
    for (Control* control : placed.view->controls()) count += 1 + (control->view() ? control->view()->GetControls().size() : 0);
    if (count > most) most = count, largest = &known;
  }
  return *largest;
}

Work lifeOf(std::string name, std::function<Component*()> make) {
  return {std::move(name), [make = std::move(make)](Meter& meter) { meter.measure([&] { Placed(make()).check(); }); }};
}

}  // namespace

Work firstWalk(By by, int parameters, int controls) {
  const std::string& text = dataSet(parameters);
  return {workName(by, "first walk", {parameters, controls}), [=, &text](Meter& meter) {
            const Placed placed(new BenchView(controls, parameters));
            const Document doc = Document::read(text);
            if (by == By::Ostrand) return meter.measure([&] { offlineData(placed, doc); });
            const auto paths = readClassic(by, text);
            pairWith(*paths, doc);
            meter.measure([&] { classicOfflineData(*placed.view, *paths); });
          }};
}

Work furtherWalk(int parameters, int controls) {
  const std::string& text = dataSet(parameters);
  return {workName(By::Ostrand, "further walk", {parameters, controls}), [=, &text](Meter& meter) {
            const Placed first(new BenchView(20, parameters)), further(new BenchView(controls, parameters));
            const Document doc = Document::read(text);
            offlineData(first, doc);
            meter.measure([&] { offlineData(further, doc); });
          }};
}

Work sixViews(int parameters) {
  const std::string& text = dataSet(parameters);
  return {workName(By::Ostrand, "six views", {parameters}), [=, &text](Meter& meter) {
            std::vector<std::unique_ptr<Placed>> views;
            for (int i = 0; i < kViews; ++i)
              views.push_back(std::make_unique<Placed>(new BenchView(kControls, parameters, i * parameters / kControls / kViews)));
            const Document doc = Document::read(text);
            meter.measure([&] {
              for (const auto& placed : views) offlineData(*placed, doc);
            });
          }};
}

Work answer(By by, int items) {
  const auto live = std::make_shared<Live>(items);
  return {workName(by, "answer", {items}), [=](Meter& meter) {
            live->next = 1 - live->next;
            const std::string& text = live->texts[live->next];
            if (by == By::Ostrand) return meter.measure([&] { onlineData(live->placed, Document::read(text)); });
            std::unique_ptr<Paths> paths;
            meter.measure([&] { paths = readClassic(by, text); });
            pairWith(*paths, live->answers[live->next]);
            meter.measure([&] {
              classicOnlineData(*live->placed.view, *paths);
              paths.reset();
            });
          }};
}

Work errorAnswer(int items, int controls) {
  std::string text = answerText(items, 1);
  const std::string status = "responseStatus=\"ok\"";
  text.replace(text.find(status), status.size(), "errorCode=\"communicationError\"");
  return {workName(By::Ostrand, "error", {items, controls}), [=](Meter& meter) {
            const Placed placed(new BenchView(controls, items));
            const Document doc = Document::read(text);
            meter.measure([&] { placed.as<ITaviDataUser>()->SetErrorData(doc); });
            placed.check();
          }};
}

Work insertionAmong(int elements) {
  std::string text = "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse>";
  for (int i = 0; i < elements; ++i) text += "<comm:item name=\"a\"/>";
  const Document doc = Document::read(text + "</comm:communicationResponse></comm:dtm>");
  const Node middle = response(doc).select("comm:item[" + std::to_string(elements / 2) + "]");
  return {workName(By::Ostrand, "insertion", {elements}), [=](Meter& meter) {
            if (!item(doc, "a")) throw std::runtime_error("no such item");
            const Node more = middle.clone();
            meter.measure([&] { middle.parent().insertBefore(more, middle); });
            more.remove();
          }};
}

Work read(By by, int parameters) {
  const std::string& text = dataSet(parameters);
  return {workName(by, "read", {parameters}), [=, &text](Meter& meter) {
            if (by == By::Ostrand) {
              Document doc;
              meter.measure([&] { doc = Document::read(text); });
            } else {
              pugi::xml_document doc;
              meter.measure([&] { doc.load_buffer(text.data(), text.size()); });
            }
          }};
}

Work readInPlace(int parameters) {
  const std::string& text = dataSet(parameters);
  return {workName(By::Pugixml, "read in place", {parameters}), [=, &text](Meter& meter) {
            std::string own = text;
            pugi::xml_document doc;
            meter.measure([&] { doc.load_buffer_inplace(own.data(), own.size()); });
          }};
}

std::string workName(By by, const std::string& what, std::initializer_list<int> sizes) {
  std::string text = what;
  for (const int size : sizes) text += " " + std::to_string(size);
  return text + (by == By::Ostrand ? " by ostrand" : by == By::Pugixml ? " by pugixml" : " by libxml2");
}

std::string nameOfLargestView() { return std::string(largestClass().name); }

Work lifeOfLargestView() { return lifeOf("life of " + nameOfLargestView(), largestClass().create); }

Work lifeOfView(int controls) {
  return lifeOf("life of " + std::to_string(controls) + " controls", [=] { return new BenchView(controls, 2000); });
}

double bytesPerParameter(By by, int parameters) {
  const std::string& text = dataSet(parameters);
  const auto grown = [&, before = Heap::now().bytes] { return static_cast<double>(Heap::now().bytes - before) / parameters; };
  if (by != By::Ostrand) {
    const auto paths = readClassic(by, text);
    return grown();
  }
  const Document doc = Document::read(text);
  offlineData(Placed(new BenchView(kControls, parameters)), doc);
  return grown();
}

double blocksLeftBy(const Work& life) {
  Meter meter;
  life.once(meter);
  const auto before = Heap::now().blocks;
  life.once(meter);
  return static_cast<double>(Heap::now().blocks - before);
}

double signalsOfSameAnswer(int items) {
  const Live live(items);
  int signals = 0;
  for (Control* control : live.placed.view->controls()) {
    control->changed.connect([&] { ++signals; });
    if (auto* const edit = dynamic_cast<EditControl*>(control)) edit->Change.connect([&](const std::string&) { ++signals; });
  }
  onlineData(live.placed, live.answers.back());
  return signals;
}

}  // namespace ostrand::bench
