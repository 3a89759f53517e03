#include "recipe/RecipeSamples.h"

#include <algorithm>
#include <cmath>

#include "core/Requests.h"
#include "core/modTools.h"
#include "core/modView.h"
#include "platform/base/NumberText.h"
#include "platform/xml/Vocabulary.h"
#include "recipe/HistoryTime.h"
#include "recipe/SampleItems.h"
#include "recipe/Single.h"
#include "recipe/WholeNumber.h"

namespace ostrand {

namespace {

constexpr int kLogRows = 69;
constexpr int kLogWater = 70;
constexpr int kFirstRevisionWithWater = 65;  // from here on record 0 is the water

}  // namespace

RecipeSamples::~RecipeSamples() {
  // The editors may be held longer than the form around them.
  for (const auto* editors : {&caeSample, &caeReadonlySample})
    editors->each([&](int index, const Nested<CtrAnyEdit>& editor) {
      const auto id = mListening[static_cast<std::size_t>(index + (editors == &caeSample ? 0 : kRows))];
      editor->Change.disconnect(id);
    });
}

void RecipeSamples::connect() {
  RecipeCurve::connect();
  using Handler = void (RecipeSamples::*)(int, const std::string&, const std::string&);
  const auto listen = [this](const ControlArray<Nested<CtrAnyEdit>>& editors, Handler handler) {
    editors.each([&](int index, const Nested<CtrAnyEdit>& editor) {
      mListening.push_back(
          editor->Change.connect([this, index, handler](const std::string& name, const std::string& text) { (this->*handler)(index, name, text); }));
    });
  };
  listen(caeSample, &RecipeSamples::caeSample_Change);
  listen(caeReadonlySample, &RecipeSamples::caeReadonlySample_Change);
  lsvUsed.ItemCheck.connect([this](int row) { lsvUsed_ItemCheck(row); });
  lsvValidation.ItemCheck.connect([this](int row) { lsvValidation_ItemCheck(row); });
  lsvConsistency.AfterLabelEdit.connect(
      [this](int row, std::string& text) { routine("CtrRecipe lsvConsistency_AfterLabelEdit: ", [&] { takeLabEdit(lsvConsistency, row, text); }); });
  lsvFiller.AfterLabelEdit.connect(
      [this](int row, std::string& text) { routine("CtrRecipe lsvFiller_AfterLabelEdit: ", [&] { takeLabEdit(lsvFiller, row, text); }); });
  // A dragged column goes back to its width.
  const auto leave = [this](ListView& list, const char* prefix) {
    list.LostFocus.connect([this, &list, prefix] { routine(prefix, [&] { setColumnWidths(list); }); });
  };
  leave(lsvUsed, "CtrRecipe lsvUsed_LostFocus: ");
  leave(lsvValidation, "CtrRecipe lsvValidation_LostFocus: ");
  leave(lsvConsistency, "CtrRecipe lsvConsistency_LostFocus: ");
  leave(lsvFiller, "CtrRecipe lsvFiller_LostFocus: ");
  optAction.each([this](int index, OptionButton& option) { option.Click.connect([this, index] { optAction_Click(index); }); });
  pesgoValidation.DataHotSpot.connect([this](bool doubleClick, int series, int point) { pesgoValidation_DataHotSpot(doubleClick, series, point); });
  ctePn.each([this](int, CtrTextEdit& edit) { edit.changed.connect([this] { showResiduals(); }); });
}

void RecipeSamples::addItems() {
  namespace Items = SampleItems;
  for (int i = 0; i < kRows; ++i) {
    const std::string sample = Items::kSampleContext + std::to_string(i + 1), readonly = Items::kReadonlyContext + std::to_string(i + 1);
    caeSample(i)->ContextTag(sample);
    caeSample(i).Tag(sample);
    for (const std::string& item : {Items::kRecipe, Items::kId, Items::kLabConsistency, Items::kLabFiller}) caeSample(i)->AddAny(item);
    caeReadonlySample(i)->ContextTag(readonly);
    caeReadonlySample(i).Tag(readonly);
    for (const std::string& item : {Items::kConsistency, Items::kDeviation, Items::kMax, Items::kMin, Items::kProcessTemperature, Items::kTime,
                                    Items::kTorque, Items::kUncompensatedConsistency})
      caeReadonlySample(i)->AddAny(item);
  }
}

// --- the history

void RecipeSamples::ClearHistoryTable() {
  routine("CtrRecipe ClearHistoryTable: ", [&] { mHistoryIds = {}; });
}

void RecipeSamples::LoadSamples(int count) {
  routine("CtrRecipe LoadSamples: ", [&] {
    mHistoryIds = {};
    if (count <= 0) return;
    const int first = count >= kRows ? count - (kRows - 1) : 0;
    for (int index = count; index >= first && mMessenger; --index) RequestSample(index);
    // The water has to be read although it is not among the newest; of a shorter history it has come last.
    if (mSwRevision >= kFirstRevisionWithWater && first > 0 && mMessenger) RequestSample(0);
  });
}

// A record takes two requests; the second leaves only if the first was accepted.
void RecipeSamples::RequestSample(int index) {
  routine("CtrRecipe RequestSample: ", [&] {
    if (sendRequest("sampleHistory1", index) && mMessenger) sendRequest("sampleHistory2", index);
  });
}

bool RecipeSamples::sendRequest(const std::string& half, int index) {
  const auto item = [](const std::string& name, const std::string& value) {
    return "<item name=\"" + name + "\" unit=\"noUnit\"><integerVal>" + value + "</integerVal></item>";
  };
  const std::string items = item(half + "Recipe", mRecipeDigit) + item(half + "Index", std::to_string(index));
  const Ref<Messenger> host = mMessenger;
  if (!host) throwNothingThere("the messenger");
  return host->SendRequestWithStatus(Requests::document(tag() + "sampleHistory", "write", items), "readingSamples", 3, 6);
}

// The row that holds this record already, or else the first free one. The water has the id 0 and so leaves its row free: the next
// record takes it.
void RecipeSamples::takeRecord(Procedure& proc, const Document& doc, const Node& idItem) {
  const int id = wholeNumber<std::int32_t>(idItem.firstChild().text());
  const auto place = std::find_if(mHistoryIds.begin(), mHistoryIds.end(), [id](int held) { return held == id || held == 0; });
  int row = 0;
  if (place != mHistoryIds.end()) {
    *place = id;
    row = static_cast<int>(place - mHistoryIds.begin()) + 1;
  }
  if (mSubtractWater && id < 1) takeWater(proc, doc);
  if (row > kRows) {
    proc.messenger().Log(kLogRows, "Sample History Upload: sampleRow " + std::to_string(row) + " > maximum row " + std::to_string(kRows));
    return;
  }
  // Without a free row this is row 0, which there is not: an error of the answer.
  lsvUsed.Checked(row, false);
  lsvUsed_ItemCheck(row);
  for (const auto* const editors : {&caeReadonlySample, &caeSample}) {
    NestedControl& editor = (*editors)(row - 1);
    modView::callObject(editor, editor.dataUser(), "SetOnlineData", " document", [&](ITaviDataUser& user) { user.SetOnlineData(doc); });
  }
}

void RecipeSamples::takeWater(Procedure& proc, const Document& doc) {
  if (const Node torque = itemAnywhere(doc, SampleItems::kTorque)) {
    const std::string text = torque.firstChild() ? torque.firstChild().text() : std::string();
    if (!text.empty() && text.find("NaN") == text.npos) mWaterTorque = modTools::ToLocalNumber(text, desktop().locale());
  }
  proc.messenger().Log(kLogWater, "Using water torque " + plainText(mWaterTorque, separator()));
}

// --- what the editors tell

void RecipeSamples::caeReadonlySample_Change(int index, const std::string& itemTag, const std::string& now) {
  const std::string name = itemTag, text = now;
  routine("CtrRecipe caeReadonlySample_Change :  Error ", [&](Procedure& proc) {
    if (!mLoaded || index >= kRows) return;
    const int row = index + 1;
    if (name == SampleItems::kTime) {
      lsvValidation.Cell(row, Time, shownHistoryTime(text, desktop().locale()));
    } else if (name == SampleItems::kProcessTemperature) {
      lsvValidation.Cell(row, Temperature, text);
    } else if (name == SampleItems::kTorque) {
      if (text.empty()) return;
      lsvValidation.Cell(row, Torque, text);
      if (!caeReadonlySample(index)->Correct(name)) return;
      double torque = modTools::ToLocalNumber(text, desktop().locale());
      // The number is taken as it is, whatever unit the text has. The table keeps showing the whole torque.
      if (mSubtractWater) {
        proc.messenger().Log(kLogWater, "Subtracting water torque value " + plainText(mWaterTorque, separator()) + " from " + text);
        torque -= mWaterTorque;
      }
      SetTorqueValue(Samples, index, toSingle(torque));
      pesgoValidation.Rebuild(1);
    } else if (name == SampleItems::kConsistency) {
      lsvValidation.Cell(row, Consistency, text);
    }
  });
  if (!mLoaded) return;
  showPointText(index + 1);
  showResidual(index + 1);
}

void RecipeSamples::caeSample_Change(int index, const std::string& itemTag, const std::string& now) {
  const std::string name = itemTag, text = now;
  routine("Error ", [&] {
    if (!mLoaded) return;
    const bool isConsistency = name.find(SampleItems::kLabConsistency) != name.npos;
    if (!isConsistency && name.find(SampleItems::kLabFiller) == name.npos) return;
    if (index >= kRows) return;
    ListView& list = isConsistency ? lsvConsistency : lsvFiller;
    list.CellColor(index + 1, 1, colorOf(index + 1, name));
    list.Cell(index + 1, 1, text);
    if (!text.empty() && isConsistency) SetConsistencyValue(Samples, index, toSingle(modTools::ToLocalNumber(text, desktop().locale())));
  });
  if (!mLoaded) return;
  showPointText(index + 1);
  showResidual(index + 1);
}

Color RecipeSamples::colorOf(int row, const std::string& itemTag) const {
  const CtrAnyEdit& editor = *caeSample(row - 1);
  if (!editor.Correct(itemTag)) return RecipeColor::kWrong;
  if (editor.Modified(itemTag)) return RecipeColor::kEdited;
  return lsvUsed.Checked(row) ? RecipeColor::kChecked : RecipeColor::kUnchecked;
}

// --- what the user types

void RecipeSamples::takeLabEdit(ListView& list, int row, std::string& text) {
  const std::string item = list.RowTag(row);
  CtrAnyEdit& editor = *caeSample(row - 1);
  editor.VerifyEdit(item, text);
  list.CellColor(row, 1, colorOf(row, item));
  if (!editor.Correct(item)) return showResidual(row);
  text = editor.Text(item);
  list.Cell(row, 1, text);
  if (&list == &lsvConsistency && !text.empty()) SetConsistencyValue(Samples, row - 1, toSingle(modTools::ToLocalNumber(text, desktop().locale())));
  if (lsvUsed.Checked(row)) {
    if (isActing(OnePoint))
      CalibratePoint(row);
    else if (isActing(TwoPoints))
      lsvUsed_ItemCheck(row);
  }
  showPointText(row);
  showResidual(row);
}

// --- which samples take part

void RecipeSamples::lsvUsed_ItemCheck(int row) {
  routine("CtrRecipe lsvUsed_ItemCheck: ", [&] {
    const bool checked = lsvUsed.Checked(row);
    if (isActing(OnePoint)) {
      if (checked) {
        for (int other = 1; other <= kRows; ++other) {
          if (other == row) continue;
          lsvUsed.Checked(other, false);
          lsvValidation.Checked(other, false);
          lsvValidation_ItemCheck(other);
        }
        CalibratePoint(row);
      }
    } else if (isActing(TwoPoints)) {
      if (checked) {
        std::vector<int> rows;
        for (int each = 1; each <= kRows; ++each)
          if (lsvUsed.Checked(each)) rows.push_back(each);
        if (rows.size() == 2) CalibrateTwoPoints(rows[0], rows[1]);
        if (rows.size() >= 3) {
          lsvUsed.Checked(row, false);
          return;
        }
      }
    } else if (!optCurve(SpecialGrade).Value()) {
      lsvUsed.Checked(row, false);
    }
    lsvValidation.Checked(row, lsvUsed.Checked(row));
    lsvValidation_ItemCheck(row);
  });
}

void RecipeSamples::lsvValidation_ItemCheck(int row) {
  routine("CtrRecipe lsvValidation_ItemCheck: ", [&] {
    const bool checked = lsvValidation.Checked(row);
    const Color color = checked ? RecipeColor::kChecked : RecipeColor::kUnchecked;
    for (int column = Time; column <= Consistency; ++column) lsvValidation.CellColor(row, column, color);
    lsvUsed.CellColor(row, 1, color);
    // An edited value keeps its blue.
    const CtrAnyEdit& editor = *caeSample(row - 1);
    if (!editor.Modified(SampleItems::kLabConsistency)) lsvConsistency.CellColor(row, 1, color);
    if (!editor.Modified(SampleItems::kLabFiller)) lsvFiller.CellColor(row, 1, color);
    pesgoValidation.PointColor(Samples, row - 1, checked ? RecipeColor::kBlue : RecipeColor::kUncheckedPoint);
    pesgoValidation.PointType(Samples, row - 1, checked ? 9 : 3);
    pesgoValidation.Rebuild(0);
  });
}

void RecipeSamples::optAction_Click(int index) {
  routine("CtrRecipe optAction_Click: ", [&] {
    for (int row = 1; row <= kRows; ++row) {
      if (!lsvUsed.Checked(row)) continue;
      lsvUsed.Checked(row, false);
      lsvUsed_ItemCheck(row);
    }
    DisableEditables(CorrectionFields);
    // What a calibration had proposed is dropped.
    restoreCorrection();
    if (index == CurveAdjustment) {
      ctePn.each([](int, CtrTextEdit& edit) { edit.Enabled(true); });
      lblPn.each([](int, Label& label) { label.Enabled(true); });
      DrawCalibratedCurve();
    } else {
      lsvUsed.Enabled(true);
      lsvUsed.BackColor(RecipeColor::kWindow);
    }
  });
}

// A click on a curve does nothing.
void RecipeSamples::pesgoValidation_DataHotSpot(bool doubleClick, int series, int point) {
  routine("CtrRecipe pesgoValidation_DataHotSpot: ", [&] {
    if (series != Samples) return;
    const int row = point + 1;
    if (doubleClick) {
      lsvUsed.Checked(row, !lsvUsed.Checked(row));
      lsvUsed_ItemCheck(row);
    } else {
      lsvValidation.SelectedRow(row);
      lsvValidation.SetFocus();
    }
  });
}

// --- what is told beside the tables and the chart: all of it out of the models, nothing is asked of the host

void RecipeSamples::showResiduals() {
  if (!mLoaded) return;
  for (int row = 1; row <= kRows; ++row) showResidual(row);
}

void RecipeSamples::showResidual(int row) {
  routine("CtrRecipe showResidual: ", [&] {
    const auto point = labPoint(row);
    const bool isProposed = asBool(ctePn(0).get("Modified", {})) || asBool(ctePn(1).get("Modified", {}));
    const auto show = [&](int column, const std::optional<CalibrationLine>& line) {
      std::string text;
      if (point && line)
        if (const double value = residual(*point, *line); std::isfinite(value)) text = fixedText(value, 2, separator());
      if (asText(lsvResidual.get("Cell", std::array{row, column})) != text) lsvResidual.Cell(row, column, text);
    };
    show(1, deviceLine());
    show(2, isProposed ? shownLine() : std::nullopt);
  });
}

void RecipeSamples::showPointText(int row) {
  routine("CtrRecipe showPointText: ", [&] { pesgoValidation.PointText(Samples, row - 1, pointText(row)); });
}

std::string RecipeSamples::pointText(int row) const {
  std::string text;
  const auto add = [&](const ListView& list, int column) {
    const std::string value = asText(list.get("Cell", std::array{row, column}));
    const std::string head = asText(list.get("Header", std::array{column}));
    if (!value.empty()) text += (text.empty() ? "" : "\n") + (head.empty() ? "" : head + ": ") + value;
  };
  for (int column = Time; column <= Consistency; ++column) add(lsvValidation, column);
  add(lsvConsistency, 1);
  add(lsvFiller, 1);
  return text;
}

}  // namespace ostrand
