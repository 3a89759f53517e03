#include "cli/Narrator.h"

#include <algorithm>
#include <utility>

#include "host/transcript/ControlText.h"
#include "host/transcript/RecordingContainer.h"
#include "host/transcript/RecordingMessenger.h"
#include "platform/base/Characters.h"
#include "platform/base/NumberText.h"
#include "platform/controls/CaptionedControl.h"
#include "platform/controls/Choices.h"
#include "platform/controls/Component.h"
#include "platform/controls/EditControl.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr std::size_t kRoadWidth = 15;
constexpr std::size_t kTextWidth = 44;
// Seconds for a reader to take in a line, and a heading.
constexpr double kLine = 0.25;
constexpr double kHeading = 1.5;
const std::string kMargin = "  ";

// A control as text can draw it; an empty text for what is not to be seen or is no field.
std::string drawn(const Control* control) {
  if (!control || !control->Visible()) return {};
  if (const auto* const edit = dynamic_cast<const EditControl*>(control))
    return "[ " + edit->displayText() + (control->kind() == Control::Kind::ComboEdit ? " v ]" : " ]");
  const auto* const captioned = dynamic_cast<const CaptionedControl*>(control);
  if (!captioned) return {};
  return control->kind() == Control::Kind::CommandButton ? "( " + captioned->Caption() + " )" : captioned->Caption();
}

}  // namespace

Views::Taps Narrator::taps() {
  return {[this](ViewSite&, Ref<Messenger> messenger) { return Ref<Messenger>(new RecordingMessenger(*this, std::move(messenger))); },
          [this](ViewSite&, Ref<IHostContainer> container) { return Ref<IHostContainer>(new RecordingContainer(*this, std::move(container))); }};
}

void Narrator::follow(Host& host) {
  mHost = &host;
  host.observers().add(*this);
}

// --- how it is told

void Narrator::scene(const std::string& title, const std::string& explanation) {
  endSwarm();
  pause(kHeading);
  mTerminal.line();
  mTerminal.line(mTerminal.styled(title, Terminal::Style::Heading));
  if (explanation.empty()) return;
  mTerminal.line(mTerminal.styled(explanation, Terminal::Style::Dim));
  mTerminal.line();
}

void Narrator::say(Road road, const std::string& what, const std::string& more) {
  if (mQuiet) return;
  endSwarm();
  // A document goes from hand to hand.
  const bool again = more.size() > kTextWidth && more == mLastTold;
  print(time(), road, what, again ? "the same" : more);
  if (!more.empty()) mLastTold = more;
}

void Narrator::line(const std::string& text, Terminal::Style style) {
  endSwarm();
  mTerminal.line(text.empty() ? "" : kMargin + mTerminal.styled(text, style));
}

void Narrator::pause(double seconds) {
  if (mReader) mReader->wait(seconds);
}

void Narrator::setQuiet(bool quiet) {
  endSwarm();
  mQuiet = quiet;
}

int Narrator::done(const std::string& request) const {
  const auto found = mDone.find(request);
  return found == mDone.end() ? 0 : found->second;
}

std::string Narrator::time() const {
  const double seconds = static_cast<double>((mClock.now() - mStart).count()) / 1000.0;
  return padded(fixedText(seconds, 2, '.'), 7, true) + " s";
}

void Narrator::print(const std::string& time, Road road, const std::string& what, const std::string& more) {
  struct Name {
    const char* text;
    Terminal::Style style;
  };
  static constexpr Name kNames[] = {
      {"user > view", Terminal::Style::Yellow}, {"view > host", Terminal::Style::Magenta}, {"host > device", Terminal::Style::Blue},
      {"device > host", Terminal::Style::Good}, {"host > view", Terminal::Style::Cyan},    {"host > user", Terminal::Style::Bad},
  };
  const Name& name = kNames[static_cast<int>(road)];
  mTerminal.line(mTerminal.styled(time, Terminal::Style::Dim) + "  " + mTerminal.styled(padded(name.text, kRoadWidth), name.style) +
                 (more.empty() ? what : padded(what, kTextWidth) + "  " + mTerminal.styled(more, Terminal::Style::Dim)));
  pause(kLine);
}

void Narrator::endSwarm() {
  if (!mSwarm) return;
  const Swarm swarm = *std::exchange(mSwarm, std::nullopt);
  print(swarm.time, Road::ViewToHost, swarm.first + (swarm.others > 0 ? " and " + std::to_string(swarm.others) + " more" : ""), "");
}

void Narrator::drawForm(const ViewSite& site) {
  endSwarm();
  const auto* const component = dynamic_cast<const Component*>(site.view());
  if (!component || !component->front()) return;
  const FormFrame* const form = component->formOf(component->front());
  if (!form) return;
  const std::string title = drawn(form->title), stamp = drawn(form->stamp);
  std::vector<std::vector<std::string>> rows;
  for (const FormBlock& block : form->blocks)
    for (const FormRow& declared : block.rows) {
      std::vector<std::string> row{drawn(declared.label)};
      for (const FormCell& cell : declared.cells) {
        row.resize(static_cast<std::size_t>(cell.column) + 1);
        for (const Control* each : cell.controls) row.back() += drawn(each);
      }
      if (std::any_of(row.begin(), row.end(), [](const std::string& text) { return !text.empty(); })) rows.push_back(std::move(row));
    }
  std::size_t width = characterCount(title) + characterCount(stamp) + 4;
  const std::vector<std::string> lines = aligned(rows);
  for (const std::string& line : lines) width = std::max(width, characterCount(line) + 2);
  const auto bar = [](std::size_t count) {
    std::string text;
    while (count-- > 0) text += "─";
    return text;
  };
  mTerminal.line();
  mTerminal.line(kMargin + "┌ " + mTerminal.styled(title, Terminal::Style::Heading) + " " +
                 bar(width - characterCount(title) - characterCount(stamp) - 4) + " " + mTerminal.styled(stamp, Terminal::Style::Dim) + " ┐");
  for (const std::string& line : lines) mTerminal.line(kMargin + "│ " + padded(line, width - 2) + " │");
  mTerminal.line(kMargin + "└" + bar(width) + "┘");
}

std::string Narrator::worded(const std::string& parameter, const std::string& value) const {
  const Choices choices(mapping(mHost->dataSet()->document(), parameter));
  if (const Choice* const choice = choices.byValue(value)) return value + " (" + text(choice->key) + ")";
  const ParameterInfo info = mHost->dataSet()->info(parameter);
  const auto number = info.isFloat() && info.decimals ? parseNumber(value, '.') : std::nullopt;
  if (!number) return value;
  const std::string unit = mHost->user().textTable()->GetSectionText(info.unit, "unit");
  return fixedText(*number, *info.decimals, '.') + (unit.empty() ? "" : " " + unit);
}

std::string Narrator::folded(const Document& message) const {
  const Node body = message.root().firstChild();
  std::vector<std::string> items;
  for (Node item = body ? body.firstChild() : nullptr; item; item = item.nextSibling()) {
    const std::string name(item.findAttribute("name").value_or(""));
    const std::string value = item.text();
    items.push_back(value.empty() ? name : name + " = " + worded(name, value));
  }
  constexpr std::size_t kMany = 3;
  std::string all;
  for (std::size_t i = 0; i < items.size() && i < kMany; ++i) all += (i ? ", " : "") + items[i];
  if (items.size() > kMany) all += " and " + std::to_string(items.size() - kMany) + " more";
  return all;
}

// --- what the host tells

void Narrator::requestSent(const Request& request) {
  say(Road::HostToDevice, (request.write ? "write " : "read ") + request.name, folded(request.document));
}

void Narrator::requestAnswered(const Request& request, const Document& answer) {
  const AnswerHead head = headOf(answer);
  // A long answer comes in many pieces; the first and the last are told.
  mBetween = !head.isFinal && head.errorCode.empty() && request.answers > 1;
  if (mBetween) return;
  const std::string done = (request.write ? "takes " : "answers ") + request.name + (head.isFinal ? ", complete" : "");
  const std::string what = head.errorCode.empty() ? done : "refuses " + request.name;
  say(Road::DeviceToHost, what, head.errorCode.empty() ? folded(answer) : text(head.errorCode));
}

void Narrator::requestFinished(const Request& request, Outcome outcome) {
  if (outcome == Outcome::Done) ++mDone[request.name];
  if (outcome == Outcome::NoAnswer) say(Road::DeviceToHost, "does not answer " + request.name);
}

void Narrator::viewPlaced(const ViewSite& site) { say(Road::HostToView, "creates " + site.className()); }

void Narrator::viewLocalized(const ViewSite&, const std::string& language) { say(Road::HostToView, "Localize", language); }

void Narrator::viewSelected(const ViewSite&, const std::string& key) { say(Road::HostToView, "SetSelectedView", text(key)); }

void Narrator::viewHandedIn(const ViewSite& site, DataPath path, const Document& document) {
  // Every view gets every answer.
  if (mBetween || (mHost->views().front() && mHost->views().front() != &site)) return;
  switch (path) {
    case DataPath::Import: say(Road::HostToView, "SetImportData", "the data set"); break;
    case DataPath::Offline: say(Road::HostToView, "SetOfflineData", "the data set"); break;
    case DataPath::Online: say(Road::HostToView, "SetOnlineData", folded(document)); break;
    case DataPath::Error: say(Road::HostToView, "SetErrorData", folded(document)); break;
  }
}

void Narrator::viewEvent(const std::string&, const ViewEvent& event) {
  if (event.kind == ViewEvent::Kind::SetCommunicationMode)
    say(Road::HostToView, "ViewSetCommunicationMode " + std::to_string(event.mode), event.mode == 11 ? "values go to the device" : "");
}

CallListener::Call Narrator::begins(const CallText& call) {
  // The log of the walk through the controls would tell a newcomer nothing; questions and messages are told as the user sees them.
  if (mQuiet || !call.told || call.name == "Log" || call.name == "AskUser" || call.name == "ShowMessage") return 0;
  if (call.name == "SetParameterStatus") {
    if (mSwarm)
      ++mSwarm->others;
    else
      mSwarm = {time(), call.line()};
  } else {
    say(Road::ViewToHost, call.line(), call.xml ? folded(readRequestText(*call.xml, {})) : "");
  }
  return 0;
}

void Narrator::fails(Call, const ErrorText& error) { say(Road::ViewToHost, "which failed", error.description); }

int Narrator::ask(const std::string& title, const std::string& message, const Answers&) {
  say(Road::HostToUser, title + "?", message);
  say(Road::UserToView, "answers yes");
  return kGoOn;
}

void Narrator::show(const std::string& title, const std::string& message) { say(Road::HostToUser, title, message); }

}  // namespace ostrand
