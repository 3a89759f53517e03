#include "workbench/window/TranscriptCommands.h"

#include "host/transcript/Replay.h"
#include "platform/base/File.h"
#include "workbench/dialogs/TextDialog.h"

namespace ostrand {

namespace {

constexpr const char* kTranscripts = "Transcripts|*.transcript|All files|*";

}  // namespace

std::optional<std::filesystem::path> TranscriptCommands::askForFile() const {
  ViewSite* const front = mWorkbench.host().views().front();
  const std::string name = (front ? front->className() : std::string("view")) + ".transcript";
  return mWorkbench.desktop().saveDialog(
      {mUser.say("Save transcript").toStdString() + " – " + mWorkbench.current().title(), kTranscripts, "transcript", name});
}

void TranscriptCommands::save() {
  mPanel.commit();
  // What is said while the dialog is open does not belong to it.
  const std::string text = mWorkbench.current().transcript();
  if (text.empty()) return mUser.remark(mUser.say("No view is open whose conversation could be saved"));
  const auto file = askForFile();
  if (!file) return;
  if (mUser.attempt(mUser.say("%1 could not be written").arg(fileName(*file)), [&] { writeWholeFile(*file, text); }))
    mUser.remark(mUser.say("%1 is written; it can be replayed").arg(fileName(*file)));
}

void TranscriptCommands::record(bool on) {
  if (on != isRecording()) on ? begin() : end();
  if (onRecording) onRecording();
}

void TranscriptCommands::begin() {
  PlantDevice& device = mWorkbench.current();
  ViewSite* const front = device.host().views().front();
  const std::optional<std::filesystem::path> file = front && front->leave() ? askForFile() : std::nullopt;
  if (!file) return;
  mRecording = file;
  mPanel.setView(nullptr);
  mUser.attempt(mUser.say("The view could not be opened anew"), [&] { device.reopen(); });
  mShowFront();
  mRecorder = device.host().views().front() ? device.recordings().of(*device.host().views().front()) : nullptr;
}

void TranscriptCommands::end() {
  const std::filesystem::path file = *std::exchange(mRecording, std::nullopt);
  mPanel.commit();
  if (mUser.attempt(mUser.say("%1 could not be written").arg(fileName(file)),
                    [&] { writeWholeFile(file, mRecorder ? mRecorder->text() : std::string()); }))
    mUser.remark(mUser.say("%1 is written; it can be replayed").arg(fileName(file)));
}

void TranscriptCommands::replay() {
  const auto file = mWorkbench.desktop().openDialog({mUser.say("Replay a transcript").toStdString(), kTranscripts, "transcript", {}});
  if (!file) return;
  Replay::Result result;
  if (!mUser.attempt(mUser.say("%1 could not be replayed").arg(fileName(*file)),
                     [&] { result = Replay(mWorkbench.components(), mWorkbench.dataFolder()).compare(*file); }))
    return;
  switch (result.outcome) {
    case Replay::Outcome::Matches:
      mUser.tell(mUser.say("The replay matches"), mUser.say("%1: the view said what the transcript tells.").arg(fileName(*file)));
      break;
    case Replay::Outcome::Differs:
      TextDialog::show(mWindow, mUser.say("%1 differs").arg(fileName(*file)), mUser.say("Lines with − were expected and lines with + were said."),
                       qt(result.text));
      break;
    case Replay::Outcome::Malformed:
      mUser.tell(mUser.say("%1 is no transcript of this version").arg(fileName(*file)),
                 qt(result.text).trimmed() + QLatin1Char('\n') + mUser.say("Open a file that this program has recorded."));
      break;
  }
}

}  // namespace ostrand
