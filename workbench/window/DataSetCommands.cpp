#include "workbench/window/DataSetCommands.h"

namespace ostrand {

namespace {

constexpr const char* kDataSets = "Data sets|*.xml|All files|*";

}  // namespace

void DataSetCommands::open() {
  mPanel.commit();
  const auto file = mWorkbench.desktop().openDialog({mUser.say("Open data set").toStdString(), kDataSets, "xml", mWorkbench.dataFolder() / "devices"});
  if (!file) return;
  std::optional<DataSet> dataSet;
  if (!mUser.attempt(mUser.say("%1 could not be opened").arg(fileName(*file)), [&] { dataSet = DataSet::open(*file); })) return;
  PlantDevice& device = mWorkbench.deviceFor(*dataSet);
  if (!mDeparture.mayReplaceDataSet(device)) return;
  device.host().setDataSet(std::move(*dataSet));
  mUser.remark(mUser.say("%1 is open").arg(fileName(*file)));
  mDeparture.warnOfForcedOutput(device);
}

void DataSetCommands::save() {
  mPanel.commit();
  DataSet* const dataSet = mWorkbench.host().dataSet();
  if (!dataSet || dataSet->file().empty()) return saveAs();
  if (mUser.attempt(mUser.say("%1 could not be saved; the file is as it was").arg(fileName(dataSet->file())), [&] { dataSet->save(); }))
    mUser.remark(mUser.say("%1 is saved").arg(fileName(dataSet->file())));
}

void DataSetCommands::saveAs() {
  mPanel.commit();
  DataSet* const dataSet = mWorkbench.host().dataSet();
  if (!dataSet) return;
  const auto file = mWorkbench.desktop().saveDialog({mUser.say("Save data set").toStdString(), kDataSets, "xml", dataSet->file().filename().string()});
  if (!file) return;
  if (mUser.attempt(mUser.say("%1 could not be saved; a file that was there is as it was").arg(fileName(*file)), [&] { dataSet->saveAs(*file); }))
    mUser.remark(mUser.say("%1 is saved").arg(fileName(*file)));
}

}  // namespace ostrand
