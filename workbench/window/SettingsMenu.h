#pragma once

#include <string>

class QMainWindow;
class QMenu;

namespace ostrand {

class UserTalk;
class ViewPanel;
class Workbench;

// Who the user is, and how he wants to see things: level, language, units, decimals, theme, size, order of the device signals.
class SettingsMenu {
 public:
  SettingsMenu(QMainWindow& window, Workbench& workbench, ViewPanel& panel, const UserTalk& user);

  void refresh();

  void setLanguage(const std::string& code);
  void setLocale(const std::string& name);
  void setLevel(int level);
  void setUnit(const std::string& quantity, const std::string& unit);
  void choosePriorities();

 private:
  void fillLanguages();
  void fillUnits();
  void fillLocales();
  void fillLevels();
  void fillLooks();

  QMainWindow& mWindow;
  Workbench& mWorkbench;
  ViewPanel& mPanel;
  const UserTalk& mUser;
  QMenu* mLanguages;
  QMenu* mUnits;
  QMenu* mLocales;
  QMenu* mLevels;
  QMenu* mLooks;
};

}  // namespace ostrand
