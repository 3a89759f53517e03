#pragma once

#include <QString>
#include <string>

class QMenu;

namespace ostrand {

class MainWindow;

// Who the user is, and how he wants to see things: level, language, units, decimals, theme, size, order of the device signals.
class SettingsMenu {
 public:
  explicit SettingsMenu(MainWindow& window);

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
  QString say(const char* english) const;

  MainWindow& mWindow;
  QMenu* mLanguages;
  QMenu* mUnits;
  QMenu* mLocales;
  QMenu* mLevels;
  QMenu* mLooks;
};

}  // namespace ostrand
