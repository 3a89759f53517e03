#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/transcript/CallListener.h"
#include "host/transcript/HeededCalls.h"
#include "host/transcript/HiddenFolders.h"
#include "host/transcript/Transcript.h"
#include "platform/desktop/ControlProbe.h"

namespace ostrand {

// What comes out of the views of a transcript: the calls that leave them, and on demand what they do to their controls. It
// carries out what a transcript wants to happen inside of these: failures, and inputs that come in between.
class TranscriptOutput : public CallListener, public ControlProbe {
 public:
  // What the views are asked for. `isOwn` tells a view's own control from one of a nested component.
  struct Views {
    std::function<std::string(const Control&)> nameOf;
    std::function<bool(const Control&)> isOwn;
    std::function<const Control*(const std::string& name)> find;
    std::function<void(const TranscriptInput&)> carryOut;
  };

  explicit TranscriptOutput(Views views) : mViews(std::move(views)) {}

  HeededCalls heeded;
  HiddenFolders hiddenFolders;

  // Prints a line of the player's own. One that begins with a name is subject to what is heeded.
  void print(const std::string& name, const std::string& argument);
  void printValue(std::string line) { add({std::move(line), {}}); }
  void printDocument(std::string xml) { add({{}, std::move(xml)}); }
  void printNode(const Node& node);
  void printUnhandled(const ErrorText& error);
  // What has been printed since the last call.
  std::vector<Output> take() { return std::exchange(mOutputs, {}); }

  // The `nth` next call of this name fails.
  void failNext(std::string name, int nth, ErrorText error) { mFailures.push_back({std::move(name), nth, std::move(error)}); }
  void duringNext(std::string name, TranscriptInput input) { mDurings.push_back({std::move(name), std::move(input)}); }
  // No names: every control of the view's own.
  void trace(bool on, const std::vector<std::string>& names);
  bool tracing() const { return mTraceAll || !mTraced.empty(); }
  // From here on nothing is printed, fails, or comes in between.
  void end();

  // While it lives, looking at controls is no act of a view.
  class Quiet {
   public:
    explicit Quiet(TranscriptOutput& output) : mOutput(output) { ++mOutput.mQuiet; }
    ~Quiet() { --mOutput.mQuiet; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

   private:
    TranscriptOutput& mOutput;
  };
  // While it lives, the next use of this member is the player's and no act of a view.
  class Ours {
   public:
    Ours(TranscriptOutput& output, const Control& control, std::string member) : mOutput(output) {
      mOutput.mOurControl = &control;
      mOutput.mOurMember = std::move(member);
    }
    ~Ours() { mOutput.mOurControl = nullptr; }
    Ours(const Ours&) = delete;
    Ours& operator=(const Ours&) = delete;

   private:
    TranscriptOutput& mOutput;
  };

  // CallListener
  Call begins(const CallText& call) override;
  void enters(Call call) override;
  void returns(Call call, const std::string& answer) override;
  void fails(Call call, const ErrorText& error) override;
  // Carries out what is to come in between now, and not before the call returns.
  void interrupt(Call call);

  // ControlProbe
  void operation(Control& control, std::string_view name, const std::string& arguments) override;
  void setting(Control& control, std::string_view property, const std::string& value) override;
  void reading(Control& control, std::string_view property) override;

 private:
  struct Failure {
    std::string name;
    int nth;
    ErrorText error;
  };
  struct During {
    std::string name;
    TranscriptInput input;
  };
  struct OpenCall {
    std::string name;
    std::optional<std::size_t> output;
    std::vector<TranscriptInput> durings;
    std::optional<ErrorText> failure;
  };

  void add(Output output);
  std::optional<ErrorText> takeFailure(const std::function<bool(const std::string&)>& isMeant);
  std::vector<TranscriptInput> takeDurings(const std::function<bool(const std::string&)>& isMeant);
  bool traces(const Control& control) const;
  // A member of a control is used: what is to happen on it.
  void used(const Control& control, std::string_view member);

  Views mViews;
  std::vector<Output> mOutputs;
  std::vector<Failure> mFailures;
  std::vector<During> mDurings;
  std::vector<OpenCall> mCalls;
  bool mTraceAll = false;
  std::set<std::string> mTraced;
  std::set<std::string> mNotTraced;
  int mQuiet = 0;
  const Control* mOurControl = nullptr;
  std::string mOurMember;
  bool mEnded = false;
};

}  // namespace ostrand
