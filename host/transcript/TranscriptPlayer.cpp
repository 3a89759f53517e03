#include "host/transcript/TranscriptPlayer.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "host/transcript/InputForm.h"
#include "host/transcript/RecordingContainer.h"
#include "host/transcript/RecordingMessenger.h"
#include "platform/base/File.h"
#include "platform/base/NumberText.h"
#include "platform/controls/Component.h"
#include "platform/types/IPlaceable.h"

namespace ostrand {

namespace {

constexpr const char* kRelationsFile = "Relations_ostrand.xml";
constexpr const char* kNotifyStatus = "NotifyStatus";
constexpr const char* kDownload = "DTMGUIDownload";

std::optional<std::string_view> behind(std::string_view text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return std::nullopt;
  return text.substr(prefix.size());
}

int integer(const Word& word) { return static_cast<int>(parseInteger(word.text).value_or(0)); }

}  // namespace

// --- what an input looks like

struct TranscriptPlayer::Command {
  const char* name;
  const char* arguments;  // as a message tells them
  const char* form;
  enum class Document { No, InPlaceOfFile, Yes } document;
  void (TranscriptPlayer::*carryOut)(const TranscriptInput&);
};

// clang-format off
const std::vector<TranscriptPlayer::Command>& TranscriptPlayer::commands() {
  using P = TranscriptPlayer;
  constexpr auto kNo = Command::Document::No;
  constexpr auto kFile = Command::Document::InPlaceOfFile;
  static const std::vector<Command> commands = {
      // life of the view
      {"create",      "CLASS [tag=TAG] [as NAME]",        "w?www",  kNo,   &P::create},
      {"view",        "NAME",                             "w",      kNo,   &P::view},
      {"messenger",   "",                                 "",       kNo,   &P::messenger},
      {"localize",    "LANGUAGE",                         "w",      kNo,   &P::localize},
      {"select",      "KEY",                              "w",      kNo,   &P::select},
      {"focus",       "",                                 "",       kNo,   &P::focus},
      {"leave",       "",                                 "",       kNo,   &P::leave},
      {"import",      "FILE, or a document below",        "?w",     kFile, &P::handIn},
      {"offline",     "FILE, or a document below",        "?w",     kFile, &P::handIn},
      {"online",      "FILE, or a document below",        "?w",     kFile, &P::handIn},
      {"error",       "FILE, or a document below",        "?w",     kFile, &P::handIn},
      {"release",     "",                                 "",       kNo,   &P::release},
      {"terminate",   "",                                 "",       kNo,   &P::terminate},
      {"resize",      "WIDTH HEIGHT",                     "ii",     kNo,   &P::resize},
      // the user
      {"click",       "CONTROL",                          "w",      kNo,   &P::click},
      {"type",        "CONTROL \"TEXT\"",                 "ww",     kNo,   &P::type},
      {"choose",      "CONTROL KEY",                      "ww",     kNo,   &P::choose},
      {"check",       "LIST ROW",                         "wi",     kNo,   &P::check},
      {"uncheck",     "LIST ROW",                         "wi",     kNo,   &P::check},
      {"edit",        "LIST ROW \"TEXT\"",                "wiw",    kNo,   &P::edit},
      {"slide",       "CONTROL VALUE",                    "wi",     kNo,   &P::slide},
      {"leave-field", "CONTROL [tab] [shift]",            "w?ww",   kNo,   &P::leaveField},
      {"hotspot",     "CHART SERIES POINT [double]",      "wii?w",  kNo,   &P::hotspot},
      {"menu",        "CHART",                            "w",      kNo,   &P::menu},
      // the host
      {"level",       "N",                                "i",      kNo,   &P::level},
      {"mode",        "N",                                "i",      kNo,   &P::mode},
      {"receive",     "TAG VALUE",                        "ww",     kNo,   &P::receive},
      {"unit",        "QUANTITY UNIT",                    "ww",     kNo,   &P::unit},
      {"units",       "",                                 "",       kNo,   &P::units},
      {"changes",     "MODE",                             "i",      kNo,   &P::changes},
      {"answer",      "N [N ...]",                        "i*",     kNo,   &P::answer},
      {"accept",      "BOOL [BOOL ...]",                  "b*",     kNo,   &P::accept},
      {"fail",        "CALL [N [NUMBER \"DESCRIPTION\"]]", "w?iiw", kNo,   &P::fail},
      {"during",      "CALL INPUT",                       "ww",     Command::Document::Yes, &P::during},
      {"parent",      "NotifyStatus|DTMGUIDownload on|off", "wo",   kNo,   &P::parent},
      {"maximize",    "BOOL",                             "b",      kNo,   &P::maximize},
      {"address",     "N [bad]",                          "i?w",    kNo,   &P::address},
      {"tree",        "FILE, or a document below",        "?w",     kFile, &P::tree},
      {"relations",   "FILE|none, or a document below",   "?w",     kFile, &P::relations},
      {"dialog",      "NAME|cancel",                      "w",      kNo,   &P::dialog},
      {"locale",      "NAME",                             "w",      kNo,   &P::locale},
      {"advance",     "SECONDS",                          "n",      kNo,   &P::advance},
      {"device",      "NAME [seed=N]",                    "w?w",    kNo,   &P::device},
      {"run",         "[SECONDS]",                        "?n",     kNo,   &P::run},
      {"fault",       "NAME [ARG]",                       "w?w*",   kNo,   &P::fault},
      // looking
      {"get",         "CONTROL.PROPERTY...",              "p*",     kNo,   &P::get},
      {"set",         "CONTROL.PROPERTY VALUE",           "pw",     kNo,   &P::set},
      {"front",       "",                                 "",       kNo,   &P::front},
      {"selected",    "",                                 "",       kNo,   &P::selected},
      {"focused",     "",                                 "",       kNo,   &P::focused},
      {"show",        "",                                 "",       kNo,   &P::show},
      {"trace",       "on|off [CONTROL...]",              "o?w*",   kNo,   &P::trace},
      {"ignore",      "CALL...",                          "w*",     kNo,   &P::ignore},
      {"heed",        "CALL... or CALL \"BEGINNING\"",    "w*",     kNo,   &P::heed},
      {"document",    "N [XPATH]",                        "i?w",    kNo,   &P::document},
      {"now",         "",                                 "",       kNo,   &P::now},
      {"picture",     "image|logo [ARGUMENT]",            "w?w",    kNo,   &P::picture},
  };
  return commands;
}
// clang-format on

const TranscriptPlayer::Command* TranscriptPlayer::findCommand(const std::string& name) {
  for (const Command& command : commands())
    if (command.name == name) return &command;
  return nullptr;
}

TranscriptInput TranscriptPlayer::nestedInput(const TranscriptInput& during) {
  TranscriptInput nested{during.words[2].text, {}, during.document, during.first, during.last};
  nested.words = readInput(nested.text);
  return nested;
}

std::string TranscriptPlayer::complaint(const TranscriptInput& input) {
  const Command* const command = findCommand(input.command());
  if (!command) return "no such input: " + input.command();
  const std::span<const Word> words = std::span(input.words).subspan(1);
  const std::string usage = "it should be: " + input.command() + (*command->arguments ? " " : "") + command->arguments;
  if (!hasForm(command->form, words)) return usage;

  switch (command->document) {
    case Command::Document::No:
      if (input.document) return input.command() + " takes no document";
      break;
    case Command::Document::InPlaceOfFile:
      if (input.document.has_value() != words.empty()) return usage;
      break;
    case Command::Document::Yes: break;
  }

  // What a form cannot tell.
  const auto isOneOf = [&](std::size_t word, std::initializer_list<std::string_view> texts) {
    return word >= words.size() || std::find(texts.begin(), texts.end(), words[word].text) != texts.end();
  };
  const std::string name = input.command();
  bool good = true;
  if (name == "create") {
    std::size_t at = 1;
    if (at < words.size() && behind(words[at].text, "tag=")) ++at;
    if (at + 1 < words.size() && words[at].text == "as") at += 2;
    good = at == words.size();
  } else if (name == "leave-field") {
    good = isOneOf(1, {"tab", "shift"}) && isOneOf(2, {"tab", "shift"});
  } else if (name == "hotspot") {
    good = isOneOf(3, {"double"});
  } else if (name == "parent") {
    good = isOneOf(0, {kNotifyStatus, kDownload});
  } else if (name == "address") {
    good = isOneOf(1, {"bad"}) && integer(words[0]) >= 0 && integer(words[0]) <= UINT8_MAX;
  } else if (name == "picture") {
    good = isOneOf(0, {"image", "logo"});
  } else if (name == "fail") {
    good = words.size() != 3 && (words.size() < 2 || integer(words[1]) > 0);
  } else if (name == "get" || name == "answer" || name == "accept" || name == "ignore" || name == "heed") {
    good = !words.empty() && !(name == "heed" && words[0].quoted);
  } else if (name == "device" && words.size() == 2) {
    const auto seed = behind(words[1].text, "seed=");
    good = seed && parseInteger(*seed).value_or(-1) >= 0;
  } else if (name == "during") {
    try {
      return words[1].text.empty() ? usage : complaint(nestedInput(input));
    } catch (const RuntimeError& error) {
      return error.description();
    }
  }
  return good ? std::string() : usage;
}

// --- playing

TranscriptPlayer::TranscriptPlayer(ComponentSource& components, const std::filesystem::path& data)
    : mComponents(components),
      mData(std::filesystem::absolute(data)),
      mConversation({[this](const Control& control) {
                       for (const auto& each : mViews)
                         if (const Ref<ITaviView> view = query<ITaviView>(each->object.get()))
                           if (std::string name = nameOfControl(view->GetControls(), control); !name.empty()) return name;
                       return control.name();
                     },
                     [this](const Control& control) {
                       return std::any_of(mViews.begin(), mViews.end(), [&](const auto& each) {
                         const Ref<ITaviView> view = query<ITaviView>(each->object.get());
                         return view && !view->GetControls().empty() && view->GetControls().front()->owner() == control.owner();
                       });
                     },
                     [this](const std::string& name) -> const Control* {
                       const Ref<ITaviView> view = mCurrent ? query<ITaviView>(mCurrent->object.get()) : nullptr;
                       return view ? findControl(view->GetControls(), name) : nullptr;
                     },
                     [this](const TranscriptInput& input) { carryOut(input); }}),
      mDesktop(mConversation),
      mScript(new HostScript),
      mTexts(mData / "texts") {
  std::error_code ignored;
  mUnits = std::filesystem::exists(mData / "units.xml", ignored) ? UnitService::open(mData / "units.xml") : Ref<UnitService>(new UnitService);
  mScript->texts = mTexts.table("keys");
  mScript->units = mUnits;
  mScript->xmlPath = [this] { return (hostFolder() / "").string(); };
  mScript->unhandled = [this](const ErrorText& error) { mConversation.printUnhandled(error); };
  mDesktop.findFile = [this](const std::string& name) {
    const auto file = fileNamed(name);
    return file ? *file : newFile(name);
  };
  mDesktop.newFile = [this](const std::string& name) { return newFile(name); };
}

TranscriptPlayer::~TranscriptPlayer() { finish(); }

void TranscriptPlayer::finish() {
  mConversation.end();
  while (!mViews.empty()) {
    PlayedView& view = *mViews.back();
    if (view.site)
      mDevice->host().release(*view.site);
    else
      onView([placeable = query<IPlaceable>(view.object.get())] { placeable->Terminate(); });
    forget(view);
  }
  mDevice.reset();
}

std::vector<PlayedBlock> TranscriptPlayer::play(const Transcript& transcript) {
  for (const Transcript::Block& block : transcript.blocks())
    if (block.input)
      if (const std::string wrong = complaint(*block.input); !wrong.empty()) transcript.malformed(block.input->first, wrong);

  mFolder = std::filesystem::absolute(transcript.file()).parent_path();
  // The paths of this machine are no part of what is compared.
  for (const std::filesystem::path& folder : {mFolder, mData}) mConversation.hiddenFolders.add(folder);
  std::vector<PlayedBlock> played;
  for (const Transcript::Block& block : transcript.blocks()) {
    if (block.input) carryOut(*block.input);
    played.push_back({mConversation.take(), mConversation.heeded});
  }
  finish();
  return played;
}

void TranscriptPlayer::carryOut(const TranscriptInput& input) {
  try {
    (this->*findCommand(input.command())->carryOut)(input);
  } catch (const InputEnded&) {
    // It has told why.
  } catch (...) {
    mConversation.print("Rejected", currentError().description);
  }
}

// --- the life of the view

TranscriptPlayer::PlayedView& TranscriptPlayer::current() {
  if (!mCurrent) throw RuntimeError(RuntimeError::NothingThere, "there is no view");
  return *mCurrent;
}

void TranscriptPlayer::forget(PlayedView& view) {
  if (mCurrent == &view) mCurrent = nullptr;
  const auto at = std::find_if(mViews.begin(), mViews.end(), [&](const auto& each) { return each.get() == &view; });
  // The component may still reach us while it dies.
  const std::unique_ptr<PlayedView> leaving = std::move(*at);
  mViews.erase(at);
}

void TranscriptPlayer::create(const TranscriptInput& input) {
  auto made = std::make_unique<PlayedView>();
  made->name = made->className = input.words[1].text;
  std::string tag;
  for (std::size_t i = 2; i < input.words.size(); ++i) {
    if (const auto text = behind(input.words[i].text, "tag="); text && i == 2)
      tag = *text;
    else if (input.words[i].text == "as" && i + 1 < input.words.size())
      made->name = input.words[++i].text;
  }
  mCurrent = nullptr;
  const auto noSuchClass = [&](const RuntimeError& error) {
    if (error.number() != RuntimeError::BadArgument) throw RuntimeError(error);
    mConversation.print("NoSuchClass", input.words[1].text);
  };
  if (mDevice) {
    mMade = std::move(made);
    try {
      mDevice->host().create(input.words[1].text, tag);
    } catch (const RuntimeError& error) {
      noSuchClass(error);
    }
    return;
  }
  try {
    made->object = mComponents.create(made->className);
  } catch (const RuntimeError& error) {
    return noSuchClass(error);
  }
  made->messenger = Ref<Messenger>(new RecordingMessenger(mConversation, Ref<Messenger>(new ScriptedMessenger(mScript))));
  const Ref<IHostContainer> container(new RecordingContainer(mConversation, Ref<IHostContainer>(new ScriptedContainer(mScript))));
  // From here on it can be asked for: a trace begins with its first step.
  mCurrent = mViews.emplace_back(std::move(made)).get();
  const Ref<IPlaceable> placeable = need<IPlaceable>("IPlaceable");
  onView([&] { placeable->Place(mDesktop, container, tag); });
}

void TranscriptPlayer::view(const TranscriptInput& input) {
  const auto found = std::find_if(mViews.rbegin(), mViews.rend(), [&](const auto& each) { return each->name == input.words[1].text; });
  if (found == mViews.rend()) throw RuntimeError(RuntimeError::BadArgument, "there is no view " + input.words[1].text);
  mCurrent = found->get();
}

void TranscriptPlayer::messenger(const TranscriptInput&) {
  const Ref<ITaviComponent> component = need<ITaviComponent>("ITaviComponent");
  const Ref<Messenger> messenger = current().messenger;
  onView([&] { component->SetMessenger(messenger); });
}

void TranscriptPlayer::localize(const TranscriptInput& input) {
  const Ref<ILocalizable> localizable = need<ILocalizable>("ILocalizable");
  mScript->texts = mTexts.table(input.words[1].text);
  onView([&] { localizable->Localize(recordingTextTable(mConversation, mScript->texts)); });
}

void TranscriptPlayer::select(const TranscriptInput& input) {
  const Ref<ITaviView> view = need<ITaviView>("ITaviView");
  const Ref<ViewSite> site = current().site;
  onView([&] { view->SetSelectedView(input.words[1].text); });
  if (site && site->alive()) mDevice->host().showsFront(*site);
}

void TranscriptPlayer::focus(const TranscriptInput&) {
  const Ref<ITaviView> view = need<ITaviView>("ITaviView");
  onView([&] { view->RequestFocus(); });
}

void TranscriptPlayer::leave(const TranscriptInput&) {
  const Ref<ITaviView> view = need<ITaviView>("ITaviView");
  onView([&] { mConversation.printValue(toText(view->LeaveSelectedView())); });
}

std::string TranscriptPlayer::documentText(const TranscriptInput& input) {
  if (input.document) return *input.document;
  const auto file = fileNamed(input.words[1].text);
  if (!file) throw RuntimeError(RuntimeError::FileNotFound, "no such file: " + input.words[1].text);
  return readWholeFile(*file);
}

void TranscriptPlayer::handIn(const TranscriptInput& input) {
  const Ref<ITaviDataUser> user = need<ITaviDataUser>("ITaviDataUser");
  std::string text = documentText(input);
  if (const Ref<ViewSite> site = current().site; site && input.command() == "offline") return mDevice->setOfflineData(*site, text);
  const Document document = Document::read(std::move(text));
  mDocuments.push_back(document);
  onView([&] {
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

void TranscriptPlayer::release(const TranscriptInput&) {
  const Ref<ITaviView> view = need<ITaviView>("ITaviView");
  onView([&] { view->PrepareToRelease(); });
}

void TranscriptPlayer::terminate(const TranscriptInput&) {
  const Ref<IPlaceable> placeable = need<IPlaceable>("IPlaceable");
  PlayedView& view = current();
  const Ref<ViewSite> site = view.site;
  if (site)
    mDevice->host().release(*site);
  else
    onView([&] { placeable->Terminate(); });
  // What came in between may have ended it already.
  if (mCurrent == &view) forget(view);
}

void TranscriptPlayer::resize(const TranscriptInput& input) {
  const Ref<IPlaceable> placeable = need<IPlaceable>("IPlaceable");
  onView([&] { placeable->Resize(integer(input.words[1]), integer(input.words[2])); });
}

// --- the host

void TranscriptPlayer::raise(const ViewEvent& event) {
  if (mDevice)
    mDevice->raise(event);
  else
    mScript->raise(event);
}

void TranscriptPlayer::level(const TranscriptInput& input) { mScript->level = integer(input.words[1]); }

void TranscriptPlayer::mode(const TranscriptInput& input) {
  mScript->mode = integer(input.words[1]);
  raise({ViewEvent::Kind::SetCommunicationMode, mScript->mode, {}, {}});
}

void TranscriptPlayer::receive(const TranscriptInput& input) { raise({ViewEvent::Kind::ReceiveValue, 0, input.words[1].text, input.words[2].text}); }

void TranscriptPlayer::unit(const TranscriptInput& input) { mUnits->choose(input.words[1].text, input.words[2].text); }

void TranscriptPlayer::units(const TranscriptInput&) { raise({ViewEvent::Kind::SetUnits, 0, {}, {}}); }

void TranscriptPlayer::changes(const TranscriptInput& input) { raise({ViewEvent::Kind::GetChanges, integer(input.words[1]), {}, {}}); }

void TranscriptPlayer::answer(const TranscriptInput& input) {
  for (std::size_t i = 1; i < input.words.size(); ++i) mScript->answers.push_back(integer(input.words[i]));
}

void TranscriptPlayer::accept(const TranscriptInput& input) {
  for (std::size_t i = 1; i < input.words.size(); ++i) mScript->accepts.push_back(input.words[i].text == "true");
}

void TranscriptPlayer::fail(const TranscriptInput& input) {
  const std::string& call = input.words[1].text;
  ErrorText error{RuntimeError::Unexpected, "told to fail"};
  if (input.words.size() > 4) error = {integer(input.words[3]), input.words[4].text};
  mConversation.failNext(call, input.words.size() > 2 ? integer(input.words[2]) : 1, std::move(error));
}

void TranscriptPlayer::during(const TranscriptInput& input) { mConversation.duringNext(input.words[1].text, nestedInput(input)); }

void TranscriptPlayer::parent(const TranscriptInput& input) {
  (input.words[1].text == kNotifyStatus ? mScript->offersNotifyStatus : mScript->offersDownload) = input.words[2].text == "on";
}

void TranscriptPlayer::maximize(const TranscriptInput& input) { mScript->maximizeAllowed = input.words[1].text == "true"; }

void TranscriptPlayer::address(const TranscriptInput& input) {
  mScript->address = static_cast<std::uint8_t>(integer(input.words[1]));
  mScript->addressIsOk = input.words.size() < 3;
}

void TranscriptPlayer::tree(const TranscriptInput& input) { mScript->tree = Document::read(documentText(input)); }

std::filesystem::path TranscriptPlayer::scratchFolder(const char* name) {
  const std::filesystem::path folder = mScratch.path() / name;
  if (std::filesystem::create_directory(folder)) mConversation.hiddenFolders.add(mScratch.path());
  return folder;
}

const std::filesystem::path& TranscriptPlayer::hostFolder() {
  if (!mHostFolder.empty()) return mHostFolder;
  const std::filesystem::path folder = scratchFolder("host");
  std::error_code ignored;
  std::filesystem::copy_file(mData / kRelationsFile, folder / kRelationsFile, ignored);
  return mHostFolder = folder;
}

void TranscriptPlayer::relations(const TranscriptInput& input) {
  const std::filesystem::path file = hostFolder() / kRelationsFile;
  if (!input.document && input.words[1].text == "none")
    std::filesystem::remove(file);
  else
    writeWholeFile(file, documentText(input));
}

void TranscriptPlayer::dialog(const TranscriptInput& input) {
  const bool cancels = !input.words[1].quoted && input.words[1].text == "cancel";
  mDesktop.files.push_back(cancels ? std::nullopt : std::optional(input.words[1].text));
}

std::optional<std::filesystem::path> TranscriptPlayer::fileNamed(const std::string& name) {
  std::error_code ignored;
  for (const std::filesystem::path& file : {newFile(name), mFolder / name, mData / name})
    if (std::filesystem::exists(file, ignored)) return file;
  return std::nullopt;
}

std::filesystem::path TranscriptPlayer::newFile(const std::string& name) {
  // A transcript writes into its own folder and nowhere else.
  const std::filesystem::path file = std::filesystem::path(name).relative_path().lexically_normal();
  const bool leads = file.begin() != file.end() && *file.begin() == "..";
  return scratchFolder("files") / (leads ? file.filename() : file);
}

void TranscriptPlayer::locale(const TranscriptInput& input) {
  if (!mDesktop.setLocale(input.words[1].text)) throw RuntimeError(RuntimeError::BadArgument, "no such locale: " + input.words[1].text);
}

void TranscriptPlayer::advanceClock(double seconds) {
  const LocalTime target = mDesktop.now() + std::chrono::milliseconds(std::llround(seconds * 1000.0));
  // An error of one timer leaves the others their time.
  for (;;) {
    try {
      return mDesktop.advance(std::chrono::duration<double>(target - mDesktop.now()).count());
    } catch (...) {
      mConversation.printUnhandled(currentError());
    }
  }
}

void TranscriptPlayer::advance(const TranscriptInput& input) { advanceClock(*parseNumber(input.words[1].text, '.')); }

void TranscriptPlayer::device(const TranscriptInput& input) {
  if (!mDevice && !mViews.empty()) throw RuntimeError(RuntimeError::PermissionDenied, "a device comes before the first view");
  const auto given = input.words.size() > 2 ? behind(input.words[2].text, "seed=") : std::nullopt;
  const unsigned seed = static_cast<unsigned>(parseInteger(given.value_or("1")).value_or(1));
  if (!mDevice) {
    const auto created = [this](ViewSite& site) {
      if (!mMade) return;
      mMade->site = Ref<ViewSite>(&site);
      mMade->object = Ref<IObject>(site.component());
      mMade->messenger = mDevice->messengerOf(site);
      mCurrent = mViews.emplace_back(std::move(mMade)).get();
    };
    auto host =
        std::make_unique<DeviceHost>(mDesktop, mComponents, mData, mConversation, mScript,
                                     DeviceHost::Events{mScript->unhandled, [this](const Document& each) { mDocuments.push_back(each); }, created});
    host->connect(input.words[1].text, seed);
    mDevice = std::move(host);
    for (const UnitService::Quantity& quantity : mUnits->quantities())
      if (!quantity.chosen.empty()) mDevice->host().units()->choose(quantity.name, quantity.chosen);
    mUnits = mDevice->host().units();
    return;
  }
  mDevice->connect(input.words[1].text, seed);
}

void TranscriptPlayer::run(const TranscriptInput& input) {
  if (!mDevice) throw RuntimeError(RuntimeError::NothingThere, "there is no device");
  const auto seconds = input.words.size() > 1 ? parseNumber(input.words[1].text, '.') : std::nullopt;
  mDevice->run(seconds, [this](double each) { advanceClock(each); });
}

void TranscriptPlayer::fault(const TranscriptInput& input) {
  if (!mDevice) throw RuntimeError(RuntimeError::NothingThere, "there is no device");
  std::string argument;
  for (std::size_t i = 2; i < input.words.size(); ++i) argument += (i > 2 ? " " : "") + input.words[i].text;
  mDevice->setFault(input.words[1].text, argument);
}

// --- what is put out

void TranscriptPlayer::trace(const TranscriptInput& input) {
  std::vector<std::string> names;
  for (std::size_t i = 2; i < input.words.size(); ++i) names.push_back(input.words[i].text);
  mConversation.trace(input.words[1].text == "on", names);
}

void TranscriptPlayer::ignore(const TranscriptInput& input) {
  for (std::size_t i = 1; i < input.words.size(); ++i) mConversation.heeded.ignore(input.words[i].text);
}

void TranscriptPlayer::heed(const TranscriptInput& input) {
  std::string name;
  for (std::size_t i = 1; i < input.words.size(); ++i) {
    if (input.words[i].quoted) {
      mConversation.heeded.heedOnly(name, input.words[i].text);
      continue;
    }
    name = input.words[i].text;
    if (i + 1 == input.words.size() || !input.words[i + 1].quoted) mConversation.heeded.heed(name);
  }
}

}  // namespace ostrand
