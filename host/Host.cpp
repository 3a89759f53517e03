#include "host/Host.h"

#include <algorithm>

#include "host/AnswerRoutes.h"
#include "host/Questions.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/StatusWords.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

namespace {

constexpr const char* kActingValuesTitle = "warning";
constexpr const char* kActingValuesWarning = "actingValuesWarning";

// The frame whose values live.
constexpr std::string_view kLiveFrame = "monitoringVariables";

bool isThere(const std::filesystem::path& file) {
  std::error_code ignored;
  return std::filesystem::exists(file, ignored);
}

}  // namespace

Host::Host(Desktop& desktop, ComponentSource& components, UserPrompt& prompt, std::filesystem::path dataFolder, Taps taps)
    : mDesktop(desktop),
      mComponents(components),
      mPrompt(prompt),
      mDataFolder(std::move(dataFolder)),
      mTaps(std::move(taps)),
      mTextTables(mDataFolder / "texts"),
      mUnits(isThere(mDataFolder / "units.xml") ? UnitService::open(mDataFolder / "units.xml") : Ref<UnitService>(new UnitService)),
      mAddressService(new AddressService),
      mSamples(mObservers),
      mCommunication(desktop, mObservers, mSession, mSamples, [this](const Request& request, const Document& answer) { deliver(request, answer); }),
      mOutputs(mObservers, mCommunication, mSamples),
      mStopReport(desktop, mObservers, mOutputs,
                  [this](const std::string& title, const std::string& message) {
                    const std::string tag = this->dataSet() ? this->dataSet()->current("tag") : "";
                    mPrompt.show(mTextTable->GetText(title), (tag.empty() ? "" : tag + ": ") + mTextTable->GetText(message));
                  }),
      mTransfer(mCommunication),
      mWriting(mCommunication, mTransfer, [this](const std::vector<Change>& acting) { return confirms(acting); }),
      mComparison(mCommunication, mUnits),
      mLiveReading(desktop, mCommunication, [this] { return liveGroup(); }, [this](const std::string& parameter) { return isEdited(parameter); }) {
  const bool hasTexts = isThere(mDataFolder / "texts" / (mSession.language + ".xml"));
  if (!hasTexts) mSession.language = "keys";
  mTextTable = mTextTables.table(mSession.language);
  mTree = readTree({});
  mCommunication.setUnits(mUnits);
  mUnhandled = mDesktop.unhandled.connect([this](const ErrorText& error) {
    mObservers.tell([&](HostObserver& each) { each.errorUnhandled({}, error.number, error.description); });
  });
}

Host::~Host() {
  mDesktop.unhandled.disconnect(mUnhandled);
  while (!mSites.empty()) release(*mSites.back());
  for (const Ref<ViewSite>& site : mLeaving) site->messenger().detach();
}

// --- data set and device

Document Host::readTree(const std::string& deviceType) const {
  const std::filesystem::path own = mDataFolder / "trees" / (deviceType + ".xml");
  const std::filesystem::path common = mDataFolder / "tree.xml";
  if (!deviceType.empty() && isThere(own)) return Document::readFile(own);
  return isThere(common) ? Document::readFile(common) : Document();
}

// A view keeps in its edits what a stop of its test has to send: a document that is handed in again would empty them.
void Host::requireNoLoopTest() const {
  if (mOutputs.holdsDocuments())
    throw RuntimeError(RuntimeError::PermissionDenied, "a loop test may still drive the output: stop it, or confirm at the device that the output is free");
}

void Host::setDataSet(DataSet dataSet) {
  requireNoLoopTest();
  mTree = readTree(dataSet.deviceType());
  mCommunication.setDataSet(std::move(dataSet));
  mObservers.tell([](HostObserver& each) { each.dataSetChanged(); });
  for (const Ref<ViewSite>& site : std::vector(mSites)) site->handIn(DataPath::Offline, this->dataSet()->copy());
  mLiveReading.refresh();
}

void Host::connect(std::unique_ptr<Device> device) {
  mCommunication.connect(std::move(device));
  mLiveReading.refresh();
}

// --- the user

void Host::setLanguage(const std::string& language) {
  mTextTable = mTextTables.table(language);
  mSession.language = language;
  for (const Ref<ViewSite>& site : std::vector(mSites)) site->localize();
}

void Host::setUserLevel(int level) {
  mSession.level = level;
  for (const Ref<ViewSite>& site : std::vector(mSites)) {
    // A view reads the level when it gets its Messenger, and only then.
    site->setMessenger();
    if (mCommunication.isBusy() && site->alive()) site->messenger().raise({ViewEvent::Kind::SetCommunicationMode, static_cast<int>(CommunicationMode::Busy), {}, {}});
  }
}

void Host::setCommunicationMode(CommunicationMode mode) {
  mCommunication.setMode(mode);
  raise({ViewEvent::Kind::SetCommunicationMode, static_cast<int>(mode), {}, {}});
  mLiveReading.refresh();
}

void Host::setUnit(std::string_view quantity, std::string_view unit) {
  mUnits->choose(quantity, unit);
  raise({ViewEvent::Kind::SetUnits, 0, {}, {}});
}

// --- views

std::string Host::uniqueName(const std::string& className) const {
  std::string name = className;
  for (int i = 2; std::any_of(mSites.begin(), mSites.end(), [&](const Ref<ViewSite>& site) { return site->name() == name; }); ++i)
    name = className + " " + std::to_string(i);
  return name;
}

Ref<ViewSite> Host::create(const std::string& className, const std::string& tag) {
  const Ref<IObject> component = mComponents.create(className);
  const Ref<ViewSite> site(new ViewSite(*this, className, uniqueName(className), component));
  mSites.push_back(site);
  try {
    site->place(tag);
  } catch (...) {
    std::erase(mSites, site);
    site->close();
    throw;
  }
  return site;
}

Ref<ViewSite> Host::place(const std::string& className, const std::string& tag) {
  const Ref<ViewSite> site = create(className, tag);
  site->setMessenger();
  site->localize();
  return site;
}

void Host::open(ViewSite& site, const std::string& key, DataPath path) {
  const Ref<ViewSite> pin(&site);
  if (!mFront) mFront = pin;
  site.select(key);
  if (DataSet* const open = dataSet()) site.handIn(path, open->copy());
  const CommunicationMode acceptance = mCommunication.isLocal() ? CommunicationMode::LocalAcceptance : CommunicationMode::Download;
  site.messenger().raise({ViewEvent::Kind::SetCommunicationMode, static_cast<int>(acceptance), {}, {}});
  if (mCommunication.isBusy()) site.messenger().raise({ViewEvent::Kind::SetCommunicationMode, static_cast<int>(CommunicationMode::Busy), {}, {}});
  site.requestFocus();
  mLiveReading.refresh();
}

void Host::showsFront(ViewSite& site) {
  mFront = Ref<ViewSite>(&site);
  mLiveReading.refresh();
}

bool Host::bringToFront(ViewSite& site, const std::string& key) {
  const Ref<ViewSite> pin(&site);
  if (const Ref<ViewSite> before = mFront; before && !before->leave()) return false;
  if (!pin->alive()) return false;
  mFront = pin;
  site.select(key);
  site.requestFocus();
  mLiveReading.refresh();
  return true;
}

void Host::release(ViewSite& site) {
  const Ref<ViewSite> pin(&site);
  std::erase(mSites, pin);
  if (mFront == pin) mFront = nullptr;
  std::erase_if(mLeaving, [](const Ref<ViewSite>& each) { return !each->leaving(); });
  if (site.leaving()) mLeaving.push_back(pin);
  site.close();
  mEdited.erase(site.name());
  mLiveReading.refresh();
}

ITaviView* Host::viewOf(const std::string& name) const {
  const auto site = std::find_if(mSites.begin(), mSites.end(), [&](const Ref<ViewSite>& each) { return each->name() == name; });
  return site == mSites.end() ? nullptr : (*site)->view();
}

void Host::deliver(const Request& request, const Document& answer) {
  const AnswerRoutes routes(request, answer, dataSet());
  for (const Ref<ViewSite>& site : std::vector(mSites))
    if (const Document part = routes.forView(site->name())) site->handIn(routes.path(), part);
}

void Host::setLiveReading(bool on) {
  mLive = on;
  mLiveReading.refresh();
}

std::string Host::liveGroup() const {
  return mLive && mFront && mFront->selected() == kLiveFrame ? std::string(kLiveFrame) : "";
}

void Host::noteStatus(const std::string& view, const std::string& parameter, const std::string& word) {
  if (word == EditWord::kOriginal)
    mEdited[view].erase(parameter);
  else if (word == EditWord::kEdited || word == EditWord::kEditedError || word == EditWord::kCorrected)
    mEdited[view].insert(parameter);
}

bool Host::isEdited(const std::string& parameter) const {
  return std::any_of(mEdited.begin(), mEdited.end(), [&](const auto& view) { return view.second.contains(parameter); });
}

// --- reading and writing

void Host::readGroup(const std::string& group, std::function<void()> finished) {
  if (!dataSet()) throwNothingThere("the data set");
  mTransfer.start({{group, false, dataSet()->readItems(group)}}, std::move(finished));
}

void Host::readAll(std::function<void()> finished) {
  if (!dataSet()) throwNothingThere("the data set");
  std::vector<Transfer::Job> jobs;
  for (const std::string& group : dataSet()->groups()) jobs.push_back({group, false, dataSet()->readItems(group)});
  mTransfer.start(std::move(jobs), std::move(finished));
}

void Host::readParameters(const std::vector<std::string>& names, std::function<void()> finished) {
  if (!dataSet()) throwNothingThere("the data set");
  std::vector<Transfer::Job> jobs;
  for (const std::string& group : dataSet()->groups()) {
    Transfer::Job job{group, false, {}};
    for (const std::string& name : names)
      if (dataSet()->homeGroup(name) == group) job.items.push_back(dataSet()->item(name, false));
    jobs.push_back(std::move(job));
  }
  mTransfer.start(std::move(jobs), std::move(finished));
}

std::vector<LeftOut> Host::writeParameters(const std::vector<std::string>& names, std::function<void()> finished) {
  return mWriting.writeParameters(names, std::move(finished));
}

// --- edits

std::vector<Change> Host::collectChanges(int mode) {
  std::vector<Change> changes;
  std::vector<Change>* const before = std::exchange(mCollecting, &changes);
  raise({ViewEvent::Kind::GetChanges, mode, {}, {}});
  mCollecting = before;
  return changes;
}

std::vector<LeftOut> Host::applyChanges(const std::vector<Change>& changes, std::function<void()> finished, const std::string& page) {
  return mWriting.applyChanges(changes, std::move(finished), page);
}

bool Host::confirms(const std::vector<Change>& acting) {
  const Ref<ITextTable> texts = mTextTable;
  std::string question = texts->GetText(kActingValuesWarning) + "\r\n";
  for (const Change& change : acting) {
    const Node choices = mappingByTail(dataSet()->document(), change.name);
    question += "\r\n" + wordedValue(*texts, change.name, wordedChoice(*texts, choices, change.newText), change.unit);
  }
  return mPrompt.ask(texts->GetText(kActingValuesTitle), question, answersTo(*texts, kActingValuesWarning)) == UserPrompt::kGoOn;
}

std::vector<LeftOut> Host::keepTypedEdits() {
  std::vector<LeftOut> left = mWriting.keep(collectChanges());
  mObservers.tell([](HostObserver& each) { each.dataSetChanged(); });
  return left;
}

void Host::discardEdits() {
  DataSet* const open = dataSet();
  if (!open) return;
  requireNoLoopTest();
  for (const std::string& name : open->edited()) open->discardEdit(name);
  mObservers.tell([](HostObserver& each) { each.dataSetChanged(); });
  for (const Ref<ViewSite>& site : std::vector(mSites)) site->handIn(DataPath::Offline, open->deviceCopy());
}

// --- for the views

std::string Host::submit(const std::string& view, const std::string& xml, const std::string& name, const std::string& statusKey, int first, int second) {
  Request request;
  request.document = readRequestText(xml, name);
  const Node asked = requestElement(request.document);
  request.asker = view;
  request.name = std::string(asked.attribute("name"));
  request.write = asked.attribute("access") == "write";
  request.statusKey = statusKey;
  request.first = first;
  request.second = second;
  return mCommunication.submit(std::move(request));
}

int Host::addChange(Change change) {
  mObservers.tell([&](HostObserver& each) { each.changeAdded(change); });
  if (!mCollecting) return 0;
  mCollecting->push_back(std::move(change));
  return static_cast<int>(mCollecting->size());
}

void Host::forward(const HostMessenger& from, const std::string& tag, const std::string& value) {
  mObservers.tell([&](HostObserver& each) { each.valueForwarded(from.view(), tag, value); });
  for (const Ref<ViewSite>& site : std::vector(mSites))
    if (&site->messenger() != &from) site->messenger().raise({ViewEvent::Kind::ReceiveValue, 0, tag, value});
}

std::string Host::xmlPath() const { return (mDataFolder / "").string(); }

Ref<Messenger> Host::messengerFor(ViewSite& site) const {
  const Ref<Messenger> own(&site.messenger());
  return mTaps.messenger ? mTaps.messenger(site, own) : own;
}

Ref<IHostContainer> Host::containerFor(ViewSite& site) const {
  const Ref<IHostContainer> own(&site);
  return mTaps.container ? mTaps.container(site, own) : own;
}

void Host::raise(const ViewEvent& event) {
  for (const Ref<ViewSite>& site : std::vector(mSites)) site->messenger().raise(event);
}

}  // namespace ostrand
