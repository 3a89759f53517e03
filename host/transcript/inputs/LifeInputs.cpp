#include "host/transcript/inputs/LifeInputs.h"

#include "host/transcript/RecordingMessenger.h"
#include "host/transcript/TranscriptStage.h"
#include "platform/types/IPlaceable.h"

namespace ostrand::inputs {

void create(TranscriptStage& stage, const TranscriptInput& input) {
  const std::string& className = input.words[1].text;
  std::string name = className;
  std::string tag;
  std::size_t at = 2;
  if (at < input.words.size() && input.words[at].text.starts_with("tag=")) tag = input.words[at++].text.substr(4);
  if (at < input.words.size()) name = input.words[at + 1].text;  // behind "as"
  stage.create(className, name, tag);
}

void view(TranscriptStage& stage, const TranscriptInput& input) { stage.turnTo(input.words[1].text); }

void messenger(TranscriptStage& stage, const TranscriptInput&) {
  const Ref<ITaviComponent> component = stage.need<ITaviComponent>("ITaviComponent");
  const Ref<Messenger> messenger = stage.current().messenger;
  stage.onView([&] { component->SetMessenger(messenger); });
}

void localize(TranscriptStage& stage, const TranscriptInput& input) {
  const Ref<ILocalizable> localizable = stage.need<ILocalizable>("ILocalizable");
  stage.script->texts = stage.texts.table(input.words[1].text);
  stage.onView([&] { localizable->Localize(recordingTextTable(stage.output, stage.script->texts)); });
}

void select(TranscriptStage& stage, const TranscriptInput& input) {
  const Ref<ITaviView> view = stage.need<ITaviView>("ITaviView");
  const Ref<ViewSite> site = stage.current().site;
  stage.onView([&] { view->SetSelectedView(input.words[1].text); });
  if (site && site->alive()) stage.device->host().views().showsFront(*site);
}

void focus(TranscriptStage& stage, const TranscriptInput&) {
  const Ref<ITaviView> view = stage.need<ITaviView>("ITaviView");
  stage.onView([&] { view->RequestFocus(); });
}

void leave(TranscriptStage& stage, const TranscriptInput&) {
  const Ref<ITaviView> view = stage.need<ITaviView>("ITaviView");
  stage.onView([&] { stage.output.printValue(toText(view->LeaveSelectedView())); });
}

void handIn(TranscriptStage& stage, const TranscriptInput& input) {
  const Ref<ITaviDataUser> user = stage.need<ITaviDataUser>("ITaviDataUser");
  std::string text = stage.files.documentOf(input);
  if (const Ref<ViewSite> site = stage.current().site; site && input.command() == "offline") return stage.device->setOfflineData(*site, text);
  const Document document = Document::read(std::move(text));
  stage.documents.push_back(document);
  stage.onView([&] {
    if (input.command() == "import")
      user->SetImportData(document);
    else if (input.command() == "offline")
      user->SetOfflineData(document);
    else if (input.command() == "online")
      user->SetOnlineData(document);
    else
      user->SetErrorData(document);
  });
}

void release(TranscriptStage& stage, const TranscriptInput&) {
  const Ref<ITaviView> view = stage.need<ITaviView>("ITaviView");
  stage.onView([&] { view->PrepareToRelease(); });
}

void terminate(TranscriptStage& stage, const TranscriptInput&) { stage.terminate(); }

void resize(TranscriptStage& stage, const TranscriptInput& input) {
  const Ref<IPlaceable> placeable = stage.need<IPlaceable>("IPlaceable");
  stage.onView([&] { placeable->Resize(numberOf(input.words[1]), numberOf(input.words[2])); });
}

}  // namespace ostrand::inputs
