#include "cli/Demo.h"

#include <algorithm>
#include <chrono>
#include <map>

#include "host/DataFolder.h"
#include "host/transcript/ControlText.h"
#include "host/transcript/RecordingContainer.h"
#include "host/transcript/RecordingMessenger.h"
#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Component.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/EditControl.h"
#include "platform/controls/ListView.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr const char* kDevice = "hartBlade";
constexpr const char* kView = "VwMeasurement";
constexpr const char* kLiveFrame = "monitoringVariables";
constexpr const char* kRecipeFrame = "activeRecipe";
constexpr const char* kNewRecipe = "recipe3";
constexpr const char* kNewRecipeOnTheWire = "3";

constexpr int kReadings = 12;
// Shorter than a host would take, so that something is to be seen.
constexpr double kPeriod = 0.3;
constexpr std::size_t kRoadWidth = 15;
constexpr std::size_t kTextWidth = 44;
const std::string kMargin = "  ";

const DeviceKind& deviceKind() {
  for (const DeviceKind& kind : deviceKinds())
    if (kind.name == kDevice) return kind;
  throw RuntimeError(RuntimeError::BadArgument, std::string("no such device: \"") + kDevice + "\"");
}

}  // namespace

Demo::Demo(const Terminal& terminal, Desktop& desktop, ComponentSource& components)
    : mTerminal(terminal),
      mDesktop(desktop),
      mStart(desktop.now()),
      mHost(desktop, components, *this, dataFolder(),
            {[this](ViewSite&, Ref<Messenger> messenger) { return Ref<Messenger>(new RecordingMessenger(*this, std::move(messenger))); },
             [this](ViewSite&, Ref<IHostContainer> container) { return Ref<IHostContainer>(new RecordingContainer(*this, std::move(container))); }}) {
  mHost.observers().add(*this);
}

Demo::~Demo() { mHost.observers().remove(*this); }

// --- the scenes

void Demo::play(const std::string& language, unsigned seed) {
  mHost.setLanguage(language);
  const DeviceKind& kind = deviceKind();
  mHost.openDataSet(dataFolder() / kind.dataSet);
  mHost.connect(makeDevice(kind.name, mDesktop, mHost.dataSet()->document(), seed));
  mHost.liveReading().setPeriod(kPeriod);
  const DataSet& dataSet = *mHost.dataSet();

  mTerminal.line(mTerminal.styled("A conversation with a simulated transmitter", Terminal::Style::Heading));
  mTerminal.line();
  const std::vector<std::vector<std::string>> facts = {
      {"device", std::string(kind.name) + ", " + std::string(kind.description)},
      {"on the bus", dataSet.busCategory() + ", " + fixedText(mHost.communication().device()->busTimePerTransaction(), 2, '.') + " s for each transaction"},
      {"data set", std::to_string(dataSet.parameters().size()) + " parameters in " + std::to_string(dataSet.groups().size()) + " groups, from " +
                       dataSet.file().filename().string()},
      {"tag", dataSet.value("tag") + ", " + dataSet.value("description")},
  };
  for (const std::string& line : aligned(facts)) mTerminal.line(kMargin + line);

  scene("The view opens", std::string("The host creates ") + kView + " by its name and hands it the data set. The view finds its values by the tags of its controls.");
  mSite = mHost.place(kView);
  mHost.open(*mSite, kRecipeFrame);
  showFront();

  scene("Live values", "While this frame is in front, the host reads its group again and again.");
  mHost.bringToFront(*mSite, kLiveFrame);
  watchLiveValues(kReadings);

  scene("The user changes the active recipe", "A choice and a click. What leaves the view is a write request; what comes back is the device's word.");
  mHost.bringToFront(*mSite, kRecipeFrame);
  settle();
  changeRecipe();
  showFront();

  scene("The transmitter measures with the new recipe", "");
  mHost.bringToFront(*mSite, kLiveFrame);
  watchLiveValues(kReadings / 2);

  mQuiet = true;
  mHost.release(*mSite);
  showTail();
}

void Demo::changeRecipe() {
  auto& recipe = control<CtrComboEdit>("ctr_activeRecipe");
  auto& button = control<CommandButton>("download");
  say(Road::UserToView, "chooses \"" + recipe.label(kNewRecipe) + "\"", "in place of \"" + recipe.displayText() + "\"");
  recipe.choose(kNewRecipe);
  pause(1.2);
  say(Road::UserToView, "clicks \"" + button.Caption() + "\"");
  button.click();
  settle();
  const std::string now = mHost.dataSet()->value(kRecipeFrame);
  const bool confirmed = now == kNewRecipeOnTheWire && !recipe.Modified();
  mTerminal.line();
  mTerminal.line(kMargin + mTerminal.styled(confirmed ? "The device has confirmed it: " + recipe.displayText() + " is active." : "The device has not taken it.",
                                            confirmed ? Terminal::Style::Good : Terminal::Style::Bad));
}

void Demo::showTail() {
  mTerminal.line();
  mTerminal.line(mTerminal.styled("What to try next", Terminal::Style::Heading));
  const std::vector<std::vector<std::string>> tips = {
      {"ostrand demo --language fi", "the same in Finnish (de, en, fi, sv)"},
      {"ostrand classes", "the components that a host can create"},
      {"ostrand devices", "the simulated devices, and the faults that they can have"},
      {"ostrand check hartBlade", "whether data set, views and texts fit together"},
      {"ostrand replay tests/transcripts", "the conversations that are kept as tests"},
      {"ostrand --help", "everything else"},
  };
  for (const std::string& line : aligned(tips)) mTerminal.line(kMargin + line);
  mTerminal.line();
  mTerminal.line(kMargin + mTerminal.styled("From the source tree each goes as ./run, as in ./run classes.", Terminal::Style::Dim));
}

void Demo::scene(const std::string& title, const std::string& explanation) {
  pause(1.0);
  mTerminal.line();
  mTerminal.line(mTerminal.styled(title, Terminal::Style::Heading));
  if (!explanation.empty()) mTerminal.line(mTerminal.styled(explanation, Terminal::Style::Dim));
  mTerminal.line();
}

void Demo::settle() {
  while (!mHost.communication().idle()) mDesktop.wait(0.05);
}

void Demo::pause(double seconds) {
  if (mTerminal.isWatched()) mDesktop.wait(seconds);
}

template <class T>
T& Demo::control(const std::string& tag) {
  for (Control* each : mSite->view()->GetControls())
    if (each->Tag() == tag)
      if (T* const found = dynamic_cast<T*>(each)) return *found;
  throw RuntimeError(RuntimeError::NothingThere, std::string(kView) + " has no control with the tag \"" + tag + "\"");
}

// --- what is seen

void Demo::showFront() {
  const auto* const component = dynamic_cast<const Component*>(mSite->view());
  if (!component || !component->front()) return;
  std::string title, stamp;
  std::map<int, std::vector<std::string>> byTop;
  for (const Control* each : controlsOf(component->controls(), *component->front())) {
    if (!each->Visible() || each == component->front()) continue;
    if (const auto* const caption = dynamic_cast<const CaptionedControl*>(each)) {
      if (each->kind() == Control::Kind::DateLabel)
        stamp = caption->Caption();
      else if (each->Tag() == component->front()->Tag())
        title = caption->Caption();
      else
        byTop[each->Top()].push_back(each->kind() == Control::Kind::CommandButton ? "( " + caption->Caption() + " )" : caption->Caption());
    } else if (const auto* const edit = dynamic_cast<const EditControl*>(each)) {
      byTop[each->Top()].push_back("[ " + edit->displayText() + (each->kind() == Control::Kind::ComboEdit ? " v ]" : " ]"));
    }
  }
  std::vector<std::vector<std::string>> rows;
  for (auto& [top, row] : byTop) {
    // A control without a label stands under the other controls.
    if (row.size() == 1) row.insert(row.begin(), "");
    rows.push_back(row);
  }
  std::size_t width = placesOf(title) + placesOf(stamp) + 4;
  const std::vector<std::string> lines = aligned(rows);
  for (const std::string& line : lines) width = std::max(width, placesOf(line) + 2);
  const auto bar = [](std::size_t count) {
    std::string text;
    while (count-- > 0) text += "─";
    return text;
  };
  mTerminal.line();
  mTerminal.line(kMargin + "┌ " + mTerminal.styled(title, Terminal::Style::Heading) + " " + bar(width - placesOf(title) - placesOf(stamp) - 4) + " " +
                 mTerminal.styled(stamp, Terminal::Style::Dim) + " ┐");
  for (const std::string& line : lines) mTerminal.line(kMargin + "│ " + padded(line, width - 2) + " │");
  mTerminal.line(kMargin + "└" + bar(width) + "┘");
}

std::size_t Demo::showLiveValues() {
  const Control* place = nullptr;
  for (const Control* each : mSite->view()->GetControls())
    if (each->Tag() == kLiveFrame) place = each;
  if (!place || !place->view()) return 0;
  const ListView* list = nullptr;
  for (const Control* each : place->view()->GetControls())
    if (const auto* const found = dynamic_cast<const ListView*>(each)) list = found;
  if (!list) return 0;
  std::vector<std::vector<std::string>> rows(1);
  for (int column = 1; column <= list->ColumnCount(); ++column) rows[0].push_back(list->Header(column));
  for (int row = 1; row <= list->Count(); ++row) {
    rows.emplace_back();
    for (int column = 1; column <= list->ColumnCount(); ++column) rows.back().push_back(list->Cell(row, column));
  }
  const std::vector<std::string> lines = aligned(rows, {1});
  for (std::size_t i = 0; i < lines.size(); ++i) mTerminal.line(kMargin + (i == 0 ? mTerminal.styled(lines[i], Terminal::Style::Dim) : lines[i]));
  return lines.size();
}

bool Demo::awaitReading() {
  const int before = mReadings;
  const LocalTime late = mDesktop.now() + std::chrono::seconds(30);
  while (mReadings == before && mDesktop.now() < late) mDesktop.wait(0.05);
  return mReadings != before;
}

void Demo::watchLiveValues(int readings) {
  // The first reading is told in full, the others are seen in the values.
  bool reading = awaitReading();
  mQuiet = true;
  mTerminal.line();
  std::size_t shown = mTerminal.isWatched() ? showLiveValues() : 0;
  for (int i = 1; i < readings && reading; ++i) {
    reading = awaitReading();
    mTerminal.back(shown);
    if (mTerminal.isWatched()) shown = showLiveValues();
  }
  if (!mTerminal.isWatched()) showLiveValues();
  mQuiet = false;
  mTerminal.line();
  const std::string summary = reading ? std::to_string(readings) + " readings, the last at " + mHost.dataSet()->lastUpdate(kLiveFrame) : "The device does not answer.";
  mTerminal.line(kMargin + mTerminal.styled(summary, reading ? Terminal::Style::Dim : Terminal::Style::Bad));
}

void Demo::say(Road road, const std::string& what, const std::string& more) {
  if (mQuiet) return;
  struct Name {
    const char* text;
    Terminal::Style style;
  };
  static constexpr Name kNames[] = {
      {"user > view", Terminal::Style::Yellow},   {"view > host", Terminal::Style::Magenta}, {"host > device", Terminal::Style::Blue},
      {"device > host", Terminal::Style::Good}, {"host > view", Terminal::Style::Cyan},    {"host > user", Terminal::Style::Bad},
  };
  const Name& name = kNames[static_cast<int>(road)];
  const double seconds = static_cast<double>((mDesktop.now() - mStart).count()) / 1000.0;
  const std::string time = padded(fixedText(seconds, 2, '.'), 7, true) + " s";
  mTerminal.line(mTerminal.styled(time, Terminal::Style::Dim) + "  " + mTerminal.styled(padded(name.text, kRoadWidth), name.style) +
                 (more.empty() ? what : padded(what, kTextWidth) + "  " + mTerminal.styled(more, Terminal::Style::Dim)));
}

std::string Demo::worded(const std::string& parameter, const std::string& value) const {
  const Node choices = mapping(mHost.dataSet()->document(), parameter);
  for (Node each = choices ? choices.firstChild() : nullptr; each; each = each.nextSibling())
    if (each.findAttribute("value") == value) return value + " (" + text(std::string(each.findAttribute("key").value_or(""))) + ")";
  const ParameterInfo info = mHost.dataSet()->info(parameter);
  const auto number = info.isFloat() && info.decimals ? parseNumber(value, '.') : std::nullopt;
  if (!number) return value;
  const std::string unit = mHost.textTable()->GetSectionText(info.unit, "unit");
  return fixedText(*number, *info.decimals, '.') + (unit.empty() ? "" : " " + unit);
}

std::string Demo::folded(const Document& message) const {
  const Node body = message.root().firstChild();
  std::vector<std::string> items;
  for (Node item = body ? body.firstChild() : nullptr; item; item = item.nextSibling()) {
    const std::string name(item.findAttribute("name").value_or(""));
    const std::string value = item.text();
    items.push_back(value.empty() ? name : name + " = " + worded(name, value));
  }
  constexpr std::size_t kMany = 2;
  std::string all;
  for (std::size_t i = 0; i < items.size() && i < kMany; ++i) all += (i ? ", " : "") + items[i];
  if (items.size() > kMany) all += " and " + std::to_string(items.size() - kMany) + " more";
  return all;
}

// --- what the host tells

void Demo::requestSent(const Request& request) {
  say(Road::HostToDevice, (request.write ? "write " : "read ") + request.name, folded(request.document));
}

void Demo::requestAnswered(const Request& request, const Document& answer) {
  const AnswerHead head = headOf(answer);
  const std::string done = request.write ? "has taken over " + request.name : "answers " + request.name + (head.isFinal ? ", complete" : "");
  const std::string what = head.errorCode.empty() ? done : "refuses " + request.name;
  say(Road::DeviceToHost, what, head.errorCode.empty() ? folded(answer) : text(head.errorCode));
}

void Demo::requestFinished(const Request& request, Outcome outcome) {
  if (request.name == kLiveFrame && outcome == Outcome::Done) ++mReadings;
  if (outcome == Outcome::NoAnswer) say(Road::DeviceToHost, "does not answer " + request.name);
}

void Demo::viewPlaced(const ViewSite& site) { say(Road::HostToView, "creates " + site.className()); }

void Demo::viewLocalized(const ViewSite&, const std::string& language) { say(Road::HostToView, "Localize", language); }

void Demo::viewSelected(const ViewSite&, const std::string& key) { say(Road::HostToView, "SetSelectedView", text(key)); }

void Demo::viewHandedIn(const ViewSite&, DataPath path, const Document& document) {
  switch (path) {
    case DataPath::Import: say(Road::HostToView, "SetImportData", "the data set"); break;
    case DataPath::Offline: say(Road::HostToView, "SetOfflineData", "the data set"); break;
    case DataPath::Online: say(Road::HostToView, "SetOnlineData", folded(document)); break;
    case DataPath::Error: say(Road::HostToView, "SetErrorData", folded(document)); break;
  }
}

void Demo::viewEvent(const std::string&, const ViewEvent& event) {
  if (event.kind == ViewEvent::Kind::SetCommunicationMode)
    say(Road::HostToView, "ViewSetCommunicationMode " + std::to_string(event.mode), event.mode == 11 ? "values go to the device" : "");
}

CallListener::Call Demo::begins(const CallText& call) {
  // The log of the walk through the controls would tell a newcomer nothing.
  if (call.told && call.name != "Log") say(Road::ViewToHost, call.line(), call.xml ? folded(readRequestText(*call.xml, {})) : "");
  return 0;
}

void Demo::fails(Call, const ErrorText& error) { say(Road::ViewToHost, "which failed", error.description); }

int Demo::ask(const std::string& title, const std::string& message) {
  say(Road::HostToUser, title, message);
  return kGoOn;
}

void Demo::show(const std::string& title, const std::string& message) { say(Road::HostToUser, title, message); }

}  // namespace ostrand
