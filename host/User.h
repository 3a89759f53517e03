#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "host/TextTables.h"
#include "host/UnitService.h"
#include "host/UserSession.h"

namespace ostrand {

class Views;

// Who sits before the host: what he may do, and in which language and units he reads. A change is told to the views.
class User {
 public:
  // A data folder without text tables or units is a user without them, who reads the keys; a damaged one of these files is
  // RuntimeError 5. The views must outlive him.
  User(const std::filesystem::path& dataFolder, Views& views);
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  const UserSession& session() const { return mSession; }
  // Gives each view its Messenger anew: there it reads the level.
  void setLevel(int level);
  void setMaximizeAllowed(bool allowed) { mSession.maximizeAllowed = allowed; }

  // RuntimeError 5 for a language that there is not; then everything stays.
  void setLanguage(const std::string& language);
  TextTables& textTables() { return mTextTables; }
  const Ref<ITextTable>& textTable() const { return mTextTable; }

  // RuntimeError 5 for a quantity or unit that there is not.
  void setUnit(std::string_view quantity, std::string_view unit);
  const Ref<UnitService>& units() const { return mUnits; }

 private:
  Views& mViews;
  UserSession mSession;
  TextTables mTextTables;
  Ref<ITextTable> mTextTable;
  Ref<UnitService> mUnits;
};

}  // namespace ostrand
