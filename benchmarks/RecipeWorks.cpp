#include "benchmarks/RecipeWorks.h"

#include <memory>

#include "benchmarks/Placed.h"
#include "component/Classes.h"
#include "platform/base/File.h"

namespace ostrand::bench {

namespace {

constexpr int kRecords = 16;  // and the water
const std::string kData = OSTRAND_SOURCE_DIR "/data/";

const std::string& dataSet() {
  static const std::string text = readWholeFile(kData + "devices/hartGYRE.xml");
  return text;
}

// The user reads temperatures in degrees Fahrenheit, and the rest as the device tells it.
class RecipeUnits final : public HostObject<IUnitConverter> {
 public:
  bool ConvertValue(double value, const std::string& from, const std::string& to, double& result) override {
    return mUnits->ConvertValue(value, from, to, result);
  }
  bool GetUnitInfo(const std::string& name, std::string& unit) override { return name == "processTemperature" && (unit = "degF", true); }

 private:
  Ref<QuietUnits> mUnits{new QuietUnits};
};

Component* makeControl() {
  for (const ComponentClass& known : componentClasses())
    if (known.name == "CtrRecipe") return known.create();
  throw std::runtime_error("no recipe control");
}

std::unique_ptr<Placed> placed(int recipe) {
  static const Document tree = Document::readFile(kData + "trees/hartGYRE.xml");
  const Ref<QuietMessenger> host(new QuietMessenger);
  host->units = Ref<IUnitConverter>(new RecipeUnits);
  host->tree = tree;
  return std::make_unique<Placed>(makeControl(), "recipe" + std::to_string(recipe), host);
}

std::string item(const std::string& name, const std::string& value, const std::string& unit = "noUnit", const std::string& type = "floatVal") {
  return "<comm:item name=\"" + name + "\" unit=\"" + unit + "\"><comm:" + type + ">" + value + "</comm:" + type + "></comm:item>";
}

std::string whole(const std::string& name, int value) { return item(name, std::to_string(value), "noUnit", "integerVal"); }

std::string answerOf(const std::string& name, const std::string& items) {
  return "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse name=\"" + name +
         "\" access=\"read\" isFinal=\"1\" responseStatus=\"device\">" + items + "</comm:communicationResponse></comm:dtm>";
}

// A record in its two halves; each salt tells other values.
std::vector<std::string> recordAnswers(int id, int salt) {
  const auto number = [&](const char* before, int digits) { return before + std::to_string(digits + 3 * id + salt); };
  const std::string name = "recipe1sampleHistory";
  return {
      answerOf(name, whole("sampleHistory1Recipe", 1) + whole("sampleHistory1Index", id) + whole("historyId", id) +
                         item("historyTime", number("2026-01-05 08:00:", 10).substr(0, 19), "noUnit", "stringVal") +
                         item("historyProcessTemperature", number("5", 10), "degC") + item("historyTorque", number("0.", 210), "Nm") +
                         item("historyConsistency", number("2.", 300), "%Cs") + item("historyUncompensatedConsistency", number("2.", 320), "%Cs")),
      answerOf(name, whole("sampleHistory2Recipe", 1) + whole("sampleHistory2Index", id) + whole("historyId", id) + whole("historyRecipe", 1) +
                         item("historyDeviation", number("0.0", 10), "%Cs") + item("historyMin", number("2.", 200), "%Cs") +
                         item("historyMax", number("2.", 400), "%Cs") + item("historyLabConsistency", number("2.", 330), "%Cs") +
                         item("historyLabFiller", number("1", 0), "%"))};
}

// A control that shows one of two histories.
struct History {
  History() : control(placed(1)) {
    offlineData(*control, Document::read(dataSet()));
    for (int salt = 0; salt < 2; ++salt) {
      answers[salt].push_back(answerOf("recipe1", whole("recipe1SampleCount", kRecords)));
      for (int id = kRecords; id >= 0; --id)
        for (std::string& half : recordAnswers(id, salt)) answers[salt].push_back(std::move(half));
    }
  }

  std::unique_ptr<Placed> control;
  std::vector<std::string> answers[2];
  int next = 0;
};

}  // namespace

Work recipeWalk(By by, int controls) {
  if (by != By::Ostrand)
    return {workName(by, "read GYRE"), [](Meter& meter) {
              pugi::xml_document doc;
              meter.measure([&] { doc.load_buffer(dataSet().data(), dataSet().size()); });
            }};
  return {workName(by, "recipe walk", {controls}), [=](Meter& meter) {
            std::vector<std::unique_ptr<Placed>> recipes;
            for (int recipe = 1; recipe <= controls; ++recipe) recipes.push_back(placed(recipe));
            const Document doc = Document::read(dataSet());
            meter.measure([&] {
              for (const auto& recipe : recipes) offlineData(*recipe, doc);
            });
          }};
}

Work recipeHistory() {
  return {workName(By::Ostrand, "recipe history"), [history = std::shared_ptr<History>()](Meter& meter) mutable {
            if (!history) history = std::make_shared<History>();
            history->next = 1 - history->next;
            meter.measure([&] {
              for (const std::string& text : history->answers[history->next]) onlineData(*history->control, Document::read(text));
            });
          }};
}

}  // namespace ostrand::bench
