#pragma once

#include <span>

#include "platform/controls/Members.h"

namespace ostrand {

class CtrAnyEdit;

// The public members of a CtrAnyEdit by their names.
std::span<const Member<CtrAnyEdit>> anyEditMembers();

}  // namespace ostrand
