#include "host/User.h"

#include "host/DataFolder.h"
#include "host/Views.h"

namespace ostrand {

User::User(const std::filesystem::path& dataFolder, Views& views)
    : mViews(views),
      mTextTables(dataFolder / "texts"),
      mUnits(isThere(dataFolder / "units.xml") ? UnitService::open(dataFolder / "units.xml") : Ref<UnitService>(new UnitService)) {
  const bool hasTexts = isThere(dataFolder / "texts" / (mSession.language + ".xml"));
  if (!hasTexts) mSession.language = "keys";
  mTextTable = mTextTables.table(mSession.language);
}

void User::setLevel(int level) {
  mSession.level = level;
  mViews.renewMessengers();
}

void User::setLanguage(const std::string& language) {
  mTextTable = mTextTables.table(language);
  mSession.language = language;
  mViews.localize();
}

void User::setUnit(std::string_view quantity, std::string_view unit) {
  mUnits->choose(quantity, unit);
  mViews.raise({ViewEvent::Kind::SetUnits, 0, {}, {}});
}

}  // namespace ostrand
