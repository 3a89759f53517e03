#include "anyedit/AnyEditMembers.h"

#include "anyedit/CtrAnyEdit.h"

namespace ostrand {

namespace {

using Any = CtrAnyEdit;
using Args = MemberArguments;

// clang-format off
constexpr Member<Any> kMembers[] = {
    {"Correct",     "t",  [](Any& at, const Args& v) -> MemberAnswer { return at.Correct(asText(v[0])); }},
    {"Correct",     "tb", [](Any& at, const Args& v) -> MemberAnswer { at.Correct(asText(v[0]), asBool(v[1])); return {}; }},
    {"Modified",    "t",  [](Any& at, const Args& v) -> MemberAnswer { return at.Modified(asText(v[0])); }},
    {"Modified",    "tb", [](Any& at, const Args& v) -> MemberAnswer { at.Modified(asText(v[0]), asBool(v[1])); return {}; }},
    {"Text",        "t",  [](Any& at, const Args& v) -> MemberAnswer { return at.Text(asText(v[0])); }},
    {"Text",        "tt", [](Any& at, const Args& v) -> MemberAnswer { at.Text(asText(v[0]), asText(v[1])); return {}; }},
    {"ToolTipText", "t",  [](Any& at, const Args& v) -> MemberAnswer { return at.ToolTipText(asText(v[0])); }},
    {"ToolTipText", "tt", [](Any& at, const Args& v) -> MemberAnswer { at.ToolTipText(asText(v[0]), asText(v[1])); return {}; }},
    {"ContextTag",  "",   [](Any& at, const Args&)   -> MemberAnswer { return at.ContextTag(); }},
    {"ContextTag",  "t",  [](Any& at, const Args& v) -> MemberAnswer { at.ContextTag(asText(v[0])); return {}; }},
    {"AddAny",      "t",  [](Any& at, const Args& v) -> MemberAnswer { at.AddAny(asText(v[0])); return {}; }},
    {"VerifyEdit",  "tt", [](Any& at, const Args& v) -> MemberAnswer { at.VerifyEdit(asText(v[0]), asText(v[1])); return {}; }},
};
// clang-format on

}  // namespace

std::span<const Member<CtrAnyEdit>> anyEditMembers() { return kMembers; }

}  // namespace ostrand
