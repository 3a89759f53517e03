#include "platform/controls/ControlKind.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

using Kind = ControlKind;

TEST(ControlKind, EveryKindIsPlainAnEditOrHasAnObjectOfItsOwn) {
  for (Kind kind : {Kind::Label, Kind::TextBox, Kind::Frame, Kind::CheckBox, Kind::OptionButton, Kind::CommandButton, Kind::ListView,
                    Kind::PictureBox, Kind::Chart, Kind::NoData})
    EXPECT_TRUE(isPlain(kind) && !isEdit(kind) && !isChoice(kind)) << static_cast<int>(kind);
  for (Kind kind : {Kind::TextEdit, Kind::DateEdit, Kind::TimeEdit})
    EXPECT_TRUE(!isPlain(kind) && isEdit(kind) && !isChoice(kind)) << static_cast<int>(kind);
  for (Kind kind : {Kind::ComboEdit, Kind::OptionEdit, Kind::CheckEdit})
    EXPECT_TRUE(!isPlain(kind) && isEdit(kind) && isChoice(kind)) << static_cast<int>(kind);
  for (Kind kind : {Kind::DateLabel, Kind::Nested}) EXPECT_FALSE(isPlain(kind) || isEdit(kind) || isChoice(kind)) << static_cast<int>(kind);
}

TEST(ControlKind, AClassNameTellsEditsAndDateLabels) {
  EXPECT_EQ(kindOfClass("CtrCheckEdit"), Kind::CheckEdit);
  EXPECT_EQ(kindOfClass("CtrDateLabel"), Kind::DateLabel);
  EXPECT_EQ(kindOfClass("ctrDateLabel"), std::nullopt);
  EXPECT_EQ(kindOfClass("Label"), std::nullopt);
}

}  // namespace
}  // namespace ostrand
