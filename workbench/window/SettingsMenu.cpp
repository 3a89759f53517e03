#include "workbench/window/SettingsMenu.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "workbench/dialogs/PrioritiesDialog.h"
#include "workbench/render/ViewPanel.h"
#include "workbench/window/UserTalk.h"
#include "workbench/words/Spoken.h"

namespace ostrand {

namespace {

// One of several: a menu entry with a mark.
void addChoice(QMenu& menu, const QString& text, bool chosen, std::function<void()> choose) {
  QAction* const action = menu.addAction(text);
  action->setCheckable(true);
  action->setChecked(chosen);
  QObject::connect(action, &QAction::triggered, &menu, [choose = std::move(choose)] { choose(); });
}

constexpr std::pair<const char*, const char*> kLocales[] = {
    {"en", "1.5 – English"}, {"fi", "1,5 – Finnish"}, {"sv", "1,5 – Swedish"}, {"de", "1,5 – German"}};

constexpr std::pair<int, const char*> kLevels[] = {{1, "1 – Observer"}, {2, "2 – Operator"}, {3, "3 – Maintenance"}, {4, "4 – Engineer"}};

}  // namespace

SettingsMenu::SettingsMenu(QMainWindow& window, Workbench& workbench, ViewPanel& panel, const UserTalk& user)
    : mWindow(window), mWorkbench(workbench), mPanel(panel), mUser(user) {
  QMenu* const menu = window.menuBar()->addMenu(QString());
  speak(*menu, "title", "&Settings");
  mLevels = menu->addMenu(QString());
  speak(*mLevels, "title", "User &level");
  mLanguages = menu->addMenu(QString());
  speak(*mLanguages, "title", "&Language");
  mUnits = menu->addMenu(QString());
  speak(*mUnits, "title", "&Units");
  mLocales = menu->addMenu(QString());
  speak(*mLocales, "title", "&Decimals and dates");
  menu->addSeparator();
  mLooks = menu->addMenu(QString());
  speak(*mLooks, "title", "&Theme and size");
  speak(*menu->addAction(QString(), &window, [this] { choosePriorities(); }), "text", "&Order of device signals…");
  // Languages may be added while the program runs, so each menu is filled when it opens.
  QObject::connect(mLanguages, &QMenu::aboutToShow, &window, [this] { fillLanguages(); });
  QObject::connect(mUnits, &QMenu::aboutToShow, &window, [this] { fillUnits(); });
  QObject::connect(mLocales, &QMenu::aboutToShow, &window, [this] { fillLocales(); });
  QObject::connect(mLevels, &QMenu::aboutToShow, &window, [this] { fillLevels(); });
  QObject::connect(mLooks, &QMenu::aboutToShow, &window, [this] { fillLooks(); });
}

void SettingsMenu::refresh() {
  fillLanguages();
  fillUnits();
  fillLocales();
  fillLevels();
  fillLooks();
}

void SettingsMenu::fillLanguages() {
  mLanguages->clear();
  for (const TextTables::Language& language : mWorkbench.host().user().textTables().languages())
    addChoice(*mLanguages, qt(language.name), language.code == mWorkbench.settings().language, [this, code = language.code] { setLanguage(code); });
  mLanguages->addSeparator();
  addChoice(*mLanguages, mUser.say("Keys of the text table"), mWorkbench.settings().language == "keys", [this] { setLanguage("keys"); });
}

void SettingsMenu::fillUnits() {
  mUnits->clear();
  const Texts& texts = mWorkbench.texts();
  for (const UnitService::Quantity& quantity : mWorkbench.host().user().units()->quantities()) {
    if (quantity.units.size() < 2) continue;
    // Two spellings of one unit are no choice.
    if (texts.unit(quantity.units[0]) == texts.unit(quantity.units[1])) continue;
    QMenu* const menu = mUnits->addMenu(texts.quantity(quantity.name));
    const std::string& chosen = quantity.chosen.empty() ? quantity.base : quantity.chosen;
    for (const std::string& unit : quantity.units)
      addChoice(*menu, texts.unit(unit), unit == chosen, [this, name = quantity.name, unit] { setUnit(name, unit); });
  }
}

void SettingsMenu::fillLocales() {
  mLocales->clear();
  for (const auto& [name, text] : kLocales)
    addChoice(*mLocales, mUser.say(text), mWorkbench.settings().locale == name, [this, name = std::string(name)] { setLocale(name); });
}

void SettingsMenu::fillLevels() {
  mLevels->clear();
  for (const auto& [level, text] : kLevels)
    addChoice(*mLevels, mUser.say(text), mWorkbench.settings().level == level, [this, level = level] { setLevel(level); });
}

void SettingsMenu::fillLooks() {
  mLooks->clear();
  const Settings& settings = mWorkbench.settings();
  for (const auto& [kind, text] : {std::pair(Theme::Kind::Light, "Light"), std::pair(Theme::Kind::Dark, "Dark")})
    addChoice(*mLooks, mUser.say(text), settings.theme == kind, [this, kind = kind] { mWorkbench.setTheme(kind, mWorkbench.settings().scale); });
  mLooks->addSeparator();
  for (const int percent : {100, 125, 150, 200})
    addChoice(*mLooks, QStringLiteral("%1 %").arg(percent), static_cast<int>(settings.scale * 100.0 + 0.5) == percent,
              [this, percent] { mWorkbench.setTheme(mWorkbench.settings().theme, percent / 100.0); });
}

// What is typed belongs to the settings in which it was typed.

void SettingsMenu::setLanguage(const std::string& code) {
  mPanel.commit();
  mUser.attempt(mUser.say("The language \"%1\" cannot be used; nothing has changed").arg(qt(code)), [&] { mWorkbench.setLanguage(code); });
  refresh();
}

void SettingsMenu::setLocale(const std::string& name) {
  mPanel.commit();
  mUser.attempt(mUser.say("Numbers cannot be written so"), [&] { mWorkbench.setLocale(name); });
  refresh();
}

void SettingsMenu::setLevel(int level) {
  mWorkbench.setLevel(level);
  refresh();
}

void SettingsMenu::setUnit(const std::string& quantity, const std::string& unit) {
  mPanel.commit();
  mUser.attempt(mUser.say("The unit cannot be used"), [&] { mWorkbench.setUnit(quantity, unit); });
  refresh();
}

void SettingsMenu::choosePriorities() {
  if (const auto chosen = PrioritiesDialog::choose(mWindow, mWorkbench.texts(), mWorkbench.settings().priorities)) mWorkbench.setPriorities(*chosen);
}

}  // namespace ostrand
