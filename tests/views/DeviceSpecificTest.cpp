#include "views/DeviceSpecific.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/desktop/VirtualDesktop.h"
#include "platform/types/Query.h"
#include "platform/xml/Document.h"
#include "views/CtrDeviceSpecifcFjell.h"
#include "views/CtrDeviceSpecific.h"
#include "views/CtrDeviceSpecificGYRE.h"
#include "views/CtrDeviceSpecificQX5.h"

namespace ostrand {
namespace {

std::vector<Ref<DeviceSpecific>> families(Desktop& desktop) {
  std::vector<Ref<DeviceSpecific>> all;
  for (DeviceSpecific* const each : std::initializer_list<DeviceSpecific*>{new CtrDeviceSpecific, new CtrDeviceSpecifcFjell,
                                                                           new CtrDeviceSpecificGYRE, new CtrDeviceSpecificQX5}) {
    all.emplace_back(each);
    all.back()->Place(desktop, nullptr, "");
  }
  return all;
}

TEST(DeviceSpecificTest, EachFamilyHasTwoPicturesOfItsOwn) {
  VirtualDesktop desktop;
  std::set<std::string> drawings;
  for (const Ref<DeviceSpecific>& family : families(desktop)) {
    for (const Picture& picture : {family->GetDeviceImage("any"), family->GetDeviceLogo("")}) {
      EXPECT_TRUE(drawings.insert(picture.svg).second) << family->objectName();
      EXPECT_EQ(Document::read(picture.svg).root().name(), "svg");
      EXPECT_GE(picture.width, 96);
      EXPECT_GE(picture.height, 96);
    }
    EXPECT_EQ(family->GetDeviceImage("any").svg, family->GetDeviceImage("other").svg) << "the argument is not looked at";
  }
  EXPECT_EQ(drawings.size(), 8u);
}

TEST(DeviceSpecificTest, OffersItsInterfaceAlone) {
  VirtualDesktop desktop;
  for (const Ref<DeviceSpecific>& family : families(desktop)) {
    EXPECT_TRUE(query<ITaviDeviceSpecific>(family.get()));
    EXPECT_FALSE(query<ITaviView>(family.get()));
  }
}

TEST(DeviceSpecificTest, AFailingCallGivesNothing) {
  const Ref<CtrDeviceSpecific> unplaced(new CtrDeviceSpecific);
  EXPECT_EQ(unplaced->GetDeviceImage("").svg, "") << "its pictures are laid in when it is placed";
  EXPECT_EQ(unplaced->GetDeviceLogo("").svg, "");
}

}  // namespace
}  // namespace ostrand
