#include "calibration/CalibrationView.h"

#include <algorithm>

#include "core/HostNumbers.h"
#include "core/Requests.h"
#include "platform/trap/Procedure.h"
#include "platform/types/Query.h"

namespace ostrand {

namespace {

// Both samples report under the first one's name.
constexpr const char* kSampleClick = "Sample1Button_Click";

bool isModified(const EditControl& edit) { return edit.Modified(); }
bool isFilled(const EditControl& edit) { return edit.Correct() && !edit.Text().empty(); }

}  // namespace

CalibrationView::CalibrationView(std::string recipeButtonName)
    : View("VwCalibration", "calibration"), recipeButton(recipeButtonName), mRecipeClick(recipeButtonName + "_Click") {}

// clang-format off
void CalibrationView::declareSampling(Form& form) {
  frame(form, "sampling", "date_sampling")
      .button(Sample1Button.at(Take), "takeSample1", "Take Sample 1").over(Sample1Button.at(Stop), "stop", "Stop")
      .row(lblSampling.at(0), "sample1ConsistencyAverage", cte_sampling.at(0), "ctr_sample1ConsistencyAverage")
      .row(lblSampling.at(1), "sample1Deviation",          cte_sampling.at(1), "ctr_sample1Deviation")
      .button(Sample2Button.at(Take), "takeSample2", "Take Sample 2").over(Sample2Button.at(Stop), "stop", "Stop")
      .row(lblSampling.at(2), "sample2ConsistencyAverage", cte_sampling.at(2), "ctr_sample2ConsistencyAverage")
      .row(lblSampling.at(3), "sample2Deviation",          cte_sampling.at(3), "ctr_sample2Deviation");
}
// clang-format on

void CalibrationView::connect() {
  LabCalibrateBtn.Click.connect([this] { LabCalibrateBtn_Click(); });
  recipeButton.Click.connect([this] { recipeButton_Click(); });
  for (const ButtonIndex index : {Take, Stop}) {
    Sample1Button(index).Click.connect([this, index] { sampleClick(1, index); });
    Sample2Button(index).Click.connect([this, index] { sampleClick(2, index); });
  }
  cce_laboratoryResults.each([this](int, CtrComboEdit& combo) {
    combo.Change.connect([this, &combo](const std::string& text) { cce_laboratoryResults_Change(combo, text); });
  });
}

void CalibrationView::initialize() {
  View::initialize();
  // What the user types here stays until a button of this view writes it.
  Procedure proc(*this, "UserControl_Initialize");
  const auto explicitApply = [&](EditControl& edit) { proc.step([&] { edit.ExplicitApply(true); }); };
  cte_laboratoryResults.each([&](int, EditControl& edit) { explicitApply(edit); });
  cce_laboratoryResults.each([&](int, EditControl& edit) { explicitApply(edit); });
  for (const RecipeRow& row : recipeRows()) {
    explicitApply(*row.pulpType);
    for (CtrTextEdit* text : row.texts) explicitApply(*text);
  }
}

void CalibrationView::messengerTaken(Procedure& proc) {
  // A Stop button is never disabled: a sample that runs can always be stopped.
  proc.step([&] {
    for (CommandButton* button : {&Sample1Button(Take), &Sample2Button(Take), &LabCalibrateBtn, &recipeButton}) enableByLevel(proc, *button);
  });
}

void CalibrationView::clear() {
  mBus = nullptr;
  View::clear();
}

void CalibrationView::ViewSetCommunicationMode(int mode) {
  Procedure proc(*this, "mMessenger_ViewSetCommunicationMode");
  followMode(proc, mode, LabCalibrateBtn);
  followMode(proc, mode, recipeButton);
}

void CalibrationView::RequestFocus() {
  if (mSelectedView != "sampling") return View::RequestFocus();
  Procedure proc(*this, "ITaviView_RequestFocus");
  proc.step([&] { Sample1Button(Sample1Button(Take).Visible() ? Take : Stop).SetFocus(); });
}

// --- samples

bool CalibrationView::LeaveSelectedView() {
  BusProcedure proc(*this, "ITaviView_LeaveSelectedView", mBus);
  bool mayLeave = true;
  proc.step([&] {
    const bool firstRuns = Sample1Button(Stop).Visible();
    if (!firstRuns && !Sample2Button(Stop).Visible()) return;
    mayLeave = proc.value(Answer::kNone, [&] { return proc.messenger().AskUser("sampling", "samplingExitWarning"); }) == Answer::kGoOn;
    if (!mayLeave) return;
    // Also when the view was released meanwhile: the stop leaves by what this entry holds.
    BusProcedure click(*this, kSampleClick, proc);
    carryOut(click, Sample1Button(Stop).Visible() ? 1 : 2, Stop);
  });
  return mayLeave;
}

void CalibrationView::sampleClick(int sample, ButtonIndex index) {
  BusProcedure proc(*this, kSampleClick, mBus);
  carryOut(proc, sample, index);
}

void CalibrationView::carryOut(BusProcedure& proc, int sample, ButtonIndex index) {
  const auto& own = sample == 1 ? Sample1Button : Sample2Button;
  const auto& other = sample == 1 ? Sample2Button : Sample1Button;
  proc.all([&] {
    // The question comes before the refusal: who confirms it may still be refused.
    if (index == Take && proc.messenger().AskUser("sampling", "checkThatRecipeToBeCalibratedIsActive") != Answer::kGoOn) return;
    if (index == Take && isReleased(proc)) return;
    if (other(Stop).Visible())
      return proc.messenger().ShowMessage("error", sample == 1 ? "pleaseStopSamplingSample2First" : "pleaseStopSamplingSample1First");
    own(Take).Visible(false);
    own(Stop).Visible(false);

    if (index == Stop) {
      if (!stopSample(proc, sample)) return proc.reportLastError();
      notifyStatus("");
      own(Take).Visible(true);
      return;
    }
    // The old averages of sample 1 disappear before the start, those of sample 2 after it.
    if (sample == 1) clearSample(sample);
    if (!startSample(proc, sample)) return proc.reportLastError();
    notifyStatus("sampling");
    if (sample == 2) clearSample(sample);
    own(Stop).Visible(true);
    own(Stop).SetFocus();
  });
}

bool CalibrationView::startSample(BusProcedure& proc, int sample) {
  return sample == 1 ? proc.bus()->StartSampling1(proc.pinnedMessenger()) : proc.bus()->StartSampling2(proc.pinnedMessenger());
}

bool CalibrationView::stopSample(BusProcedure& proc, int sample) {
  return sample == 1 ? proc.bus()->StopSampling1(proc.pinnedMessenger()) : proc.bus()->StopSampling2(proc.pinnedMessenger());
}

void CalibrationView::clearSample(int sample) {
  const int first = sample == 1 ? 0 : 2;
  cte_sampling(first).Text("");
  cte_sampling(first + 1).Text("");
  cte_sampling(first).Modified(true);
  cte_sampling(first + 1).Modified(true);
}

void CalibrationView::notifyStatus(const std::string& key) {
  if (const Ref<INotifyStatus> status = query<INotifyStatus>(parent().get())) status->NotifyStatus(key, 0, 0);
}

// --- laboratory results

void CalibrationView::cce_laboratoryResults_Change(CtrComboEdit& combo, const std::string& text) {
  Procedure proc(*this, "cce_laboratoryResults_Change");
  if (!proc.value(false, [&] { return combo.Tag() == "ctr_calibrationType"; })) return;
  const bool both = text == "useBothSamples";
  const int firstValue = cte_laboratoryResults.size() - 2;
  const auto open = [&](int index, bool isOpen) {
    CtrTextEdit& value = cte_laboratoryResults(index);
    // A closed field goes to the device as 0.
    proc.step([&] { value.Text(isOpen ? "" : "0"); });
    proc.step([&] { value.Enabled(isOpen); });
    proc.step([&] { value.TabStop(isOpen); });
  };
  open(firstValue, both || text == "useSample1Only");
  open(firstValue + 1, both || text == "useSample2Only");
}

void CalibrationView::LabCalibrateBtn_Click() {
  // No trap: an error goes to whoever raised the click. The procedure pins, and reports a False.
  BusProcedure proc(*this, "LabCalibrateBtn_Click", mBus);
  // A read may have brought the device's value into a closed field since; it goes as 0 all the same.
  cte_laboratoryResults.each([](int, CtrTextEdit& field) {
    if (!field.Enabled() && field.Text() != "0") field.Text("0");
  });
  bool valid = true;
  std::vector<EditControl*> controls;
  const auto collect = [&](const auto& edits) {
    for (int i = 0; i < edits.size(); ++i) {
      if (!isFilled(edits(i))) {
        valid = false;
        return;
      }
      controls.push_back(&edits(i));
    }
  };
  collect(cte_laboratoryResults);
  collect(cce_laboratoryResults);
  if (!valid) return proc.messenger().ShowMessage("informationError", "pleaseCheckTheValues");
  sendValues(controls, "laboratoryResults");
  if (!afterLaboratoryResults(proc)) proc.reportLastError();
}

void CalibrationView::sendValues(const std::vector<EditControl*>& controls, const std::string& requestName) {
  Procedure proc(*this, "sendValues", Procedure::Inner);
  proc.all([&] {
    std::string items;
    for (EditControl* control : controls) items += control->GetXmlItem(true).xml();
    container().DTMGUIDownload(Requests::fragment(requestName, "write", items), requestName, 1);
  });
}

// --- recipes

void CalibrationView::recipeButton_Click() {
  BusProcedure proc(*this, mRecipeClick, mBus);
  proc.all([&] {
    bool valid = true;
    for (const RecipeRow& row : recipeRows()) {
      const auto all = [&](auto test) {
        return test(*row.pulpType) && std::all_of(row.texts.begin(), row.texts.end(), [&](CtrTextEdit* text) { return test(*text); });
      };
      const auto any = [&](auto test) {
        return test(*row.pulpType) || std::any_of(row.texts.begin(), row.texts.end(), [&](CtrTextEdit* text) { return test(*text); });
      };
      // A row that nobody touched is not looked at.
      if (!any(isModified)) continue;
      valid = all([](const EditControl& edit) { return edit.Correct(); }) && all([](const EditControl& edit) { return !edit.Text().empty(); });
      if (!valid) break;
    }
    if (!valid) return proc.messenger().ShowMessage("informationError", "pleaseCheckTheValues");
    sendRecipes();
    if (!afterRecipes(proc)) proc.reportLastError();
  });
}

void CalibrationView::sendRecipes() {
  Procedure proc(*this, "sendRecipes", Procedure::Inner);
  proc.all([&] {
    std::string items;
    for (const RecipeRow& row : recipeRows()) {
      bool modified = row.pulpType->Modified();
      for (const CtrTextEdit* text : row.texts) modified = modified || text->Modified();
      if (!modified) continue;
      items += row.pulpType->GetXmlItem(true).xml();
      for (CtrTextEdit* text : row.texts) items += text->GetXmlItem().xml();
    }
    if (items.empty()) return;
    container().DTMGUIDownload(Requests::fragment("recipes", "write", items), "recipes", 1);
  });
}

}  // namespace ostrand
