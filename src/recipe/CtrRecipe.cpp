#include "recipe/CtrRecipe.h"

#include <utility>

#include "core/modView.h"
#include "platform/base/NumberText.h"
#include "platform/types/Listening.h"
#include "platform/types/Query.h"
#include "platform/xml/Vocabulary.h"
#include "recipe/SampleItems.h"
#include "recipe/WholeNumber.h"

namespace ostrand {

namespace {

constexpr int kLogSteps = 67;
constexpr int kLogDocuments = 68;
constexpr int kLogWater = 70;

// Of "major.minor" the minor; a text without a point counts as a whole.
int minorRevision(const std::string& text) {
  const std::size_t point = text.find('.');
  return wholeNumber<std::int16_t>(point == text.npos ? text : text.substr(point + 1));
}

}  // namespace

CtrRecipe::~CtrRecipe() { stopListening(mMessenger, *this); }

bool CtrRecipe::offerInterface(const Guid& id, void** out) noexcept {
  return offer<ITaviView>(id, this, out) || offer<ITaviDataUser>(id, this, out) || offer<ITaviComponent>(id, this, out) ||
         offer<ILocalizable>(id, this, out);
}

std::function<MemberAnswer()> CtrRecipe::member(std::string_view name, const MemberArguments& arguments) {
  static constexpr Member<CtrRecipe> kMembers[] = {
      {"ClearHistoryTable", "", [](CtrRecipe& at, const MemberArguments&) -> MemberAnswer { return at.ClearHistoryTable(), MemberAnswer(); }},
  };
  return findMember<CtrRecipe>(kMembers, this, name, arguments);
}

// --- life

void CtrRecipe::initialize() {
  UserControl_Initialize();
  UserControl_ReadProperties();
}

void CtrRecipe::UserControl_Initialize() {
  routine("CtrRecipe UserControl_Initialize - Error", [&] {
    std::vector<std::string> options;
    optCurve.each([&](int, const OptionButton& option) { options.push_back(option.Tag()); });
    coeCurve.SetOptionValues(std::move(options));
    DisableEditables(All);
    for (int row = 1; row <= kRows; ++row) {
      for (ListView* const list : {&lsvUsed, &lsvValidation, &lsvConsistency, &lsvFiller, &lsvResidual}) list->AddRow();
      lsvConsistency.RowTag(row, SampleItems::kLabConsistency);
      lsvFiller.RowTag(row, SampleItems::kLabFiller);
      lsvValidation_ItemCheck(row);
    }
    for (ListView* const list : {&lsvUsed, &lsvValidation, &lsvConsistency, &lsvFiller, &lsvResidual}) setColumnWidths(*list);
    InitializeGraph();
    addItems();
  });
}

void CtrRecipe::UserControl_ReadProperties() {
  routine("CtrRecipe UserControl_ReadProperties - Error ", [&] { replaceDesignTag(tag()); });
}

void CtrRecipe::SetMessenger(const Ref<Messenger>& messenger) {
  Procedure proc(*this, "ITaviComponent_SetMessenger", messenger);
  proc.all([&] {
    changeMessenger(mMessenger, proc.pinnedMessenger(), *this);
    if (!proc.pinnedMessenger() || mMessenger != proc.pinnedMessenger()) return;
    modView::setMessenger(*this, proc.pinnedMessenger());
    const bool allowed = proc.messenger().GetMaximizeAllowed();
    pesgoValidation.MaximizeAllowed(allowed);
    picMaximize.Visible(allowed);
  });
}

void CtrRecipe::Localize(const Ref<ITextTable>& textTable) {
  routine("CtrRecipe Localize: ", [&, texts = textTable] {
    mTextTable = texts;
    modView::Localize(*this, texts);
    SetTorqueLabel("");
    if (!texts) throwNothingThere("the text table");
    constexpr std::pair<Series, const char*> kLabels[] = {
        {Samples, "sample"}, {BasicTuning, "basicTuning"}, {TypedPolynome, "polynome"}, {NotInUse, "notInUse"}, {Calibrated, "calibrated"}};
    for (const auto& [series, key] : kLabels) pesgoValidation.SeriesLabel(series, texts->GetText(key));
    if (const std::string message = mGraphMessage; !message.empty()) pesgoValidation.AnnotationText(texts->GetSectionText(message, "#"));
    pesgoValidation.Rebuild(0);
  });
}

void CtrRecipe::ViewSetUnits() {
  routine("CtrRecipe mMessenger_ViewSetUnits: ", [&](Procedure& proc) { showColumnUnits(proc); });
}

void CtrRecipe::RequestFocus() {
  routine("CtrRecipe ITaviView_RequestFocus: ", [&] { optCurve(PulpType).SetFocus(); });
}

void CtrRecipe::PrepareToRelease() {
  routine("CtrRecipe ITaviView_PrepareToRelease: ", [&] { letGo(); });
}

void CtrRecipe::letGo() {
  for (Control* const control : controls()) control->detach();
  mTextTable = nullptr;
  stopListening(std::exchange(mMessenger, nullptr), *this);
}

// --- documents

void CtrRecipe::SetErrorData(const Document& doc) {
  routine("CtrRecipe ITaviDataUser_SetErrorData: ", [&] { modView::setErrorData(*this, doc); });
}

void CtrRecipe::SetImportData(const Document& document) {
  routine("CtrRecipe ITaviDataUser_SetImportData: ", [&, doc = document](Procedure& proc) {
    proc.messenger().Log(kLogDocuments, "CtrRecipe ITaviDataUser_SetImportData entering");
    modView::setImportData(*this, doc);
    readSwRevision(doc);
    mSensorType = cceSensorType.Text();
    if (!mSensorType.empty()) takeSensorType();
    proc.messenger().Log(kLogDocuments, "CtrRecipe ITaviDataUser_SetImportData leaving");
  });
}

void CtrRecipe::SetOfflineData(const Document& document) {
  namespace Items = SampleItems;
  routine("CtrRecipe ITaviDataUser_SetOfflineData: ", [&, doc = document] {
    mRecipeDigit = tag().empty() ? "" : tag().substr(tag().size() - 1);
    const Node recipe = parameter(doc, Items::kRecipe);
    recipe.setAttribute("value", mRecipeDigit);
    recipe.setAttribute("synchronised", "1");
    recipe.setAttribute("access", "read");
    // No stale history is shown without the device.
    for (const std::string& name : {Items::kId, Items::kLabConsistency, Items::kLabFiller, Items::kProcessTemperature, Items::kTorque})
      parameter(doc, name).setAttribute("value", "");
    modView::setOfflineData(*this, doc);
    readSwRevision(doc);
    mSensorType = cceSensorType.Text();
    if (!mSensorType.empty()) {
      takeSensorType();
      // The recipe shows the sensor type and does not change it.
      cceSensorType.ReadOnly(true);
    }
    keepCorrection();
    for (PnOrigin& origin : mOrigins) origin.take(PnOrigin::Answer::DataSet, "");
    mLoaded = true;
    showOrigins();
    showResiduals();
  });
}

void CtrRecipe::readSwRevision(const Document& dataSet) {
  if (const Node revision = parameter(dataSet, "swRevisionNumber"))
    if (const std::string value(revision.findAttribute("value").value_or("")); !value.empty()) mSwRevision = minorRevision(value);
}

void CtrRecipe::takeSensorType() {
  clearMessage();
  ccePulpType_Change(ccePulpType.Text());
}

void CtrRecipe::SetOnlineData(const Document& document) {
  routine("CtrRecipe ITaviDataUser_SetOnlineData: ", [&, doc = document](Procedure& proc) {
    proc.messenger().Log(kLogSteps, "CtrRecipe SetOnlineData entering " + tag());
    takeRevisions(proc, doc);
    const Node answer = response(doc);
    if (answer.attribute("name").starts_with(tag())) takeAnswer(proc, doc, answer);
    proc.messenger().Log(kLogSteps, "CtrRecipe SetOnlineData leaving " + tag());
  });
}

void CtrRecipe::takeRevisions(Procedure& proc, const Document& doc) {
  if (const Node tcu = item(doc, "tcuSWRevisionNumber")) {
    const std::string text = tcu.firstChild() ? tcu.firstChild().text() : std::string();
    if (parseNumber(text, '.')) {
      mTcuSwRevision = minorRevision(text);
      mTcuSwRevisionText = text;
    }
    applyWaterRule(proc);
  }
  if (const Node revision = itemAnywhere(doc, "swRevisionNumber")) {
    mSwRevision = minorRevision(revision.firstChild().text());
    applyWaterRule(proc);
    clearMessage();
    // A curve may depend on the revision.
    if (const std::string pulpType = ccePulpType.Text(); !pulpType.empty()) ccePulpType_Change(pulpType);
  }
}

// The torques of these devices hold that of the water. Tested at both revisions, so that it holds whichever comes first; nothing
// takes it back.
void CtrRecipe::applyWaterRule(Procedure& proc) {
  if (mTcuSwRevision != 0 || (mSwRevision != 65 && mSwRevision != 66)) return;
  mSubtractWater = true;
  proc.messenger().Log(kLogWater, "Setting water value to be subtracted");
  proc.messenger().Log(kLogWater, "TCU SW Revision = " + mTcuSwRevisionText + " and SW Revision = " + std::to_string(mSwRevision));
}

void CtrRecipe::takeAnswer(Procedure& proc, const Document& doc, const Node& answer) {
  proc.messenger().Log(kLogDocuments, doc.xml());
  if (const Node count = itemAnywhere(doc, tag() + "SampleCount")) return LoadSamples(wholeNumber<std::int16_t>(count.firstChild().text()));
  if (const Node id = doc.select("//comm:item[contains(@name, \"" + SampleItems::kId + "\")]")) return takeRecord(proc, doc, id);
  takeParameters(doc, answer);
}

void CtrRecipe::takeParameters(const Document& doc, const Node& answer) {
  if (const Node sensorType = itemAnywhere(doc, "sensorType")) {
    cceSensorType.SetOnlineData(sensorType);
    mSensorType = cceSensorType.Text();
    if (!mSensorType.empty()) clearMessage();
  }
  modView::setOnlineData(*this, doc);
  keepCorrection();
  noteOrigins(doc, answer);
  showResiduals();
}

// What the host keeps in its data set is not the device's; what the device takes over is not what it has read.
void CtrRecipe::noteOrigins(const Document& doc, const Node& answer) {
  const auto is = [&](const char* attribute, std::string_view value) { return answer.findAttribute(attribute).value_or("") == value; };
  const PnOrigin::Answer kind = is("responseStatus", "local") ? PnOrigin::Answer::DataSet
                                : is("access", "write")       ? PnOrigin::Answer::Written
                                                              : PnOrigin::Answer::Read;
  ctePn.each([&](int index, const CtrTextEdit& edit) {
    if (itemAnywhere(doc, edit.parameterName())) mOrigins[index].take(kind, edit.stored());
  });
  showOrigins();
}

}  // namespace ostrand
