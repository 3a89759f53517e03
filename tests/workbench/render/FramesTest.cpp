#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>
#include <QTableView>
#include <functional>
#include <map>

#include "workbench/render/HostedViews.h"
#include "workbench/render/RenderBench.h"

namespace ostrand::test {

namespace {

// Every frame of every view, as the host of a mill shows it, in each language and at each size.
class FramesTest : public PanelBench {
 protected:
  FramesTest() {
    panel.whyDisabled = [](const Control&) { return QStringLiteral("Needs user level 3"); };
  }
  ~FramesTest() override { panel.setView(nullptr); }

  void speak(const char* language) {
    host.user().setLanguage(language);
    desktop.setLocale(language);
    panel.setTexts(host.user().textTable(), language);
  }
  // Calls `look(where)` for each frame of each view.
  void eachFrame(const std::function<void(const std::string&)>& look, const std::vector<const char*>& languages) {
    for (const std::string& name : hosted.classes) {
      const Ref<ViewSite> site = hosted.open(name);
      if (site->view()) {
        panel.setView(Ref<ITaviView>(site->view()));
        for (const char* language : languages) {
          speak(language);
          for (const std::string& key : HostedViews::keysOf(*site)) {
            host.views().bringToFront(*site, key);
            panel.refresh();
            settle();
            look(name + " " + key + " " + language);
          }
        }
        panel.setView(nullptr);
      }
      host.views().release(*site);
    }
  }
  Ref<ViewSite> show(const std::string& key) {
    const Ref<ViewSite> site = hosted.open("VwMeasurement");
    host.views().bringToFront(*site, key);
    panel.setView(Ref<ITaviView>(site->view()));
    speak("en");
    settle();
    return site;
  }

  // What a widget has to show, in its own letters.
  static QString textOf(const QWidget& widget) {
    if (const auto* label = dynamic_cast<const QLabel*>(&widget)) return label->text();
    if (const auto* button = dynamic_cast<const QAbstractButton*>(&widget)) return button->text().replace("&&", "&");
    if (const auto* box = dynamic_cast<const QComboBox*>(&widget)) return box->currentIndex() < 0 ? box->placeholderText() : box->currentText();
    if (const auto* field = dynamic_cast<const QLineEdit*>(&widget)) return field->text();
    return {};
  }
  // What is left of a widget for its text, as its style has it.
  int roomOf(const QWidget& widget) const {
    if (const auto* box = dynamic_cast<const QComboBox*>(&widget)) {
      QStyleOptionComboBox option;
      option.initFrom(box);
      option.editable = false;
      return box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box).width();
    }
    if (const auto* field = dynamic_cast<const QLineEdit*>(&widget)) {
      QStyleOptionFrame option;
      option.initFrom(field);
      option.lineWidth = 1;
      constexpr int kTextMargins = 4;  // of a line edit, both sides
      return field->style()->subElementRect(QStyle::SE_LineEditContents, &option, field).width() - kTextMargins;
    }
    if (dynamic_cast<const QPushButton*>(&widget)) return widget.width() - panel.theme().px(32) - 2;
    if (dynamic_cast<const QAbstractButton*>(&widget)) return widget.width() - panel.theme().px(18 + 10);
    return widget.contentsRect().width();
  }

  void checkPage(const std::string& where) {
    ASSERT_NE(panel.widget(), nullptr) << where;
    std::vector<QWidget*> shown;
    for (QWidget* widget : panel.widget()->findChildren<QWidget*>())
      if (widget->isVisible() && (!textOf(*widget).isEmpty() || dynamic_cast<QTableView*>(widget))) {
        bool part = false;  // of a control: the field inside a combo, the header of a table
        for (QWidget* up = widget->parentWidget(); up && up != panel.widget(); up = up->parentWidget())
          part |= dynamic_cast<QTableView*>(up) || dynamic_cast<QComboBox*>(up);
        if (!part) shown.push_back(widget);
      }
    EXPECT_FALSE(shown.empty()) << where;
    for (QWidget* widget : shown) {
      const QString text = textOf(*widget);
      const QFontMetrics metrics(widget->font());
      const std::string what = where + ": \"" + text.toStdString() + "\"";
      EXPECT_LE(metrics.horizontalAdvance(text), roomOf(*widget)) << what << " is wider than its place";
      EXPECT_LE(text.isEmpty() ? 0 : metrics.height(), widget->height()) << what << " is higher than its place";
      const QRect place(widget->mapTo(panel.widget(), QPoint()), widget->size());
      EXPECT_TRUE(panel.widget()->rect().contains(place)) << what << " stands outside of its frame";
      for (QWidget* other : shown) {
        if (other == widget) break;
        const QRect otherPlace(other->mapTo(panel.widget(), QPoint()), other->size());
        EXPECT_FALSE(place.intersects(otherPlace)) << what << " covers \"" << textOf(*other).toStdString() << "\"";
      }
    }
    for (QTableView* table : panel.widget()->findChildren<QTableView*>())
      if (table->isVisible()) checkTable(*table, where);
  }

  void checkTable(const QTableView& table, const std::string& where) {
    const QFontMetrics metrics(table.font());
    for (int column = 0; column < table.model()->columnCount(); ++column) {
      const QString head = table.model()->headerData(column, Qt::Horizontal).toString();
      EXPECT_LE(QFontMetrics(table.horizontalHeader()->font()).horizontalAdvance(head) + 2 * panel.theme().px(13), table.columnWidth(column))
          << where << head.toStdString();
      for (int row = 0; row < table.model()->rowCount(); ++row) {
        const QModelIndex cell = table.model()->index(row, column);
        EXPECT_LE(metrics.horizontalAdvance(cell.data().toString()) + 2 * panel.theme().px(10), table.columnWidth(column))
            << where << cell.data().toString().toStdString();
        EXPECT_GE(Theme::contrast(cell.data(Qt::ForegroundRole).value<QBrush>().color(), panel.theme().surface), 4.5) << where;
      }
    }
  }

  // The ink of each visible text against what is painted around it, from the picture itself.
  void checkContrast(const std::string& where) {
    const QImage picture = panel.widget()->grab().toImage();
    for (QWidget* widget : panel.widget()->findChildren<QWidget*>()) {
      if (!widget->isVisible() || textOf(*widget).isEmpty() || widget->parentWidget()->inherits("QComboBox")) continue;
      QRect place = QRect(widget->mapTo(panel.widget(), QPoint()), widget->size()).adjusted(4, 4, -4, -4) & picture.rect();
      if (dynamic_cast<QRadioButton*>(widget) || dynamic_cast<QCheckBox*>(widget)) place.setLeft(place.left() + panel.theme().px(26));
      std::map<QRgb, int> colours;
      for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x) ++colours[picture.pixel(x, y)];
      QRgb ground = 0;
      int most = 0;
      for (const auto& [colour, count] : colours)
        if (count > most) most = count, ground = colour;
      double best = 1;
      for (const auto& [colour, count] : colours) best = std::max(best, Theme::contrast(QColor(colour), QColor(ground)));
      EXPECT_GE(best, 4.5) << where << ": \"" << textOf(*widget).toStdString() << "\"";
    }
  }

  HostedViews hosted{desktop};
  Host& host = *hosted.host;
};

}  // namespace

TEST_F(FramesTest, EveryFrameFitsInEveryLanguageAtEverySize) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    use(Theme::make(Theme::Kind::Light, scale));
    eachFrame([&](const std::string& where) { checkPage(where + " at " + std::to_string(scale)); }, {"en", "fi", "sv", "de"});
  }
}

TEST_F(FramesTest, EveryTextStandsOutInBothThemesAlsoWhereItIsDisabled) {
  for (const Theme::Kind kind : {Theme::Kind::Light, Theme::Kind::Dark}) {
    use(Theme::make(kind));
    for (const int level : {2, 3}) {
      host.user().setLevel(level);
      eachFrame([&](const std::string& where) { checkContrast(where + (kind == Theme::Kind::Light ? " light" : " dark")); }, {"en"});
    }
  }
}

TEST_F(FramesTest, ANarrowPanelScrollsInsteadOfClipping) {
  show("activeRecipe");
  panel.resize(200, 120);
  settle();
  checkPage("narrow");
  EXPECT_GT(panel.widget()->width(), panel.viewport()->width());
}

TEST_F(FramesTest, TheLabelNamesItsFieldForWhoDoesNotSeeIt) {
  show("activeRecipe");
  ASSERT_NE(widget("cceActiveRecipe"), nullptr);
  EXPECT_EQ(widget("cceActiveRecipe")->accessibleName(), "Select active recipe");
}

TEST_F(FramesTest, ALiveAnswerIsSeenInTheNestedPanel) {
  show("monitoringVariables");
  auto* table = widget<QTableView>("lsvMonitoring");
  ASSERT_NE(table, nullptr);
  host.views().sites().front()->handIn(
      DataPath::Online, answer("name=\"monitoringVariables\" access=\"read\" isFinal=\"1\"", itemXml("consistency", "5.55", "floatVal")));
  settle();
  EXPECT_EQ(table->model()->index(0, 1).data().toString(), "5.55");
  ASSERT_FALSE(panel.widget()->findChildren<QLabel*>().isEmpty());
  EXPECT_EQ(panel.widget()->findChildren<QLabel*>().front()->text(), "Live values") << "the panel's heading is that of its place";
}

TEST_F(FramesTest, ANestedPanelBeginsWhereTheRowsOfAFrameBegin) {
  const auto topOf = [&](const QWidget& shown) { return shown.mapTo(panel.widget(), QPoint()).y(); };
  show("activeRecipe");
  ASSERT_NE(widget("cceActiveRecipe"), nullptr);
  const int rows = topOf(*widget("cceActiveRecipe"));
  show("monitoringVariables");
  ASSERT_NE(widget<QTableView>("lsvMonitoring"), nullptr);
  EXPECT_NEAR(topOf(*widget<QTableView>("lsvMonitoring")), rows, 1);
}

}  // namespace ostrand::test
