#include "simulator/BusSlave.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

#include "platform/base/Locale.h"
#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand::simulator {

namespace {

// How often a master asks a slave that does not answer.
constexpr int kTries = 3;

std::string attribute(const Node& node, const char* name) { return std::string(node.findAttribute(name).value_or("")); }

// "sampling communicationError": the word and what stands behind its blank.
std::pair<std::string, std::string> firstWord(std::string_view text) {
  const std::size_t blank = text.find(' ');
  if (blank == text.npos) return {std::string(text), ""};
  return {std::string(text.substr(0, blank)), std::string(text.substr(blank + 1))};
}

}  // namespace

BusSlave::BusSlave(Desktop& desktop, std::unique_ptr<Transmitter> transmitter, Timing timing)
    : mDesktop(desktop), mTransmitter(std::move(transmitter)), mTiming(timing) {}

BusSlave::~BusSlave() {
  if (mTimer) mDesktop.cancel(*mTimer);
}

void BusSlave::request(const Document& request, Answer answer) {
  Request& queued = mQueue.emplace_back(understood(request));
  queued.answer = std::move(answer);
  if (!mTimer) scheduleTransaction();
}

void BusSlave::cancelAll() {
  mQueue.clear();
  if (mTimer) mDesktop.cancel(*mTimer);
  mTimer.reset();
  mEpoch = std::make_shared<int>();
}

BusSlave::Request BusSlave::understood(const Document& document) const {
  Request request;
  const Node node = document ? document.select("./comm:dtm/comm:communicationRequest") : nullptr;
  if (!node) return request;
  request.isRequest = true;
  request.name = attribute(node, "name");
  request.access = attribute(node, "access");
  const ParameterTable& table = mTransmitter->parameters();
  const bool isRead = request.access == "read";
  std::vector<std::string> names;
  std::vector<std::string> texts;
  std::unordered_set<std::string> seen;
  for (Node item = node.firstChild(); item; item = item.nextSibling()) {
    std::string name = attribute(item, "name");
    if (item.name() != "comm:item" || !seen.insert(name).second) continue;
    const Node value = item.firstChild();
    names.push_back(std::move(name));
    texts.push_back(value ? value.text() : item.text());
  }
  if (isRead) names = names.empty() ? table.group(request.name) : answeredWith(std::move(names));
  texts.resize(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    const Parameter* const parameter = table.find(names[i]);
    if (!parameter || (isRead && !parameter->readable) || !mTransmitter->hasCommandFor(*parameter))
      request.unknown.push_back(std::move(names[i]));
    else
      request.items.push_back({parameter, std::move(texts[i])});
  }
  const auto isSingle = [&](const Item& item) { return isCommandOfItsOwn(*item.parameter); };
  request.isSingly = !isRead && !request.items.empty() && std::all_of(request.items.begin(), request.items.end(), isSingle);
  return request;
}

void BusSlave::scheduleTransaction() {
  mTimer = mDesktop.schedule(busTimePerTransaction(), [this] { transact(); });
}

bool BusSlave::isSilentTo(const Request& request) const { return mFaults.silent && (mFaults.silent->empty() || *mFaults.silent == request.name); }

void BusSlave::transact() {
  mTimer.reset();
  Request& front = mQueue.front();
  const bool silent = isSilentTo(front);
  Document document;
  bool finished;
  if (silent) {
    finished = ++front.unanswered == kTries;
  } else {
    const Reply reply = carriedOut(front);
    finished = reply.isFinal;
    document = mFaults.garbage ? garbage(front) : worded(front, reply);
  }
  // From the first answer on, anything can happen to this object: what is needed is at hand.
  Answer answer = finished ? std::move(front.answer) : front.answer;
  const int times = mFaults.twice ? 2 : 1;
  const std::weak_ptr<int> epoch = mEpoch;
  if (finished) mQueue.pop_front();
  if (!mQueue.empty()) scheduleTransaction();
  if (silent || !answer) return;
  for (int i = 0; i < times && !epoch.expired(); ++i) answer(document);
}

BusSlave::Reply BusSlave::carriedOut(Request& request) {
  const auto refusal = [&](std::string_view key) {
    Reply reply;
    for (const Item& item : request.items) reply.names.push_back(item.parameter->name);
    reply.names.insert(reply.names.end(), request.unknown.begin(), request.unknown.end());
    reply.errorCode = key;
    reply.isFinal = true;
    return reply;
  };
  if (!request.isRequest) return refusal("communicationError");
  if (const auto refused = mFaults.refused.find(request.name); refused != mFaults.refused.end()) return refusal(refused->second);
  const bool asksNothing = request.items.empty() && request.unknown.empty();
  if (asksNothing || (request.access != "read" && request.access != "write")) return refusal(errorKey(Verdict::CommandNotImplemented));
  mTransmitter->look();
  return request.access == "read" ? readStep(request) : writeStep(request);
}

BusSlave::Reply BusSlave::readStep(Request& request) {
  Reply reply;
  if (request.done == request.items.size()) {
    reply.names = request.unknown;
    reply.errorCode = errorOfUnknown(request);
    reply.isFinal = true;
    return reply;
  }
  if (request.done == 0) {
    std::vector<const Parameter*> asked;
    for (const Item& item : request.items) asked.push_back(item.parameter);
    mTransmitter->beginRead(asked);
  }
  const std::size_t end = std::min(request.done + mTiming.itemsPerTransaction, request.items.size());
  for (bool isFull = false; request.done < end && !isFull; ++request.done) {
    const Parameter& parameter = *request.items[request.done].parameter;
    isFull = isReadAlone(parameter);
    if (isFull && !reply.values.empty()) break;
    reply.values.emplace_back(&parameter, textOf(parameter));
  }
  reply.isFinal = request.done == request.items.size() && request.unknown.empty();
  return reply;
}

std::string_view BusSlave::errorOfUnknown(const Request& request) const {
  const ParameterTable& table = mTransmitter->parameters();
  const bool isLacking = std::all_of(request.unknown.begin(), request.unknown.end(), [&](const std::string& name) {
    const Parameter* const parameter = table.find(name);
    return parameter && !mTransmitter->hasCommandFor(*parameter);
  });
  return isLacking ? errorKey(Verdict::CommandNotImplemented) : "missingItems";
}

std::string BusSlave::textOf(const Parameter& parameter) {
  std::string text = mTransmitter->read(parameter);
  const auto forced = mFaults.values.find(parameter.name);
  return forced == mFaults.values.end() ? text : forced->second;
}

BusSlave::Reply BusSlave::writeStep(Request& request) {
  Reply reply;
  const auto refuse = [&](const Judgement& judgement, std::string_view key = {}) {
    mTransmitter->judged(request.name, judgement);
    reply.values.clear();
    reply.isFinal = true;
    if (key.empty() && acknowledgesRefusal(request.name)) return reply;
    reply.errorCode = key.empty() ? errorKey(judgement.verdict) : key;
    reply.names = judgement.items;
    return reply;
  };
  if (!request.unknown.empty()) return refuse({Verdict::CommandNotImplemented, request.unknown}, errorOfUnknown(request));
  // A command: all items of the request, or one channel of a loop test.
  const std::size_t first = request.isSingly ? request.done : 0;
  if (request.writings.empty()) {
    const std::size_t behind = request.isSingly ? first + 1 : request.items.size();
    for (std::size_t i = first; i < behind; ++i) {
      const Item& item = request.items[i];
      Writing writing{item.parameter, {}};
      const Verdict verdict = check(*item.parameter, item.text, writing.value);
      if (verdict != Verdict::Accepted) return refuse({verdict, {item.parameter->name}});
      request.writings.push_back(std::move(writing));
    }
    // An echo is the device's word: what is refused is refused before any of it is echoed.
    if (mTransmitter->foresee(request.name, request.writings).isRefusal())
      return refuse(mTransmitter->write(request.name, std::exchange(request.writings, {})));
  }
  const std::size_t end = std::min(request.done + (request.isSingly ? 1 : mTiming.itemsPerTransaction), request.items.size());
  for (; request.done < end; ++request.done) {
    const Writing& writing = request.writings[request.done - first];
    reply.values.emplace_back(writing.parameter, writing.parameter->text(writing.value));
  }
  reply.isFinal = request.done == request.items.size();
  if (!reply.isFinal && !request.isSingly) return reply;
  const std::vector<Writing> writings = std::exchange(request.writings, {});
  const Judgement judgement = mTransmitter->write(request.name, writings);
  if (judgement.isRefusal()) return refuse(judgement);
  mTransmitter->judged(request.name, judgement);
  const ParameterTable& table = mTransmitter->parameters();
  for (const std::string& name : mTransmitter->alsoTold(writings))
    if (const Parameter* const told = table.find(name)) reply.values.emplace_back(told, textOf(*told));
  return reply;
}

Verdict BusSlave::check(const Parameter& parameter, std::string_view text, Value& value) const {
  if (!parameter.writable) return Verdict::AccessRestricted;
  if (parameter.type == Parameter::Type::Text) {
    value.text = text;
    if (parameter.name != "deviceDate") return Verdict::Accepted;
    LocalTime date;
    if (text.find('-') == text.npos || !readDate(text, Locale::english(), date)) return Verdict::InvalidSelection;
    value.text = standardDate(date);
    return Verdict::Accepted;
  }
  if (parameter.mayBeEmpty && text.empty()) return Verdict::Accepted;
  const std::optional<double> number = parseNumber(text, '.');
  if (!number) return Verdict::InvalidSelection;
  value.number = *number;
  if (parameter.type == Parameter::Type::Integer && *number != std::trunc(*number)) return Verdict::InvalidSelection;
  if (!parameter.codes.empty()) return parameter.key(value).empty() ? Verdict::InvalidSelection : Verdict::Accepted;
  if (parameter.lowest && *number < *parameter.lowest) return Verdict::TooSmall;
  if (parameter.highest && *number > *parameter.highest) return Verdict::TooLarge;
  return Verdict::Accepted;
}

Document BusSlave::worded(const Request& request, const Reply& reply) {
  Document document = Document::read("<comm:dtm xmlns:comm=\"" + std::string(kCommunicationSchema) + "\"/>");
  const Node response = document.root().appendElement("comm:communicationResponse");
  response.setAttribute("name", mFaults.foreign ? *mFaults.foreign : request.name);
  response.setAttribute("access", request.access);
  response.setAttribute("isFinal", reply.isFinal && !mFaults.unfinished ? "1" : "0");
  response.setAttribute("responseStatus", "device");
  if (!reply.errorCode.empty()) response.setAttribute("errorCode", reply.errorCode);
  for (const auto& [parameter, text] : reply.values) {
    const Node item = response.appendElement("comm:item");
    item.setAttribute("name", parameter->name);
    item.setAttribute("unit", parameter->unit);
    item.appendElement(std::string(parameter->element()).c_str()).setText(text);
  }
  for (const std::string& name : reply.names) response.appendElement("comm:item").setAttribute("name", name);
  return document;
}

Document BusSlave::garbage(const Request& request) {
  Reply nonsense;
  nonsense.isFinal = true;
  for (const Item& item : request.items) nonsense.values.emplace_back(item.parameter, "%&/");
  switch (mGarbageCount++ % 4) {
    case 0: return Document::read("<noise/>");
    case 1: {
      Document noFinal = Document::read("<comm:dtm xmlns:comm=\"" + std::string(kCommunicationSchema) + "\"/>");
      noFinal.root().appendElement("comm:communicationResponse").setAttribute("name", request.name);
      return noFinal;
    }
    case 2: {
      nonsense.values.clear();
      for (const Item& item : request.items) nonsense.names.push_back(item.parameter->name);
      return worded(request, nonsense);
    }
    default: return worded(request, nonsense);
  }
}

void BusSlave::setFault(std::string_view name, std::string_view argument) {
  const auto needArgument = [&] {
    if (argument.empty()) throw RuntimeError(RuntimeError::BadArgument, "the fault \"" + std::string(name) + "\" needs an argument");
  };
  if (name == "none") {
    mFaults = {};
    mTransmitter->setFault(name, argument);
  } else if (name == "silent") {
    mFaults.silent = std::string(argument);
  } else if (name == "refuse") {
    needArgument();
    auto [request, key] = firstWord(argument);
    mFaults.refused[request] = key.empty() ? std::string(errorKey(Verdict::CommandNotImplemented)) : key;
  } else if (name == "nan") {
    needArgument();
    mFaults.values[std::string(argument)] = "NaN";
  } else if (name == "value") {
    needArgument();
    auto [item, text] = firstWord(argument);
    mFaults.values[item] = text;
  } else if (name == "slow") {
    const std::optional<double> factor = parseNumber(argument, '.');
    if (!factor || *factor <= 0 || *factor > 1e4) throw RuntimeError(RuntimeError::BadArgument, "not a factor: \"" + std::string(argument) + "\"");
    mFaults.slow = *factor;
  } else if (name == "foreign") {
    needArgument();
    mFaults.foreign = std::string(argument);
  } else if (name == "twice") {
    mFaults.twice = true;
  } else if (name == "unfinished") {
    mFaults.unfinished = true;
  } else if (name == "garbage") {
    mFaults.garbage = true;
  } else if (!mTransmitter->setFault(name, argument)) {
    throw RuntimeError(RuntimeError::BadArgument, "no such fault: \"" + std::string(name) + "\"");
  }
}

}  // namespace ostrand::simulator
