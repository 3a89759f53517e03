#include "workbench/window/DataSetCommands.h"

namespace ostrand {

namespace {

constexpr const char* kDataSets = "Data sets|*.xml|All files|*";

}  // namespace

void DataSetCommands::open() {
  mPanel.commit();
  const auto file =
      mWorkbench.desktop().openDialog({mUser.say("Open data set").toStdString(), kDataSets, "xml", mWorkbench.dataFolder() / "devices"});
  if (!file) return;
  std::optional<DataSet> dataSet;
  if (!mUser.attempt(mUser.say("%1 could not be opened").arg(fileName(*file)), [&] { dataSet = DataSet::open(*file); })) return;
  PlantDevice& device = mWorkbench.deviceFor(*dataSet);
  if (!mDeparture.mayReplaceDataSet(device)) return;
  if (!mUser.attempt(mUser.say("%1 could not be opened").arg(fileName(*file)), [&] { device.host().setDataSet(std::move(*dataSet)); })) return;
  mUser.remark(mUser.say("%1 is open").arg(fileName(*file)));
  mDeparture.warnOfForcedOutput(device);
}

bool DataSetCommands::save() { return save(mWorkbench.current()); }

bool DataSetCommands::save(PlantDevice& device) {
  mPanel.commit();
  DataSet* const dataSet = device.host().dataSet();
  if (!dataSet || dataSet->file().empty()) return saveAs(device);
  return write(device, mUser.say("%1 could not be saved; the file is as it was").arg(fileName(dataSet->file())), [&] { dataSet->save(); });
}

void DataSetCommands::saveAs() { saveAs(mWorkbench.current()); }

bool DataSetCommands::saveAs(PlantDevice& device) {
  mPanel.commit();
  DataSet* const dataSet = device.host().dataSet();
  if (!dataSet) return false;
  const auto file =
      mWorkbench.desktop().saveDialog({mUser.say("Save data set").toStdString(), kDataSets, "xml", dataSet->file().filename().string()});
  return file &&
         write(device, mUser.say("%1 could not be saved; a file that was there is as it was").arg(fileName(*file)), [&] { dataSet->saveAs(*file); });
}

// What is typed on the pages goes into the file too. What it cannot take stays on its page, and is told.
bool DataSetCommands::write(PlantDevice& device, const QString& trying, const std::function<void()>& save) {
  QStringList left;
  for (const std::string& parameter : device.keepEdits()) left << mWorkbench.texts()(parameter);
  if (!mUser.attempt(trying, save)) return false;
  const QString file = fileName(device.host().dataSet()->file());
  mUser.remark(left.isEmpty() ? mUser.say("%1 is saved").arg(file)
                              : mUser.say("%1 is saved, but without: %2").arg(file, left.join(QStringLiteral(", "))));
  return true;
}

}  // namespace ostrand
