#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/ComponentSource.h"
#include "host/TextTables.h"
#include "host/UnitService.h"
#include "host/transcript/ControlPath.h"
#include "host/transcript/Conversation.h"
#include "host/transcript/DeviceHost.h"
#include "host/transcript/HostScript.h"
#include "host/transcript/ScratchFolder.h"
#include "host/transcript/Transcript.h"
#include "host/transcript/TranscriptComparison.h"
#include "host/transcript/TranscriptDesktop.h"
#include "platform/types/Query.h"

namespace ostrand {

// Plays a transcript: carries out its inputs on views that it creates, and collects what they put out. One player plays one
// transcript, on a virtual clock.
//
// - An event of the host (mode, receive, units, changes) reaches every view that listens, in the order of their creation.
// - An input that cannot be carried out is put out as `Rejected`, and the transcript goes on.
// - At the end the views that are left are terminated, in silence.
class TranscriptPlayer {
 public:
  // `data` is the data folder. The components must outlive the player.
  TranscriptPlayer(ComponentSource& components, const std::filesystem::path& data);
  ~TranscriptPlayer();

  // RuntimeError 5 "FILE:LINE: what is wrong" for an input that no player can understand; then nothing has been played.
  // Gives a block for each block of the transcript.
  std::vector<PlayedBlock> play(const Transcript& transcript);

 private:
  struct Command;
  struct PlayedView {
    std::string name;
    std::string className;
    Ref<IObject> object;
    Ref<Messenger> messenger;
    Ref<ViewSite> site;  // with the real host only
  };

  static const std::vector<Command>& commands();
  static const Command* findCommand(const std::string& name);
  // What is wrong with an input, or an empty text.
  static std::string complaint(const TranscriptInput& input);
  static TranscriptInput nestedInput(const TranscriptInput& during);
  void carryOut(const TranscriptInput& input);

  // --- the inputs, by their names in a transcript
  void create(const TranscriptInput& input);
  void view(const TranscriptInput& input);
  void messenger(const TranscriptInput& input);
  void localize(const TranscriptInput& input);
  void select(const TranscriptInput& input);
  void focus(const TranscriptInput& input);
  void leave(const TranscriptInput& input);
  void handIn(const TranscriptInput& input);
  void release(const TranscriptInput& input);
  void terminate(const TranscriptInput& input);
  void resize(const TranscriptInput& input);
  void click(const TranscriptInput& input);
  void type(const TranscriptInput& input);
  void choose(const TranscriptInput& input);
  void check(const TranscriptInput& input);
  void edit(const TranscriptInput& input);
  void slide(const TranscriptInput& input);
  void leaveField(const TranscriptInput& input);
  void hotspot(const TranscriptInput& input);
  void menu(const TranscriptInput& input);
  void level(const TranscriptInput& input);
  void mode(const TranscriptInput& input);
  void receive(const TranscriptInput& input);
  void unit(const TranscriptInput& input);
  void units(const TranscriptInput& input);
  void changes(const TranscriptInput& input);
  void answer(const TranscriptInput& input);
  void accept(const TranscriptInput& input);
  void fail(const TranscriptInput& input);
  void during(const TranscriptInput& input);
  void parent(const TranscriptInput& input);
  void maximize(const TranscriptInput& input);
  void address(const TranscriptInput& input);
  void tree(const TranscriptInput& input);
  void relations(const TranscriptInput& input);
  void dialog(const TranscriptInput& input);
  void locale(const TranscriptInput& input);
  void advance(const TranscriptInput& input);
  void device(const TranscriptInput& input);
  void run(const TranscriptInput& input);
  void fault(const TranscriptInput& input);
  void get(const TranscriptInput& input);
  void set(const TranscriptInput& input);
  void front(const TranscriptInput& input);
  void selected(const TranscriptInput& input);
  void focused(const TranscriptInput& input);
  void show(const TranscriptInput& input);
  void trace(const TranscriptInput& input);
  void ignore(const TranscriptInput& input);
  void heed(const TranscriptInput& input);
  void document(const TranscriptInput& input);
  void now(const TranscriptInput& input);
  void picture(const TranscriptInput& input);

  // What ends an input has been put out already.
  struct InputEnded {};

  // RuntimeError 91 where there is no view; an error of ours rejects the input.
  PlayedView& current();
  // The interface of the view, or RuntimeError 438.
  template <class I>
  Ref<I> need(const char* interfaceName);
  // The control of this name, or `NoSuchControl` and the end of the input.
  Control& control(const std::string& name);
  // RuntimeError 70 if the user cannot reach the control now.
  static void requireReachable(const Control& control);
  static void requireEditable(const Control& control);
  // An action for which the control's class has no function of its own.
  template <class Action>
  void userAction(Control& control, Action action);
  const ControlCollection& controls();
  // Nothing for a view without controls.
  const Component* component();
  // Calls a view; what leaves it is told as unhandled.
  template <class Body>
  void onView(Body body);
  void raise(const ViewEvent& event);
  void advanceClock(double seconds);
  void forget(PlayedView& view);

  // Among what was saved, beside the transcript, in the data folder.
  std::optional<std::filesystem::path> fileNamed(const std::string& name);
  std::filesystem::path newFile(const std::string& name);
  std::string documentText(const TranscriptInput& input);
  std::filesystem::path scratchFolder(const char* name);
  const std::filesystem::path& hostFolder();
  void finish();

  ComponentSource& mComponents;
  std::filesystem::path mData;
  std::filesystem::path mFolder;  // of the transcript
  Conversation mConversation;
  TranscriptDesktop mDesktop;
  Ref<HostScript> mScript;
  TextTables mTexts;
  Ref<UnitService> mUnits;
  ScratchFolder mScratch;
  std::filesystem::path mHostFolder;  // what the views know as the folder of the host's files; empty until it is needed
  std::vector<Document> mDocuments;
  std::vector<std::unique_ptr<PlayedView>> mViews;
  PlayedView* mCurrent = nullptr;
  std::unique_ptr<PlayedView> mMade;  // until the real host has made its component
  std::unique_ptr<DeviceHost> mDevice;
};

template <class I>
Ref<I> TranscriptPlayer::need(const char* interfaceName) {
  const Ref<I> found = query<I>(current().object.get());
  if (!found) throw RuntimeError(RuntimeError::NoSuchMember, current().className + " has no " + interfaceName);
  return found;
}

template <class Body>
void TranscriptPlayer::onView(Body body) {
  const Ref<IObject> pin = mCurrent ? mCurrent->object : nullptr;
  try {
    body();
  } catch (...) {
    mConversation.printUnhandled(currentError());
  }
}

}  // namespace ostrand
