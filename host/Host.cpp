#include "host/Host.h"

#include <algorithm>

#include "platform/base/RuntimeError.h"
#include "platform/controls/StatusWords.h"

namespace ostrand {

namespace {

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
      mCommunication(desktop, mObservers, mSession, mSamples, [this](const Document& answer) { deliver(answer); }),
      mOutputs(mObservers, mCommunication, mSamples),
      mTransfer(mCommunication),
      mComparison(mCommunication, mUnits),
      mLiveReading(desktop, mCommunication, [this] { return liveGroup(); }, [this](const std::string& parameter) { return isEdited(parameter); }) {
  const bool hasTexts = isThere(mDataFolder / "texts" / (mSession.language + ".xml"));
  if (!hasTexts) mSession.language = "keys";
  mTextTable = mTextTables.table(mSession.language);
  mTree = readTree({});
  mCommunication.setUnits(mUnits);
}

Host::~Host() {
  while (!mSites.empty()) release(*mSites.back());
}

// --- data set and device

Document Host::readTree(const std::string& deviceType) const {
  const std::filesystem::path own = mDataFolder / "trees" / (deviceType + ".xml");
  const std::filesystem::path common = mDataFolder / "tree.xml";
  if (!deviceType.empty() && isThere(own)) return Document::readFile(own);
  return isThere(common) ? Document::readFile(common) : Document();
}

void Host::setDataSet(DataSet dataSet) {
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
  site.close();
  mEdited.erase(site.name());
  mLiveReading.refresh();
}

void Host::deliver(const Document& answer) {
  const DataPath path = headOf(answer).errorCode.empty() ? DataPath::Online : DataPath::Error;
  const std::vector<Ref<ViewSite>> sites = mSites;
  // A view may change what it is handed, so each but the last gets its own.
  for (const Ref<ViewSite>& site : sites) site->handIn(path, site == sites.back() ? answer : Document::read(answer.xml()));
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

void Host::readParameters(const std::vector<std::string>& names, std::function<void()> finished) { transferParameters(names, false, std::move(finished)); }

void Host::writeParameters(const std::vector<std::string>& names, std::function<void()> finished) { transferParameters(names, true, std::move(finished)); }

void Host::transferParameters(const std::vector<std::string>& names, bool write, std::function<void()> finished) {
  if (!dataSet()) throwNothingThere("the data set");
  std::vector<Transfer::Job> jobs;
  for (const std::string& group : dataSet()->groups()) {
    Transfer::Job job{group, write, {}};
    for (const std::string& name : names)
      if (dataSet()->homeGroup(name) == group) job.items.push_back(dataSet()->item(name, write));
    jobs.push_back(std::move(job));
  }
  mTransfer.start(std::move(jobs), std::move(finished));
}

// --- edits

std::vector<Change> Host::collectChanges(int mode) {
  std::vector<Change> changes;
  std::vector<Change>* const before = std::exchange(mCollecting, &changes);
  raise({ViewEvent::Kind::GetChanges, mode, {}, {}});
  mCollecting = before;
  return changes;
}

std::vector<Change> Host::applyChanges(const std::vector<Change>& changes, std::function<void()> finished) {
  if (!dataSet()) throwNothingThere("the data set");
  std::vector<Change> left;
  std::vector<Transfer::Job> jobs;
  for (const Change& change : changes) {
    const std::string group = dataSet()->homeGroup(change.name);
    if (!dataSet()->has(change.name) || group.empty()) {
      left.push_back(change);
      continue;
    }
    auto job = std::find_if(jobs.begin(), jobs.end(), [&](const Transfer::Job& each) { return each.group == group; });
    if (job == jobs.end()) job = jobs.insert(jobs.end(), {group, true, {}});
    MessageItem item = dataSet()->item(change.name, false);
    if (!change.unit.empty()) item.unit = change.unit;
    item.value = change.newText;
    job->items.push_back(std::move(item));
  }
  mTransfer.start(std::move(jobs), std::move(finished));
  return left;
}

void Host::discardEdits() {
  DataSet* const open = dataSet();
  if (!open) return;
  for (const std::string& name : open->edited()) open->discardEdit(name);
  mObservers.tell([](HostObserver& each) { each.dataSetChanged(); });
  for (const Ref<ViewSite>& site : std::vector(mSites)) site->handIn(DataPath::Offline, open->copy());
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
