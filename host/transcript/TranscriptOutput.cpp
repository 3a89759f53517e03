#include "host/transcript/TranscriptOutput.h"

#include <algorithm>

#include "platform/controls/Control.h"

namespace ostrand {

namespace {

// "cteA.Text" means this member of this control; "lsv.Cell" each cell, "lsv.Cell(2,1)" only that one.
bool isMember(const std::string& name, std::string_view member) {
  const std::size_t open = name.find('(', name.rfind('.'));
  const std::size_t point = name.rfind('.', open);
  if (point == name.npos) return false;
  const std::string_view meant = std::string_view(name).substr(point + 1);
  return meant == member || meant == member.substr(0, member.find('('));
}

}  // namespace

// --- what is printed

void TranscriptOutput::add(Output output) {
  if (mEnded) return;
  output.line = hiddenFolders.shown(std::move(output.line));
  mOutputs.push_back(std::move(output));
}

void TranscriptOutput::print(const std::string& name, const std::string& argument) {
  if (heeded.heeds(name, argument)) add({name + " " + inQuotes(argument), {}});
}

void TranscriptOutput::printNode(const Node& node) {
  if (node)
    add({"node", node.xml()});
  else
    printValue("nothing");
}

void TranscriptOutput::printUnhandled(const ErrorText& error) {
  const std::string number = std::to_string(error.number);
  if (heeded.heeds("Unhandled", number)) add({"Unhandled " + number + " " + inQuotes(error.description), {}});
}

void TranscriptOutput::end() {
  mEnded = true;
  mFailures.clear();
  mDurings.clear();
  trace(false, {});
}

// --- what is to happen

std::optional<ErrorText> TranscriptOutput::takeFailure(const std::function<bool(const std::string&)>& isMeant) {
  std::optional<ErrorText> failure;
  for (auto each = mFailures.begin(); each != mFailures.end();) {
    if (isMeant(each->name) && --each->nth == 0) {
      if (!failure) failure = each->error;
      each = mFailures.erase(each);
    } else {
      ++each;
    }
  }
  return failure;
}

std::vector<TranscriptInput> TranscriptOutput::takeDurings(const std::function<bool(const std::string&)>& isMeant) {
  std::vector<TranscriptInput> inputs;
  for (auto each = mDurings.begin(); each != mDurings.end();) {
    if (isMeant(each->name)) {
      inputs.push_back(std::move(each->input));
      each = mDurings.erase(each);
    } else {
      ++each;
    }
  }
  return inputs;
}

// --- calls

TranscriptOutput::Call TranscriptOutput::begins(const CallText& call) {
  const auto isMeant = [&](const std::string& name) { return name == call.name; };
  OpenCall open{call.name, {}, takeDurings(isMeant), takeFailure(isMeant)};
  if (call.told && !mEnded && heeded.heeds(call.name, call.firstArgument)) {
    open.output = mOutputs.size();
    add({call.line(), call.xml});
  }
  mCalls.push_back(std::move(open));
  return mCalls.size() - 1;
}

void TranscriptOutput::interrupt(Call call) {
  const std::vector<TranscriptInput> inputs = std::exchange(mCalls[call].durings, {});
  for (const TranscriptInput& input : inputs) mViews.carryOut(input);
}

void TranscriptOutput::enters(Call call) {
  if (!mCalls[call].failure) return;
  interrupt(call);
  throw RuntimeError(mCalls[call].failure->number, mCalls[call].failure->description);
}

void TranscriptOutput::returns(Call call, const std::string& answer) {
  if (const auto output = mCalls[call].output; output && !answer.empty()) mOutputs[*output].line += hiddenFolders.shown(" -> " + answer);
  interrupt(call);
  mCalls.pop_back();
}

void TranscriptOutput::fails(Call call, const ErrorText& error) {
  // A call that the host does not even offer has not left the view.
  const bool isAbsent = error.number == RuntimeError::NoSuchMember && !mCalls[call].failure;
  if (const auto output = mCalls[call].output) {
    if (isAbsent)
      mOutputs.erase(mOutputs.begin() + static_cast<std::ptrdiff_t>(*output));
    else
      mOutputs[*output].line += " -> failed";
  }
  interrupt(call);
  mCalls.pop_back();
}

// --- controls

void TranscriptOutput::trace(bool on, const std::vector<std::string>& names) {
  if (names.empty()) {
    mTraceAll = on;
    mTraced.clear();
    mNotTraced.clear();
    return;
  }
  for (const std::string& name : names) {
    (on ? mTraced : mNotTraced).insert(name);
    (on ? mNotTraced : mTraced).erase(name);
  }
}

bool TranscriptOutput::traces(const Control& control) const {
  if (!tracing() || !mViews.isOwn(control)) return false;
  const auto isAmong = [&](const std::set<std::string>& names) {
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) { return mViews.find(name) == &control; });
  };
  return mTraceAll ? !isAmong(mNotTraced) : isAmong(mTraced);
}

void TranscriptOutput::used(const Control& control, std::string_view member) {
  if (mFailures.empty() && mDurings.empty()) return;
  const auto isMeant = [&](const std::string& name) {
    const std::size_t open = name.find('(', name.rfind('.'));
    return isMember(name, member) && mViews.find(name.substr(0, name.rfind('.', open))) == &control;
  };
  const std::optional<ErrorText> failure = takeFailure(isMeant);
  for (const TranscriptInput& input : takeDurings(isMeant)) mViews.carryOut(input);
  if (failure) throw RuntimeError(failure->number, failure->description);
}

void TranscriptOutput::operation(Control& control, std::string_view name, const std::string& arguments) {
  if (mQuiet) return;
  if (&control == mOurControl && name == mOurMember) {
    mOurControl = nullptr;
    return;
  }
  if (traces(control)) {
    const std::string member = mViews.nameOf(control) + "." + std::string(name);
    if (heeded.heeds(member, {})) add({member + arguments, {}});
  }
  used(control, name);
}

void TranscriptOutput::setting(Control& control, std::string_view property, const std::string& value) { operation(control, property, " " + value); }

void TranscriptOutput::reading(Control& control, std::string_view property) {
  if (!mQuiet) used(control, property);
}

}  // namespace ostrand
