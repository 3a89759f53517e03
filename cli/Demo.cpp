#include "cli/Demo.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "host/DataFolder.h"
#include "host/transcript/ControlPath.h"
#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Component.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/ListView.h"

namespace ostrand {

namespace {

using Road = Narrator::Road;

constexpr const char* kLiveFrame = "monitoringVariables";
constexpr const char* kRecipeFrame = "activeRecipe";
constexpr const char* kSlope = "recipe1LinearizationSlopeP1";
constexpr const char* kOffset = "recipe1LinearizationOffsetP2";

constexpr int kReadings = 12;
// The view shows every value that comes by; of the group itself there are so many, of which the first tell the consistency.
constexpr int kLiveRows = 8;
constexpr int kConsistencyRows = 3;
// Shorter than a host would take, so that something is to be seen.
constexpr double kPeriod = 0.3;
constexpr double kSampling = 25;
// How often the answers are looked for, and how long one is waited for.
constexpr double kLook = 0.05;
constexpr std::chrono::seconds kPatience{30};
// The mill moves to another consistency 200 seconds after the start, and has got there 40 seconds later.
constexpr double kMoved = 245;
// As far apart as the noise of the pulp may bring two numbers that mean the same, in %Cs.
constexpr double kAgreement = 0.05;

const DeviceKind& deviceKind(const std::string& name) {
  for (const DeviceKind& kind : deviceKinds())
    if (kind.name == name) return kind;
  throw RuntimeError(RuntimeError::BadArgument, "no such device: \"" + name + "\"");
}

std::string consistencyText(double value) { return fixedText(value, 2, '.') + " %Cs"; }

}  // namespace

Demo::Demo(const Terminal& terminal, Desktop& desktop, Desktop* reader, ComponentSource& components, const Options& options)
    : mTerminal(terminal),
      mDesktop(desktop),
      mStart(desktop.now()),
      mNarrator(terminal, desktop, reader),
      mHost(desktop, components, mNarrator, dataFolder(), mNarrator.taps()) {
  mNarrator.follow(mHost);
  mHost.user().setLanguage(options.language);
  const DeviceKind& kind = deviceKind(options.device);
  mHost.openDataSet(dataFolder() / kind.dataSet);
  mHost.connect(makeDevice(kind.name, mDesktop, mHost.dataSet()->document(), options.seed));
  mHost.views().liveReading().setPeriod(kPeriod);
  const DataSet& dataSet = *mHost.dataSet();

  mTerminal.line(mTerminal.styled("A conversation with a simulated transmitter", Terminal::Style::Heading));
  mNarrator.line();
  const std::vector<std::vector<std::string>> facts = {
      {"device", std::string(kind.name) + ", " + std::string(kind.description)},
      {"on the bus",
       dataSet.busCategory() + ", " + fixedText(mHost.communication().device()->busTimePerTransaction(), 2, '.') + " s for each transaction"},
      {"data set", std::to_string(dataSet.parameters().size()) + " parameters in " + std::to_string(dataSet.groups().size()) + " groups, from " +
                       dataSet.file().filename().string()},
  };
  for (const std::string& line : aligned(facts)) mNarrator.line(line);
}

// --- a laboratory calibration

void Demo::calibrate() {
  mNarrator.scene("What the transmitter reads",
                  "The view is made and gets the data set. While this frame is in front, the host reads its group again and again.");
  const Ref<ViewSite> measurement = open("VwMeasurement", kLiveFrame);
  watchLiveValues(kReadings, kLiveRows);

  mNarrator.scene("Sample 1", "The device averages its reading while somebody draws a sample of the pulp for the laboratory.");
  const Ref<ViewSite> calibration = open("VwCalibration", "sampling");
  takeSample(1);

  mNarrator.scene("Sample 2", "Two points make a line, if they are apart: the mill has moved to another consistency meanwhile.");
  passUntil(kMoved);
  takeSample(2);
  mNarrator.drawForm(*calibration);
  mNarrator.setQuiet(true);
  bringToFront(measurement, kLiveFrame);
  const double before = watchLiveValues(kReadings / 2, kConsistencyRows);

  mNarrator.scene("What the laboratory found",
                  "It is entered for both samples, and goes to the device by a click. The verdict comes from the device.");
  bringToFront(calibration, "laboratoryResults");
  enterResults();

  mNarrator.scene("The recipe", "The device has worked out another slope and offset. The host reads them back.");
  readRecipesBack();

  mNarrator.scene("What the transmitter reads now", "");
  mNarrator.setQuiet(true);
  bringToFront(measurement, kLiveFrame);
  const double after = watchLiveValues(kReadings, kConsistencyRows);
  closeWith(before, after);
  showTips();
}

void Demo::takeSample(int number) {
  const std::string button = "Sample" + std::to_string(number) + "Button";
  click(button + "(0)");
  settle();
  mDesktop.wait(kSampling);
  click(button + "(1)");
  settle();
}

void Demo::enterResults() {
  choose("cce_laboratoryResults(0)", "useBothSamples");
  choose("cce_laboratoryResults(1)", "recipe1");
  type("cte_laboratoryResults(0)", "0");
  for (const int sample : {1, 2}) type("cte_laboratoryResults(" + std::to_string(sample) + ")", fixedText(laboratoryValue(sample), 2, '.'));
  mNarrator.drawForm(*mHost.views().front());
  mNarrator.line();
  click("LabCalibrateBtn");
  settle();
}

void Demo::readRecipesBack() {
  const std::vector<std::string> before = {shown(kSlope), shown(kOffset)};
  mHost.views().bringToFront(*mHost.views().front(), "recipes");
  mHost.exchange().readGroup("recipes");
  settle();
  mNarrator.line();
  const auto text = [this](const char* key) { return mHost.user().textTable()->GetText(key); };
  const std::vector<std::vector<std::string>> rows = {
      {text("recipe1"), "before", "after"},
      {text("linearizationSlopeP1"), before[0], shown(kSlope)},
      {text("linearizationOffsetP2"), before[1], shown(kOffset)},
  };
  for (const std::string& line : aligned(rows, {1, 2})) mNarrator.line(line);
}

void Demo::closeWith(double before, double after) {
  const double laboratory = laboratoryValue(2);
  const bool agrees = std::abs(after - laboratory) < kAgreement;
  mNarrator.line();
  const std::vector<std::vector<std::string>> rows = {
      {"Reading before", consistencyText(before), ""},
      {"Laboratory", consistencyText(laboratory), "sample 2"},
      {"Reading after", consistencyText(after), agrees ? "agrees with the laboratory" : "does not agree with the laboratory"},
  };
  const std::vector<std::string> lines = aligned(rows, {1});
  for (const std::string& line : lines)
    mNarrator.line(line, &line != &lines.back() ? Terminal::Style::Plain : agrees ? Terminal::Style::Good : Terminal::Style::Bad);
}

// --- the active recipe

void Demo::changeRecipe(int recipe) {
  const std::string number = std::to_string(recipe);
  mNarrator.scene("The user changes the active recipe",
                  "A choice and a click. What leaves the view is a write request; what comes back is the device's word.");
  const Ref<ViewSite> measurement = open("VwMeasurement", kRecipeFrame);
  mHost.exchange().readGroup(kRecipeFrame);
  settle();
  choose("cceActiveRecipe", "recipe" + number);
  click("cmdActiveRecipeSetButton");
  settle();
  mNarrator.drawForm(*measurement);
  const auto& choice = control<CtrComboEdit>("cceActiveRecipe");
  const bool confirmed = mHost.dataSet()->value(kRecipeFrame) == number && !choice.Modified();
  mNarrator.line();
  mNarrator.line(confirmed ? "The device has confirmed it: " + choice.displayText() + " is active." : "The device has not taken it.",
                 confirmed ? Terminal::Style::Good : Terminal::Style::Bad);

  mNarrator.scene("The transmitter measures with it", "");
  mNarrator.setQuiet(true);
  bringToFront(measurement, kLiveFrame);
  watchLiveValues(kReadings, kLiveRows);
  showTips();
}

void Demo::showTips() {
  mTerminal.line();
  mTerminal.line(mTerminal.styled("What to try next", Terminal::Style::Heading));
  const std::vector<std::vector<std::string>> tips = {
      {"ostrand demo --recipe 3", "another active recipe, by a choice and a click"},
      {"ostrand demo --bus profibus", "the calibration on the other bus"},
      {"ostrand demo --language fi", "the same in Finnish (de, en, fi, sv)"},
      {"ostrand devices", "the simulated devices, and the faults that they can have"},
      {"ostrand replay tests/transcripts", "the conversations that are kept as tests"},
      {"ostrand --help", "everything else"},
  };
  for (const std::string& line : aligned(tips)) mNarrator.line(line);
  mNarrator.line();
  mNarrator.line("From the source tree each goes as ./run, as in ./run devices.", Terminal::Style::Dim);
}

// --- what the user does

Ref<ViewSite> Demo::open(const std::string& className, const std::string& key) {
  const Ref<ViewSite> site = mHost.views().place(className);
  mHost.views().showsFront(*site);
  mHost.views().open(*site, key);
  return site;
}

void Demo::bringToFront(const Ref<ViewSite>& site, const std::string& key) {
  mHost.views().bringToFront(*site, key);
  settle();
}

template <class T>
T& Demo::control(const std::string& name) const {
  ViewSite* const front = mHost.views().front();
  if (front)
    if (T* const found = dynamic_cast<T*>(findControl(front->view()->GetControls(), name))) return *found;
  throw RuntimeError(RuntimeError::NothingThere, "there is no control \"" + name + "\" in front");
}

void Demo::choose(const std::string& name, const std::string& key) {
  auto& combo = control<CtrComboEdit>(name);
  mNarrator.say(Road::UserToView, "chooses \"" + combo.label(key) + "\"",
                combo.Text() == key ? "as it was" : "in place of \"" + combo.displayText() + "\"");
  combo.choose(key);
}

void Demo::type(const std::string& name, const std::string& text) {
  auto& edit = control<CtrTextEdit>(name);
  mNarrator.say(Road::UserToView, "types " + text, mHost.user().textTable()->GetText(std::string(edit.parameterName())));
  edit.type(text);
}

void Demo::click(const std::string& name) {
  auto& button = control<CommandButton>(name);
  mNarrator.say(Road::UserToView, "clicks \"" + button.Caption() + "\"");
  button.click();
}

// --- what is seen

std::vector<std::string> Demo::liveValues(int count) const {
  const Control* const place = findControl(mHost.views().front()->view()->GetControls(), "CtrMonitoring1");
  const ListView* list = nullptr;
  for (const Control* each : place && place->view() ? place->view()->GetControls() : ControlCollection{})
    if (const auto* const found = dynamic_cast<const ListView*>(each)) list = found;
  if (!list) return {};
  std::vector<std::vector<std::string>> rows(1);
  for (int column = 1; column <= list->ColumnCount(); ++column) rows[0].push_back(list->Header(column));
  for (int row = 1; row <= std::min(count, list->Count()); ++row) {
    rows.emplace_back();
    for (int column = 1; column <= list->ColumnCount(); ++column) rows.back().push_back(list->Cell(row, column));
  }
  return aligned(rows, {1});
}

bool Demo::awaitReading() {
  const int before = mNarrator.done(kLiveFrame);
  const LocalTime late = mDesktop.now() + kPatience;
  while (mNarrator.done(kLiveFrame) == before && mDesktop.now() < late) mDesktop.wait(kLook);
  return mNarrator.done(kLiveFrame) != before;
}

double Demo::watchLiveValues(int readings, int rows) {
  // The first reading is told in full, the others are seen in the values.
  bool reading = awaitReading();
  mNarrator.setQuiet(true);
  mNarrator.line();
  std::size_t shown = 0;
  for (int i = 1; i <= readings && reading; ++i) {
    if (mNarrator.hasReader() || i == readings) {
      mTerminal.back(shown);
      const std::vector<std::string> lines = liveValues(rows);
      for (const std::string& line : lines) mNarrator.line(line);
      shown = lines.size();
      mNarrator.pause(kPeriod);
    }
    if (i < readings) reading = awaitReading();
  }
  mNarrator.setQuiet(false);
  mNarrator.line();
  if (!reading) mNarrator.line("The device does not answer.", Terminal::Style::Bad);
  if (reading) mNarrator.line(std::to_string(readings) + " readings, the last at " + mHost.dataSet()->lastUpdate(kLiveFrame), Terminal::Style::Dim);
  return parseNumber(mHost.dataSet()->value("consistency"), '.').value_or(0);
}

double Demo::laboratoryValue(int sample) { return mHost.communication().device()->laboratoryValue(sample).value_or(0); }

std::string Demo::shown(const std::string& parameter) const {
  const ParameterInfo info = mHost.dataSet()->info(parameter);
  const auto number = parseNumber(mHost.dataSet()->value(parameter), '.');
  const std::string unit = mHost.user().textTable()->GetSectionText(info.unit, "unit");
  return (number ? fixedText(*number, info.decimals.value_or(0), '.') : "") + (unit.empty() ? "" : " " + unit);
}

void Demo::settle() {
  while (!mHost.communication().idle()) mDesktop.wait(kLook);
}

void Demo::passUntil(double secondsSinceStart) { mDesktop.wait(secondsSinceStart - static_cast<double>((mDesktop.now() - mStart).count()) / 1000.0); }

}  // namespace ostrand
