#include "workbench/render/Theme.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "workbench/render/StateSymbol.h"

namespace ostrand {

namespace {

const Theme::Kind kKinds[] = {Theme::Kind::Light, Theme::Kind::Dark};
const ValueState kStates[] = {ValueState::NotRead, ValueState::Read,      ValueState::ReadFailed, ValueState::Edited,
                              ValueState::Wrong,   ValueState::Corrected, ValueState::ReadOnly,   ValueState::HeldBack};

}  // namespace

TEST(ThemeTest, ContrastIsThatOfTheFormula) {
  EXPECT_NEAR(Theme::contrast(Qt::black, Qt::white), 21.0, 0.01);
  EXPECT_NEAR(Theme::contrast(Qt::white, Qt::white), 1.0, 0.01);
  EXPECT_NEAR(Theme::contrast(QColor("#777777"), Qt::white), 4.48, 0.01);
}

TEST(ThemeTest, EveryTextCanBeReadOnWhatItStandsOn) {
  for (const Theme::Kind kind : kKinds) {
    const Theme theme = Theme::make(kind);
    for (const QColor& ground : {theme.window, theme.surface, theme.field, theme.fieldDisabled, theme.raised, theme.selection})
      for (const QColor& text : {theme.text, theme.secondaryText, theme.error, theme.edited, theme.corrected, theme.disabledText, theme.good,
                                 theme.caution, theme.neutral})
        EXPECT_GE(Theme::contrast(text, ground), 4.5) << text.name().toStdString() << " on " << ground.name().toStdString();
    EXPECT_GE(Theme::contrast(theme.accentText, theme.accent), 4.5);
    EXPECT_GE(Theme::contrast(theme.accentText, theme.accentHover), 4.5);
    EXPECT_GE(Theme::contrast(theme.outline, theme.surface), 3.0) << "the edge of a field";
  }
}

TEST(ThemeTest, EveryStateHasAShapeOfItsOwn) {
  Theme theme = Theme::make(Theme::Kind::Light);
  for (QColor* color : {&theme.good, &theme.error, &theme.edited, &theme.corrected, &theme.caution, &theme.neutral}) *color = Qt::black;
  std::vector<QImage> shapes;
  for (const ValueState state : kStates) {
    QImage shape(72, 72, QImage::Format_RGB32);
    shape.fill(theme.surface);
    QPainter painter(&shape);
    paintState(painter, QRectF(0, 0, 72, 72), state, theme);
    painter.end();
    for (const QImage& other : shapes) {
      int different = 0;
      for (int y = 0; y < 72; ++y)
        for (int x = 0; x < 72; ++x) different += std::abs(qGray(shape.pixel(x, y)) - qGray(other.pixel(x, y))) > 128;
      EXPECT_GT(different, 72 * 72 / 25) << "without colours two states look the same";
    }
    shapes.push_back(shape);
  }
}

TEST(ThemeTest, EveryStateHasAWordInEveryLanguage) {
  for (const char* language : {"en", "fi", "sv", "de"}) {
    QStringList words;
    for (const ValueState state : kStates) words << word(state, language);
    EXPECT_EQ(words.removeDuplicates(), 0) << language;
    EXPECT_FALSE(words.contains(QString())) << language;
  }
}

TEST(ThemeTest, TheStyleSheetHasNoPlaceholderLeft) {
  for (const double scale : {1.0, 1.5, 2.0}) EXPECT_FALSE(Theme::make(Theme::Kind::Dark, scale).styleSheet().contains(QLatin1Char('@')));
  EXPECT_TRUE(Theme::make(Theme::Kind::Light, 2.0).styleSheet().contains(QStringLiteral("padding: 4px 16px")));
}

TEST(ThemeTest, ColoursOfTheModelGoByTheirRole) {
  const Theme dark = Theme::make(Theme::Kind::Dark);
  EXPECT_EQ(dark.color(Color::errorText()), dark.error);
  EXPECT_EQ(dark.color(Color::window()), dark.surface);
  EXPECT_EQ(dark.color({Color::Role::Given, 0x123456}), QColor("#123456"));
}

}  // namespace ostrand
